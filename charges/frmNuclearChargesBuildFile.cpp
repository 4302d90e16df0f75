#include "charges/frmNuclearChargesBuildFile.h"

#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Routines.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "ui_frmNuclearChargesBuildFile.h"

#include <QShowEvent>

namespace charges {

using ado::sql;
using base::Trim;
using namespace controls;
using lookup::fieldText;
using session::Read;
using session::TrimUpper;

namespace {

enum GridColumn { code = 1, description = 2, columnCount = 4 };

const QString notification = QStringLiteral("Notification");

} // namespace

frmNuclearChargesBuildFile::frmNuclearChargesBuildFile(QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmNuclearChargesBuildFile>()) {
    m_ui->setupUi(this);
    look::setPrimary(m_ui->cmdSave);
    m_ui->Grid1->setRowSelect(true);
    m_ui->Grid1->setEmptyText(QStringLiteral("There are no packages."));
    for (QLineEdit* field : {m_ui->txtPackageID, m_ui->txtPackage, m_ui->txtSearch})
        setKeyRules(field, KeyRule::BackQuote);
    connectControls();
}

frmNuclearChargesBuildFile::~frmNuclearChargesBuildFile() = default;

void frmNuclearChargesBuildFile::connectControls() {
    on(m_ui->cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    on(m_ui->cmdEdit, &QPushButton::clicked, this, [this] { cmdEdit_Click(); });
    on(m_ui->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    on(m_ui->cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
    on(m_ui->cmdExit, &QPushButton::clicked, this, [this] { Unload(); });
    on(m_ui->Grid1, &FlexGrid::Click, this, [this] {
        if (!std::exchange(m_shownByMove, false))
            ShowPackage();
    });
    // The arrow keys show a package as a click does.
    on(m_ui->Grid1, &FlexGrid::RowColChange, this, [this] {
        m_shownByMove = m_ui->Grid1->hasFocus();
        if (m_shownByMove)
            ShowPackage();
    });
    on(m_ui->Grid1, &FlexGrid::EnterPressed, this, [this] { cmdEdit_Click(); });
    on(m_ui->txtSearch, &QLineEdit::textEdited, this, [this] { txtSearch_Change(); });
    enterMovesOn({m_ui->txtPackageID, m_ui->txtPackage, m_ui->chkActive, m_ui->txtSearch});
}

// ---- opening

void frmNuclearChargesBuildFile::Form_Load() {
    m_firstActivation = true;
    m_ui->Grid1->setCols(columnCount);
    m_ui->Grid1->setRows(1);
    setEditing(false);
    m_ui->lblMode->setText(QStringLiteral("( VIEW )"));
    m_ui->txtSearch->setFocus();
}

void frmNuclearChargesBuildFile::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (event->spontaneous())
        return;
    // Behind the showing, so that its box stands over the screen.
    QMetaObject::invokeMethod(
        this, [this] { ErrorBoundary::guard([this] { Form_Activate(); }); }, Qt::QueuedConnection);
}

void frmNuclearChargesBuildFile::Form_Activate() {
    if (isVisible())
        LoadPackages();
}

// ---- the list

void frmNuclearChargesBuildFile::LoadPackages() {
    FlexGrid& grid = *m_ui->Grid1;
    ado::Recordset packages = Read(sql("Nuclear..Help_SearchNucPackage '3',''"));
    if (packages.Eof()) {
        MsgBox(QStringLiteral("No Records Yet. Click ADD to insert records."), vbInformation, notification);
        m_ui->cmdEdit->setEnabled(false);
        return;
    }
    grid.setDataSource(packages);
    packages.Close();
    m_ui->cmdEdit->setEnabled(m_ui->cmdAdd->isEnabled());
    SetGridHeaders(grid, columnCount, QStringLiteral("Code?Description?Status?"), code);
    SetGridAlignments(grid, QStringLiteral("<|<|<"), code);
    grid.setColWidths({0, 700, 4000, 700});
    if (std::exchange(m_firstActivation, false) && grid.Rows() > 1) {
        selectRow(1);
        ShowPackage();
    }
    showPosition();
}

void frmNuclearChargesBuildFile::showPosition() {
    m_ui->lblRecordNum->setText(QStringLiteral("[%1  out of  %2]")
                                    .arg(session::CleanVariant(m_ui->Grid1->Row()))
                                    .arg(m_ui->Grid1->Rows() - 1));
}

void frmNuclearChargesBuildFile::ShowPackage() {
    const int row = m_ui->Grid1->Row();
    if (row < 1)
        return;
    ado::Recordset package =
        Read(sql("Nuclear..Help_SearchNucPackage '1','{}'", Trim(m_ui->Grid1->TextMatrix(row, code))));
    if (!package.Eof()) {
        m_ui->txtPackageID->setText(fieldText(package, "Code"));
        m_ui->txtPackage->setText(fieldText(package, "Description"));
        m_ui->chkActive->setChecked(lookup::fieldFlag(package, "Status"));
    }
    package.Close();
    showPosition();
}

/// The text goes to the first package whose code begins so, else to one whose description holds it.
void frmNuclearChargesBuildFile::txtSearch_Change() {
    const FlexGrid& grid = *m_ui->Grid1;
    const QString text = TrimUpper(m_ui->txtSearch->text());
    if (text.isEmpty() || !grid.isEnabled())
        return;
    const auto find = [&](auto&& answers) {
        for (int row = 1; row < grid.Rows(); ++row)
            if (answers(row))
                return row;
        return 0;
    };
    int row = find([&](int each) { return TrimUpper(grid.TextMatrix(each, code)).startsWith(text); });
    if (row == 0)
        row = find([&](int each) { return TrimUpper(grid.TextMatrix(each, description)).contains(text); });
    if (row == 0 || row == grid.Row())
        return;
    selectRow(row);
    ShowPackage();
}

void frmNuclearChargesBuildFile::selectRow(int row) {
    m_ui->Grid1->setCurrentCell(row, code);
}

// ---- modes

void frmNuclearChargesBuildFile::setEditing(bool editing) {
    m_ui->frameBussClass->setEnabled(editing);
    for (QPushButton* button : {m_ui->cmdAdd, m_ui->cmdEdit, m_ui->cmdRefresh})
        button->setEnabled(!editing);
    m_ui->cmdEdit->setEnabled(!editing && m_ui->Grid1->Row() > 0);
    for (QPushButton* button : {m_ui->cmdSave, m_ui->cmdCancel})
        button->setEnabled(editing);
    m_ui->Grid1->setEnabled(!editing);
    m_ui->lblSearch->setEnabled(!editing); // its letter is that of the save command
}

void frmNuclearChargesBuildFile::cmdAdd_Click() {
    setEditing(true);
    m_ui->lblMode->setText(QStringLiteral("( ADD ) "));
    m_ui->lblRecordNum->setText(QStringLiteral("NEW"));
    m_ui->txtPackageID->setEnabled(true);
    m_ui->txtPackageID->clear();
    m_ui->txtPackage->setEnabled(true);
    m_ui->txtPackage->clear();
    m_ui->chkActive->setChecked(false);
    m_ui->txtPackageID->setFocus();
}

void frmNuclearChargesBuildFile::cmdEdit_Click() {
    if (!m_ui->cmdEdit->isEnabled() || m_ui->Grid1->Row() < 1)
        return;
    setEditing(true);
    m_ui->lblMode->setText(QStringLiteral("( EDIT )"));
    m_ui->txtPackageID->setEnabled(false);
    m_ui->txtSearch->setEnabled(false);
    m_ui->txtPackage->setFocus();
}

void frmNuclearChargesBuildFile::backToView() {
    setEditing(false);
    m_ui->txtSearch->setEnabled(true);
    m_ui->txtSearch->clear();
    m_ui->txtSearch->setFocus();
}

/// Escape gives up what is typed, or leaves.
void frmNuclearChargesBuildFile::reject() {
    ErrorBoundary::guard([this] {
        if (m_ui->cmdCancel->isEnabled())
            cmdCancel_Click();
        else
            Unload();
    });
}

// ---- save and cancel

void frmNuclearChargesBuildFile::cmdSave_Click() {
    if (MsgBox(QStringLiteral("Are you sure?"), vbYesNo | vbQuestion, QStringLiteral("Message")) == vbNo)
        return;
    try {
        session::gUser->sqlconnection().Execute(sql(
            "Nuclear..sp_Nuclear_Insert_Update_Package '{}', '{}', '{}'", Trim(m_ui->txtPackageID->text()),
            Trim(m_ui->txtPackage->text()), m_ui->chkActive->isChecked() ? 1 : 0));
        MsgBox(QStringLiteral("Data was saved."), vbOKOnly, notification);
        LoadPackages();
    } catch (const base::RunTimeError&) {
        MsgBox(QStringLiteral("An error has occured while appending the nuclear charges record. Please click "
                              "on SAVE again."),
               vbOKOnly, notification);
        return;
    }
    m_ui->lblMode->setText(QStringLiteral("( VIEW )"));
    m_ui->txtPackageID->setEnabled(true);
    backToView();
    goToSaved();
}

/// The saved package at the top; the last one where it is not found.
void frmNuclearChargesBuildFile::goToSaved() {
    FlexGrid& grid = *m_ui->Grid1;
    const QString saved = TrimUpper(m_ui->txtPackageID->text());
    int row = 1;
    while (row < grid.Rows() - 1 && TrimUpper(grid.TextMatrix(row, code)) != saved)
        ++row;
    if (grid.Rows() <= 1)
        return;
    selectRow(row);
    grid.scrollTo(grid.currentIndex(), QAbstractItemView::PositionAtTop);
    showPosition();
}

void frmNuclearChargesBuildFile::cmdCancel_Click() {
    LoadPackages();
    const bool isOpen = m_ui->txtPackage->isEnabledTo(m_ui->frameBussClass);
    m_ui->txtPackageID->setEnabled(isOpen);
    backToView();
    if (!isOpen)
        goToSaved();
    else if (m_ui->Grid1->Rows() > 1)
        selectRow(1);
    m_ui->lblMode->setText(QStringLiteral("( VIEW)"));
    ShowPackage();
}

} // namespace charges
