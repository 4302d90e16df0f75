#pragma once

#include "platform/controls/grid/CellEditor.h"

#include <QObject>

class QKeyEvent;
class QLabel;
class QLineEdit;

namespace controls {
class FlexGrid;
}

namespace charges {

enum ItemColumn {
    colNumber,
    colCode,
    colDescription,
    colFrequency,
    colQuantity,
    colAmount,
    colRemarks,
    colReserved, ///< goes along in the save; nothing fills it
    colUnitPrice
};

/// Where the two stores differ on the grid.
struct ItemGridVariant {
    const char* requestType; ///< "PH" or "CS"
    const char* listTitle;
    bool isSupply;                 ///< of the central supply, else of the pharmacy
    const char* duplicateOfCode;   ///< said of a code that was typed
    const char* duplicateFromList; ///< said of one that was picked
};

/// The entry grid of the requests to pharmacy and central supply: one text box that rides over the current
/// cell. Enter takes what was typed into the cell and goes on; a refusal leaves box and line as they are. Six
/// more keys go from cell to cell without taking anything. The controls belong to the screen.
class ItemGrid : public QObject {
    Q_OBJECT

  public:
    struct Controls {
        controls::FlexGrid* mshflexEntry;
        QLineEdit* txtEntry;
        QLabel* lblMessage; ///< what to type here
        QLabel* lblHint;    ///< what was typed and not taken
        const QLineEdit* txtIdNum;
    };

    ItemGrid(const ItemGridVariant& variant, const Controls& parts, QObject* parent);

    /// Headers, widths, one empty line; out of use until begin().
    void layOut();
    /// The grid comes into use, and the box takes the focus.
    void begin();
    void putOutOfUse();
    /// The focus back to the box, with what stands in it.
    void resume();
    /// Takes what stands in the box and was not taken yet, as Enter would. False: it was refused, which was
    /// said.
    bool TakeTyped();
    /// The current line goes; the last one is emptied instead. All lines are numbered anew.
    void DeleteCurrentRow();

    /// Floats the box over the current cell, with the text of that cell in it, unless the column is skipped.
    void PutTextBox(int column, int row);
    /// Whether the cursor skips the column: amounts, but for a line of the code "00".
    bool ExcemptCol(int column) const;
    /// Code, frequency, quantity and amount stand there.
    bool CompleteRow(int row) const;
    /// An empty line at the end, unless the last one or `row` is still incomplete.
    void AddRow(int row);
    /// The first line is emptied, any other goes; the box goes to the last line. Numbers stay as they are.
    void DeleteRow(int row);
    /// Another line has the code; the last line is not looked at.
    bool Check_Code(const QString& code) const;
    /// Something stands in the line.
    bool QualifiedRow(int row) const;

  private:
    enum class Accepted { No, Yes };

    QString cell(int column) const;
    void setCell(int column, const QString& text);
    bool isTyped() const;
    bool entryKey(const QKeyEvent& event);
    bool gridKey(const QKeyEvent& event);
    void currentCellChanged();
    void stepTo(int row, int column);
    void goTo(int row, int column);
    void leaveCell();
    void enterCell();
    void sayNotTaken();
    int columnBeside(int direction) const;

    Accepted accept();
    Accepted acceptCode();
    Accepted acceptDosage();
    Accepted acceptQuantity();
    bool isOpenToRequest(const QString& code);
    void fillLine(const QString& code);
    void moveOn();

    const ItemGridVariant& m_variant;
    controls::FlexGrid& m_grid;
    QLineEdit& m_txtEntry;
    QLabel& m_lblMessage;
    QLabel& m_lblHint;
    const QLineEdit& m_txtIdNum;
    controls::CellEditor m_editor;
    QString m_seated; ///< what stood in the box when it was put there
    int m_seatedRow = 1;
    int m_seatedColumn = colCode;
    bool m_moving = false;
    int LastLine = 1;
};

} // namespace charges
