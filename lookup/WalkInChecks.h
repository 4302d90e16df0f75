#pragma once

#include <QString>

#include <initializer_list>

namespace controls {
class MaskedDate;
}
class QLineEdit;
class QWidget;

namespace lookup {

/// Widths of the columns of PATIENT_DATA..tbCashPatient, in characters.
inline constexpr int mostOfName = 50;
inline constexpr int mostOfAddress = 100;
inline constexpr int mostOfZipCode = 10;
inline constexpr int mostYears = 150;

struct TextLimit {
    QLineEdit* field;
    const char* what; ///< as the box names it: "Lastname"
    int most;         ///< characters
};

struct RequiredText {
    QLineEdit* field;
    const char* prompt;
};

/// Says why the field is not taken and gives it the focus. What was typed stays.
void refuseField(QWidget* field, const QString& prompt);
/// False, with its prompt, for the first field that is empty or holds blanks.
bool areGiven(std::initializer_list<RequiredText> fields);
/// False, with its box, for the first text that its column cannot hold.
bool areWithin(std::initializer_list<TextLimit> limits);
/// False, with its box, for an age beyond mostYears. No age is none of its business.
bool isLikelyAge(QLineEdit* age);
/// False, with its box, for no day of the calendar, a day to come, and one more than mostYears ago. An empty
/// one is not known, and taken.
bool isLikelyBirthDate(controls::MaskedDate* birthDate);
/// Enter in the field is a Tab, unless its date is not taken.
void likelyDateMovesOn(controls::MaskedDate* birthDate);
/// Digits only get in; anything else is answered with a box. Texts set by code stay as they are.
void refuseLetters(QLineEdit* age);

} // namespace lookup
