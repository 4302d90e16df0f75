#include "charges/ItemRequestScreen.h"

#include "lookup/FieldText.h"
#include "lookup/clsOutPatientSearch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Routines.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "session/logon/clsCurrentUser.h"
#include "session/services/Services.h"
#include "ui_ItemRequestScreen.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

namespace charges {

using ado::sql;
using base::Trim;
using namespace controls;
using session::gUser;

ItemRequestScreen::ItemRequestScreen(const ItemRequestVariant& variant, QWidget* parent)
    : Screen(parent), m_variant(variant), m_ui(std::make_unique<Ui::ItemRequestScreen>()) {
    m_ui->setupUi(this);
    setObjectName(QString::fromLatin1(variant.screen));
    setWindowTitle(QString::fromLatin1(variant.caption));
    m_ui->bandHeader->setTitle(windowTitle());
    if (!variant.hasItemFrame)
        removeItemFrame();
    auto* txtEntry = new QLineEdit(m_ui->mshflexEntry->parentWidget());
    txtEntry->setObjectName(QStringLiteral("txtEntry"));
    setTabOrder(m_ui->mshflexEntry, txtEntry);
    setTabOrder(txtEntry, m_ui->cmdMedOption);
    m_grid = new ItemGrid(
        variant.grid, {m_ui->mshflexEntry, txtEntry, m_ui->lblMessage, m_ui->lblHint, m_ui->txtIdNum}, this);
    look::setPrimary(m_ui->cmdMedOption);
    noteKeys(this, {{"F3", "Deletes the line"}});
    connectControls();
}

ItemRequestScreen::~ItemRequestScreen() = default;

void ItemRequestScreen::removeItemFrame() {
    delete m_ui->layoutPage->replaceWidget(m_ui->fmeItemList, m_ui->mshflexEntry);
    delete m_ui->fmeItemList;
}

void ItemRequestScreen::connectControls() {
    setKeyRules(m_ui->txtPName, KeyRule::UpperCase | KeyRule::BackQuote);
    onEnter(m_ui->txtPName, [this] { txtPName_Enter(); });
    for (QRadioButton* type : {m_ui->optType_1, m_ui->optType_2})
        on(type, &QRadioButton::clicked, this, [this] { m_ui->txtPName->setFocus(); });
    on(m_ui->cmdMedOption, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    on(m_ui->cmdMedOption_1, &QPushButton::clicked, this, [this] { Unload(); });
    on(m_ui->cmdMedOption_2, &QPushButton::clicked, this, [this] { cmdDelete_Click(); });
}

void ItemRequestScreen::Form_Load() {
    m_ui->bandHeader->setSubtitle(QString::fromLatin1(m_variant.subtitle));
    m_grid->layOut();
    refusePatient();
}

void ItemRequestScreen::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F3 && m_ui->mshflexEntry->isEnabled())
        ErrorBoundary::guard([this] { DeleteRow(m_ui->mshflexEntry->Row()); });
    else
        Screen::keyPressEvent(event);
}

// ---- the patient

void ItemRequestScreen::txtPName_Enter() {
    if (!m_ui->optType_1->isChecked() && !m_ui->optType_2->isChecked()) {
        MsgBox(QStringLiteral("Please select Patient Classification."), vbOKOnly, QStringLiteral("Message"));
        return;
    }
    if (m_ui->optType_1->isChecked() ? FindOutPatient() : FindInPatient())
        takePatient();
}

bool ItemRequestScreen::FindInPatient() {
    if (!session::gDeptFind->PatientListing(Trim(m_ui->txtPName->text()),
                                            session::clsDeptFind::confinedPatients, true))
        return false;
    const session::ListedPatient patient = session::gDeptFind->Inpatient;
    showPatient(patient.HospitalNumber, patient.IdNumber,
                patient.LastName + QStringLiteral(", ") + patient.FirstName + patient.MiddleName,
                patient.RoomClassID, patient.Age, patient.Sex);
    if (mayAskForInPatient(patient.IdNumber))
        return true;
    m_ui->txtPName->setFocus();
    return false;
}

bool ItemRequestScreen::FindOutPatient() {
    lookup::clsOutPatientSearch patient;
    if (!patient.ValidatePatient(Trim(m_ui->txtPName->text())))
        return false;
    if (!patient.BillingDate().isEmpty() && !patient.LateCharges()) {
        MsgBox(QStringLiteral("Cannot post charges because the patient's account has already been closed. \n"
                              "Please contact BILLING DEPARTMENT for further instructions."),
               vbExclamation, QStringLiteral("Closed Bill"));
        return false;
    }
    showPatient(patient.HospitalNumber(), patient.IdNumber(),
                patient.LastName() + QStringLiteral(" , ") + patient.FirstName() + u' ' +
                    patient.MiddleName(),
                QStringLiteral("OPD"), patient.Age(), patient.Sex());
    if (!mayAskForOutPatient(patient.IdNumber()))
        return false;
    ado::Recordset stay = session::Read(
        sql("SELECT OPDStatus FROM PATIENT_DATA..tbOutPatient WHERE IDNum = '{}'", patient.IdNumber()));
    const bool isRevoked = !stay.Eof() && lookup::fieldText(stay, "OPDStatus") == u"R";
    stay.Close();
    if (isRevoked)
        MsgBox(QStringLiteral("Patient's Registration is Revoked."), vbInformation,
               QStringLiteral("Message"));
    return !isRevoked;
}

bool ItemRequestScreen::mayAskForInPatient(const QString&) {
    return true;
}

bool ItemRequestScreen::mayAskForOutPatient(const QString&) {
    return true;
}

/// Whoever is shown is not asked for until nothing speaks against it.
void ItemRequestScreen::showPatient(const QString& hospitalNumber, const QString& idNumber,
                                    const QString& name, const QString& room, const QString& age,
                                    const QString& sex) {
    refusePatient();
    m_ui->txtHospNum->setText(hospitalNumber);
    m_ui->txtIdNum->setText(idNumber);
    m_ui->txtPName->setText(name);
    m_ui->txtRoomNo->setText(room);
    m_ui->txtAgeSex->setText(age + u'/' + sex);
    m_ui->bandHeader->setSubtitle(name);
    m_ui->bandHeader->setChips(
        {QStringLiteral("Adm. ") + idNumber, QStringLiteral("Hosp. ") + hospitalNumber});
}

void ItemRequestScreen::refusePatient() {
    m_grid->putOutOfUse();
    m_ui->cmdMedOption->setEnabled(false);
    m_ui->cmdMedOption_2->setEnabled(false);
}

void ItemRequestScreen::takePatient() {
    // not that of the admission which another screen looked at last
    session::gAdmission->OpenAdmission(m_ui->txtIdNum->text());
    m_doctorCode = session::gAdmission->AttendingDoctor1.Code;
    m_ui->cmdMedOption->setEnabled(true);
    m_ui->cmdMedOption_2->setEnabled(true);
    m_grid->begin();
}

// ---- commands

void ItemRequestScreen::cmdDelete_Click() {
    const QString title = QStringLiteral("MESSAGE");
    if (!QualifiedRow(m_ui->mshflexEntry->Row())) {
        MsgBox(QStringLiteral("Row cannot be deleted because there are no entries yet."), vbInformation,
               title);
        m_grid->resume();
        return;
    }
    if (MsgBox(QStringLiteral("Are you sure to delete the request?"), vbYesNo | vbQuestion, title) == vbYes)
        m_grid->DeleteCurrentRow();
    else
        m_grid->resume();
}

void ItemRequestScreen::cmdSave_Click() {
    if (m_isSaving || !m_grid->TakeTyped())
        return;
    const QScopedValueRollback saving(m_isSaving, true);
    bool isOpen = false;
    try {
        gUser->sqlconnection().BeginTrans();
        isOpen = true;
        session::GetServerDate();
        appendLines();
        gUser->sqlconnection().CommitTrans();
    } catch (const base::RunTimeError& error) {
        MsgBox(QStringLiteral("Error While Saving Pharmacy Requests  ") + error.description());
        if (isOpen)
            gUser->sqlconnection().RollbackTrans();
        return;
    }
    session::tellDone(
        {.work = m_variant.grid.isSupply ? session::Work::SupplyRequest : session::Work::PharmacyRequest,
         .patient = m_ui->txtPName->text(),
         .IdNum = Trim(m_ui->txtIdNum->text())});
    Unload();
}

void ItemRequestScreen::appendLines() {
    const Hourglass hourglass;
    const QString patientType = m_ui->optType_1->isChecked() ? QStringLiteral("O") : QStringLiteral("I");
    for (int row = 1; row < m_ui->mshflexEntry->Rows(); ++row) {
        if (CompleteRow(row))
            appendLine(row, patientType);
    }
}

void ItemRequestScreen::appendLine(int row, const QString& patientType) {
    const auto cell = [&](int column) { return m_ui->mshflexEntry->TextMatrix(row, column); };
    const char* requestType = m_variant.grid.requestType;
    gUser->sqlconnection().Execute(sql(
        "STATION..Nurse_AppendNurseLogBook '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','','{}',"
        "'{}','{}','{}','N','{}','0','0','0',0",
        Trim(m_ui->txtHospNum->text()), Trim(m_ui->txtIdNum->text()), patientType, cell(colCode),
        cell(colAmount), cell(colQuantity), cell(colFrequency), requestType,
        base::Format(session::gServerDate, QStringLiteral("mm/dd/yyyy hh:mm:ss AM/PM")), requestType,
        m_doctorCode, gUser->employeecode(), cell(colRemarks), cell(colDescription), session::gDeptCode,
        Trim(cell(colReserved))));
}

} // namespace charges
