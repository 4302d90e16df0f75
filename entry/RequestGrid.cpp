#include "entry/RequestGrid.h"

#include "lookup/RateSelection.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/Screen.h"
#include "session/Session.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace entry {

using base::Format;
using base::Val;
using namespace controls;

namespace {

struct ColumnLayout {
    int column;
    const char* header;
    int twips;
};

constexpr std::array columnLayout{
    ColumnLayout{colLineNumber, "", 200},
    ColumnLayout{colDepartment, "Department", 1000},
    ColumnLayout{colCode, "Code", 1000},
    ColumnLayout{colParticular, "Particular", 4000},
    ColumnLayout{colType, "Type", 1500},
    ColumnLayout{colPrice, "Price", 1000},
    ColumnLayout{colQuantity, "Quantity", 1000},
    ColumnLayout{colAmount, "Amount", 1000},
    ColumnLayout{colWithItems, "With Items", 0},
    ColumnLayout{colAmountEditable, "", 0},
    ColumnLayout{colSearchInventory, "", 0},
    ColumnLayout{colLink, "", 0},
    ColumnLayout{colInventoryCode, "Inventory Code", 0},
    ColumnLayout{colRoutinePrice, "RoutinePrice", 0},
    ColumnLayout{colNothing, "", 0},
    ColumnLayout{colPackageCode, "", 0},
    ColumnLayout{colLast, "", 0},
};

constexpr int ownKeys[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F3};

constexpr CellEditing editing = {.closesWhenMoved = true, .ownKeys = ownKeys};

bool isBackTab(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
}

} // namespace

RequestGrid::RequestGrid(const RequestGridVariant& variant, const Controls& parts, QObject* parent)
    : QObject(parent)
    , m_grid(*parts.grid)
    , m_txtEntry(*parts.txtEntry)
    , m_cboEntry(*parts.cboEntry)
    , m_txtGross(*parts.txtGross)
    , m_cmdSave(*parts.cmdSave)
    , m_cmdSavePrint(*parts.cmdSavePrint)
    , m_lblHint(parts.lblHint)
    , m_lookup(m_grid,
               [this, rule = variant.rateRule](const session::NuclearExamRecord& exam) {
                   return lookup::rateForClass(exam, rule == RateRule::ByRoomClass ? m_roomClass
                                                                                   : QStringLiteral("A"));
               })
    , m_editor(m_grid, editing, this)
    , m_waiting(m_grid) {
    m_grid.setEmptyText(
        QStringLiteral("Type a department code: Enter opens its list and goes on to the next cell."));
    m_cboEntry.addItems({QStringLiteral("ROUTINE"), QStringLiteral("STAT")});
    m_lookup.showPrices();
    m_editor.add(m_txtEntry);
    m_editor.add(m_cboEntry);
    noteKeys(&m_grid, {{"Enter, F2", "Opens the cell; in it: takes what is typed and goes on"},
                       {"Letters, digits", "Open the cell and are typed there"},
                       {"F3", "Deletes the line"},
                       {"Esc", "Leaves the open cell"},
                       {"Up, Down", "In the open cell: to the line above or below"},
                       {"Tab, Shift+Tab", "In the open cell: to the next cell or the one before"},
                       {"R, S", "In the type: ROUTINE, STAT"}});
    on(&m_editor, &CellEditor::KeyDown, this, [this](QKeyEvent* event) {
        if (m_editor.editor() == &m_cboEntry ? listKey(event) : entryKey(event))
            event->accept();
    });
    on(&m_grid, &FlexGrid::KeyDown, this, [this](QKeyEvent* event) {
        if (gridKey(event))
            event->accept();
    });
    on(&m_editor, &CellEditor::Closed, this, [this] { showHint(); });
    on(&m_grid, &FlexGrid::RowColChange, this, [this] { showHint(); });
    on(&m_grid, &FlexGrid::Click, this, [this] { grid_Click(); });
    on(&m_txtEntry, &QLineEdit::textChanged, this, [this] { txtEntry_Change(); });
    on(&m_cboEntry, &QComboBox::currentTextChanged, this, [this] { cboEntry_Change(); });
    on(&m_cboEntry, &QComboBox::activated, this, [this] { cboEntry_Change(); });
}

void RequestGrid::layOut() {
    m_grid.setFixedRows(1);
    m_grid.setFixedCols(1);
    m_grid.setRows(2);
    m_grid.setCols(requestColumnCount);
    std::vector<int> widths(requestColumnCount);
    for (const ColumnLayout& column : columnLayout) {
        m_grid.setTextMatrix(0, column.column, QString::fromLatin1(column.header));
        widths[std::size_t(column.column)] = column.twips;
    }
    m_grid.setColWidths(widths);
    for (const int column : {colPrice, colQuantity, colAmount})
        m_grid.setColAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    m_grid.setShowRowNumbers(true);

    SkipColumn.fill(false);
    SkipColumn[colParticular] = SkipColumn[colPrice] = true;
    for (int column = colAmount; column <= colRoutinePrice; ++column)
        SkipColumn[size_t(column)] = true;
    LookupColumn.fill(false);
    LookupColumn[colCode] = true;
    ColumnKinds.fill(ColumnKind::None);
    ColumnKinds[colDepartment] = ColumnKinds[colCode] = ColumnKind::UpperCase;
    ColumnKinds[colQuantity] = ColumnKind::Numeric;
    ColumnKinds[colPrice] = ColumnKind::Free;
    m_grid.setCurrentCell(1, colDepartment);
}

// ---- the cell that is edited

void RequestGrid::openCell(Opening opening) {
    const int column = m_grid.Col();
    if (m_grid.Row() < 1 || column < 1)
        return;
    m_openCell.reset();
    if (isFeeRevenue(cell(colDepartment)))
        SkipColumn[colType] = SkipColumn[colQuantity] = SkipColumn[colAmount] = false;
    m_editor.hide();
    if (SkipColumn[size_t(column)] || m_grid.ColWidth(column) == 0)
        m_grid.setFocus();
    else if (column == colType)
        openType();
    else if (column == colQuantity &&
             (opening == Opening::Entered || (m_grid.Text().isEmpty() && !lineIsEmpty())))
        openText(QStringLiteral("1"));
    else
        openText(m_grid.Text());
    showHint();
}

/// Nobody's line yet; a save posts it as it is.
bool RequestGrid::lineIsEmpty() const {
    return cell(colDepartment).isEmpty() && cell(colCode).isEmpty();
}

void RequestGrid::openType() {
    // A procedure that was looked up is routine until the clerk says otherwise, and priced by its type; other
    // lines show what they hold.
    const bool isProcedure = cell(colDepartment) == session::gDeptCode && !cell(colRoutinePrice).isEmpty();
    const QString type = isProcedure && cell(colType).isEmpty() ? QStringLiteral("ROUTINE") : cell(colType);
    {
        const QSignalBlocker opening(m_cboEntry); // to look at another line's type prices nothing
        m_cboEntry.setCurrentIndex(m_cboEntry.findText(type));
    }
    if (isProcedure)
        cboEntry_Change();
    m_editor.open(m_cboEntry);
}

void RequestGrid::openText(const QString& text) {
    const int column = m_grid.Col();
    KeyRules rules = KeyRule::BackQuote;
    if (ColumnKinds[size_t(column)] == ColumnKind::UpperCase)
        rules |= KeyRule::UpperCase;
    if (ColumnKinds[size_t(column)] == ColumnKind::Numeric)
        rules |= KeyRule::Number;
    setKeyRules(&m_txtEntry, rules);
    m_txtEntry.setAlignment(column >= colPrice ? Qt::AlignRight : Qt::AlignLeft);
    m_whenOpened = m_grid.Text();
    m_openCell = current();
    m_editor.open(m_txtEntry, text);
    m_waiting.noteText(current(), m_whenOpened);
}

void RequestGrid::EndCellEdit() {
    m_openCell.reset();
    m_editor.close();
}

void RequestGrid::AdvanceCell() {
    if (cell(colAmountEditable) == u"Y")
        SkipColumn[colAmount] = false;
    int next = m_grid.Col() + 1;
    if (isFeeRevenue(cell(colDepartment))) {
        SkipColumn[colAmount] = false;
        next = m_grid.Col() + 4;
    }
    while (next <= colQuantity && SkipColumn[size_t(next)])
        ++next;
    if (next <= colQuantity) {
        goTo(next);
        return;
    }
    const int row = m_grid.Row();
    if (row == m_grid.Rows() - 1)
        m_grid.AddItem({});
    next = colDepartment;
    while (SkipColumn[size_t(next)])
        ++next;
    m_grid.setCurrentCell(row + 1, next);
    BeginCellEdit();
}

void RequestGrid::recomputeGross() {
    double gross = 0;
    for (int row = 1; row < m_grid.Rows(); ++row)
        gross += Val(m_grid.TextMatrix(row, colAmount));
    m_txtGross.setText(Format(gross, amountFormat));
}

WaitingCells::Cell RequestGrid::current() const {
    return {m_grid.Row(), m_grid.Col()};
}

QString RequestGrid::cell(int column) const {
    return m_grid.TextMatrix(m_grid.Row(), column);
}

void RequestGrid::setCell(int column, const QString& text) {
    m_grid.setTextMatrix(m_grid.Row(), column, text);
}

void RequestGrid::goTo(int column) {
    m_grid.setCurrentCell(m_grid.Row(), column);
    BeginCellEdit();
}

void RequestGrid::deleteRow() {
    const bool wasEditing = m_editor.isOpen();
    m_openCell.reset();
    m_editor.hide();
    if (m_grid.Rows() == 2)
        m_grid.AddItem({}); // the grid always offers a line
    m_grid.RemoveItem(m_grid.Row());
    recomputeGross();
    if (wasEditing)
        openCell(Opening::PassedThrough);
    showHint();
}

void RequestGrid::showHint() {
    if (!m_lblHint || m_grid.Cols() < requestColumnCount)
        return;
    const bool takesAmount = cell(colAmountEditable) == u"Y" || isFeeRevenue(cell(colDepartment));
    const QString waits = m_waiting.sentence(m_editor.isOpen() ? m_openCell : std::nullopt);
    look::setKind(m_lblHint, waits.isEmpty() ? QStringLiteral("help") : QStringLiteral("warn"));
    m_lblHint->setText(!waits.isEmpty() ? waits
                       : takesAmount    ? QStringLiteral("Tab - from Quantity to Amount")
                                        : QString());
}

// ---- what is typed and chosen

/// A quantity is one character, pasted ones too.
void RequestGrid::txtEntry_Change() {
    if (m_grid.Col() == colQuantity && m_txtEntry.text().size() > 1)
        m_txtEntry.setText(m_txtEntry.text().left(1));
    if (m_editor.editor() == &m_txtEntry && m_openCell == current())
        m_waiting.noteText(current(), m_whenOpened);
}

void RequestGrid::cboEntry_Change() {
    const QString type = m_cboEntry.currentText();
    const bool isStat = type == u"STAT";
    setCell(colType, type);
    m_grid.setCellForeColor(m_grid.Row(), colType, isStat ? look::warn : QColor());
    m_grid.setCellBold(m_grid.Row(), colType, isStat);
    const QString revenue = cell(colDepartment);
    const QString price = cell(colPrice);
    const QString routinePrice =
        cell(colRoutinePrice).isEmpty() ? QStringLiteral("1") : cell(colRoutinePrice);
    if (revenue == u"NU" && isStat)
        setCell(colPrice, base::CStr(Val(cell(colRoutinePrice)) * statFactor));
    else if (revenue == u"NU" || isFeeRevenue(revenue))
        setCell(colPrice, routinePrice);
    m_waiting.notePrice(m_grid.Row(), price, false);
    showHint();
}

void RequestGrid::txtEntry_Enter() {
    if (m_grid.Col() == colDepartment) {
        enterDepartment();
    } else if (takeCell()) {
        EndCellEdit();
        AdvanceCell();
    }
}

// ---- to take what was typed

/// What Enter does with the open cell, but for the way it goes on.
bool RequestGrid::takeCell() {
    const int column = m_grid.Col();
    if (column == colDepartment)
        return takeDepartment();
    if (LookupColumn[size_t(column)])
        return LookUpCellCode();
    if (column == colQuantity)
        return takeQuantity();
    if (column == colAmount)
        return takeAmount();
    if (column == colPrice)
        m_grid.setText(Format(m_grid.Text(), amountFormat));
    m_waiting.isTaken(current());
    return true;
}

bool RequestGrid::takeDepartment() {
    const WaitingCells::Cell here = current();
    if (!m_lookup.LookUpDepartment(m_grid.Text())) {
        stayOpen();
        return false;
    }
    m_waiting.isTaken(here);
    return true;
}

bool RequestGrid::takeQuantity() {
    if (!isNumber())
        return false;
    const int row = m_grid.Row();
    setCell(colAmount, Format(Val(cell(colPrice)) * Val(cell(colQuantity)), amountFormat));
    m_waiting.isTaken({row, colQuantity});
    m_waiting.isTaken({row, colAmount});
    m_waiting.amountIsMade(row);
    recomputeGross();
    m_cmdSavePrint.setEnabled(true);
    m_cmdSave.setEnabled(true);
    return true;
}

bool RequestGrid::takeAmount() {
    if (!isNumber())
        return false;
    m_grid.setText(Format(m_grid.Text(), amountFormat));
    m_waiting.isTaken(current());
    m_waiting.amountIsMade(m_grid.Row());
    recomputeGross();
    return true;
}

/// An empty cell is posted as 0; any other text that is no number would end the save.
bool RequestGrid::isNumber() {
    const QString text = m_grid.Text();
    if (text.isEmpty() || base::IsNumeric(text))
        return true;
    MsgBox(QStringLiteral("\"%1\" is not a number. Type the %2 in figures.")
               .arg(text, m_grid.Col() == colAmount ? QStringLiteral("amount") : QStringLiteral("quantity")),
           vbInformation);
    stayOpen();
    return false;
}

void RequestGrid::stayOpen() {
    if (m_editor.editor() != &m_txtEntry)
        openText(m_grid.Text());
    m_txtEntry.setFocus();
    SelectAllText(&m_txtEntry);
}

/// A key goes on to another cell: what was typed in this one is taken first. A quantity is confirmed as well
/// where the amount is still the former one.
bool RequestGrid::isLeavable(bool confirmsQuantity) {
    if (m_editor.editor() != &m_txtEntry)
        return true;
    const bool confirms = confirmsQuantity && m_grid.Col() == colQuantity && m_waiting.isOld(m_grid.Row());
    return (!confirms && !m_waiting.isTyped(current())) || takeCell();
}

void RequestGrid::grid_Click() {
    const WaitingCells::Cell clicked = current();
    if (m_openCell && m_openCell != clicked && m_waiting.isTyped(*m_openCell)) {
        m_grid.setCurrentCell(m_openCell->row, m_openCell->column);
        openText(m_grid.Text());
        if (!takeCell())
            return;
        m_grid.setCurrentCell(clicked.row, clicked.column);
    }
    BeginCellEdit();
}

bool RequestGrid::TakeTypedCells() {
    while (const auto typed = m_waiting.firstTyped()) {
        const WaitingCells::Cell amount{typed->row, colAmount};
        const QString keyedAmount = m_grid.TextMatrix(amount.row, amount.column);
        const bool keepsAmount = typed->column == colQuantity && m_waiting.isTyped(amount);
        m_grid.setCurrentCell(typed->row, typed->column);
        openText(m_grid.Text());
        if (!takeCell())
            return false;
        if (keepsAmount) {
            setCell(colAmount, keyedAmount);
            m_waiting.noteText(amount, {});
        }
        if (!isGoneOnWith(typed->column))
            return false;
    }
    return true;
}

/// Behind a department Enter goes on to the code, behind a code to the quantity: a line that was only just
/// begun, or begun anew, is not posted as if it were finished.
bool RequestGrid::isGoneOnWith(int takenColumn) {
    const QString revenue = cell(colDepartment);
    const bool hasCodes = cell(colWithItems) == u"Y" || cell(colSearchInventory) == u"Y" ||
                          revenue == u"NU" || isFeeRevenue(revenue);
    int next = 0;
    QString needs;
    if (takenColumn == colDepartment && hasCodes && cell(colCode).isEmpty()) {
        next = colCode;
        needs = QStringLiteral("Line %1 has no code yet.");
    } else if (takenColumn == colCode && (cell(colAmount).isEmpty() || m_waiting.isOld(m_grid.Row()))) {
        next = colQuantity;
        needs = QStringLiteral("Line %1 has a new code. Confirm its quantity first.");
    } else {
        return true;
    }
    MsgBox(needs.arg(m_grid.Row()), vbInformation);
    m_grid.setCurrentCell(m_grid.Row(), next);
    openCell(Opening::PassedThrough);
    return false;
}

// ---- what a line is

void RequestGrid::enterDepartment() {
    const WaitingCells::Cell here = current();
    const bool found = m_lookup.LookUpDepartment(m_grid.Text());
    m_waiting.isTaken(here);
    if (!found) {
        goTo(colQuantity);
        return;
    }
    const QString revenue = cell(colDepartment);
    if (cell(colWithItems) == u"Y" || cell(colSearchInventory) == u"Y") {
        goTo(colCode);
    } else if (revenue == u"NU") {
        m_grid.setCurrentCell(m_grid.Row(), colCode);
        if (LookUpExamLine({}) != LookUp::Duplicate)
            BeginCellEdit();
    } else if (isFeeRevenue(revenue)) {
        m_grid.setCurrentCell(m_grid.Row(), colCode);
        m_lookup.LookUpDoctorLine({});
        BeginCellEdit();
    } else {
        goTo(colAmount);
    }
}

bool RequestGrid::LookUpCellCode() {
    const WaitingCells::Cell here = current();
    const bool isOtherCode = m_waiting.isTyped(here);
    const QString formerPrice = cell(colPrice);
    const QString revenue = cell(colDepartment);
    const QString code = m_grid.Text();
    bool found = false;
    if (isFeeRevenue(revenue)) {
        found = m_lookup.LookUpDoctorLine(code);
        if (found)
            SkipColumn[colAmount] = false;
        else
            MsgBox(QStringLiteral("Invalid Code"));
    } else if (revenue == u"NU") {
        const LookUp result = LookUpExamLine(code);
        if (result == LookUp::Duplicate)
            return false;
        found = result == LookUp::Found;
        if (!found)
            MsgBox(QStringLiteral("Invalid Code."), vbExclamation);
    } else {
        found = m_lookup.LookUpInventoryLine(code);
        if (!found)
            MsgBox(QStringLiteral("Invalid Code."), vbExclamation);
    }
    if (!found) {
        stayOpen();
        return false;
    }
    m_waiting.isTaken(here);
    m_waiting.notePrice(here.row, formerPrice, isOtherCode);
    return true;
}

LookUp RequestGrid::LookUpExamLine(const QString& code) {
    const LookUp result = m_lookup.LookUpExamLine(code);
    if (result == LookUp::NoRecord && !code.isEmpty())
        m_txtEntry.clear();
    if (result == LookUp::Duplicate) {
        EndCellEdit();
        m_grid.setText({});
        m_waiting.isTaken(current());
        BeginCellEdit();
    }
    return result;
}

// ---- keys

bool RequestGrid::gridKey(QKeyEvent* event) {
    if (event->key() == Qt::Key_F3) {
        deleteRow();
        return true;
    }
    if (isEnter(event->key()) || event->key() == Qt::Key_F2) {
        BeginCellEdit();
        return true;
    }
    if (typesText(*event) && event->key() != Qt::Key_Space) {
        BeginCellEdit();
        m_editor.type(*event); // and so goes through the rules of the column
        return m_editor.isOpen();
    }
    return false;
}

std::optional<bool> RequestGrid::openCellKey(QKeyEvent* event) {
    const int key = event->key();
    if (rowKey(key))
        return true;
    if (key == Qt::Key_Escape) {
        EndCellEdit();
        return true;
    }
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return !isLeavable(true) || stepCell(isBackTab(*event) ? -1 : 1);
    return std::nullopt;
}

bool RequestGrid::entryKey(QKeyEvent* event) {
    const int key = event->key();
    if (const auto answered = openCellKey(event))
        return *answered;
    if (key == Qt::Key_F3) {
        if (m_grid.Rows() >= 3)
            deleteRow();
        return true;
    }
    if (isEnter(key)) {
        txtEntry_Enter();
        return true;
    }
    if (m_grid.Col() == colQuantity && typesText(*event) && !m_txtEntry.hasSelectedText() &&
        m_txtEntry.text().size() >= 1)
        return true; // one digit only
    return false;
}

bool RequestGrid::listKey(QKeyEvent* event) {
    const int key = event->key();
    if (const auto answered = openCellKey(event))
        return *answered;
    if (isEnter(key)) {
        EndCellEdit();
        AdvanceCell();
        return true;
    }
    if (!typesText(*event))
        return false;
    const QString typed = event->text().toUpper();
    if (typed == u"S")
        m_cboEntry.setCurrentText(QStringLiteral("STAT"));
    else if (typed == u"R")
        m_cboEntry.setCurrentText(QStringLiteral("ROUTINE"));
    if (typed == u"S" || typed == u"R")
        cboEntry_Change();
    return true;
}

/// Up and Down move one line, on both editors.
bool RequestGrid::rowKey(int key) {
    const int row = m_grid.Row();
    if (key == Qt::Key_Up) {
        if (row >= 2 && isLeavable(false)) {
            m_grid.setRow(row - 1);
            openCell(Opening::PassedThrough);
        }
        return true;
    }
    if (key == Qt::Key_Down) {
        if (row < m_grid.Rows() - 1 && isLeavable(false)) {
            m_grid.setRow(row + 1);
            openCell(Opening::PassedThrough);
        }
        return true;
    }
    return false;
}

/// Tab and Shift+Tab: to the next or former cell that takes an entry, amounts included; over the line's end
/// into the next line. Beyond the first and the last cell the focus leaves the grid, and so it does from the
/// department of a last line that is empty: its quantity is nobody's.
bool RequestGrid::stepCell(int direction) {
    if (direction > 0 && m_grid.Row() == m_grid.Rows() - 1 && m_grid.Col() == colDepartment &&
        cell(colDepartment).isEmpty()) {
        EndCellEdit();
        return false;
    }
    if (cell(colAmountEditable) == u"Y" || isFeeRevenue(cell(colDepartment)))
        SkipColumn[colAmount] = false;
    int row = m_grid.Row();
    int column = m_grid.Col();
    for (;;) {
        column += direction;
        if (column > colAmount) {
            column = colDepartment;
            ++row;
        } else if (column < colDepartment) {
            column = colAmount;
            --row;
        }
        if (row < 1 || row >= m_grid.Rows()) {
            EndCellEdit();
            return false;
        }
        if (!SkipColumn[size_t(column)])
            break;
    }
    m_grid.setCurrentCell(row, column);
    openCell(Opening::PassedThrough);
    return true;
}

} // namespace entry
