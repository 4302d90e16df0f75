#include "lookup/frmSearch.h"

#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "ui_frmSearch.h"

#include <QScopedValueRollback>

namespace lookup {

using controls::on;

namespace {

constexpr int widths[] = {200, 4150, 1500};

constexpr controls::ListVariant variant = {.widths = widths,
                                           .one = "entry",
                                           .many = "entries",
                                           .emptyText = "No entry answers to this text.",
                                           .searchRules = controls::KeyRule::BackQuote};

} // namespace

frmSearch::frmSearch(QWidget* parent) : ListScreen(parent), m_ui(std::make_unique<Ui::frmSearch>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdDispWindow,
               .search = m_ui->txtSearchStr,
               .select = m_ui->cmdSelect,
               .close = m_ui->cmdCancel,
               .hits = m_ui->lblHelp},
              variant);
    on(m_ui->txtSearchStr, &QLineEdit::textChanged, this, [this] { txtSearchStr_Change(); });
    on(m_ui->grdDispWindow, &controls::FlexGrid::RowColChange, this,
       [this] { grdDispWindow_RowColChange(); });
}

frmSearch::~frmSearch() = default;

void frmSearch::Form_Load() {
    ListScreen::Form_Load();
    m_ui->lblHospital->setText(session::gHospitalName);
    m_ui->lblTitle->setText(SearchCaption);
    {
        const QScopedValueRollback settling(m_settling, true);
        m_ui->txtSearchStr->setText(Criteria);
    }
    m_textChanged = true;
    backToSearch();
    if (!DisableSearch)
        search();
}

void frmSearch::txtSearchStr_Change() {
    if (m_settling)
        return;
    m_textChanged = true;
    if (m_ui->chkAutoSearch->isChecked())
        search();
}

void frmSearch::searchEntered() {
    // A changed text asks for its own rows first: the row in hand answers to the former one.
    if (m_textChanged || hits() == 0)
        search();
    else
        takeRow();
}

void frmSearch::grdDispWindow_RowColChange() {
    if (m_settling || hits() == 0)
        return;
    const QScopedValueRollback settling(m_settling, true);
    m_ui->txtSearchStr->setText(cell(1));
    m_textChanged = false;
}

void frmSearch::rowTaken() {
    ResultCode = cell(2);
    Valid = true;
    Unload();
}

void frmSearch::leave() {
    Valid = false;
    Unload();
}

void frmSearch::search() {
    ado::Recordset rows = session::Read(Query.with({{"##", m_ui->txtSearchStr->text()}}));
    const QScopedValueRollback settling(m_settling, true);
    m_textChanged = false;
    bindRows(rows);
    setWidths();
}

} // namespace lookup
