#include "session/rights/frmProgSettings.h"

#include "platform/base/Conversion.h"
#include "platform/controls/fields/FieldLetter.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "ui_frmProgSettings.h"

namespace session {

using ado::sql;
using controls::on;

namespace {

enum AccessColumn { itemID = 1, description = 2, status = 3 };

const QString active = QStringLiteral("A");
const QString inactive = QStringLiteral("I");

} // namespace

frmProgSettings::frmProgSettings(QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmProgSettings>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSave);
    controls::setKeyRules(m_ui->txtSearchText, controls::KeyRule::BackQuote);
    controls::giveLetter(*m_ui->txtSearchText);
    controls::setKeyRules(m_ui->txtDescription, controls::KeyRule::BackQuote);
    connectControls();
}

frmProgSettings::~frmProgSettings() = default;

void frmProgSettings::connectControls() {
    on(m_ui->txtSearchText, &QLineEdit::returnPressed, this, [this] { cmdSearch_Click(); });
    on(m_ui->cmdSearch, &QPushButton::clicked, this, [this] { cmdSearch_Click(); });
    on(m_ui->grdAccess, &controls::FlexGrid::Click, this, [this] { grdAccess_Click(); });
    on(m_ui->grdAccess, &controls::FlexGrid::EnterPressed, this, [this] { grdAccess_Click(); });
    // The arrow keys show a right as a click does, but leave what is being typed alone.
    on(m_ui->grdAccess, &controls::FlexGrid::RowColChange, this, [this] {
        if (!isEditing())
            grdAccess_Click();
    });
    on(m_ui->cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    on(m_ui->cmdEdit, &QPushButton::clicked, this, [this] { cmdEdit_Click(); });
    on(m_ui->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
}

void frmProgSettings::Form_Load() {
    m_ui->header->setSubtitle(gHospitalName);
    m_ui->grdAccess->setFormatString(QStringLiteral(" | Code | Description | Status "));
    m_ui->grdAccess->setColWidths({200, 1000, 2800, 1000});
    m_ui->grdAccess->setRowSelect(true);
    m_ui->grdAccess->setEmptyText(tr("No right answers to this text."));
    setEditing(false);
    LoadAccess();
    grdAccess_Click();
    m_ui->txtSearchText->setFocus();
}

// ---- events

void frmProgSettings::cmdSearch_Click() {
    LoadAccess();
    if (!isEditing())
        grdAccess_Click();
    if (!m_ui->grdAccess->showsEmptyText())
        m_ui->grdAccess->setFocus();
}

void frmProgSettings::grdAccess_Click() {
    const int row = m_ui->grdAccess->Row();
    m_ui->txtCode->setText(base::Trim(m_ui->grdAccess->TextMatrix(row, itemID)));
    m_ui->txtDescription->setText(m_ui->grdAccess->TextMatrix(row, description));
    m_ui->chkStatus->setChecked(m_ui->grdAccess->TextMatrix(row, status) == active);
}

void frmProgSettings::cmdAdd_Click() {
    setEditing(true);
    m_ui->txtCode->setText(QStringLiteral("(NEW)"));
    m_ui->txtDescription->clear();
    m_ui->txtDescription->setFocus();
}

void frmProgSettings::cmdEdit_Click() {
    setEditing(true);
    m_ui->txtDescription->setFocus();
    controls::SelectAllText(m_ui->txtDescription);
}

bool frmProgSettings::isEditing() const {
    return m_ui->fmeProperties->isEnabled();
}

void frmProgSettings::setEditing(bool editing) {
    m_ui->fmeProperties->setEnabled(editing);
    m_ui->cmdAdd->setEnabled(!editing);
    m_ui->cmdEdit->setEnabled(!editing);
    m_ui->cmdSave->setEnabled(editing);
}

// ---- the list

void frmProgSettings::LoadAccess() {
    const Hourglass busy;
    ado::Recordset rights =
        Read(sql("NUCLEAR..spNuclear_SearchProgramAccess '{}'", base::Trim(m_ui->txtSearchText->text())));
    m_ui->grdAccess->setDataSource(rights);
    rights.Close();
}

/// What was saved stays in view, with a number of its own if it is new.
void frmProgSettings::goToSaved(const QString& code, const QString& text) {
    controls::FlexGrid& grid = *m_ui->grdAccess;
    for (int row = grid.Rows() - 1; row > 0; --row) {
        const bool found = base::IsNumeric(code) ? base::Trim(grid.TextMatrix(row, itemID)) == code
                                                 : grid.TextMatrix(row, description) == text;
        if (found) {
            grid.setCurrentCell(row, itemID);
            break;
        }
    }
    grdAccess_Click();
    grid.setFocus();
}

// ---- save

void frmProgSettings::cmdSave_Click() {
    const QString shownCode = m_ui->txtCode->text();
    const bool isEdit = base::IsNumeric(shownCode);
    const QString text = m_ui->txtDescription->text();
    Run(sql("NUCLEAR..spNuclear_SaveProgramSettings '{}','{}','{}','{}'", isEdit ? "B" : "A",
            isEdit ? shownCode : QStringLiteral("0"), text,
            m_ui->chkStatus->isChecked() ? active : inactive));
    controls::MsgBox(QStringLiteral("Record Successfully Added"), controls::vbInformation);
    LoadAccess();
    setEditing(false);
    goToSaved(shownCode, text);
}

} // namespace session
