#include "revocation/frmAssessmentStatus.h"

#include "entry/ChargeSlip.h"
#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/list/ListView.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "ui_frmAssessmentStatus.h"

namespace revocation {

using ado::sql;
using controls::ListItem;
using controls::MsgBox;
using controls::vbOKOnly;
using session::gSectionCode;

namespace {

/// SubItems; the text is the name.
enum SubItem {
    code = 1,
    exam,
    quantity,
    refNum,
    amount,
    status,
    recordStatus,
    assessID,
    admissionNumber,
    revenueID,
    requestingDoctor
};

constexpr controls::ListColumn columns[] = {{"Name", 3450},
                                            {"Code", 800},
                                            {"Item Description", 2900},
                                            {"Quantity", 1150, Qt::AlignRight},
                                            {"RefNum", 1100},
                                            {"Amount", 1100, Qt::AlignRight},
                                            {"Status", 1200},
                                            {"RecordStatus", 1450},
                                            {"AssessID", 1100},
                                            {"Adm.Num.", 1200},
                                            {"RevenueId", 1200},
                                            {"RequestingDoctor", 2000}};

/// Where each SubItem comes from, from 1 on.
constexpr const char* sources[] = {"Code",   "Exam",      "Quantity",     "RefNum",
                                   "Amount", "Status",    "RecordStatus", "AssessID",
                                   "IdNum",  "RevenueID", "RequestDoctor"};

constexpr controls::ListVariant assessments = {.one = "assessment",
                                               .many = "assessments",
                                               .emptyText =
                                                   "No assessment has that admission number or name.",
                                               .most = 200,
                                               .selectable = controls::ListVariant::Selectable::AsItStands};

QString iconOf(const QString& state) {
    if (state == u"R" || state == u"X")
        return QStringLiteral("revoke");
    return state == u"1" ? QStringLiteral("paid") : QStringLiteral("pending");
}

} // namespace

frmAssessmentStatus::frmAssessmentStatus(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmAssessmentStatus>()) {
    m_ui->setupUi(this);
    setUpList({.view = m_ui->lvwListAssessment,
               .search = m_ui->txtSearch,
               .searchBy = m_ui->cmbSearch,
               .select = m_ui->btnPrint,
               .close = m_ui->btnClose,
               .hits = m_ui->lblHits},
              assessments);
    controls::on(m_ui->btnCancel, &QPushButton::clicked, this, [this] {
        btnCancel_Click();
        m_ui->lvwListAssessment->setFocus(); // the next one is chosen there
    });
}

frmAssessmentStatus::~frmAssessmentStatus() = default;

// ---- the list

void frmAssessmentStatus::Form_Load() {
    ListScreen::Form_Load();
    // The choice is shown only: the server finds a name and a number alike.
    m_ui->cmbSearch->addItems({QStringLiteral("Adm #"), QStringLiteral("Last Name")});
    m_ui->cmbSearch->setCurrentIndex(0);
    m_ui->lvwListAssessment->setColumns(columns);
    LoadAssessments({});
    if (!wanted.number.isEmpty())
        findWanted();
}

void frmAssessmentStatus::findWanted() {
    m_ui->txtSearch->setText(base::BackQuoted(wanted.IdNum.isEmpty() ? wanted.patient : wanted.IdNum));
    search();
    for (int index = 1; index <= m_ui->lvwListAssessment->Count(); ++index) {
        ListItem& item = m_ui->lvwListAssessment->Item(index);
        if (item.SubItem(refNum) != wanted.number)
            continue;
        m_ui->lvwListAssessment->select(item);
        return m_ui->lvwListAssessment->setFocus();
    }
}

void frmAssessmentStatus::search() {
    LoadAssessments(m_ui->txtSearch->text());
}

/// The commands that an empty list puts out of use stay so until the screen is opened again.
void frmAssessmentStatus::LoadAssessments(const QString& searchText) {
    const Hourglass busy;
    ado::Recordset rows = session::Read(sql("sp_Nuclear_AssessmentStatus '{}'", searchText));
    m_ui->lvwListAssessment->Clear();
    if (rows.Eof()) {
        m_ui->btnCancel->setEnabled(false);
        m_ui->btnPrint->setEnabled(false);
    }
    int number = 0;
    for (; !rows.Eof(); rows.MoveNext())
        addItem(rows, ++number);
    rows.Close();
    setHits(number);
}

void frmAssessmentStatus::addItem(ado::Recordset& row, int number) {
    const QString state = lookup::fieldText(row, "RecordStatus");
    ListItem& item =
        m_ui->lvwListAssessment->AddItem(u'K' + base::Format(double(number), QStringLiteral("0")),
                                         lookup::fieldText(row, "PatientName"), iconOf(state));
    for (int index = 1; index <= int(std::size(sources)); ++index)
        item.setSubItem(index, lookup::fieldText(row, sources[index - 1]));
    if (item.SubItem(quantity).isEmpty())
        item.setSubItem(quantity, QStringLiteral("1"));
}

/// Null when none is selected: the focus goes to the list, and what to do is said.
ListItem* frmAssessmentStatus::chosen() {
    ListItem* item = m_ui->lvwListAssessment->SelectedItem();
    if (!item) {
        m_ui->lblHits->setText(QStringLiteral("Choose an assessment first."));
        m_ui->lvwListAssessment->setFocus();
    }
    return item;
}

// ---- revoke

void frmAssessmentStatus::btnCancel_Click() {
    ListItem* item = chosen();
    if (!item)
        return;
    QString state = item->SubItem(status);
    if (item->SubItem(refNum).contains(u"OR"))
        state = QStringLiteral("PAID"); // it has a receipt
    if (state == u"PAID") {
        MsgBox(QStringLiteral("Entry is already Paid."), vbOKOnly, QStringLiteral("Message"));
        return;
    }
    if (state == u"REVOKED") {
        MsgBox(QStringLiteral("Entry is already Revoked."), vbOKOnly, QStringLiteral("Message"));
        return;
    }
    session::Run(sql("sp_Nuclear_RevokeAssessment '{}'", item->SubItem(assessID)));
    session::tellDone({.work = session::Work::RevokedAssessment,
                       .number = item->SubItem(refNum),
                       .patient = item->Text(),
                       .IdNum = item->SubItem(admissionNumber)});
    MsgBox(QStringLiteral("Data is Successfully Revoked."), vbOKOnly, QStringLiteral("Message"));
    item->setIcon(QStringLiteral("revoke"));
    item->setSubItem(status, QStringLiteral("REVOKED"));
    item->setSubItem(recordStatus, QStringLiteral("R"));
}

// ---- print

void frmAssessmentStatus::rowTaken() {
    const ListItem* item = m_ui->btnPrint->isEnabled() ? chosen() : nullptr;
    if (!item)
        return;
    session::gConnection->Execute(sql("DELETE tbNucChargeSlip"));
    const QString reference = item->SubItem(refNum);
    for (int index = 1; index <= m_ui->lvwListAssessment->Count(); ++index) {
        if (const ListItem& each = m_ui->lvwListAssessment->Item(index); each.SubItem(refNum) == reference)
            dumpItem(each);
    }
    entry::launchChargeSlip({.patientName = item->Text(),
                             .admissionNumber = item->SubItem(admissionNumber),
                             .doctor = item->SubItem(requestingDoctor),
                             .chargeSlip = reference,
                             .mark = entry::rePrintMark},
                            false);
}

void frmAssessmentStatus::dumpItem(const ListItem& item) const {
    const double count = base::Val(item.SubItem(quantity));
    const double total = base::Val(item.SubItem(amount));
    const QString price = base::Format(count > 0 ? total / count : total, QStringLiteral("0.00"));
    const QString name = item.SubItem(exam);
    const bool isOthers = item.SubItem(revenueID) != gSectionCode;
    entry::dumpSlipLine(entry::SlipStatement::AssessmentStatus,
                        {item.SubItem(code),
                         isOthers ? QStringLiteral("** ") + name + QStringLiteral(" **") : name,
                         item.SubItem(quantity), price, item.SubItem(amount), item.SubItem(revenueID)});
}

} // namespace revocation
