#pragma once

#include <QString>

#include <functional>

namespace session {
struct NuclearExamRecord;
}

namespace controls {
class FlexGrid;
}

namespace entry {

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
    /// The price of an exam.
    using Rate = std::function<double(const session::NuclearExamRecord&)>;
    /// How an exam is refused that stands on another line.
    struct RepeatedBox {
        const char* prompt = "Exam already selected.";
        const char* title = "Assessment";
    };

    RequestLineLookup(controls::FlexGrid& grid, Rate rate)
        : RequestLineLookup(grid, std::move(rate), RepeatedBox()) {}
    RequestLineLookup(controls::FlexGrid& grid, Rate rate, const RepeatedBox& repeated)
        : m_grid(grid), m_rate(std::move(rate)), m_repeated(repeated) {}

    /// Lets the list of exams show the price of each. Only for a rate that asks the server nothing.
    void showPrices() { m_showsPrices = true; }

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
    Rate m_rate;
    RepeatedBox m_repeated;
    bool m_showsPrices = false;
};

} // namespace entry
