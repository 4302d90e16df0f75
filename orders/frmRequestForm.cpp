#include "orders/frmRequestForm.h"

#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"
#include "session/services/Services.h"
#include "ui_frmRequestForm.h"

namespace orders {

using ado::sql;
using lookup::fieldText;

namespace {

// The hidden leading column counts as 0.
enum ExamColumn { quantity = 3, amount = 4 };

constexpr int widths[] = {100, 900, 3600, 900, 1100, 1700, 900, 1100, 1100};

constexpr controls::ListVariant variant = {.widths = widths, .one = "exam", .many = "exams"};

} // namespace

frmRequestForm::frmRequestForm(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmRequestForm>()) {
    m_ui->setupUi(this);
    setUpList(
        {.grid = m_ui->grdRequests, .select = m_ui->cmdPrint, .close = m_ui->cmdClose, .hits = m_ui->lblHits},
        variant);
    controls::on(m_ui->cmdTown, &QPushButton::clicked, this, [this] { cmdTown_Click(); });
}

frmRequestForm::~frmRequestForm() = default;

void frmRequestForm::take(ado::Recordset& request) {
    CSNumber = fieldText(request, "RefNum");
    IdNumber = fieldText(request, "IdNum");
    load();
    if (isUnloaded())
        return;
    const QString name = QStringLiteral("%1, %2 %3")
                             .arg(fieldText(request, "LastName"), fieldText(request, "FirstName"),
                                  fieldText(request, "MiddleName"));
    m_ui->txtCSNum->setText(CSNumber);
    m_ui->txtIdNum->setText(IdNumber);
    m_ui->txtPName->setText(name);
    const struct {
        QLineEdit* field;
        const char* column;
    } fields[] = {{m_ui->txtHospNum, "HospNum"},
                  {m_ui->txtAge, "Age"},
                  {m_ui->txtSex, "Sex"},
                  {m_ui->txtRoom, "RoomID"},
                  {m_ui->txtRoomClassID, "RoomClassID"},
                  {m_ui->txtHouseStreet, "HouseStreet"},
                  {m_ui->txtBarangay, "Barangay"},
                  {m_ui->txtZipCode, "ZipCode"},
                  {m_ui->txtProvince, "Province"},
                  {m_ui->txtDoctor, "DoctorName"}};
    for (const auto& each : fields) {
        each.field->setText(fieldText(request, each.column));
        each.field->setCursorPosition(0);
    }
    m_ui->bandHeader->setSubtitle(name);
    m_ui->bandHeader->setChips(
        {QStringLiteral("Adm. ") + IdNumber, QStringLiteral("Hosp. ") + m_ui->txtHospNum->text()});
}

void frmRequestForm::Form_Load() {
    ListScreen::Form_Load();
    for (const int column : {quantity, amount})
        m_ui->grdRequests->setColAlignment(column, Qt::AlignRight);
    search();
    if (hits() > 0)
        return;
    controls::MsgBox(QStringLiteral("Sorry, but you cannot print requests with result."),
                     controls::vbInformation, QStringLiteral("Request with Result cannot be printed"));
    Unload();
}

void frmRequestForm::search() {
    ado::Recordset exams =
        session::Read(sql("NUCLEAR..sp_Nuclear_RequestFormInfo '{}', '{}'", CSNumber, IdNumber));
    bindRows(exams);
    setWidths();
}

/// The request knows the zip code alone.
void frmRequestForm::cmdTown_Click() {
    session::gCodeFind->SearchMode = true;
    if (!session::gCodeFind->SearchListing(m_ui->txtZipCode->text(), session::clsLookupPad::towns))
        return;
    const session::AddressRecord& address = session::gCodeFind->AddressRecord;
    m_ui->txtZipCode->setText(address.ResultCode);
    m_ui->txtTown->setText(address.Town);
    m_ui->txtProvince->setText(address.Province);
}

void frmRequestForm::rowTaken() {
    const QString number = m_ui->txtCSNum->text();
    session::PrepareReport(session::reportPath(QStringLiteral("NucRequestForm.rpt")),
                           QStringLiteral("NUCLEAR"), {number, session::gUser->employeename()});
    session::ShowReport(false, QStringLiteral("Charge Slip Printing"), true);
    session::Run(sql("NUCLEAR..sp_Nuclear_PrepaidUpdatePrintStatus '{}'", base::Trim(number)));
}

} // namespace orders
