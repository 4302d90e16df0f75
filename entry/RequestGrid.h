#pragma once

#include "entry/RequestColumns.h"
#include "entry/RequestLineLookup.h"
#include "entry/WaitingCells.h"
#include "platform/controls/grid/CellEditor.h"

#include <QObject>

#include <array>
#include <optional>

class QAbstractButton;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;

namespace controls {
class FlexGrid;
}

namespace entry {

/// How a screen picks an exam's rate.
enum class RateRule {
    ByRoomClass, ///< RateA to RateE by the patient's room class; any other class prices at 0
    AlwaysRateA
};

/// Where the request screens differ on their grid.
struct RequestGridVariant {
    RateRule rateRule;
};

inline constexpr RequestGridVariant inPatientGrid{RateRule::ByRoomClass};
inline constexpr RequestGridVariant outPatientGrid{RateRule::AlwaysRateA};
inline constexpr RequestGridVariant assessmentGrid{RateRule::ByRoomClass};

/// The entry grid of the request screens: which cells of a line take an entry, in which order the keys go
/// through them, and how a line is priced and totalled. A cell that was typed in is taken by Enter, and
/// likewise when Tab, Up, Down, a click on another cell or a save leaves it; one that cannot be taken says
/// why and stays open. Escape and scrolling leave it marked until then. The controls belong to the screen.
class RequestGrid : public QObject {
    Q_OBJECT

  public:
    struct Controls {
        controls::FlexGrid* grid;
        QLineEdit* txtEntry;
        QComboBox* cboEntry;
        QLineEdit* txtGross;
        QAbstractButton* cmdSave;
        QAbstractButton* cmdSavePrint;
        /// Says what the current line needs next, in words; null for none.
        QLabel* lblHint = nullptr;
    };

    RequestGrid(const RequestGridVariant& variant, const Controls& parts, QObject* parent);

    /// Headers, widths, rules of the columns; one empty line.
    void layOut();
    /// "A" to "E", or "OPD".
    void setRoomClass(const QString& roomClass) { m_roomClass = roomClass; }

    /// Floats the text box or the list over the current cell, unless its column is skipped.
    void BeginCellEdit() { openCell(Opening::Entered); }
    /// Hides both; the focus goes back to the grid.
    void EndCellEdit();
    /// Takes every cell that was typed in and not taken yet, as Enter would. false: one of them cannot be
    /// taken, or its line is only begun; it was said, and the cell is open.
    bool TakeTypedCells();
    /// To the next cell that takes an entry: in this line, or the first of the next one.
    void AdvanceCell();
    /// The gross amount from column 7 of all lines.
    void recomputeGross();

  private:
    enum class ColumnKind { None, UpperCase, Numeric, Free };
    enum class Opening {
        Entered,      ///< by Enter, a click or typing: a quantity begins at 1
        PassedThrough ///< by a key on its way: what stands there stays
    };

    QString cell(int column) const;
    void setCell(int column, const QString& text);
    void goTo(int column);
    WaitingCells::Cell current() const;
    bool lineIsEmpty() const;
    void openCell(Opening opening);
    void openType();
    void openText(const QString& text);
    void showHint();

    bool gridKey(QKeyEvent* event);
    /// The keys that a typed cell and the list of types have in common: whether it was taken, or none of
    /// them.
    std::optional<bool> openCellKey(QKeyEvent* event);
    bool entryKey(QKeyEvent* event);
    bool listKey(QKeyEvent* event);
    bool rowKey(int key);
    void grid_Click();
    void txtEntry_Change();
    void txtEntry_Enter();
    void cboEntry_Change();
    bool stepCell(int direction);
    void deleteRow();

    bool isLeavable(bool confirmsQuantity);
    bool takeCell();
    bool takeDepartment();
    bool takeQuantity();
    bool takeAmount();
    bool isGoneOnWith(int takenColumn);
    bool isNumber();
    void stayOpen();
    void enterDepartment();
    bool LookUpCellCode();
    LookUp LookUpExamLine(const QString& code);

    controls::FlexGrid& m_grid;
    QLineEdit& m_txtEntry;
    QComboBox& m_cboEntry;
    QLineEdit& m_txtGross;
    QAbstractButton& m_cmdSave;
    QAbstractButton& m_cmdSavePrint;
    QLabel* m_lblHint;
    QString m_roomClass;
    RequestLineLookup m_lookup;
    controls::CellEditor m_editor;
    WaitingCells m_waiting;
    std::optional<WaitingCells::Cell> m_openCell; ///< the last one; none behind an ended edit
    QString m_whenOpened;                         ///< what stood in it then
    std::array<bool, requestColumnCount> SkipColumn{};
    std::array<bool, requestColumnCount> LookupColumn{};
    std::array<ColumnKind, requestColumnCount> ColumnKinds{};
};

} // namespace entry
