#include "ledger/frmVerification.h"

#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "ui_frmVerification.h"

namespace ledger {

using ado::sql;
using controls::on;

namespace {

constexpr controls::ListVariant variant = {.one = "entry",
                                           .many = "entries",
                                           .emptyText = "Nothing was issued under this number.",
                                           .searchRules =
                                               controls::KeyRule::UpperCase | controls::KeyRule::BackQuote};

/// The field has a small t where the header has none.
constexpr const char* fields[] = {"Receipt #", "Payment From", "transaction Date", "Amount",
                                  "Transaction Type"};

constexpr controls::ListColumn columns[] = {{"Receipt #", 1600},
                                            {"Payment From", 4000},
                                            {"Transaction Date", 2500},
                                            {"Amount", 1500, Qt::AlignRight},
                                            {"Transaction Type", 2600}};

} // namespace

frmVerification::frmVerification(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmVerification>()) {
    m_ui->setupUi(this);
    setUpList({.view = m_ui->lvwIssued,
               .search = m_ui->txtSearch,
               .find = m_ui->cmdSearch,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              variant);
    m_ui->cmdSearch->setIcon(controls::look::icon(QStringLiteral("search")));
    m_ui->Option1_0->setShortcut(Qt::ALT | Qt::Key_O);
    m_ui->Option1_1->setShortcut(Qt::ALT | Qt::Key_H);
    for (QRadioButton* option : {m_ui->Option1_0, m_ui->Option1_1})
        on(option, &QRadioButton::clicked, this, [this] { backToSearch(); });
    m_ui->lvwIssued->setColumns(columns);
}

frmVerification::~frmVerification() = default;

void frmVerification::Form_Load() {
    ListScreen::Form_Load();
    // Without an option nothing is found; the keyboard begins where it is chosen.
    m_ui->Option1_0->setFocus();
}

void frmVerification::search() {
    if (!m_ui->Option1_0->isChecked() && !m_ui->Option1_1->isChecked()) {
        controls::MsgBox(QStringLiteral("Please Enter the OR/ChargeSlip # to Inquire"),
                         controls::vbInformation, QStringLiteral("Information"));
        return;
    }
    const Hourglass busy;
    const QString number = m_ui->txtSearch->text();
    ado::Recordset issued = session::ReadForUpdate(m_ui->Option1_0->isChecked()
                                                       ? sql("Nuclear..spCash_InquiryList '{}'", number)
                                                       : sql("Nuclear..spCharge_InquiryList '{}'", number));
    listIssued(issued);
    issued.Close();
}

void frmVerification::listIssued(ado::Recordset& issued) {
    m_ui->lvwIssued->Clear();
    for (; !issued.Eof(); issued.MoveNext()) {
        controls::ListItem& item = m_ui->lvwIssued->AddItem({}, issued.Fields(fields[0]).text());
        for (int column = 1; column < int(std::size(fields)); ++column)
            item.setSubItem(column, issued.Fields(fields[column]).text());
    }
    setHits(m_ui->lvwIssued->Count());
}

} // namespace ledger
