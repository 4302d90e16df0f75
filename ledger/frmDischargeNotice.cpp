#include "ledger/frmDischargeNotice.h"

#include "platform/base/Conversion.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"
#include "session/Character.h"
#include "session/Session.h"
#include "ui_frmDischargeNotice.h"

namespace ledger {

using ado::sql;
namespace look = controls::look;

namespace {

constexpr controls::ListVariant variant = {
    .one = "notice", .many = "notices", .emptyText = "No ward has given a notice of discharge."};

constexpr controls::ListColumn columns[] = {
    {"Patient", 4200}, {"Room", 1000}, {"Adm. #", 1500}, {"Discharge Nurse", 3000}, {"Notice Time", 2600}};

/// What stands behind the patient's name; the second is the admission number.
constexpr const char* subItems[] = {"RoomID", "IdNum", "DischargeNurse", "NoticeDate"};
constexpr int admissionNumber = 2;

void showLegend(QLabel* picture, const char* icon, const QColor& color) {
    const int side = look::scaled(16);
    picture->setPixmap(
        look::icon(QLatin1String(icon), color).pixmap(QSize(side, side), picture->devicePixelRatioF()));
}

} // namespace

frmDischargeNotice::frmDischargeNotice(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmDischargeNotice>()) {
    m_ui->setupUi(this);
    setUpList(
        {.view = m_ui->lvwRequest, .select = m_ui->cmdSelect, .close = m_ui->cmdClose, .hits = m_ui->lblHits},
        variant);
    m_ui->lvwRequest->setColumns(columns);
    showLegend(m_ui->picClear, "clear", look::ok);
    showLegend(m_ui->picOpen, "open", look::warn);
}

frmDischargeNotice::~frmDischargeNotice() = default;

void frmDischargeNotice::Form_Load() {
    ListScreen::Form_Load();
    if (session::Character* merlin = session::character())
        merlin->Hide();
    LoadNotices();
}

void frmDischargeNotice::Form_Unload() {
    ado::Recordset count = session::Read(sql("Nuclear..spNuclear_LoadDischargeNoticeCount"));
    const bool waits = !count.Eof() && base::Val(count.Fields("recCount").text()) > 0;
    count.Close();
    session::Character* merlin = session::character();
    if (!merlin)
        return;
    if (waits)
        merlin->Show();
    else
        merlin->Hide();
}

void frmDischargeNotice::LoadNotices() {
    const Hourglass busy;
    ado::Recordset notices = session::Read(sql("Nuclear..spNuclear_LoadDischargeNotice "));
    m_ui->lvwRequest->Clear();
    for (; !notices.Eof(); notices.MoveNext()) {
        const bool cleared = !base::Trim(notices.Fields("ClearDate").text()).isEmpty();
        controls::ListItem& item =
            m_ui->lvwRequest->AddItem({}, notices.Fields("PatientName").text(),
                                      cleared ? QStringLiteral("clear") : QStringLiteral("open"));
        int column = 1;
        for (const char* field : subItems)
            item.setSubItem(column++, notices.Fields(field).text());
    }
    notices.Close();
    setHits(m_ui->lvwRequest->Count());
}

void frmDischargeNotice::rowTaken() {
    const controls::ListItem* notice = m_ui->lvwRequest->SelectedItem();
    if (!notice)
        return;
    const QString idNumber = notice->SubItem(admissionNumber);
    if (hasPendingRequests(idNumber)) {
        controls::MsgBox(QStringLiteral("The patient still have pending requests. "
                                        "Please process the requests before clearing the patient for "
                                        "discharge."),
                         controls::vbInformation);
        Valid = false;
    } else {
        IdNum = idNumber;
        Valid = true;
    }
    Unload();
}

void frmDischargeNotice::leave() {
    IdNum.clear();
    Unload();
}

bool frmDischargeNotice::hasPendingRequests(const QString& idNumber) const {
    ado::Recordset pending = session::Read(
        sql("RADIOLOGY..spRadio_PendingRequestPatient '{}','{}'", idNumber, session::gDeptCode));
    const bool found = !pending.Eof();
    pending.Close();
    return found;
}

} // namespace ledger
