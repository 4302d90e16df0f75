#pragma once

#include <QString>

#include <span>

namespace demo {

struct Exam {
    const char* code;
    const char* name;
    /// "" generic, "G" GFR, "R" radio-immunoassay, "T" therapy; null where the file holds none.
    const char* formType;
    const char* section;
    const char* classification;
    double rateA;
    bool fixedRate;
};
std::span<const Exam> exams();
/// To the nearest ten.
double roundedRate(double amount);
/// By class "A" to "E"; 0 for any other.
double examRate(const Exam& exam, const QString& roomClass);

struct Item {
    const char* code;
    const char* name;
    const char* generic;
    const char* itemClass; ///< "PH" or "CS"
    const char* unit;
    double price;
};
std::span<const Item> items();

struct Room {
    const char* roomID;
    const char* roomClass;
    const char* station;
};
std::span<const Room> rooms();
/// A room that stays are in and the file of rooms does not know.
inline constexpr const char* unknownRoom = "X99";

/// Account numbers of the companies; the first three are HMOs.
std::span<const char* const> companyAccounts();

struct Doctor {
    const char* last;
    const char* first;
    const char* middle;
    const char* specialty;
};
inline constexpr int doctorCount = 30;
std::span<const Doctor> doctors();
QString doctorCode(int index);
QString doctorName(int index);
/// What a doctor gets of a fee, in hundredths.
double feePercentage(const QString& revenue);

} // namespace demo
