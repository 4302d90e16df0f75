#include "orders/frmPrepaidRequest.h"

#include "orders/frmRequestForm.h"
#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "ui_frmPrepaidRequest.h"

namespace orders {

using ado::sql;
using base::Trim;
using controls::MsgBox;
using session::Read;

namespace {

// The leading column counts as 0.
enum GridColumn { reference = 7 };

constexpr int widths[] = {100, 2800, 3000, 1700, 1100, 1200, 1100, 1100};

constexpr controls::ListVariant variant = {.widths = widths,
                                           .one = "request",
                                           .many = "requests",
                                           .emptyText = "No prepaid request waits for its form.",
                                           .emptyRow = controls::ListVariant::EmptyRow::NotEnter};

} // namespace

frmPrepaidRequest::frmPrepaidRequest(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmPrepaidRequest>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdPendingList,
               .select = m_ui->cmdPending,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              variant);
}

frmPrepaidRequest::~frmPrepaidRequest() = default;

/// The list is read once the screen stands, so that what it says of an empty one stands over the screen.
void frmPrepaidRequest::Form_Load() {
    ListScreen::Form_Load();
    QMetaObject::invokeMethod(
        this, [this] { controls::ErrorBoundary::guard([this] { activate(); }); }, Qt::QueuedConnection);
}

void frmPrepaidRequest::activate() {
    search();
    backToSearch();
    if (hits() == 0)
        MsgBox(QStringLiteral("All requests have been processed."), controls::vbInformation,
               QStringLiteral("Prepaid Requests"));
}

void frmPrepaidRequest::search() {
    const Hourglass busy;
    ado::Recordset pending = Read(sql("NUCLEAR..sp_Nuclear_PrepaidSearchRequest '{}'", session::gDeptCode));
    bindRows(pending);
    setWidths();
}

void frmPrepaidRequest::rowTaken() {
    const QString number = Trim(cell(reference));
    if (number.isEmpty()) {
        MsgBox(QStringLiteral("Request not valid for printing."), controls::vbInformation,
               QStringLiteral("Message"));
        return;
    }
    ado::Recordset request = Read(sql("NUCLEAR..sp_Nuclear_GetPrepaidPatientInfo '{}'", number));
    if (request.Eof()) {
        MsgBox(QStringLiteral("Request Form not found!"), controls::vbInformation,
               QStringLiteral("No Request Form"));
        return;
    }
    auto& form = controls::SharedScreen<frmRequestForm>::fresh();
    form.take(request);
    request.Close();
    if (form.isUnloaded())
        return;
    form.ShowModal();
    if (!isUnloaded())
        activate();
}

} // namespace orders
