#include "lookup/frmListPatient.h"

#include "lookup/PickerKeys.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/Screens.h"
#include "session/Session.h"
#include "session/services/Services.h"
#include "ui_frmListPatient.h"

#include <QScopedValueRollback>

namespace lookup {

using ado::sql;
using controls::MsgBox;
using controls::on;

namespace {

enum SearchBy { byLastName, byAdmissionNumber, byHospitalNumber };

// The hidden leading column counts as 0.
enum GridColumn { admissionNumber = 2, billedDate = 4, nucStatus = 6 };

const QString gridFormat = QStringLiteral(
    " | Hosp.No. | Adm.No. | Patient Name | Billed Date | Charging Status | NucStatus | DcrDate ");

bool isCashBasis(const QString& status) {
    return base::Trim(status) == u"Not Okey";
}

} // namespace

frmListPatient::frmListPatient(QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmListPatient>()) {
    m_ui->setupUi(this);
    m_keys = std::make_unique<PickerKeys>(*m_ui->txtSearch, *m_ui->grdTable);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSelect);
    controls::setKeyRules(m_ui->txtSearch, controls::KeyRule::UpperCase | controls::KeyRule::BackQuote);
    on(m_ui->cmbSearch, &QComboBox::activated, this, [this] { cmbSearch_Click(); });
    on(m_keys.get(), &PickerKeys::searchEntered, this, [this] { txtSearch_Return(); });
    on(m_keys.get(), &PickerKeys::rowEntered, this, [this] { cmdSelect_Click(); });
    on(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { cmdClose_Click(); });
}

frmListPatient::~frmListPatient() = default;

void frmListPatient::Form_Load() {
    m_ui->cmbSearch->clear();
    m_ui->cmbSearch->addItems(
        {QStringLiteral("Last Name"), QStringLiteral("Admission No."), QStringLiteral("Hospital No.")});
    m_ui->cmbSearch->setCurrentIndex(byLastName);
    m_ui->grdTable->setFormatString(gridFormat);
    m_ui->grdTable->setColWidths({100, 1100, 1100, 2500, 1500, 1000, 1000, 1600});
    m_ui->cmdSelect->setEnabled(false);
    m_ui->lblHits->clear();
    m_keys->backToSearch();
}

void frmListPatient::cmbSearch_Click() {
    m_keys->backToSearch();
}

void frmListPatient::txtSearch_Return() {
    int hits = 0;
    {
        const Hourglass busy;
        ado::Recordset patients = session::Read(patientQuery());
        hits = patients.RecordCount();
        m_ui->grdTable->setDataSource(patients);
        patients.Close();
    }
    m_keys->setHits(hits);
    m_ui->cmdSelect->setEnabled(hits > 0);
    PickerKeys::showPatientHits(*m_ui->lblHits, hits);
    m_ui->grdTable->setEmptyText(QStringLiteral("No admitted patient answers to this %1.")
                                     .arg(m_ui->cmbSearch->currentText().toLower()));
    for (int row = 1; row <= hits; ++row)
        markRow(row);
    m_keys->backToSearch();
}

void frmListPatient::markRow(int row) {
    controls::FlexGrid& grid = *m_ui->grdTable;
    const auto mark = [&](int column, const QColor& color, const QString& icon) {
        grid.setCellForeColor(row, column, color);
        grid.setCellBold(row, column, true);
        grid.setCellIcon(row, column, controls::look::icon(icon, color));
    };
    if (!grid.TextMatrix(row, billedDate).isEmpty())
        mark(billedDate, controls::look::danger, QStringLiteral("cancel"));
    if (isCashBasis(grid.TextMatrix(row, nucStatus)))
        mark(nucStatus, controls::look::warn, QStringLiteral("warning"));
}

void frmListPatient::cmdSelect_Click() {
    if (m_selecting || m_keys->hits() == 0)
        return;
    const QScopedValueRollback selecting(m_selecting, true);
    const int row = m_ui->grdTable->Row();
    if (mayBeCharged(row))
        openRequest(row);
}

bool frmListPatient::mayBeCharged(int row) const {
    if (!m_ui->grdTable->TextMatrix(row, billedDate).isEmpty()) {
        MsgBox(
            QStringLiteral("Patient`s account has already been closed.\n"
                           "If you have charges to make, pls. notify the billing for further instructions."),
            controls::vbOKOnly, QStringLiteral("Message"));
        return false;
    }
    if (isCashBasis(m_ui->grdTable->TextMatrix(row, nucStatus))) {
        MsgBox(QStringLiteral("Patient`s account has been placed under cash basis.\n"
                              "Pls. refer to Credit and Collection Dept. for further instructions."),
               controls::vbOKOnly, QStringLiteral("Message"));
        return false;
    }
    return true;
}

void frmListPatient::openRequest(int row) {
    const QString idNumber = base::Trim(m_ui->grdTable->TextMatrix(row, admissionNumber));
    if (!session::gAdmission->OpenAdmission(idNumber)) {
        MsgBox(QStringLiteral("No Existing Patient Found."), controls::vbOKOnly, QStringLiteral("Message"));
        return;
    }
    ResultCode = idNumber;
    Valid = true;
    PatientRecord = m_keys->currentCells();

    session::RequestEntry entry;
    entry.PatIdNum = idNumber;
    entry.CashBasis = false;
    entry.PatientType = QStringLiteral("I");
    entry.NurseCommnunication = false;
    session::screens().openRequest(entry);
    if (!isUnloaded())
        m_keys->backToSearch();
}

void frmListPatient::cmdClose_Click() {
    Valid = false;
    Unload();
}

ado::Statement frmListPatient::patientQuery() const {
    const QString text = m_ui->txtSearch->text();
    switch (m_ui->cmbSearch->currentIndex()) {
    case byAdmissionNumber:
        return sql("sp_Nuclear_getpatientbyidnum 'I','{}'", text);
    case byHospitalNumber:
        return sql("sp_Nuclear_getpatientbyhospnum 'I','{}'", text);
    default:
        break;
    }
    const qsizetype comma = text.indexOf(u',');
    if (comma < 0)
        return sql("sp_Nuclear_getpatientbylastname 'I','{}'", text);
    return sql("sp_Nuclear_getpatientbyfirstname 'I','{}','{}'", text.left(comma), text.mid(comma + 1));
}

} // namespace lookup
