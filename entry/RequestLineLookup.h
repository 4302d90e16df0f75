#pragma once

#include <QString>

namespace controls {
class FlexGrid;
}

namespace entry {

/// How a screen picks an exam's rate.
enum class RateRule {
    ByRoomClass, ///< RateA to RateE by the patient's room class; any other class prices at 0
    AlwaysRateA
};

enum class LookUp {
    Found,
    NotFound,
    NoRecord, ///< the server had no row to read
    Duplicate ///< it stands on another line, which was said; nothing but the routine price was filled
};

/// Finds out what the current line of a request grid is, and fills it: its department, its exam, doctor or
/// item, its price. Nothing is filled of what is not found. Where the clerk goes then is the grid's.
class RequestLineLookup {
  public:
    RequestLineLookup(controls::FlexGrid& grid, RateRule rateRule) : m_grid(grid), m_rateRule(rateRule) {}

    /// "A" to "E", or "OPD".
    void setRoomClass(const QString& roomClass) { m_roomClass = roomClass; }

    bool LookUpDepartment(const QString& code);
    /// An error of the search is said in a box; it is NotFound then.
    LookUp LookUpExamLine(const QString& code);
    bool LookUpDoctorLine(const QString& code);
    bool LookUpInventoryLine(const QString& code);

  private:
    QString cell(int column) const;
    void setCell(int column, const QString& text);
    LookUp readExamLine(const QString& code);
    bool isOnAnotherRow(const QString& code) const;

    controls::FlexGrid& m_grid;
    RateRule m_rateRule;
    QString m_roomClass;
};

} // namespace entry
