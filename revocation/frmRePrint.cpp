#include "revocation/frmRePrint.h"

#include "entry/ChargeSlip.h"
#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"
#include "session/services/Services.h"
#include "ui_frmRePrint.h"

#include <QKeyEvent>

namespace revocation {

using ado::sql;
using session::gDeptFind;
using session::gUser;

namespace {

// The hidden leading column counts as 0.
enum ChargeColumn { refNum = 1, transDate, itemCode, description, quantity, amount, encoder, columnCount };

constexpr struct {
    const char* header;
    int twips;
} chargeColumns[] = {{"", 100},     {"REF. #", 1000}, {"DATE", 2000},   {"CODE", 1000}, {"DESCRIPTION", 3000},
                     {"QTY", 1000}, {"AMOUNT", 1000}, {"ENCODER", 1000}};

enum PatientCode { inpatient, outpatient };

constexpr controls::ListVariant charges = {
    .one = "charge", .many = "charges", .selectable = controls::ListVariant::Selectable::AsItStands};

/// A field as the grid shows it; Null leaves the cell empty.
QString formatted(ado::Recordset& rows, const char* field, const char* format) {
    const base::Value value = rows.Fields(field).Value();
    return value.isNull() ? QString() : base::Format(value, QString::fromLatin1(format));
}

} // namespace

frmRePrint::frmRePrint(QWidget* parent) : ListScreen(parent), m_ui(std::make_unique<Ui::frmRePrint>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdTable,
               .search = m_ui->txtIdNum,
               .select = m_ui->cmdPrint,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              charges);
    m_ui->cmbPatientCode->installEventFilter(this);
    controls::on(m_ui->grdTable, &controls::FlexGrid::RowColChange, this, [this] { rowChanged(); });
}

frmRePrint::~frmRePrint() = default;

void frmRePrint::Form_Load() {
    ListScreen::Form_Load();
    m_ui->cmbPatientCode->addItems({QStringLiteral("Inpatient"), QStringLiteral("Outpatient")});
    m_ui->cmbPatientCode->setCurrentIndex(inpatient);
    m_ui->cmdPrint->setEnabled(false);
    layOutCharges();
    if (!wanted.number.isEmpty())
        QMetaObject::invokeMethod(
            this, [this] { controls::ErrorBoundary::guard([this] { findWanted(); }); }, Qt::QueuedConnection);
}

void frmRePrint::findWanted() {
    m_ui->cmbPatientCode->setCurrentIndex(wanted.PatientType == u"O" ? outpatient : inpatient);
    m_ui->txtIdNum->setText(wanted.IdNum);
    searchEntered();
    for (int row = 1; row < m_ui->grdTable->Rows(); ++row) {
        if (m_ui->grdTable->TextMatrix(row, refNum) == wanted.number)
            return m_ui->grdTable->setCurrentCell(row, refNum);
    }
}

// ---- the patient

bool frmRePrint::eventFilter(QObject* watched, QEvent* event) {
    bool handled = false;
    if (watched == m_ui->cmbPatientCode && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool plain = !(key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
        if (plain && !controls::isHeldEnter(key))
            controls::ErrorBoundary::guard([&] { handled = patientCodeKey(key.key()); });
    }
    return handled || ListScreen::eventFilter(watched, event);
}

bool frmRePrint::patientCodeKey(int key) {
    if (key == Qt::Key_I)
        m_ui->cmbPatientCode->setCurrentIndex(inpatient);
    else if (key == Qt::Key_O)
        m_ui->cmbPatientCode->setCurrentIndex(outpatient);
    else if (!controls::isEnter(key))
        return false;
    if (m_ui->txtIdNum->isEnabled())
        backToSearch();
    return true;
}

bool frmRePrint::isInpatient() const {
    return m_ui->cmbPatientCode->currentIndex() == inpatient;
}

/// The focus goes where the listing put it.
void frmRePrint::searchEntered() {
    search();
}

void frmRePrint::search() {
    using Listing = session::clsDeptFind;
    if (!gDeptFind->PatientListing(m_ui->txtIdNum->text(),
                                   isInpatient() ? Listing::confinedPatients : Listing::outPatients, true)) {
        if (isInpatient())
            m_ui->cmdPrint->setEnabled(false);
        backToSearch();
        return;
    }
    takePatient(isInpatient() ? gDeptFind->Inpatient : gDeptFind->Outpatient);
    {
        const Hourglass busy;
        ListCharges();
    }
    if (m_ui->grdTable->isVisible())
        m_ui->grdTable->setFocus();
}

void frmRePrint::takePatient(const session::ListedPatient& patient) {
    m_ui->txtIdNum->setText(patient.IdNumber);
    m_ui->txtHospNum->setText(patient.HospitalNumber);
    m_ui->txtLastName->setText(patient.LastName);
    m_ui->txtFirstName->setText(patient.FirstName);
    m_ui->txtMiddleName->setText(patient.MiddleName);
    m_ui->cmdPrint->setEnabled(true);
    m_patientName = patient.LastName + QStringLiteral(", ") + patient.FirstName + u' ' + patient.MiddleName;
    m_company = patient.Company;
    m_admissionNumber = patient.IdNumber;
    m_room = isInpatient() ? patient.RoomID : QStringLiteral("OP");
    m_doctor = isInpatient() ? patient.AttendingDr : QString();
}

// ---- the charges

void frmRePrint::layOutCharges() {
    controls::FlexGrid& grid = *m_ui->grdTable;
    grid.Clear();
    grid.setRows(2);
    grid.setCols(columnCount);
    std::vector<int> widths;
    for (int column = 0; column < columnCount; ++column) {
        grid.setTextMatrix(0, column, QString::fromLatin1(chargeColumns[column].header));
        widths.push_back(chargeColumns[column].twips);
    }
    grid.setColWidths(widths);
    for (const int column : {quantity, amount})
        grid.setColAlignment(column, Qt::AlignRight);
    grid.setEmptyText(m_ui->txtHospNum->text().isEmpty()
                          ? QStringLiteral("Find a patient first.")
                          : QStringLiteral("Nothing was charged to this patient."));
}

/// The doctor of the last charge stays.
void frmRePrint::ListCharges() {
    ado::Recordset rows =
        gUser->sqlconnection().Execute(sql("sp_Nuclear_ChargesbyPatient '{}'", m_admissionNumber));
    layOutCharges();
    if (rows.Eof())
        m_ui->cmdPrint->setEnabled(false);
    controls::FlexGrid& grid = *m_ui->grdTable;
    int row = 0;
    for (; !rows.Eof(); rows.MoveNext()) {
        ++row;
        if (grid.Rows() <= row)
            grid.setRows(row + 1);
        const auto fill = [&](int column, const QString& text) { grid.setTextMatrix(row, column, text); };
        fill(refNum, rows.Fields("RefNum").text());
        fill(transDate, formatted(rows, "TransDate", "mm/dd/yyyy hh:mmAM/PM"));
        fill(itemCode, rows.Fields("ItemID").text());
        fill(description, rows.Fields("Description").text());
        fill(quantity, formatted(rows, "Quantity", "0"));
        fill(amount, formatted(rows, "Amount", "0.00"));
        fill(encoder, rows.Fields("UserID").text());
        m_doctor = rows.Fields("requestdoctorname").text();
        m_ui->cmdPrint->setEnabled(true);
    }
    rows.Close();
    setHits(row);
    grid.setCurrentCell(1, refNum);
}

void frmRePrint::rowChanged() {
    m_ui->cmdPrint->setEnabled(!cell(refNum).isEmpty());
}

// ---- print

void frmRePrint::dumpLine(const QString& code) const {
    session::Run(sql("sp_Nuclear_ChargesbySlip '{}','{}','{}'", m_slip, code, gUser->employeecode()));
}

void frmRePrint::rowTaken() {
    if (!m_ui->cmdPrint->isEnabled())
        return;
    const controls::FlexGrid& grid = *m_ui->grdTable;
    m_slip = cell(refNum);
    m_chargeDate = base::Format(base::CDate(cell(transDate)), QStringLiteral("MM/dd/yyyy hh:mmAMPM"));
    m_encoder = cell(encoder);
    m_patientName = m_ui->txtLastName->text() + QStringLiteral(", ") + m_ui->txtFirstName->text() + u' ' +
                    m_ui->txtMiddleName->text();
    for (int row = 1; row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, refNum) == m_slip)
            dumpLine(grid.TextMatrix(row, itemCode));
    }
    entry::launchChargeSlip({.patientName = m_patientName,
                             .account = m_company,
                             .admissionNumber = m_ui->txtIdNum->text(),
                             .doctor = m_doctor,
                             .chargeSlip = m_slip,
                             .mark = entry::rePrintMark},
                            false);
}

// ---- print, the second routine

void frmRePrint::PrintChargeSlipFormulas() {
    const controls::FlexGrid& grid = *m_ui->grdTable;
    for (int row = 1; row < grid.Rows(); ++row)
        dumpLine(grid.TextMatrix(row, itemCode));
    session::OpenReport(session::reportPath(QStringLiteral("ChargeSlip1.rpt")));
    report::Report& slip = *session::gReport;
    for (report::TableLogOn& table : slip.tables())
        session::SetReportTableLogOn(table, QStringLiteral("NUCLEAR"));
    const QHash<QString, QString> values = formulaValues();
    for (const QString& name : slip.formulaNames()) {
        if (const auto value = values.find(name.toUpper()); value != values.end())
            slip.setFormula(name, report::quotedFormula(*value));
    }
    slip.watermark = QString::fromLatin1(entry::rePrintMark);
    slip.number = m_slip;
    session::ShowReport(false, QStringLiteral("Charge Slip ") + m_slip, false);
}

/// By upper-cased name; a formula that is not among them stays as it is.
QHash<QString, QString> frmRePrint::formulaValues() const {
    return {{QStringLiteral("TITLE"), {}},
            {QStringLiteral("PATIENT"), m_patientName},
            {QStringLiteral("COMPANY"), m_company},
            {QStringLiteral("ADMNO"), m_admissionNumber},
            {QStringLiteral("ISSUER"), GetEmployeeName(m_encoder)},
            {QStringLiteral("REMARKS"), QStringLiteral("/")},
            {QStringLiteral("CHARGEDATE"), m_chargeDate},
            {QStringLiteral("HOSPITAL"), session::gHospitalName},
            {QStringLiteral("ADDRESS"), session::gHospitalAddress},
            {QStringLiteral("TIN"), {}},
            {QStringLiteral("HOSPNUM"), m_ui->txtHospNum->text()},
            {QStringLiteral("ROOMNUM"), m_room},
            {QStringLiteral("DOCTOR"), m_doctor},
            {QStringLiteral("REQUESTINGNURSE"), {}},
            {QStringLiteral("AGE"), {}},
            {QStringLiteral("COSTCENTERNUM"), {}},
            {QStringLiteral("REMARKSTITLE"), {}},
            {QStringLiteral("@USERID"), gUser->employeecode()}};
}

QString frmRePrint::GetEmployeeName(const QString& id) {
    ado::Recordset employee =
        session::Read(sql("Select * from PASSWORD..tbPasswordMain where EmployeeID = '{}'", id));
    const QString name = employee.Eof() ? QString()
                                        : employee.Fields("LastName").text() + QStringLiteral(", ") +
                                              employee.Fields("FirstName").text();
    employee.Close();
    return name;
}

} // namespace revocation
