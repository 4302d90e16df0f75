#include "ledger/frmClearPatient.h"

#include "ledger/frmDischargeNotice.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "session/logon/clsCurrentUser.h"
#include "ui_frmClearPatient.h"

namespace ledger {

using ado::sql;
using base::Trim;
using controls::on;
using session::gUser;

namespace {

enum ChargeColumn { quantity = 3, amount, issueDate };

/// Day and time in the short general form; Null is "".
QString generalDate(const base::Value& value) {
    return base::IsDate(value) ? base::CStr(base::CDate(value)) : base::textOf(value);
}

} // namespace

frmClearPatient::frmClearPatient(QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmClearPatient>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSave);
    controls::setKeyRules(m_ui->txtClearRemarks, {});
    controls::onEnter(m_ui->txtClearRemarks, [this] { m_ui->cmdSave->setFocus(); });
    on(m_ui->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    on(m_ui->cmdIgnore, &QPushButton::clicked, this, [this] { Unload(); });
    m_ui->GridCharges->setFixedCols(0);
    m_ui->GridCharges->setRowSelect(true);
}

frmClearPatient::~frmClearPatient() = default;

void frmClearPatient::Form_Load() {
    const Hourglass busy;
    ado::Recordset notice = session::Read(sql("Nuclear..spNuclear_LoadDischargeNoticePatient '{}'", IdNum));
    // A notice that was taken back meanwhile cannot be answered.
    m_ui->cmdSave->setEnabled(!notice.Eof());
    if (!notice.Eof()) {
        showNotice(notice);
        showClearing(notice);
    }
    notice.Close();
    showCharges();
    if (m_isCleared || !m_ui->cmdSave->isEnabled())
        m_ui->cmdIgnore->setFocus();
    else
        m_ui->txtClearRemarks->setFocus();
}

/// However the screen was left, the list behind it tells what became of the notice.
void frmClearPatient::Form_Unload() {
    controls::SharedScreen<frmDischargeNotice>::current().LoadNotices();
}

// ---- what is shown

void frmClearPatient::showNotice(ado::Recordset& notice) {
    const std::pair<QLineEdit*, const char*> texts[] = {{m_ui->txtLastName, "LastName"},
                                                        {m_ui->txtFirstName, "FirstName"},
                                                        {m_ui->txtMiddleName, "MiddleName"},
                                                        {m_ui->txtAdmNo, "IdNum"},
                                                        {m_ui->txtHospNum, "HospNum"},
                                                        {m_ui->txtDoctor, "Doctor"},
                                                        {m_ui->txtRoom, "RoomID"},
                                                        {m_ui->txtRemarks, "Remarks"},
                                                        {m_ui->txtDischargeNurse, "DischargeNurse"}};
    for (const auto& [box, field] : texts)
        box->setText(Trim(notice.Fields(field).text()));
    const std::pair<QLineEdit*, const char*> dates[] = {{m_ui->txtAdmDate, "AdmDate"},
                                                        {m_ui->txtOrderDate, "OrderDate"},
                                                        {m_ui->txtNoticeDate, "NoticeDate"}};
    for (const auto& [box, field] : dates)
        box->setText(generalDate(notice.Fields(field).Value()));
    m_ui->bandHeader->setSubtitle(m_ui->txtLastName->text() + QStringLiteral(", ") +
                                  m_ui->txtFirstName->text() + u' ' + m_ui->txtMiddleName->text());
    m_ui->bandHeader->setChips({QStringLiteral("Hosp. ") + m_ui->txtHospNum->text(),
                                QStringLiteral("Adm. ") + m_ui->txtAdmNo->text()});
}

void frmClearPatient::showClearing(ado::Recordset& notice) {
    const QString clearedBy = Trim(notice.Fields("UserID").text());
    m_ui->txtClearedBy->setText(clearedBy.isEmpty() ? u'(' + gUser->employeecode() + QStringLiteral(") ") +
                                                          gUser->employeename()
                                                    : clearedBy);
    m_isCleared = !Trim(notice.Fields("ClearDate").text()).isEmpty();
    if (!m_isCleared) {
        m_ui->txtClearDate->setText(QStringLiteral("For clearing"));
        return;
    }
    m_ui->txtClearDate->setText(generalDate(notice.Fields("ClearDate").Value()));
    m_ui->txtClearRemarks->setText(Trim(notice.Fields("ClearRemarks").text()));
    m_ui->txtClearRemarks->setReadOnly(true);
    m_ui->cmdSave->setText(QStringLiteral("&Close"));
}

void frmClearPatient::showCharges() {
    controls::FlexGrid& grid = *m_ui->GridCharges;
    grid.setFormatString(QStringLiteral(" ChargeSlip# | Code | Particular | Qty | Amount | IssueDate "));
    grid.setColWidths({1500, 1200, 5200, 700, 1500, 2600});
    for (const int column : {quantity, amount})
        grid.setColAlignment(column, Qt::AlignRight);
    ado::Recordset charges =
        session::Read(sql("Nuclear..spNuclear_GetForDischargePatientChages '{}'", IdNum));
    const int found = charges.RecordCount();
    if (found > 0)
        grid.setDataSource(charges);
    charges.Close();
    for (int row = 1; row <= found; ++row) {
        grid.setTextMatrix(row, amount,
                           base::Format(grid.TextMatrix(row, amount), QStringLiteral("##,###.00")));
        grid.setTextMatrix(row, issueDate, generalDate(grid.TextMatrix(row, issueDate)));
    }
    grid.setVisible(found > 0);
    m_ui->lblNoCharges->setVisible(found == 0);
}

// ---- save

void frmClearPatient::cmdSave_Click() {
    if (!m_isCleared) {
        m_ui->txtClearRemarks->setText(base::BackQuoted(m_ui->txtClearRemarks->text()));
        session::Run(sql("Nuclear..spNuclear_ClearPatientForDischarge '{}','{}','{}'", m_ui->txtAdmNo->text(),
                         m_ui->txtClearRemarks->text(), gUser->employeecode()));
        session::tellDone({.work = session::Work::Clearance,
                           .number = m_ui->txtAdmNo->text(),
                           .patient = m_ui->bandHeader->subtitle(),
                           .IdNum = m_ui->txtAdmNo->text()});
        controls::MsgBox(QStringLiteral("Patient has been cleared for discharge."), controls::vbInformation);
    }
    Unload();
}

} // namespace ledger
