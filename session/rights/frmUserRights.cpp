#include "session/rights/frmUserRights.h"

#include "platform/base/Conversion.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/rights/frmProgSettings.h"
#include "ui_frmUserRights.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace session {

using ado::sql;
using controls::on;

namespace {

enum UserColumn { userCode = 1, userName = 2 };

constexpr int codeLength = 2;

/// Stands between the description of a right and its number.
const QString codeGap = QString(120, u' ');

QString codeOf(const QListWidgetItem& entry) {
    return base::Trim(entry.text().right(codeLength));
}

/// Keeps the number out of sight however wide the list is drawn.
class DescriptionOnly : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale&) const override {
        const QString entry = value.toString();
        return entry.left(entry.lastIndexOf(codeGap));
    }
};

} // namespace

frmUserRights::frmUserRights(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmUserRights>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::noteKeys(this, {{"F12", "Opens the access settings"}});
    m_ui->lstRights->setItemDelegate(new DescriptionOnly(m_ui->lstRights));
    controls::look::setKind(m_ui->lblHelp, QStringLiteral("help"));
    controls::look::setPrimary(m_ui->cmdSave);
    controls::setKeyRules(m_ui->txtEmployeeID, controls::KeyRule::UpperCase | controls::KeyRule::BackQuote);
    connectControls();
}

frmUserRights::~frmUserRights() = default;

void frmUserRights::connectControls() {
    on(m_ui->txtEmployeeID, &QLineEdit::returnPressed, this, [this] { cmdSearch_Click(); });
    // The rights that are ticked are those of the user chosen: they must not be saved under another code.
    on(m_ui->txtEmployeeID, &QLineEdit::textChanged, this, [this] { allowSave(); });
    on(m_ui->cmdSearch, &QPushButton::clicked, this, [this] { cmdSearch_Click(); });
    on(m_ui->grdUsers, &controls::FlexGrid::Click, this, [this] { grdUsers_Click(); });
    on(m_ui->grdUsers, &controls::FlexGrid::EnterPressed, this, [this] { grdUsers_Click(); });
    on(m_ui->chkSelectAll, &QCheckBox::toggled, this, [this] { chkSelectAll_Click(); });
    on(m_ui->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
}

void frmUserRights::Form_Load() {
    LoadRights();
    m_ui->header->setSubtitle(gHospitalName);
    m_ui->fmeUsers->hide();
    m_ui->Frame2->hide();
    allowSave();
    m_ui->txtEmployeeID->setFocus();
}

// ---- events

void frmUserRights::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F12)
        return Screen::keyPressEvent(event);
    event->accept();
    controls::ErrorBoundary::guard([this] { openProgSettings(); });
}

void frmUserRights::cmdSearch_Click() {
    int found = 0;
    {
        const Hourglass busy;
        ado::Recordset users =
            Read(sql("NUCLEAR..spNuclear_SearchNuclearUsers '5','{}'", m_ui->txtEmployeeID->text()));
        found = users.RecordCount();
        if (found > 0) {
            m_ui->grdUsers->setFormatString(QStringLiteral(" | Employee Code | Employee Name | Position "));
            m_ui->grdUsers->setColWidths({80, 1100, 3000, 2000});
            m_ui->grdUsers->setDataSource(users);
        }
        users.Close();
    }
    if (found == 0) {
        m_ui->lblHelp->setText(tr("No user of this department answers to this text."));
        controls::SelectAllText(m_ui->txtEmployeeID);
        return;
    }
    m_ui->lblHelp->setText(found == 1 ? tr("1 user. Enter takes the row.")
                                      : tr("%1 users. Enter takes the row.").arg(found));
    m_ui->grdUsers->setRowSelect(true);
    m_ui->fmeUsers->show();
    m_ui->grdUsers->setCurrentCell(1, userCode);
    m_ui->grdUsers->setFocus();
}

void frmUserRights::grdUsers_Click() {
    const int row = m_ui->grdUsers->Row();
    m_ui->txtEmployeeID->setText(m_ui->grdUsers->TextMatrix(row, userCode));
    m_ui->txtEmployee->setText(m_ui->grdUsers->TextMatrix(row, userName));
    ado::Recordset saved =
        Read(sql("SELECT * FROM NUCLEAR..tbNuclearUserRights WHERE EmployeeID = '{}'", employeeID()));
    tickRights(saved.Eof() ? QString() : base::Trim(saved.Fields("EmployeeRights").text()));
    saved.Close();
    m_ui->Frame2->show();
    m_chosen = employeeID();
    allowSave();
    m_ui->lstRights->setCurrentRow(0);
    m_ui->lstRights->setFocus();
    m_ui->fmeUsers->hide();
    m_ui->lblHelp->setText(tr("Space ticks a right or takes it away."));
}

void frmUserRights::chkSelectAll_Click() {
    tickAll(m_ui->chkSelectAll->isChecked());
}

void frmUserRights::openProgSettings() {
    controls::SharedScreen<frmProgSettings>::fresh().ShowModal();
    // What is ticked and not saved yet stays ticked; only an entry that has left the list is lost.
    const QString ticked = tickedRights();
    LoadRights();
    tickRights(ticked);
}

// ---- the list

void frmUserRights::LoadRights() {
    m_ui->lstRights->clear();
    ado::Recordset rights = Read(sql("Select * From  NUCLEAR..tbNuclearUserSettings Where Status = 'A'"));
    for (; !rights.Eof(); rights.MoveNext()) {
        const QString description = base::Trim(rights.Fields("Description").text());
        const QString code = base::Trim(rights.Fields("ItemID").text());
        auto* entry = new QListWidgetItem(description + codeGap + code, m_ui->lstRights);
        entry->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        entry->setCheckState(Qt::Unchecked);
        entry->setData(Qt::AccessibleTextRole, description);
    }
    rights.Close();
}

void frmUserRights::tickRights(const QString& employeeRights) {
    {
        const QSignalBlocker quiet(m_ui->chkSelectAll);
        m_ui->chkSelectAll->setChecked(false);
    }
    tickAll(false);
    if (employeeRights.size() < 2)
        return;
    const QStringList codes = employeeRights.split(u'|');
    for (int i = 0; i < m_ui->lstRights->count(); ++i) {
        QListWidgetItem& entry = *m_ui->lstRights->item(i);
        if (codes.contains(codeOf(entry)))
            entry.setCheckState(Qt::Checked);
    }
}

void frmUserRights::tickAll(bool ticked) {
    for (int i = 0; i < m_ui->lstRights->count(); ++i)
        m_ui->lstRights->item(i)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

QString frmUserRights::tickedRights() const {
    QString rights;
    for (int i = 0; i < m_ui->lstRights->count(); ++i) {
        const QListWidgetItem& entry = *m_ui->lstRights->item(i);
        if (entry.checkState() == Qt::Checked)
            rights += u'|' + codeOf(entry);
    }
    return rights;
}

QString frmUserRights::employeeID() const {
    return base::Trim(m_ui->txtEmployeeID->text());
}

// ---- save

void frmUserRights::allowSave() {
    m_ui->cmdSave->setEnabled(!m_chosen.isEmpty() && employeeID() == m_chosen);
}

void frmUserRights::cmdSave_Click() {
    Run(sql("NUCLEAR..spNuclear_SaveUserRights '{}','{}','{}'", employeeID(), tickedRights(),
            gUser->employeecode()));
    Run(sql("BUILD_FILE..spBuild_LogUserUpdate '{}','User Rights','SAVE/EDIT USER RIGHTS; EmployeeCode:{}'",
            gUser->employeecode(), employeeID()));
    controls::MsgBox(QStringLiteral("User Rights Updated"), controls::vbInformation,
                     QStringLiteral("Message"));
    Unload();
}

} // namespace session
