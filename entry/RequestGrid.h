#pragma once

#include "entry/RequestColumns.h"

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

/// The entry grid of the request screens: a grid without cell editing, a text box and a list that float over
/// its current cell, and the rules by which a line is looked up, priced and totalled. The controls belong to
/// the screen.
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
    };

    RequestGrid(const RequestGridVariant& variant, const Controls& parts, QObject* parent);

    /// Headers, widths, rules of the columns; one empty line.
    void layOut();
    /// "A" to "E", or "OPD".
    void setRoomClass(const QString& roomClass) { m_roomClass = roomClass; }

    /// Floats the text box or the list over the current cell, unless its column is skipped.
    void BeginCellEdit();
    /// Hides both; the focus goes back to the grid.
    void EndCellEdit();
    /// To the next cell that takes an entry: in this line, or the first of the next one.
    void AdvanceCell();
    /// The gross amount from column 7 of all lines.
    void recomputeGross();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class LookUp { Found, NotFound, Duplicate };
    enum class ColumnKind { None, UpperCase, Numeric, Free };

    QString cell(int column) const;
    void setCell(int column, const QString& text);
    void goTo(int column);
    bool isEditing() const;

    bool gridKey(QKeyEvent* event);
    /// The keys that a typed cell and the list of types have in common: whether it was taken, or none of
    /// them.
    std::optional<bool> openCellKey(QKeyEvent* event);
    bool entryKey(QKeyEvent* event);
    bool listKey(QKeyEvent* event);
    bool rowKey(int key);
    void grdPackage_Scroll();
    void leaveCell();
    void txtEntry_Change();
    void txtEntry_Enter();
    void cboEntry_Change();
    bool stepCell(int direction);
    void deleteRow();

    void enterDepartment();
    void enterQuantity();
    void LookUpCellCode();
    LookUp LookUpExamLine(const QString& code);
    LookUp readExamLine(const QString& code);
    bool LookUpDoctorLine(const QString& code);
    bool LookUpInventoryLine(const QString& code);
    bool isOnAnotherRow(const QString& code) const;

    RequestGridVariant m_variant;
    controls::FlexGrid& m_grid;
    QObject* m_header; ///< of the grid; compared only, it goes with the grid
    QLineEdit& m_txtEntry;
    QComboBox& m_cboEntry;
    QLineEdit& m_txtGross;
    QAbstractButton& m_cmdSave;
    QAbstractButton& m_cmdSavePrint;
    QString m_roomClass;
    bool m_placing = false; ///< the editor follows its cell
    std::array<bool, requestColumnCount> SkipColumn{};
    std::array<bool, requestColumnCount> LookupColumn{};
    std::array<ColumnKind, requestColumnCount> ColumnKinds{};
};

} // namespace entry
