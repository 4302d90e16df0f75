#include "lookup/frmSearch.h"

#include "lookup/PickerKeys.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "ui_frmSearch.h"

#include <QScopedValueRollback>

namespace lookup {

using controls::on;

frmSearch::frmSearch(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmSearch>()) {
    m_ui->setupUi(this);
    m_keys = std::make_unique<PickerKeys>(*m_ui->txtSearchStr, *m_ui->grdDispWindow);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSelect);
    controls::setKeyRules(m_ui->txtSearchStr, controls::KeyRule::BackQuote);
    on(m_ui->txtSearchStr, &QLineEdit::textChanged, this, [this] { txtSearchStr_Change(); });
    on(m_keys.get(), &PickerKeys::searchEntered, this, [this] { txtSearchStr_Return(); });
    on(m_keys.get(), &PickerKeys::rowEntered, this, [this] { cmdSelect_Click(); });
    on(m_ui->grdDispWindow, &controls::FlexGrid::RowColChange, this,
       [this] { grdDispWindow_RowColChange(); });
    on(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    on(m_ui->cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
}

frmSearch::~frmSearch() = default;

void frmSearch::Form_Load() {
    m_ui->lblHospital->setText(session::gHospitalName);
    m_ui->lblTitle->setText(SearchCaption);
    m_ui->lblHelp->clear();
    m_ui->cmdSelect->setEnabled(false);
    m_ui->grdDispWindow->setCols(3);
    m_ui->grdDispWindow->setColWidths({200, 4150, 1500});
    {
        const QScopedValueRollback settling(m_settling, true);
        m_ui->txtSearchStr->setText(Criteria);
    }
    m_textChanged = true;
    m_keys->backToSearch();
    if (!DisableSearch)
        runQuery();
}

void frmSearch::txtSearchStr_Change() {
    if (m_settling)
        return;
    m_textChanged = true;
    if (m_ui->chkAutoSearch->isChecked())
        runQuery();
}

void frmSearch::txtSearchStr_Return() {
    // A changed text asks for its own rows first: the row in hand answers to the former one.
    if (m_textChanged || m_keys->hits() == 0)
        runQuery();
    else
        cmdSelect_Click();
}

void frmSearch::grdDispWindow_RowColChange() {
    if (m_settling || m_keys->hits() == 0)
        return;
    const QScopedValueRollback settling(m_settling, true);
    m_ui->txtSearchStr->setText(m_ui->grdDispWindow->TextMatrix(m_ui->grdDispWindow->Row(), 1));
    m_textChanged = false;
}

void frmSearch::cmdSelect_Click() {
    if (m_keys->hits() == 0)
        return;
    ResultCode = m_ui->grdDispWindow->TextMatrix(m_ui->grdDispWindow->Row(), 2);
    Valid = true;
    Unload();
}

void frmSearch::cmdCancel_Click() {
    Valid = false;
    Unload();
}

void frmSearch::runQuery() {
    ado::Recordset rows = session::Read(Query.with({{"##", m_ui->txtSearchStr->text()}}));
    const QScopedValueRollback settling(m_settling, true);
    m_textChanged = false;
    m_keys->setHits(rows.RecordCount());
    m_ui->grdDispWindow->setDataSource(rows);
    m_ui->grdDispWindow->setColWidths({200, 4150, 1500});
    m_ui->grdDispWindow->setEmptyText(QStringLiteral("No entry answers to this text."));
    m_ui->cmdSelect->setEnabled(m_keys->hits() > 0);
    m_ui->lblHelp->setText(
        PickerKeys::hitsText(m_keys->hits(), QStringLiteral("entry"), QStringLiteral("entries")));
    rows.Close();
}

} // namespace lookup
