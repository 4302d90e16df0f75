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
/// The patients of the made-up hospital who have a name of their own; "" for all others.
inline constexpr int oddNameCount = 22;
PersonName oddName(int index);
/// Whether those names can be drawn, or belong to one of those patients.
bool isMadeUp(const QString& lastName, const QString& firstName);

} // namespace demo
