#include "entry/RequestGrid.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/Screen.h"
#include "session/Session.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>

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
    ColumnLayout{14, "", 0},
    ColumnLayout{colPackageCode, "", 0},
    ColumnLayout{16, "", 0},
};

} // namespace

RequestGrid::RequestGrid(const RequestGridVariant& variant, const Controls& parts, QObject* parent)
    : QObject(parent)
    , m_variant(variant)
    , m_grid(*parts.grid)
    , m_header(parts.grid->horizontalHeader()->viewport())
    , m_txtEntry(*parts.txtEntry)
    , m_cboEntry(*parts.cboEntry)
    , m_txtGross(*parts.txtGross)
    , m_cmdSave(*parts.cmdSave)
    , m_cmdSavePrint(*parts.cmdSavePrint) {
    m_cboEntry.addItems({QStringLiteral("ROUTINE"), QStringLiteral("STAT")});
    m_txtEntry.hide();
    m_cboEntry.hide();
    for (QObject* watched : {static_cast<QObject*>(&m_grid), static_cast<QObject*>(&m_txtEntry),
                             static_cast<QObject*>(&m_cboEntry), m_header})
        watched->installEventFilter(this);
    for (QScrollBar* bar : {m_grid.horizontalScrollBar(), m_grid.verticalScrollBar()})
        on(bar, &QScrollBar::valueChanged, this, [this] { grdPackage_Scroll(); });
    on(&m_grid, &FlexGrid::Click, this, [this] { BeginCellEdit(); });
    on(&m_txtEntry, &QLineEdit::textChanged, this, [this] { txtEntry_Change(); });
    on(&m_cboEntry, &QComboBox::currentTextChanged, this, [this] { cboEntry_Change(); });
    on(&m_cboEntry, &QComboBox::activated, this, [this] { cboEntry_Change(); });
}

void RequestGrid::layOut() {
    m_grid.setFixedRows(1);
    m_grid.setFixedCols(1);
    m_grid.setRows(2);
    m_grid.setCols(requestColumnCount);
    for (const ColumnLayout& column : columnLayout) {
        m_grid.setTextMatrix(0, column.column, QString::fromLatin1(column.header));
        m_grid.setColWidth(column.column, column.twips);
    }
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

void RequestGrid::BeginCellEdit() {
    const int column = m_grid.Col();
    const int row = m_grid.Row();
    if (row < 1 || column < 1)
        return;
    if (isFeeRevenue(cell(colDepartment)))
        SkipColumn[colType] = SkipColumn[colQuantity] = SkipColumn[colAmount] = false;
    m_txtEntry.hide();
    m_cboEntry.hide();
    if (SkipColumn[size_t(column)] || m_grid.ColWidth(column) == 0) {
        m_grid.setFocus();
        return;
    }
    const QRect place = m_grid.cellRect(row, column);
    if (column == colType) {
        // A procedure that was looked up is routine until the clerk says otherwise, and priced by its type;
        // other lines show what they hold.
        const bool isProcedure =
            cell(colDepartment) == session::gDeptCode && !cell(colRoutinePrice).isEmpty();
        const QString type =
            isProcedure && cell(colType).isEmpty() ? QStringLiteral("ROUTINE") : cell(colType);
        m_cboEntry.setGeometry(place);
        {
            const QSignalBlocker opening(m_cboEntry); // to look at another line's type prices nothing
            m_cboEntry.setCurrentIndex(m_cboEntry.findText(type));
        }
        if (isProcedure)
            cboEntry_Change();
        m_cboEntry.raise();
        m_cboEntry.show();
        m_cboEntry.setFocus();
        return;
    }
    KeyRules rules = KeyRule::BackQuote;
    if (ColumnKinds[size_t(column)] == ColumnKind::UpperCase)
        rules |= KeyRule::UpperCase;
    if (ColumnKinds[size_t(column)] == ColumnKind::Numeric)
        rules |= KeyRule::Number;
    setKeyRules(&m_txtEntry, rules);
    m_txtEntry.setAlignment(column >= colPrice ? Qt::AlignRight : Qt::AlignLeft);
    m_txtEntry.setGeometry(place);
    m_txtEntry.setText(column == colQuantity ? QStringLiteral("1") : m_grid.Text());
    txtEntry_Change();
    m_txtEntry.raise();
    m_txtEntry.show();
    m_txtEntry.setFocus();
    SelectAllText(&m_txtEntry);
}

void RequestGrid::EndCellEdit() {
    m_txtEntry.hide();
    m_cboEntry.hide();
    m_grid.setFocus();
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

bool RequestGrid::isEditing() const {
    return m_txtEntry.isVisible() || m_cboEntry.isVisible();
}

/// The cell moves away under its editor.
void RequestGrid::grdPackage_Scroll() {
    if (!m_placing)
        leaveCell();
}

/// Ends an edit; the focus goes to the grid only if it was in the cell.
void RequestGrid::leaveCell() {
    if (!isEditing())
        return;
    if (m_txtEntry.hasFocus() || m_cboEntry.hasFocus()) {
        EndCellEdit();
    } else {
        m_txtEntry.hide();
        m_cboEntry.hide();
    }
}

void RequestGrid::deleteRow() {
    const bool wasEditing = isEditing();
    m_txtEntry.hide();
    m_cboEntry.hide();
    if (m_grid.Rows() == 2)
        m_grid.AddItem({}); // the grid always offers a line
    m_grid.RemoveItem(m_grid.Row());
    recomputeGross();
    if (wasEditing)
        BeginCellEdit();
}

void RequestGrid::txtEntry_Change() {
    if (m_grid.Col() == colQuantity && m_txtEntry.text().size() > 1) {
        m_txtEntry.setText(m_txtEntry.text().left(1)); // a quantity is one character, pasted ones too
        return;
    }
    if (m_grid.Row() >= 1 && m_grid.Text() != m_txtEntry.text())
        m_grid.setText(m_txtEntry.text());
}

void RequestGrid::txtEntry_Enter() {
    const int column = m_grid.Col();
    if (column == colDepartment) {
        enterDepartment();
    } else if (LookupColumn[size_t(column)]) {
        LookUpCellCode();
    } else if (column == colPrice) {
        m_grid.setText(Format(m_grid.Text(), amountFormat));
        AdvanceCell();
    } else if (column == colQuantity) {
        enterQuantity();
    } else if (column == colAmount) {
        m_grid.setText(Format(m_grid.Text(), amountFormat));
        recomputeGross();
        AdvanceCell();
    }
}

void RequestGrid::enterQuantity() {
    setCell(colAmount, Format(Val(cell(colPrice)) * Val(cell(colQuantity)), amountFormat));
    recomputeGross();
    m_cmdSavePrint.setEnabled(true);
    m_cmdSave.setEnabled(true);
    AdvanceCell();
}

} // namespace entry
