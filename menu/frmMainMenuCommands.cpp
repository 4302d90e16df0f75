#include "menu/frmMainMenu.h"

#include "menu/MenuBar.h"
#include "menu/ReportLauncher.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"
#include "session/rights/CheckAccess.h"
#include "session/rights/frmAccess.h"
#include "ui_frmMainMenu.h"

#include <QApplication>
#include <QMenu>
#include <QScopedValueRollback>

namespace menu {

using namespace controls;

namespace {

/// Runs in the message loop, once the menu that asked for it is out of all its handlers: the next menu takes
/// its place.
void startNextSession() {
    static bool isStarting = false;
    if (isStarting)
        return;
    const QScopedValueRollback starting(isStarting, true);
    ErrorBoundary::guard([] {
        session::Main();
        if (Screen::openScreens().empty())
            session::screens().endProgram();
    });
}

} // namespace

/// The menu under the hourglass and the pressed button out of reach, while a screen is open.
class frmMainMenu::Pressed {
  public:
    Pressed(frmMainMenu& menu, QAbstractButton* button)
        : m_menu(menu), m_button(button), m_hadFocus(button && button->hasFocus()) {
        m_menu.setCursor(Qt::WaitCursor);
        if (m_button)
            m_button->setEnabled(false);
    }
    ~Pressed() {
        m_menu.unsetCursor();
        if (!m_button)
            return;
        m_button->setEnabled(true);
        if (m_hadFocus)
            m_button->setFocus();
    }
    Pressed(const Pressed&) = delete;
    Pressed& operator=(const Pressed&) = delete;

  private:
    frmMainMenu& m_menu;
    QAbstractButton* m_button;
    bool m_hadFocus;
};

void frmMainMenu::fltSubMenu_Click(int index) {
    const SubMenuRow* row = subMenuRow(m_group, index);
    if (row && mayRun(*row))
        run(row->command, m_fltSubMenu[std::size_t(index)]);
}

bool frmMainMenu::mayRun(const SubMenuRow& row) {
    if (!*row.right || session::checkAccess().WithRights(session::gUser->employeecode(), row.right))
        return true;
    MsgBox("Access denied", vbCritical);
    return false;
}

void frmMainMenu::run(const Command& command, QAbstractButton* button) {
    if (isUnloaded())
        return; // a second press of the command that left the menu
    switch (command.deed) {
    case Deed::SubMenu:
        return;
    case Deed::OpenScreen: {
        const Pressed pressed(*this, button);
        return session::screens().open(command.screen, command.formMode);
    }
    case Deed::PasswordThenScreen:
        return runBehindAccess(command);
    case Deed::Report: {
        const Pressed pressed(*this, button);
        return runReport(command.report);
    }
    case Deed::PopUp:
        return m_menuBar->menuNamed(command.popUp).popup(button->mapToGlobal(button->rect().bottomLeft()));
    case Deed::ChooseOutPatient:
        return chooseOutPatient();
    case Deed::OutPatientCash:
        return btnCashEntry_Click();
    case Deed::OutPatientCharge:
        return btnChargeEntry_Click();
    case Deed::BuildFile:
        return openBuildFile(button);
    case Deed::UserSettings:
        return openUserSettings(button);
    case Deed::ExitProgram:
        return cmdExit_Click();
    case Deed::ChangeUser:
        return mnuLogOff_Click();
    case Deed::QuitProgram:
        Unload();
        return;
    }
}

void frmMainMenu::runBehindAccess(const Command& command) {
    auto& gate = SharedScreen<session::frmAccess>::fresh();
    gate.ShowModal();
    if (gate.Valid)
        session::screens().open(command.screen);
    else
        MsgBox("invalid Password.", vbCritical);
}

void frmMainMenu::runReport(ReportId id) {
    const ReportRow& row = reportRow(id);
    if (launchReport(row) == Launch::Cancelled && row.dialog == DateDialog::ReportDateOneDay)
        m_ui->picMainMenu->show();
}

/// What was done, once more, by the road of the command that leads to it.
void frmMainMenu::showAgain(const session::WorkDone& done) {
    const WorkRow& row = workRow(done.work);
    const SubMenuRow* command = subMenuRow(row.group, row.number);
    if (!command || !mayRun(*command))
        return;
    const Pressed pressed(*this, nullptr);
    const session::SlipAgain slip{done.number, done.patient, done.IdNum, done.PatientType};
    switch (done.work) {
    case session::Work::Slip:
        return session::screens().openRePrint(slip);
    case session::Work::Assessment:
        return session::screens().openAssessmentStatus(slip);
    case session::Work::Result:
        session::PrepareResult(done.report, done.IdNum, done.number);
        return session::ShowResult();
    default:
        return;
    }
}

void frmMainMenu::openBuildFile(QAbstractButton* button) {
    session::clsCurrentUser& user = *session::gUser;
    if (user.PasswordDeptCode() != QStringLiteral("00") || !user.HAVE_RIGHTS("A")) {
        MsgBox("Access Denied!", vbExclamation, "Restriction");
        return;
    }
    const Pressed pressed(*this, button);
    session::screens().open(session::MenuScreen::BuildFile);
}

void frmMainMenu::openUserSettings(QAbstractButton* button) {
    if (!session::gUser->checkusersettings()) {
        MsgBox("Invalid Password", vbCritical);
        // Asked once more, and the screen stays closed whatever the second answer is.
        session::gUser->checkusersettings();
        return;
    }
    const Pressed pressed(*this, button);
    session::screens().open(session::MenuScreen::UserRights);
}

void frmMainMenu::chooseOutPatient() {
    m_fltSubMenu[outPatientButton]->setEnabled(false);
    showOutPatientChoice();
    m_ui->btnCashEntry->setFocus();
}

/// In the place of the commands: with both the window would grow past a small desktop.
void frmMainMenu::showOutPatientChoice() {
    m_ui->picMainMenu->hide();
    m_ui->Frame2->show();
}

void frmMainMenu::leaveOutPatientChoice() {
    const bool hadFocus = m_ui->Frame2->isAncestorOf(focusWidget());
    m_ui->Frame2->hide();
    m_ui->picMainMenu->show();
    m_fltSubMenu[outPatientButton]->setEnabled(true);
    if (hadFocus)
        m_fltSubMenu[outPatientButton]->setFocus();
}

void frmMainMenu::btnCashEntry_Click() {
    showOutPatientChoice();
    {
        const Pressed pressed(*this, m_ui->btnCashEntry);
        session::screens().open(session::MenuScreen::ListCashComm);
    }
    leaveOutPatientChoice();
}

void frmMainMenu::btnChargeEntry_Click() {
    showOutPatientChoice();
    {
        const Pressed pressed(*this, m_ui->btnChargeEntry);
        enterOutPatientCharges();
    }
    leaveOutPatientChoice();
}

void frmMainMenu::enterOutPatientCharges() {
    const std::optional<session::FoundOutPatient> patient = session::screens().findOutPatient({});
    if (!patient)
        return;
    if (!patient->BillingDate.isEmpty()) {
        if (!patient->InvoiceNumber.isEmpty())
            return;
        if (!patient->LateCharges) {
            MsgBox("Cannot post charges because the patient's account has already been closed. \n"
                   "Please contact BILLING DEPARTMENT for further instructions.",
                   vbExclamation, "Closed Bill");
            return;
        }
    }
    session::OutRequestEntry entry;
    entry.IdNumber = patient->IdNumber;
    entry.chargeEntry = true;
    session::screens().openOutRequest(entry);
}

void frmMainMenu::FlatBttn5_Click() {
    leaveOutPatientChoice();
}

void frmMainMenu::btnCommunication_Click() {
    // It stays out of reach: Label1 beside it opens the same screen.
    m_ui->btnCommunication->setEnabled(false);
    session::screens().open(session::MenuScreen::NurseCommunication);
}

void frmMainMenu::cmdExit_Click() {
    if (MsgBox("Are you sure you want to exit the program?", vbYesNo + vbQuestion, "Message") == vbYes)
        Unload();
}

void frmMainMenu::mnuLogOff_Click() {
    m_changingUser = true;
    Unload();
    session::LogOff();
    QMetaObject::invokeMethod(qApp, startNextSession, Qt::QueuedConnection);
}

} // namespace menu
