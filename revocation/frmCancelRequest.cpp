#include "revocation/frmCancelRequest.h"

#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "revocation/frmCancellation.h"
#include "session/Session.h"
#include "ui_frmCancelRequest.h"

namespace revocation {

using ado::sql;
using base::Trim;
using controls::SharedScreen;
using session::Read;

namespace {

/// Behind those that the headers name; the hidden leading column counts as 0.
constexpr int requestNumberColumn = 15;

constexpr int widths[] = {100, 1200, 1200, 1200, 800, 3000, 1200, 1000, 1000, 0, 0};

/// A blank row can be chosen as well, but not by Enter: the keys go to the grid only once it has requests.
constexpr controls::ListVariant list = {
    .format =
        " | LastName | FirstName | MiddleName | RoomID | Exam | TransDate | RequestNum | UserID | Hosp.Num "
        "| Adm.Num ",
    .widths = widths,
    .one = "request",
    .many = "requests",
    .most = 200,
    .nothingFound = controls::ListVariant::NothingFound::KeepsRows,
    .selectable = controls::ListVariant::Selectable::AsItStands,
    .emptyRow = controls::ListVariant::EmptyRow::NotEnter};

/// Where the header of the chosen request goes, in this order; before the first of them IdNum.
constexpr struct {
    const char* column;
    const char* control;
} headerFields[] = {{"Adm. No.", "txtAdmNo"},        {"Last Name", "txtSname"},  {"First Name", "txtFname"},
                    {"Middle Name", "txtMname"},     {"Hosp. No.", "txtHospNo"}, {"RefNum", "txtCSlip"},
                    {"Trans. Date", "txtTransDate"}, {"RoomID", "txtRoomID"}};

} // namespace

frmCancelRequest::frmCancelRequest(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmCancelRequest>()) {
    m_ui->setupUi(this);
    m_ui->cmdSearch->setIcon(controls::look::icon(QStringLiteral("search")));
    setUpList({.grid = m_ui->grdTable,
               .search = m_ui->txtSearch,
               .searchBy = m_ui->cmbSearch,
               .find = m_ui->cmdSearch,
               .select = m_ui->cmdSelect,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              list);
}

frmCancelRequest::~frmCancelRequest() = default;

QString frmCancelRequest::searchText() const {
    return m_ui->txtSearch->text();
}

void frmCancelRequest::setSearchText(const QString& text) {
    load();
    m_ui->txtSearch->setText(text);
    backToSearch();
}

void frmCancelRequest::Form_Load() {
    ListScreen::Form_Load();
    m_ui->cmbSearch->addItems({QStringLiteral("LastName"), QStringLiteral("Hosp.No."),
                               QStringLiteral("Adm.No."), QStringLiteral("Reference No.")});
    m_ui->cmbSearch->setCurrentIndex(0);
}

void frmCancelRequest::search() {
    const int index = m_ui->cmbSearch->currentIndex();
    if (index < 0 || index > 3)
        return;
    const Hourglass busy;
    ado::Recordset requests =
        Read(sql("sp_Nuclear_GetCancelRequest_new'{}',{}", Trim(m_ui->txtSearch->text()), index + 1));
    if (requests.RecordCount() > 0)
        FormatGrid();
    bindRows(requests);
}

void frmCancelRequest::rowTaken() {
    frmCancellation& cancellation = SharedScreen<frmCancellation>::fresh();
    handOver(cancellation, hits() > 0 ? Trim(cell(requestNumberColumn)) : QString());
    cancellation.ShowModal();
    m_wantsReopening = cancellation.hasEnded();
    if (m_wantsReopening)
        Unload();
    else
        backToSearch();
}

void frmCancelRequest::handOver(frmCancellation& cancellation, const QString& requestNumber) {
    fillHeader(cancellation, requestNumber);
    fillLines(cancellation, requestNumber);
}

/// IdNum comes before any control: the load of the screen asks by it.
void frmCancelRequest::fillHeader(frmCancellation& cancellation, const QString& requestNumber) {
    ado::Recordset request = Read(sql("sp_Nuclear_getCancelRequest_new '{}', 4 ", requestNumber));
    if (request.RecordCount() > 0) {
        const auto text = [&](const char* column) { return lookup::fieldText(request, column); };
        cancellation.IdNum = text("Adm. No.");
        cancellation.load();
        for (const auto& [column, control] : headerFields)
            cancellation.setText(control, text(column));
        RefNum = text("RefNum");
        cancellation.RevenueID = text("RevenueID");
        cancellation.RequestNum = requestNumber;
        cancellation.NurseRequestNum = text("NurseRequestNum");
        cancellation.ExamCode = text("ItemID");
    }
    request.Close();
}

/// Each line is named from the file that its revenue code belongs to.
void frmCancelRequest::fillLines(frmCancellation& cancellation, const QString& requestNumber) {
    ado::Recordset lines =
        Read(sql("SELECT A.ItemID, case isnull(A.RevenueID,'') "
                 "When 'MD' then C.LastName + ', ' + C.FirstName + ' ' + C.MiddleName "
                 "When 'NU' then B.NucExam "
                 "When 'MN' then D.ItemName "
                 "End as NucExam, A.Quantity, A.Amount,A.Revenueid FROM Nuclear..tbNucMaster A "
                 "LEFT OUTER JOIN BUILD_FILE..tbCoNucExam B on A.ItemID = B.NucExamID "
                 "LEFT OUTER JOIN BUILD_FILE..tbCoDoctor C on A.ItemID = C.DoctorID "
                 "LEFT OUTER JOIN INVENTORY..tbInvMaster D on A.ItemID = D.ItemID "
                 "Where A.Itemid <> '' and A.Amount <> '0.0' and A.refNum = '{}' and A.Requestnum = '{}'",
                 RefNum, requestNumber));
    if (!lines.Eof()) {
        cancellation.Init_Grid();
        cancellation.showLines(lines);
    }
    lines.Close();
}

void openCancelRequest() {
    using Shared = SharedScreen<frmCancelRequest>;
    Shared::fresh().ShowModal();
    while (Shared::current().wantsReopening()) {
        const QString kept = Shared::current().searchText();
        Shared::fresh().setSearchText(kept);
        Shared::current().ShowModal();
        if (!Shared::current().wantsReopening())
            Shared::fresh().setSearchText(kept);
    }
}

} // namespace revocation
