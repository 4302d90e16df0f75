#include "charges/ItemGrid.h"

#include "platform/base/Conversion.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/Screen.h"
#include "session/Routines.h"
#include "session/Session.h"
#include "session/services/Services.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>

namespace charges {

using base::Trim;
using base::Val;
using namespace controls;

namespace {

const QString openCode = QStringLiteral("00"); ///< of a line whose amount is typed

constexpr int columnCount = 9;
constexpr int firstLine = 1;
constexpr int exemptColumns[] = {0, 5, 0, 0, 0, 0};

struct ColumnRule {
    int maxLength;
    KeyRules rules;
    const char* prompt; ///< null: the prompt before stays
};

constexpr int anyLength = 32767;

const ColumnRule columnRules[columnCount] = {
    {anyLength, KeyRule::BackQuote, nullptr},
    {5, KeyRule::UpperCase | KeyRule::BackQuote,
     "Type Item Code or first 4 letters of Item Name then Press <Enter>...."},
    {35, KeyRule::UpperCase | KeyRule::BackQuote, nullptr},
    {8, KeyRule::UpperCase | KeyRule::BackQuote,
     "Type Dosage Code or first letters of Dosage Name then Press <Enter>...."},
    {3, KeyRule::Fraction, "Type Quantity to request then Press <Enter>...."},
    {3, KeyRule::Fraction, nullptr},
    {30, KeyRule::UpperCase | KeyRule::BackQuote, "Type Addition Remarks and then Press <Enter>...."},
    {anyLength, KeyRule::BackQuote, nullptr},
    {anyLength, KeyRule::BackQuote, nullptr},
};

constexpr int widths[columnCount] = {450, 1000, 4400, 1100, 1100, 1200, 3600, 1, 1};

constexpr CellEditing editing = {.writesEachChange = false, .inset = 2};

} // namespace

ItemGrid::ItemGrid(const ItemGridVariant& variant, const Controls& parts, QObject* parent)
    : QObject(parent)
    , m_variant(variant)
    , m_grid(*parts.mshflexEntry)
    , m_txtEntry(*parts.txtEntry)
    , m_lblMessage(*parts.lblMessage)
    , m_lblHint(*parts.lblHint)
    , m_txtIdNum(*parts.txtIdNum)
    , m_editor(m_grid, editing, this) {
    m_grid.setEmptyText(QStringLiteral(
        "Type a code or the beginning of a name: Enter finds it and goes on to the next cell."));
    m_editor.add(m_txtEntry);
    noteKeys(&m_grid, {{"Enter, F2", "Opens the cell; in it: takes what is typed and goes on"},
                       {"Up, Down", "In the open cell: to the line above or below"},
                       {"Home, End", "In the open cell: to the column before or behind"},
                       {"Tab", "In the open cell: takes what is typed and goes on"}});
    on(&m_editor, &CellEditor::KeyDown, this, [this](QKeyEvent* event) {
        if (entryKey(*event))
            event->accept();
    });
    on(&m_txtEntry, &QLineEdit::textEdited, this, [this] { m_lblHint.clear(); });
    on(&m_grid, &FlexGrid::KeyDown, this, [this](QKeyEvent* event) {
        if (gridKey(*event))
            event->accept();
    });
    on(&m_grid, &FlexGrid::RowColChange, this, [this] {
        if (!m_moving)
            currentCellChanged();
    });
    on(&m_grid, &FlexGrid::Click, this, [this] {
        if (!m_editor.isOpen())
            enterCell();
        else
            m_txtEntry.setFocus();
    });
}

// ---- in and out of use

void ItemGrid::layOut() {
    const QScopedValueRollback moving(m_moving, true);
    m_grid.setFormatString(
        QStringLiteral("<# |<Code |<Item Description    |<Freq.  |<Quantity|<Amount |<Remarks    |"));
    m_grid.setCols(columnCount);
    m_grid.setRows(2);
    m_grid.setColWidths({std::begin(widths), std::end(widths)});
    LastLine = 1;
    m_grid.setTextMatrix(firstLine, colNumber, QString::number(LastLine));
    m_grid.setCurrentCell(firstLine, colCode);
    m_lblMessage.setText(QString::fromLatin1(columnRules[colCode].prompt));
    putOutOfUse();
}

void ItemGrid::putOutOfUse() {
    m_editor.hide();
    m_grid.setEnabled(false);
    m_txtEntry.setEnabled(false);
}

void ItemGrid::begin() {
    m_grid.setEnabled(true);
    m_txtEntry.setEnabled(true);
    enterCell();
}

void ItemGrid::resume() {
    if (m_editor.isOpen())
        m_txtEntry.setFocus();
    else
        m_grid.setFocus();
}

// ---- the routines of the grid

void ItemGrid::PutTextBox(int column, int row) {
    if (ExcemptCol(column))
        return;
    m_editor.place(m_txtEntry, m_grid.TextMatrix(row, column));
    m_seated = m_txtEntry.text();
    m_seatedRow = row;
    m_seatedColumn = column;
}

bool ItemGrid::ExcemptCol(int column) const {
    return cell(colCode) != openCode && std::ranges::find(exemptColumns, column) != std::end(exemptColumns);
}

bool ItemGrid::CompleteRow(int row) const {
    return std::ranges::none_of(std::initializer_list<int>{colCode, colFrequency, colQuantity, colAmount},
                                [&](int column) { return m_grid.TextMatrix(row, column).isEmpty(); });
}

void ItemGrid::AddRow(int row) {
    const int rows = m_grid.Rows();
    if ((rows >= 3 && !CompleteRow(rows - 1)) || !CompleteRow(row))
        return;
    ++LastLine;
    m_grid.AddItem(QString::number(LastLine));
}

void ItemGrid::DeleteRow(int row) {
    m_editor.close();
    {
        const QScopedValueRollback moving(m_moving, true);
        if (row == m_grid.FixedRows()) {
            for (int column = colCode; column <= colRemarks; ++column)
                setCell(column, {});
        } else {
            m_grid.RemoveItem(row);
            --LastLine;
        }
        m_grid.setCurrentCell(m_grid.Rows() - 1, m_grid.Col());
    }
    enterCell();
}

void ItemGrid::DeleteCurrentRow() {
    m_editor.close();
    {
        const QScopedValueRollback moving(m_moving, true);
        if (m_grid.Rows() >= 3) {
            m_grid.RemoveItem(m_grid.Row());
        } else {
            for (int column = colCode; column < m_grid.Cols(); ++column)
                setCell(column, {});
        }
        for (int row = firstLine; row < m_grid.Rows(); ++row)
            m_grid.setTextMatrix(row, colNumber, QString::number(row));
        LastLine = m_grid.Rows() - 1;
    }
    enterCell();
}

bool ItemGrid::Check_Code(const QString& code) const {
    for (int row = firstLine; row <= m_grid.Rows() - 2; ++row) {
        if (row != m_grid.Row() && Trim(m_grid.TextMatrix(row, colCode)) == Trim(code))
            return true;
    }
    return false;
}

bool ItemGrid::QualifiedRow(int row) const {
    for (int column = colCode; column < m_grid.Cols(); ++column) {
        if (!Trim(m_grid.TextMatrix(row, column)).isEmpty())
            return true;
    }
    return false;
}

QString ItemGrid::cell(int column) const {
    return m_grid.TextMatrix(m_grid.Row(), column);
}

void ItemGrid::setCell(int column, const QString& text) {
    m_grid.setTextMatrix(m_grid.Row(), column, text);
}

// ---- from cell to cell

bool ItemGrid::isTyped() const {
    return m_editor.isOpen() && m_txtEntry.text() != m_seated;
}

void ItemGrid::leaveCell() {
    m_editor.close();
    m_txtEntry.clear();
    m_seated.clear();
    if (m_grid.Col() < colReserved && CompleteRow(m_grid.Row()))
        AddRow(m_grid.Row());
}

void ItemGrid::enterCell() {
    const ColumnRule& rule = columnRules[m_grid.Col()];
    m_txtEntry.setMaxLength(rule.maxLength);
    setKeyRules(&m_txtEntry, rule.rules);
    PutTextBox(m_grid.Col(), m_grid.Row());
    if (!m_editor.isOpen())
        return;
    m_txtEntry.setFocus();
    SelectAllText(&m_txtEntry);
    if (rule.prompt)
        m_lblMessage.setText(QString::fromLatin1(rule.prompt));
}

void ItemGrid::goTo(int row, int column) {
    if (row != m_grid.Row() || column != m_grid.Col()) {
        leaveCell();
        const QScopedValueRollback moving(m_moving, true);
        m_grid.setCurrentCell(row, column);
    }
    enterCell();
}

/// One of the keys that take nothing.
void ItemGrid::stepTo(int row, int column) {
    sayNotTaken();
    goTo(row, column);
}

void ItemGrid::sayNotTaken() {
    if (!isTyped())
        return;
    look::setKind(&m_lblHint, QStringLiteral("warn"));
    m_lblHint.setText(
        QStringLiteral("Line %1: %2 \"%3\" was not taken. Enter takes a cell.")
            .arg(cell(colNumber), Trim(m_grid.TextMatrix(0, m_grid.Col())), m_txtEntry.text().left(12)));
}

/// By the mouse, or by a key on the grid itself. What was typed is taken first, or the cell is not left.
void ItemGrid::currentCellChanged() {
    const int row = m_grid.Row();
    const int column = m_grid.Col();
    const QScopedValueRollback moving(m_moving, true);
    if (m_seatedRow < m_grid.Rows()) {
        m_grid.setCurrentCell(m_seatedRow, m_seatedColumn);
        if (isTyped() && accept() == Accepted::No) {
            m_txtEntry.setFocus();
            return;
        }
        leaveCell();
    }
    m_grid.setCurrentCell(row, column);
    m_seatedRow = row;
    m_seatedColumn = column;
    enterCell();
}

/// The next column that is not skipped; the current one at either end.
int ItemGrid::columnBeside(int direction) const {
    int column = m_grid.Col() + direction;
    while (column >= colCode && column < m_grid.Cols() && ExcemptCol(column))
        column += direction;
    return column >= colCode && column < m_grid.Cols() ? column : m_grid.Col();
}

// ---- keys

bool ItemGrid::entryKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Tab && isTyped()) {
        if (accept() == Accepted::Yes)
            moveOn();
        return true;
    }
    if (event.key() == Qt::Key_Backtab && isTyped())
        return !TakeTyped();
    if (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier))
        return false;
    const int row = m_grid.Row();
    const int column = m_grid.Col();
    switch (event.key()) {
    case Qt::Key_Home:
        stepTo(row, columnBeside(-1));
        return true;
    case Qt::Key_End:
        stepTo(row, columnBeside(1));
        return true;
    case Qt::Key_Up:
        stepTo(qMax(firstLine, row - 1), column);
        return true;
    case Qt::Key_Down:
        stepTo(qMin(m_grid.Rows() - 1, row + 1), column);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        stepTo(row, column);
        return true;
    default:
        break;
    }
    if (!isEnter(event.key()))
        return false;
    if (!isHeldEnter(event) && accept() == Accepted::Yes)
        moveOn();
    return true;
}

/// The grid reached by Tab: Enter, F2 or typing goes into the box.
bool ItemGrid::gridKey(const QKeyEvent& event) {
    const bool types = typesText(event);
    if (!types && !isEnter(event.key()) && event.key() != Qt::Key_F2)
        return false;
    if (!isTyped())
        enterCell();
    m_txtEntry.setFocus();
    if (types)
        m_editor.type(event);
    return true;
}

// ---- to take what was typed

bool ItemGrid::TakeTyped() {
    if (!isTyped())
        return true;
    if (accept() == Accepted::No) {
        m_txtEntry.setFocus();
        return false;
    }
    if (m_grid.Col() < colReserved && CompleteRow(m_grid.Row()))
        AddRow(m_grid.Row());
    PutTextBox(m_grid.Col(), m_grid.Row());
    return true;
}

ItemGrid::Accepted ItemGrid::accept() {
    m_lblHint.clear();
    switch (m_grid.Col()) {
    case colCode:
        return acceptCode();
    case colFrequency:
        return acceptDosage();
    case colQuantity:
        return acceptQuantity();
    case colDescription:
    case colRemarks:
        setCell(m_grid.Col(), m_txtEntry.text());
        return Accepted::Yes;
    default:
        return Accepted::Yes; // an amount keeps its value, whatever was typed over it
    }
}

ItemGrid::Accepted ItemGrid::acceptCode() {
    QString text = Trim(m_txtEntry.text());
    if (text == openCode) {
        m_txtEntry.clear();
        return Accepted::Yes;
    }
    const bool isCode = Val(text) != 0;
    if (!isCode) {
        session::gFormulist->ListTitle = QString::fromLatin1(m_variant.listTitle);
        text = m_variant.isSupply
                   ? session::gFormulist->ShowList(text, QLatin1String(session::clsFormulist::centralSupply))
                   : session::gFormulist->ShowList(text);
        if (text.isEmpty())
            return Accepted::No;
    }
    session::clsDrug& drug = session::gDispense->Drug;
    const bool found = m_variant.isSupply
                           ? drug.SearchDrug(text, QString::fromLatin1(session::clsFormulist::centralSupply))
                           : drug.SearchDrug(text, session::clsDrug::pharmacy);
    if (!found) {
        MsgBox(QStringLiteral("Code Not Exists!"));
        return Accepted::No;
    }
    if (drug.Status) {
        MsgBox(QStringLiteral("Record is inactive...please reenter..."), vbExclamation,
               QStringLiteral("Message"));
        return Accepted::No;
    }
    const QString code = drug.DrugCode;
    m_txtEntry.setText(code);
    if (Check_Code(code)) {
        MsgBox(QString::fromLatin1(isCode ? m_variant.duplicateOfCode : m_variant.duplicateFromList));
        m_txtEntry.clear();
        return Accepted::No;
    }
    if (!isOpenToRequest(code)) {
        m_txtEntry.clear();
        return Accepted::No;
    }
    fillLine(code);
    return Accepted::Yes;
}

/// OK to the first question drops the item; so does No to the second.
bool ItemGrid::isOpenToRequest(const QString& code) {
    const QString type = QString::fromLatin1(m_variant.requestType);
    return !session::CheckExamRequested(m_txtIdNum.text(), code, type) &&
           !session::CheckExamPosted(m_txtIdNum.text(), code, type);
}

void ItemGrid::fillLine(const QString& code) {
    const session::clsDrug& drug = session::gDispense->Drug;
    setCell(colCode, code);
    setCell(colDescription, drug.DrugName);
    setCell(colAmount, base::CStr(drug.Invent.SellingPriceIn));
    setCell(colUnitPrice,
            base::CStr(m_variant.isSupply ? drug.Invent.SellingPriceOut : drug.Invent.SellingPriceIn));
    setCell(colFrequency, QStringLiteral("PRN"));
    setCell(colQuantity, QStringLiteral("1"));
}

ItemGrid::Accepted ItemGrid::acceptDosage() {
    session::gCodeFind->SearchMode = true;
    if (!session::gCodeFind->SearchListing(m_txtEntry.text(), session::clsLookupPad::dosages)) {
        MsgBox(QStringLiteral("Dosage Code Does not Exist !"));
        return Accepted::No;
    }
    setCell(colFrequency, session::gCodeFind->DosageRecord.ResultCode);
    setCell(colQuantity, session::gCodeFind->DosageRecord.Frequency);
    return Accepted::Yes;
}

ItemGrid::Accepted ItemGrid::acceptQuantity() {
    if (Val(m_txtEntry.text()) <= 0) {
        MsgBox(QStringLiteral("Quantity should be greater than zero!"));
        return Accepted::No;
    }
    setCell(colQuantity, m_txtEntry.text());
    setCell(colAmount, base::CStr(Val(cell(colUnitPrice)) * Val(cell(colQuantity))));
    return Accepted::Yes;
}

/// Behind every Enter that was accepted.
void ItemGrid::moveOn() {
    const int row = m_grid.Row();
    const int column = m_grid.Col();
    if (column < colReserved && CompleteRow(row))
        AddRow(row);
    if (column == colRemarks)
        goTo(qMin(row + 1, m_grid.Rows() - 1), colCode);
    else
        goTo(row, columnBeside(1));
}

} // namespace charges
