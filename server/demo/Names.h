#pragma once

#include "server/demo/Chance.h"

#include <QString>

#include <span>

namespace demo {

/// Word lists in UTF-8, upper-cased as the clerks key them.
std::span<const char* const> lastNames();
std::span<const char* const> maleNames();
std::span<const char* const> femaleNames();
std::span<const char* const> streets();
std::span<const char* const> barangays();

struct Town {
    const char* zipCode;
    const char* town;
    const char* province;
};
std::span<const Town> towns();

struct PersonName {
    QString last;
    QString first;
    QString middle;
    bool female = false;
};
/// One name in five has two given names, one in nine a compound last name.
PersonName drawName(Chance& chance);

} // namespace demo
