#pragma once

#include "platform/ado/Statement.h"

#include <array>
#include <span>

namespace results {

/// Given names of fields, in the order of the screen.
using FieldNames = std::span<const char* const>;

/// Sources of a save's arguments that are no field of the screen.
namespace source {
inline constexpr const char* requestNum = "RequestNum";
inline constexpr const char* patientType = "PatientType";
inline constexpr const char* itemCode = "ItemCode";
inline constexpr const char* encoder = "employeecode";    ///< of the user logged on
inline constexpr const char* resultMoment = "ResultDate"; ///< the result date and the workstation's time
} // namespace source

/// One argument of a save: a field by its given name, or one of `source`.
struct Argument {
    const char* from;
    bool trimmed = false;
};

/// The text of a save with its arguments in their order: as many as the text has places, which is checked
/// when it is compiled. The arguments must live as long as the program.
class SaveStatement {
  public:
    template <std::size_t Count>
    consteval SaveStatement(ado::StatementPattern<Count> text, const std::array<Argument, Count>& arguments)
        : m_text(text.text()), m_arguments(arguments) {}

    const char* text() const { return m_text; }
    std::span<const Argument> arguments() const { return m_arguments; }

  private:
    const char* m_text;
    std::span<const Argument> m_arguments;
};

/// Enter in `from` moves the focus to `to`.
struct EnterMove {
    const char* from;
    const char* to;
};

/// A doctor's code and name, filled by one lookup.
struct DoctorFields {
    const char* code;
    const char* name;
};

/// Enter in a code box runs a lookup: 1 or 2.
struct EnterLookup {
    const char* code;
    int browse;
};

/// Where the result screens differ.
struct ResultVariant {
    SaveStatement save;
    ado::QueryTemplate caseNumberCheck; ///< "##" is the case number
    bool trimsCheckedNumber;            ///< the case number is trimmed for its check
    const char* report;                 ///< file below Reports
    DoctorFields browse1;
    DoctorFields browse2;
    FieldNames symbols;    ///< F5 inserts a symbol
    FieldNames backQuotes; ///< ' becomes `
    std::span<const EnterMove> enterMoves;
    std::span<const EnterLookup> enterLookups;
    FieldNames cleared;       ///< by btnClear
    FieldNames edited;        ///< enabled again by btnEdit
    bool revocationIsTrapped; ///< a failed revocation is rolled back and said; else it stops the program
};

} // namespace results
