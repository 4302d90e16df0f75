#include "ledger/frmPatientLedger.h"

#include "ledger/LedgerHeading.h"
#include "lookup/clsOutPatientSearch.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/reports/ReportLaunch.h"
#include "session/services/Services.h"
#include "ui_frmPatientLedger.h"

namespace ledger {

namespace look = controls::look;

namespace {

enum PatientClass { inpatient, outpatient };

constexpr double zoom = 0.85;
/// The screen with its viewer is at least 9150 twips high.
constexpr int heightWithViewer = 720;

} // namespace

frmPatientLedger::frmPatientLedger(QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmPatientLedger>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::setKeyRules(m_ui->txtIdNum, controls::KeyRule::UpperCase | controls::KeyRule::BackQuote);
    controls::enterMovesOn({m_ui->cmbPatientClass});
    controls::onEnter(m_ui->txtIdNum, [this] { txtIdNum_Enter(); });
}

frmPatientLedger::~frmPatientLedger() = default;

void frmPatientLedger::Form_Load() {
    m_ui->cmbPatientClass->addItems({QStringLiteral("Inpatient"), QStringLiteral("Outpatient")});
    m_ui->cmbPatientClass->setCurrentIndex(-1);
    m_ui->cmbPatientClass->setFocus();
    m_ui->Viewer->hide();
}

/// A ledger that is still on its way ends with its screen.
void frmPatientLedger::Form_Unload() {
    m_ui->Viewer->setDocument(nullptr);
}

// ---- search

void frmPatientLedger::txtIdNum_Enter() {
    controls::SelectAllText(m_ui->txtIdNum); // found or not, the next number is typed over this one
    switch (m_ui->cmbPatientClass->currentIndex()) {
    case inpatient:
        return findInPatient();
    case outpatient:
        return findOutPatient();
    default:
        return;
    }
}

void frmPatientLedger::findInPatient() {
    session::clsCensusFind& find = *session::gPatientFind;
    if (!find.ValidateAdmission(base::Trim(m_ui->txtIdNum->text())))
        return;
    bringViewerIntoSight();
    m_ui->txtIdNum->clear();
    const session::clsPatientMaster& patient = find.Admission.Patient;
    m_ui->txtFirstName->setText(patient.FirstName);
    m_ui->txtLastName->setText(patient.LastName);
    m_ui->txtMiddleName->setText(patient.MiddleName);
    const LedgerHeading heading = headingOf(find.Admission);
    m_ui->txtIdNum->setText(heading.LedgerIdNum);
    m_ui->txtHospNum->setText(heading.LedgerHospNum);
    showPatient(heading);
    ShowLedger(heading);
}

void frmPatientLedger::findOutPatient() {
    lookup::clsOutPatientSearch search;
    if (!search.ValidatePatient(m_ui->txtIdNum->text())) {
        controls::MsgBox(QStringLiteral("Patient is not in the records."), controls::vbInformation);
        return;
    }
    bringViewerIntoSight();
    m_ui->txtIdNum->setText(search.IdNumber());
    m_ui->txtHospNum->setText(search.HospitalNumber());
    m_ui->txtFirstName->setText(search.FirstName());
    m_ui->txtLastName->setText(search.LastName());
    m_ui->txtMiddleName->setText(search.MiddleName());
    const LedgerHeading heading =
        headingOf(search, m_ui->txtIdNum->text(),
                  m_ui->txtLastName->text() + QStringLiteral(", ") + m_ui->txtFirstName->text() + u' ' +
                      m_ui->txtMiddleName->text());
    showPatient(heading);
    ShowLedger(heading);
}

// ---- the ledger

void frmPatientLedger::bringViewerIntoSight() {
    if (!m_ui->Viewer->isHidden())
        return;
    m_ui->Viewer->show();
    growTo(look::scaled(heightWithViewer));
}

void frmPatientLedger::showPatient(const LedgerHeading& heading) {
    m_ui->bandHeader->setSubtitle(heading.LedgerPatient);
    m_ui->bandHeader->setChips({QStringLiteral("Hosp. ") + heading.LedgerHospNum,
                                QStringLiteral("Adm. ") + heading.LedgerIdNum, heading.LedgerCompany});
    // The next number is typed over this one.
    controls::SelectAllText(m_ui->txtIdNum);
}

void frmPatientLedger::ShowLedger(const LedgerHeading& heading) {
    session::OpenReport(session::reportPath(QStringLiteral("PatientLedger.RPT")));
    for (report::TableLogOn& table : session::gReport->tables())
        session::SetReportTableLogOn(table, QStringLiteral("NUCLEAR"));
    feedByName(*session::gReport, heading);
    if (m_ui->Viewer->showReport(*session::gReport))
        m_ui->Viewer->pages()->setZoom(zoom);
    session::gReport.reset();
}

} // namespace ledger
