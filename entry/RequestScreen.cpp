#include "entry/RequestScreen.h"

#include "entry/ChargeSlip.h"
#include "entry/DoctorSearch.h"
#include "entry/InputLineLookup.h"
#include "entry/LegendLine.h"
#include "lookup/FieldText.h"
#include "lookup/RateSelection.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "session/services/Services.h"
#include "ui_RequestScreen.h"

namespace entry {

using ado::sql;
using base::Format;
using base::Val;
using namespace controls;
using lookup::fieldText;
using session::gAdmission;
using session::gConnection;
using session::gPatientMaster;
using session::Read;

namespace {

const QString dateFormat = QStringLiteral("mm/dd/yyyy");
constexpr int noSuchMember = 461;

QString personalOr(const QString& account, bool isPersonal) {
    return isPersonal ? QStringLiteral("Personal") : account;
}

} // namespace

RequestScreen::RequestScreen(const RequestVariant& variant, QWidget* parent)
    : Screen(parent), m_variant(variant), m_ui(std::make_unique<Ui::RequestScreen>()) {
    m_ui->setupUi(this);
    setObjectName(QString::fromLatin1(variant.screen));
    setWindowTitle(QString::fromLatin1(variant.caption));
    m_ui->band->setTitle(QString::fromLatin1(variant.title));
    if (!variant.hasNucCharges) {
        delete std::exchange(m_ui->cmdNucCharges, nullptr);
        delete std::exchange(m_ui->Check1, nullptr);
    }
    showLegend();
    auto* txtEntry = new QLineEdit(m_ui->body);
    txtEntry->setObjectName(QStringLiteral("txtEntry"));
    auto* cboEntry = new QComboBox(m_ui->body);
    cboEntry->setObjectName(QStringLiteral("cboEntry"));
    m_grid = new RequestGrid(variant.grid,
                             {m_ui->grdPackage, txtEntry, cboEntry, m_ui->txtGross, m_ui->cmdSave,
                              m_ui->cmdSavePrint, m_ui->lblHint},
                             this);
    look::setPrimary(m_ui->cmdSavePrint);
    connectControls();
}

RequestScreen::~RequestScreen() = default;

void RequestScreen::connectControls() {
    setKeyRules(m_ui->txtDoctorID, KeyRule::UpperCase | KeyRule::BackQuote);
    setKeyRules(m_ui->txtDoctor, KeyRule::UpperCase | KeyRule::BackQuote);
    on(m_ui->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    on(m_ui->cmdSavePrint, &QPushButton::clicked, this, [this] { cmdSavePrint_Click(); });
    on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
    on(m_ui->txtDoctorID, &QLineEdit::returnPressed, this, [this] { cmdDoctor_Click(false); });
    on(m_ui->cmdDoctor, &QPushButton::clicked, this, [this] { cmdDoctor_Click(true); });
    on(m_ui->txtDoctor, &QLineEdit::returnPressed, this, [this] { txtDoctor_Enter(); });
    on(m_ui->cmdPackage, &QPushButton::clicked, this, [this] { cmdPackage_Click(); });
    if (m_ui->cmdNucCharges)
        on(m_ui->cmdNucCharges, &QPushButton::clicked, this, [this] { cmdNucCharges_Click(); });
    on(m_ui->grdInput, &FlexGrid::EnterPressed, this, [this] { LookUpInputLine(); });
    on(m_ui->chkPackage, &QCheckBox::toggled, this, [this] { chkPackage_Click(); });
    on(m_ui->cboPackage, &QComboBox::activated, this, [this] { cboPackage_Click(); });
}

void RequestScreen::showLegend() {
    constexpr int leastShare = 8; // letters: a short part is not broken for the sake of a long one
    int place = 0;
    for (const LegendLabel& each : m_variant.legend) {
        const QString text = QString::fromLatin1(each.text);
        auto* label = new LegendLine(text, m_ui->body);
        label->setObjectName(QString::fromLatin1(each.name));
        m_ui->helpLine->insertWidget(place++, label, leastShare + int(text.simplified().size()));
    }
}

void RequestScreen::addCommand(QPushButton* command) {
    m_ui->commands->insertWidget(m_ui->commands->indexOf(m_ui->lblHint), command);
}

void RequestScreen::addBelowLines(QWidget* part) {
    m_ui->bodyLayout->insertWidget(m_ui->bodyLayout->indexOf(m_ui->helpLine), part);
}

// ---- opening

void RequestScreen::Form_Load() {
    m_ui->txtGross->setText(QStringLiteral("0"));
    enableSaves(false);
    fillHeader();
    if (m_variant.grid.rateRule == RateRule::ByRoomClass)
        readRoomClass();
    m_grid->layOut();
    layOutPackageItems();
    if (entry.NurseCommnunication)
        loadNurseLines();
    if (entry.CashBasis)
        loadCashLines();
    m_ui->grdInput->setRows(qMax(2, m_ui->grdInput->Rows()));
    m_ui->grdInput->setCols(qMax(2, m_ui->grdInput->Cols()));
    m_ui->grdInput->setCurrentCell(1, 1);

    for (QLineEdit* shown : m_ui->body->findChildren<QLineEdit*>())
        shown->setCursorPosition(0); // a long text shows its beginning
    showBand();
    if (!entry.NurseCommnunication && !entry.CashBasis)
        QMetaObject::invokeMethod(
            this, [this] { ErrorBoundary::guard([this] { m_grid->BeginCellEdit(); }); },
            Qt::QueuedConnection);
}

/// Columns 1 to 7 take what a package screen writes there.
void RequestScreen::layOutPackageItems() {
    m_ui->mshflexPackageItems->setRows(2);
    m_ui->mshflexPackageItems->setCols(8);
}

void RequestScreen::showBand() {
    QString about = QStringLiteral("%1   ·   Room %2").arg(patientName(), m_ui->txtRoom->text());
    if (!RoomClass.isEmpty())
        about += QStringLiteral("   ·   Class ") + RoomClass;
    m_ui->band->setSubtitle(about);
    m_ui->band->setChips({QStringLiteral("Adm. ") + m_ui->txtIdNum->text(),
                          QStringLiteral("Hosp. ") + m_ui->txtHospNum->text()});
}

void RequestScreen::setText(const char* name, const QString& text) {
    auto* field = findChild<QLineEdit*>(QString::fromLatin1(name));
    if (!field)
        throw base::RunTimeError(noSuchMember, QStringLiteral("No text in %1").arg(QLatin1String(name)));
    field->setText(text);
    field->setCursorPosition(0);
    showBand();
}

void RequestScreen::fillHeader() {
    if (entry.PatientType == u"I")
        fillAdmitted();
    else if (entry.PatientType == u"O")
        fillOutPatient(Read(sql("spNuclearsearchoutpatient '{}'", entry.PatIdNum)));
    else if (entry.PatientType == u"W")
        fillWalkIn();
}

void RequestScreen::fillAdmitted() {
    if (!gAdmission->OpenAdmission(entry.PatIdNum))
        return;
    const session::clsPatientMaster& patient = gAdmission->Patient;
    showMaster(patient.LastName, patient.FirstName, patient.MiddleName);
    m_ui->txtAge->setText(patient.Age);
    m_ui->txtSex->setText(patient.Sex);
    m_ui->txtBDate->setText(Format(patient.BirthDate, dateFormat));
    m_ui->txtBloodType->setText(patient.BloodType);
    m_ui->txtWeight->setText(gAdmission->History.Weight);
    m_ui->txtHeight->setText(gAdmission->History.Height);
    m_ui->txtHospNum->setText(gAdmission->HospitalNumber);
    m_ui->txtIdNum->setText(entry.PatIdNum);
    m_ui->txtAdmDate->setText(Format(gAdmission->AdmissionDate, dateFormat));
    m_ui->txtRoom->setText(gAdmission->Room);
    DoctorCode = gAdmission->AttendingDoctor1.Code;
    m_ui->txtDoctor->setText(gAdmission->AttendingDoctor1.CompleteName);
    AccountName = gAdmission->AccountNumber;
    m_ui->txtCompany->setText(personalOr(AccountName, gAdmission->Account == u" - "));
}

void RequestScreen::fillOutPatient(ado::Recordset stay) {
    m_ui->txtIdNum->setText(entry.PatIdNum);
    m_ui->txtRoom->setText(QStringLiteral("OPD"));
    if (stay.Eof())
        return;
    m_ui->txtHospNum->setText(fieldText(stay, "HospNum"));
    m_ui->txtAdmDate->setText(Format(stay.Fields("AdmDate").Value(), dateFormat));
    DoctorCode = fieldText(stay, "doctorid1");
    m_ui->txtDoctorID->setText(DoctorCode);
    AccountName = fieldText(stay, "AccountNum");
    m_ui->txtCompany->setText(personalOr(AccountName, AccountName.isEmpty()));
    if (!gPatientMaster->LoadPatient(m_ui->txtHospNum->text()))
        return;
    showMaster(gPatientMaster->LastName, gPatientMaster->FirstName, gPatientMaster->MiddleName);
    m_ui->txtAge->setText(gPatientMaster->Age);
    m_ui->txtSex->setText(gPatientMaster->Sex);
    m_ui->txtBDate->setText(Format(gPatientMaster->BirthDate, dateFormat));
    m_ui->txtBloodType->setText(gPatientMaster->BloodType);
}

void RequestScreen::fillWalkIn() {
    ado::Recordset patient = Read(sql("spNuclearsearchcashpatient '{}'", entry.PatIdNum));
    m_ui->txtAdmDate->setText(Format(base::today(), dateFormat));
    m_ui->txtRoom->setText(QStringLiteral("OPD"));
    m_ui->txtIdNum->setText(entry.PatIdNum);
    m_ui->txtCompany->setText(QStringLiteral("Personal"));
    if (patient.Eof())
        return;
    const auto text = [&](const char* name) { return fieldText(patient, name); };
    m_ui->txtHospNum->setText(text("HospNum"));
    showMaster(text("LastName"), text("FirstName"), text("MiddleName"));
    m_ui->txtAge->setText(text("Age"));
    m_ui->txtSex->setText(text("Sex"));
    m_ui->txtBDate->setText(Format(patient.Fields("BirthDate").Value(), dateFormat));
}

void RequestScreen::showMaster(const QString& lastName, const QString& firstName, const QString& middleName) {
    m_ui->txtLname->setText(lastName);
    m_ui->txtFname->setText(firstName);
    m_ui->txtMname->setText(middleName);
}

QString RequestScreen::patientName() const {
    return QStringLiteral("%1, %2 %3")
        .arg(m_ui->txtLname->text(), m_ui->txtFname->text(), m_ui->txtMname->text());
}

void RequestScreen::readRoomClass() {
    ado::Recordset room =
        Read(sql("Select * From Build_file..tbcoRoom where roomid = '{}'", m_ui->txtRoom->text()));
    RoomClass = room.Eof() ? QStringLiteral("OPD") : fieldText(room, "RoomClassID");
    m_grid->setRoomClass(RoomClass);
}

ado::Recordset RequestScreen::readNurseLines() const {
    return Read(sql("Nuclear..sp_Nuclear_commsearchexam '{}','{}'", entry.PatIdNum, entry.Classification));
}

void RequestScreen::loadNurseLines() {
    gConnection->setCursorLocation(ado::Connection::adUseClient);
    ado::Recordset lines = readNurseLines();
    if (lines.State() != ado::Recordset::adStateOpen || lines.Eof())
        return;
    FlexGrid& grid = *m_ui->grdPackage;
    grid.setRows(lines.RecordCount() + 1);
    for (int row = 1; !lines.Eof(); ++row, lines.MoveNext()) {
        grid.setTextMatrix(row, colDepartment, fieldText(lines, "RevenueID"));
        grid.setTextMatrix(row, colCode, fieldText(lines, "ItemID"));
        grid.setTextMatrix(row, colParticular, fieldText(lines, "Exam"));
        grid.setTextMatrix(row, colPrice, fieldText(lines, "Amount"));
        grid.setTextMatrix(row, colQuantity, fieldText(lines, "Quantity"));
        grid.setTextMatrix(row, colAmount, fieldText(lines, "Amount"));
        grid.setTextMatrix(row, m_variant.posting.nurseLinkColumn, fieldText(lines, "RequestNum"));
    }
    m_grid->recomputeGross();
    enableSaves(true);
    IsDirty = true;
}

void RequestScreen::loadCashLines() {
    for (QWidget* field : {static_cast<QWidget*>(m_ui->lblOrNum), static_cast<QWidget*>(m_ui->lblAmount),
                           static_cast<QWidget*>(m_ui->lblAmount_1), static_cast<QWidget*>(m_ui->txtOrNo),
                           static_cast<QWidget*>(m_ui->txtAmount)})
        field->show();
    m_ui->txtOrNo->setText(entry.CashOrNum);
    Initialize_TableInput();
    ado::Recordset lines = Read(sql("sp_Nuclear_getcashexam '{}'", entry.CashOrNum));
    FlexGrid& grid = *m_ui->grdInput;
    for (int row = 1; !lines.Eof(); ++row, lines.MoveNext()) {
        if (row >= grid.Rows())
            grid.AddItem({});
        grid.setTextMatrix(row, colDepartment, session::gDeptCode);
        grid.setTextMatrix(row, colCode, fieldText(lines, "ItemID"));
        grid.setTextMatrix(row, colParticular, fieldText(lines, "Exam"));
        grid.setTextMatrix(row, colQuantity, fieldText(lines, "Quantity"));
        grid.setTextMatrix(row, colAmount, fieldText(lines, "Amount"));
        GrossAmount += Val(fieldText(lines, "Amount"));
    }
    const QString gross = Format(GrossAmount, QStringLiteral("##,###.00"));
    m_ui->txtGross->setText(gross);
    m_ui->txtAmount->setText(gross);
    enableSaves(true);
}

void RequestScreen::Initialize_TableInput() {
    FlexGrid& grid = *m_ui->grdInput;
    grid.Clear();
    grid.setFixedRows(1);
    grid.setFixedCols(1);
    grid.setRows(2);
    grid.setCols(requestColumnCount);
}

/// Nothing shows that grid, and its lines are not posted: the price of a code in it is all there is.
bool RequestScreen::LookUpInputLine() {
    if (m_ui->grdInput->Cols() < requestColumnCount)
        return false;
    return InputLineLookup(*m_ui->grdInput, [this](const auto& exam) { return inputRate(exam); })
        .LookUpCode();
}

double RequestScreen::inputRate(const session::NuclearExamRecord& exam) const {
    const double rate = entry.PatientType == u"I" ? lookup::rateForClass(exam, entry.PatientClass)
                                                  : lookup::rateOrZero(exam.Outpatient);
    return Val(Format(rate, QStringLiteral("#####.00")));
}

void RequestScreen::enableSaves(bool enabled) {
    m_ui->cmdSave->setEnabled(enabled);
    m_ui->cmdSavePrint->setEnabled(enabled);
}

// ---- events, in the order of the screen

void RequestScreen::cmdDoctor_Click(bool withMiddleName) {
    if (findDoctorByCode(*m_ui->txtDoctorID, *m_ui->txtDoctor, withMiddleName))
        focusNextChild();
}

void RequestScreen::txtDoctor_Enter() {
    if (const auto doctor = findDoctorByName(*m_ui->txtDoctor))
        DoctorCode = doctor->ResultCode;
}

void RequestScreen::cmdPackage_Click() {
    if (!m_grid->TakeTypedCells())
        return;
    session::screens().openNuclearPackage(packageGrids());
    m_grid->recomputeGross();
}

void RequestScreen::cmdNucCharges_Click() {
    if (!m_grid->TakeTypedCells())
        return;
    session::screens().openNucCharges(packageGrids());
    m_grid->recomputeGross();
}

session::PackageHandOver RequestScreen::packageGrids() {
    m_grid->EndCellEdit();
    return {m_ui->grdPackage, m_ui->mshflexPackageItems};
}

void RequestScreen::chkPackage_Click() {
    const bool checked = m_ui->chkPackage->isChecked();
    enableSaves(checked);
    m_ui->cboPackage->setVisible(checked);
    m_ui->cboPackage->setEnabled(checked);
    m_ui->grdPackage->setVisible(checked);
    m_ui->grdPackage->setEnabled(checked);
    m_ui->cboPackage->clear();
    if (!checked) {
        m_ui->txtGross->setText(QStringLiteral("0"));
        return;
    }
    ado::Recordset packages = Read(sql("spNuclear_PackageList"));
    for (; !packages.Eof(); packages.MoveNext())
        m_ui->cboPackage->addItem(fieldText(packages, "PackageName"));
}

void RequestScreen::cboPackage_Click() {
    ado::Recordset lines =
        Read(sql("spNuclear_ShowPackage '','{}'", m_ui->cboPackage->currentText().left(1)));
    FlexGrid& grid = *m_ui->grdPackage;
    grid.Clear();
    if (lines.State() != ado::Recordset::adStateOpen || lines.Eof()) {
        MsgBox(QStringLiteral("No Record Found"), vbInformation, QStringLiteral("Message"));
        return;
    }
    grid.setDataSource(lines);
    constexpr int widths[] = {10, 800, 800, 4000, 1000, 1000};
    for (int column = 0; column < qMin(6, grid.Cols()); ++column)
        grid.setColWidth(column, widths[column]);
    double gross = 0;
    for (int row = 1; row < grid.Rows(); ++row)
        gross += Val(Format(grid.TextMatrix(row, 6), QStringLiteral("####.00")));
    m_ui->txtGross->setText(Format(gross, QStringLiteral("####.00")));
}

void RequestScreen::Form_QueryUnload(bool& cancel) {
    if (IsDirty)
        cancel = MsgBox(QStringLiteral("Are you Sure you want to Exit ?"), vbYesNo | vbQuestion,
                        QStringLiteral("Message")) == vbNo;
}

// ---- save

void RequestScreen::cmdSave_Click() {
    if (!m_grid->TakeTypedCells() || std::exchange(m_isSaving, true))
        return;
    SaveRequest();
    Unload();
}

void RequestScreen::cmdSavePrint_Click() {
    if (!m_grid->TakeTypedCells() || std::exchange(m_isSaving, true))
        return;
    SaveRequest();
    if (IsSaved)
        PrintChargeSlip();
    Unload();
}

void RequestScreen::SaveRequest() {
    m_grid->EndCellEdit();
    enableSaves(false); // whatever is pressed while the box below waits, it is posted once
    const PostingHeader header{entry, m_ui->txtHospNum->text(), m_ui->txtIdNum->text(), m_ui->txtRoom->text(),
                               DoctorCode};
    RequestPosting posting(m_variant.posting, header, *m_ui->grdPackage, *m_ui->mshflexPackageItems);
    gConnection->BeginTrans();
    IsSaved = false;
    {
        const Hourglass hourglass;
        posting.post();
        gConnection->CommitTrans();
    }
    ChargeSlip = posting.ChargeSlip();
    if (const QString& number = entry.CashBasis ? entry.CashOrNum : ChargeSlip; !number.isEmpty())
        session::tellDone({.work = entry.CashBasis ? session::Work::PaidRequest : session::Work::Slip,
                           .number = number,
                           .patient = patientName(),
                           .IdNum = m_ui->txtIdNum->text(),
                           .PatientType = QString::fromLatin1(m_variant.posting.patientType)});
    MsgBox(m_variant.boxTellsSlip
               ? QStringLiteral("Data Successfully Saved! ChargeSlip No.: '%1'").arg(ChargeSlip)
               : QStringLiteral("Data Successfully Saved!"),
           vbOKOnly, QStringLiteral("Message"));
    IsSaved = true;
    IsDirty = false;
}

// ---- print

void RequestScreen::PrintChargeSlip() {
    session::Run(sql("delete from tbNucChargeSlip"));
    dumpSlipLines(requestSlip, *m_ui->grdPackage);
    launchChargeSlip({patientName(), m_ui->txtCompany->text(), m_ui->txtIdNum->text(), entry.NursingRemarks,
                      m_ui->txtDoctor->text(), ChargeSlip, nurseText(entry.RequestingNurse)},
                     true);
}

} // namespace entry
