#include "orders/frmAssessment.h"

#include "entry/ChargeSlip.h"
#include "entry/DoctorSearch.h"
#include "entry/RequestGrid.h"
#include "lookup/FieldText.h"
#include "lookup/clsCashPatientSearch.h"
#include "lookup/clsRegularPatientSearch.h"
#include "orders/AssessmentPosting.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "session/services/Services.h"
#include "ui_frmAssessment.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QMenu>

#include <array>

namespace orders {

using ado::sql;
using namespace controls;
using namespace entry;
using lookup::fieldText;
using session::gConnection;
using session::gDeptFind;
using session::Read;

frmAssessment::frmAssessment(QWidget* parent)
    : Screen(parent)
    , m_ui(std::make_unique<Ui::frmAssessment>())
    , optType(new QButtonGroup(this))
    , mnuPackages(new QMenu(this)) {
    m_ui->setupUi(this);
    optType->addButton(m_ui->optType_0, int(Kind::WalkIn));
    optType->addButton(m_ui->optType_1, int(Kind::Regular));
    optType->addButton(m_ui->optType_2, int(Kind::Confined));
    mnuPackages->setObjectName(QStringLiteral("mnuPackages"));
    auto* txtEntry = new QLineEdit(m_ui->body);
    txtEntry->setObjectName(QStringLiteral("txtEntry"));
    auto* cboEntry = new QComboBox(m_ui->body);
    cboEntry->setObjectName(QStringLiteral("cboEntry"));
    m_grid = new RequestGrid(
        assessmentGrid,
        {m_ui->grdTable, txtEntry, cboEntry, m_ui->txtGross, m_ui->btnSave, m_ui->btnClear, m_ui->lblHint},
        this);
    look::setPrimary(m_ui->btnClear);
    connectControls();
}

frmAssessment::~frmAssessment() = default;

void frmAssessment::connectControls() {
    for (QLineEdit* field : {m_ui->txtSname, m_ui->txtDoctorID, m_ui->txtDoctor})
        setKeyRules(field, KeyRule::UpperCase | KeyRule::BackQuote);
    on(optType, &QButtonGroup::idClicked, this, [this] { optType_Click(); });
    on(m_ui->txtSname, &QLineEdit::textEdited, this, [this] { txtSname_Edited(); });
    onEnter(m_ui->txtSname, [this] { txtSname_Enter(); });
    onEnter(m_ui->txtDoctorID, [this] { txtDoctorID_Enter(); });
    onEnter(m_ui->txtDoctor, [this] { txtDoctor_Enter(); });
    on(m_ui->cmdPackage, &QPushButton::clicked, this, [this] { cmdPackage_Click(); });
    on(mnuPackages, &QMenu::triggered, this,
       [this](QAction* package) { addPackage(package->data().toString()); });
    on(m_ui->btnSave, &QPushButton::clicked, this, [this] { btnSave_Click(); });
    on(m_ui->btnClear, &QPushButton::clicked, this, [this] { btnClear_Click(); });
    on(m_ui->btnClose, &QPushButton::clicked, this, [this] { Unload(); });
}

void frmAssessment::ShowForEachPatient() {
    // one after the other, not one out of the other: a day has hundreds of patients
    for (bool isWanted = true; isWanted;) {
        auto& screen = SharedScreen<frmAssessment>::fresh();
        screen.ShowModal();
        isWanted = screen.isNextWanted();
    }
}

// ---- opening

void frmAssessment::Form_Load() {
    dropLines();
    enableLines(false);
    showBand();
    m_ui->txtSname->setFocus();
}

frmAssessment::Kind frmAssessment::kind() const {
    return Kind(optType->checkedId());
}

void frmAssessment::showBand() {
    const bool isFound = !m_ui->txtHospNum->text().isEmpty();
    m_ui->band->setSubtitle(
        isFound ? QStringLiteral("%1   ·   Class %2").arg(m_patientName, m_ui->txtRoomClassID->text())
                : QStringLiteral("Type the last name and press Enter"));
    const auto chip = [](const char* name, const QString& number) {
        return number.isEmpty() ? QString() : QString::fromLatin1(name) + number;
    };
    m_ui->band->setChips({chip("Adm. ", m_ui->txtIdNum->text()), chip("Hosp. ", m_ui->txtHospNum->text())});
}

// ---- the patient

void frmAssessment::optType_Click() {
    forgetPatient();
    m_ui->txtSname->setFocus();
    SelectAllText(m_ui->txtSname);
}

/// Another name is another patient: the numbers of the former one must not go with it.
void frmAssessment::txtSname_Edited() {
    if (!m_ui->txtHospNum->text().isEmpty())
        forgetPatient();
}

void frmAssessment::forgetPatient() {
    for (QLineEdit* field : std::initializer_list<QLineEdit*>{
             m_ui->txtFname, m_ui->txtMname, m_ui->txtHospNum, m_ui->txtIdNum, m_ui->txtRoomClassID})
        field->clear();
    m_patientName.clear();
    m_grid->setRoomClass({});
    enableLines(false);
    showBand();
}

void frmAssessment::txtSname_Enter() {
    using Search = bool (frmAssessment::*)(const QString&);
    static constexpr std::array<Search, 3> searches{&frmAssessment::findWalkIn, &frmAssessment::findRegular,
                                                    &frmAssessment::findConfined};
    const QString name = m_ui->txtSname->text().toUpper();
    m_ui->txtSname->setText(name);
    if ((this->*searches[std::size_t(kind())])(name)) {
        patientFound();
        return;
    }
    forgetPatient();
    m_ui->band->setSubtitle(QStringLiteral("Nobody was chosen. Type the last name and press Enter"));
    m_ui->txtSname->setFocus();
    SelectAllText(m_ui->txtSname);
}

bool frmAssessment::findWalkIn(const QString& name) {
    lookup::clsCashPatientSearch search;
    if (!search.ValidatePatient(name, true))
        return false;
    show(search);
    m_ui->txtIdNum->clear(); // no stay: known by the hospital number alone
    m_ui->txtRoomClassID->setText(QStringLiteral("A"));
    return true;
}

bool frmAssessment::findRegular(const QString& name) {
    lookup::clsRegularPatientSearch search;
    if (!search.ValidatePatient(name, true))
        return false;
    show(search);
    m_ui->txtIdNum->setText(QStringLiteral("T%1C").arg(search.HospitalNumber()));
    m_ui->txtRoomClassID->setText(QStringLiteral("A"));
    return true;
}

void frmAssessment::show(const lookup::FoundPatient& patient) {
    m_ui->txtHospNum->setText(patient.HospitalNumber());
    m_ui->txtSname->setText(patient.LastName());
    m_ui->txtFname->setText(patient.FirstName());
    m_ui->txtMname->setText(patient.MiddleName());
}

bool frmAssessment::findConfined(const QString& name) {
    if (!gDeptFind->PatientListing(name, session::clsDeptFind::confinedPatients, true))
        return false;
    const session::ListedPatient& patient = gDeptFind->Inpatient;
    m_ui->txtHospNum->setText(patient.HospitalNumber);
    m_ui->txtIdNum->setText(patient.IdNumber);
    m_ui->txtSname->setText(patient.LastName);
    m_ui->txtFname->setText(patient.FirstName);
    m_ui->txtMname->setText(patient.MiddleName);
    m_ui->txtRoomClassID->setText(patient.RoomClassID);
    return CheckCashBasisStatus();
}

/// A stay that the departments hold nothing about is charged as usual.
bool frmAssessment::CheckCashBasisStatus() {
    const QString idNumber = m_ui->txtIdNum->text();
    if (!base::IsNumeric(idNumber))
        return true;
    ado::Recordset stay =
        Read(sql("Select top 1 * from patient_data..tbPatient2 where Idnum = '{}'", idNumber));
    if (!stay.Eof() && lookup::fieldFlag(stay, "OkeyNU"))
        return true;
    MsgBox(QStringLiteral("Patient is not Under Cash Basis. Use Post Charges Option."), vbInformation,
           QStringLiteral("Message Alert"));
    return false;
}

void frmAssessment::patientFound() {
    m_patientName = QStringLiteral("%1, %2 %3")
                        .arg(m_ui->txtSname->text(), m_ui->txtFname->text(), m_ui->txtMname->text());
    const QString roomClass = base::Trim(m_ui->txtRoomClassID->text());
    m_grid->setRoomClass(roomClass);
    if (roomClass != m_pricedClass)
        dropLines(); // they were priced for somebody of another class
    m_pricedClass = roomClass;
    enableLines(true);
    showBand();
    m_ui->txtDoctorID->setFocus();
}

/// Without a patient there is no price.
void frmAssessment::enableLines(bool enabled) {
    if (!enabled)
        m_grid->EndCellEdit();
    m_ui->grdTable->setEnabled(enabled);
    m_ui->cmdPackage->setEnabled(enabled);
}

void frmAssessment::dropLines() {
    m_ui->grdTable->Clear();
    m_grid->layOut();
    m_grid->recomputeGross();
    enableSaves(false);
}

// ---- the doctor

void frmAssessment::txtDoctorID_Enter() {
    if (findDoctorByCode(*m_ui->txtDoctorID, *m_ui->txtDoctor, false))
        sendTab(m_ui->txtDoctorID);
}

void frmAssessment::txtDoctor_Enter() {
    const auto doctor = findDoctorByName(*m_ui->txtDoctor);
    if (!doctor)
        return;
    m_ui->txtDoctorID->setText(doctor->ResultCode);
    sendTab(m_ui->txtDoctor);
}

// ---- packages

void frmAssessment::cmdPackage_Click() {
    if (!m_grid->TakeTypedCells())
        return;
    m_grid->EndCellEdit();
    mnuPackages->clear();
    ado::Recordset packages = Read(sql("spNuclear_PackageList"));
    for (; !packages.Eof(); packages.MoveNext()) {
        const QString name = fieldText(packages, "PackageName");
        QAction* package = mnuPackages->addAction(QString(name).replace(u'&', QStringLiteral("&&")));
        package->setData(name.left(1));
    }
    if (mnuPackages->isEmpty()) {
        MsgBox(QStringLiteral("No Record Found"), vbInformation, QStringLiteral("Message"));
        return;
    }
    mnuPackages->setActiveAction(mnuPackages->actions().first());
    mnuPackages->popup(m_ui->cmdPackage->mapToGlobal(QPoint(0, -mnuPackages->sizeHint().height())));
}

void frmAssessment::addPackage(const QString& letter) {
    ado::Recordset lines = Read(sql("spNuclear_ShowPackage 'Y','{}'", letter));
    if (lines.Eof()) {
        MsgBox(QStringLiteral("No Record Found"), vbInformation, QStringLiteral("Message"));
        return;
    }
    for (; !lines.Eof(); lines.MoveNext())
        addPackageLine(lines);
    m_grid->recomputeGross();
    enableSaves(true);
    m_ui->grdTable->setFocus();
}

/// On the last line when it is empty, else behind it.
void frmAssessment::addPackageLine(ado::Recordset& line) {
    FlexGrid& grid = *m_ui->grdTable;
    int row = grid.Rows() - 1;
    if (!grid.TextMatrix(row, colDepartment).isEmpty() || !grid.TextMatrix(row, colCode).isEmpty()) {
        grid.AddItem({});
        ++row;
    }
    const auto amount = [&](const char* column) {
        return base::Format(line.Fields(column).Value(), amountFormat);
    };
    grid.setTextMatrix(row, colDepartment, fieldText(line, "RevenueID"));
    grid.setTextMatrix(row, colCode, fieldText(line, "ItemID"));
    grid.setTextMatrix(row, colParticular, fieldText(line, "Exam"));
    grid.setTextMatrix(row, colPrice, amount("Price"));
    grid.setTextMatrix(row, colQuantity, fieldText(line, "Quantity"));
    grid.setTextMatrix(row, colAmount, amount("Amount"));
    grid.setTextMatrix(row, colRoutinePrice, amount("Price"));
}

// ---- save

void frmAssessment::btnSave_Click() {
    if (SaveAssessment())
        goToNextPatient();
}

void frmAssessment::btnClear_Click() {
    if (!SaveAssessment())
        return;
    session::Run(sql("DELETE tbNucChargeSlip"));
    dumpSlipLines(assessmentSlip, *m_ui->grdTable);
    PrintAssessmentSlip();
    goToNextPatient();
}

void frmAssessment::goToNextPatient() {
    m_ui->txtSname->clear();
    m_nextWanted = true;
    Unload();
}

void frmAssessment::enableSaves(bool enabled) {
    m_ui->btnSave->setEnabled(enabled);
    m_ui->btnClear->setEnabled(enabled);
}

bool frmAssessment::SaveAssessment() {
    if (m_isSaving || !isPatientChosen() || !m_grid->TakeTypedCells())
        return false;
    m_isSaving = true; // whatever is pressed while the box below waits, it is filed once
    m_grid->EndCellEdit();
    enableSaves(false);
    if (postAll()) {
        session::tellDone({.work = session::Work::Assessment,
                           .number = m_assessmentRef,
                           .patient = m_patientName,
                           .IdNum = m_ui->txtIdNum->text()});
        MsgBox(QStringLiteral("Data Successfully Saved."), vbInformation, QStringLiteral("Message"));
        return true;
    }
    MsgBox(QStringLiteral("Data Not Successfully Saved!"), vbExclamation, QStringLiteral("Warning"));
    enableSaves(true); // the lines are still there, to be tried again
    m_isSaving = false;
    return false;
}

/// The saves stay in use when another name is begun: nothing is filed for nobody.
bool frmAssessment::isPatientChosen() {
    if (!m_ui->txtHospNum->text().isEmpty())
        return true;
    m_ui->band->setSubtitle(QStringLiteral("Whose assessment is it? Type the last name and press Enter"));
    m_ui->txtSname->setFocus();
    SelectAllText(m_ui->txtSname);
    return false;
}

/// The one posting of a request screen that takes back what it began.
bool frmAssessment::postAll() {
    const AssessmentHeader header{m_ui->txtHospNum->text(), m_ui->txtIdNum->text(),
                                  m_ui->txtSname->text(),   m_ui->txtFname->text(),
                                  m_ui->txtMname->text(),   m_ui->txtDoctorID->text()};
    const Hourglass hourglass;
    try {
        gConnection->BeginTrans();
        AssessmentPosting posting(header, *m_ui->grdTable);
        posting.post();
        gConnection->CommitTrans();
        m_assessmentRef = posting.AssessmentRef();
        return true;
    } catch (const base::RunTimeError&) {
        if (gConnection->inTransaction())
            gConnection->RollbackTrans();
        return false;
    }
}

// ---- print

void frmAssessment::PrintAssessmentSlip() {
    session::Run(sql("delete from tbNucChargeSlip"));
    dumpSlipLines(assessmentSlip, *m_ui->grdTable);
    launchChargeSlip({.patientName = m_patientName,
                      .account = {},
                      .admissionNumber = m_ui->txtIdNum->text(),
                      .nursingRemarks = {},
                      .doctor = m_ui->txtDoctor->text(),
                      .chargeSlip = m_assessmentRef,
                      .nurse = {}},
                     true);
}

} // namespace orders
