#include "menu/frmMainMenu.h"

#include "menu/BirthdayGreeting.h"
#include "menu/MenuBar.h"
#include "menu/MenuKeys.h"
#include "menu/Monitors.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "ui_frmMainMenu.h"

#include <QKeyEvent>

#include <tuple>
#include <utility>

namespace menu {

using namespace controls;

namespace {

/// The digit that presses a command, at the right of its button.
QLabel* labelWithKey(FlatButton* button, int digit) {
    auto* label = new QLabel(QString::number(digit), button);
    label->setProperty("kind", "help");
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* row = new QHBoxLayout(button);
    row->setContentsMargins(0, 0, look::scaled(18), 0);
    row->addStretch();
    row->addWidget(label);
    return label;
}

} // namespace

frmMainMenu::frmMainMenu(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmMainMenu>()) {
    m_ui->setupUi(this);
    setWindowFlags(Qt::Window);
    m_cmdMainMenu = {m_ui->cmdMainMenu_0, m_ui->cmdMainMenu_1, m_ui->cmdMainMenu_2, m_ui->cmdMainMenu_3,
                     m_ui->cmdMainMenu_4};
    m_fltSubMenu = {m_ui->fltSubMenu_0, m_ui->fltSubMenu_1, m_ui->fltSubMenu_2,
                    m_ui->fltSubMenu_3, m_ui->fltSubMenu_4, m_ui->fltSubMenu_5};
    m_keys =
        new MenuKeys({m_cmdMainMenu.begin(), m_cmdMainMenu.end()}, {m_fltSubMenu.begin(), m_fltSubMenu.end()},
                     {m_ui->btnCashEntry, m_ui->btnChargeEntry, m_ui->FlatBttn5}, this);
    controls::noteKeys(this, {{"D, R, F, E, Q", "The main button with that letter"},
                              {"1 to 6", "The command in that place below the main buttons"},
                              {"Up, Down, Left, Right", "Walk over the buttons"},
                              {"N", "The wards' requests that wait"},
                              {"P", "The prepaid requests that wait"},
                              {"G", "The discharge notices that wait"},
                              {"M", "The character is quiet, or speaks again"},
                              {"V", "To what was done since the log-on; Enter there shows it again"},
                              {"Esc", "From that list back to the commands"}});
    m_panel1 = new QLabel(m_ui->StatusBar1);
    m_panel2 = new QLabel(m_ui->StatusBar1);
    m_panel1->setObjectName("StatusBar1_Panel1");
    m_panel2->setObjectName("StatusBar1_Panel2");
    m_ui->StatusBar1->addWidget(m_panel1, 1);
    m_ui->StatusBar1->addPermanentWidget(m_panel2);
    m_panel2->hide();
    buildMenuBar();
    loadSubMenuButtons();
    for (QWidget* indicator : std::initializer_list<QWidget*>{
             m_ui->btnCommunication, m_ui->Label1, m_ui->cmdPrepaid, m_ui->txtPrepaid, m_ui->btnDepositComm,
             m_ui->Label2, m_ui->btnDischarge, m_ui->lblDischarge, m_ui->lblSilence})
        indicator->installEventFilter(this);

    for (int i = 0; i < groupCount; ++i)
        on(m_cmdMainMenu[std::size_t(i)], &QAbstractButton::clicked, this,
           [this, i] { cmdMainMenu_Click(i); });
    for (int i = 0; i < subMenuCount; ++i)
        on(m_fltSubMenu[std::size_t(i)], &QAbstractButton::clicked, this, [this, i] { fltSubMenu_Click(i); });
    on(m_ui->btnCashEntry, &QAbstractButton::clicked, this, [this] { btnCashEntry_Click(); });
    on(m_ui->btnChargeEntry, &QAbstractButton::clicked, this, [this] { btnChargeEntry_Click(); });
    on(m_ui->FlatBttn5, &QAbstractButton::clicked, this, [this] { FlatBttn5_Click(); });
    on(m_ui->btnCommunication, &QAbstractButton::clicked, this, [this] { btnCommunication_Click(); });
    on(m_ui->Label1, &ClickLabel::Click, this,
       [] { session::screens().open(session::MenuScreen::NurseCommunication); });
    on(m_ui->cmdPrepaid, &QAbstractButton::clicked, this,
       [] { session::screens().open(session::MenuScreen::PrepaidRequest); });
    on(m_ui->btnDepositComm, &QAbstractButton::clicked, this,
       [] { session::screens().open(session::MenuScreen::ListDeposits); });
    on(m_ui->btnDischarge, &QAbstractButton::clicked, this, [this] { m_monitors->openDischargeNotices(); });
    on(m_ui->lblDischarge, &ClickLabel::Click, this, [this] { m_monitors->openDischargeNotices(); });
    on(m_ui->lblSilence, &ClickLabel::Click, this, [this] { m_monitors->turnSilence(); });
    on(m_ui->pnlDone, &DonePanel::again, this, [this](const session::WorkDone& done) { showAgain(done); });
}

frmMainMenu::~frmMainMenu() = default;

void frmMainMenu::buildMenuBar() {
    m_menuBar = new MenuBar([this](const Command& command) { run(command, nullptr); }, this);
    layout()->setMenuBar(m_menuBar);
    // Alt+D and Alt+R belong to the menu bar, as on every desk; the plain letter still presses the button.
    for (FlatButton* button : m_cmdMainMenu) {
        if (m_menuBar->takesLetterOf(button->text()))
            button->setShortcut({});
    }
}

Indicators frmMainMenu::indicators() const {
    return {.btnCommunication = m_ui->btnCommunication,
            .Label1 = m_ui->Label1,
            .communicationCount = m_ui->lblCommunicationCount,
            .cmdPrepaid = m_ui->cmdPrepaid,
            .txtPrepaid = m_ui->txtPrepaid,
            .prepaidCount = m_ui->lblPrepaidCount,
            .btnDepositComm = m_ui->btnDepositComm,
            .Label2 = m_ui->Label2,
            .btnDischarge = m_ui->btnDischarge,
            .lblDischarge = m_ui->lblDischarge,
            .dischargeCount = m_ui->lblDischargeCount,
            .lblSilence = m_ui->lblSilence,
            .lblNothingWaiting = m_ui->lblNothingWaiting,
            .lblChecked = m_ui->lblChecked};
}

void frmMainMenu::Form_Load() {
    m_monitors = makeMonitors(indicators());
    if (m_monitors)
        m_monitors->start();
    m_group = groupAtLoad;
    m_subMenuBase = menuGroup(groupAtLoad).subMenuBase;
    m_ui->hdrMain->setTitle(windowTitle());
    m_ui->hdrMain->setSubtitle(session::gHospitalName + QStringLiteral("  \u00B7  Nuclear Medicine"));
    showDate();
    const int side = look::scaled(56);
    m_ui->lblGreetingIcon->setPixmap(look::icon("app").pixmap(QSize(side, side), devicePixelRatioF()));
    layMainButtons();
    m_cmdMainMenu.front()->setFocus();
    session::clsCurrentUser& user = *session::gUser;
    m_panel1->setText(QStringLiteral("CurrentUser Name: ") + QStringLiteral(" (") + user.employeecode() +
                      QStringLiteral(")  ") + user.employeename());
    if (user.Connected()) {
        greet();
        m_ui->btnCommunication->hide();
        session::Run(ado::sql("sp_Nuclear_DeleteRevokedData"));
        if (m_monitors)
            m_monitors->checkNow();
    }
    showWaiting();
}

void frmMainMenu::greet() {
    const QString greeting = birthdayGreeting(session::gUser->employeecode());
    if (!greeting.isEmpty())
        m_panel2->show();
    m_panel2->setText(greeting);
}

void frmMainMenu::Form_Unload() {
    m_monitors.reset();
    if (!m_changingUser)
        session::screens().endProgram();
}

void frmMainMenu::showDate() {
    m_ui->hdrMain->setChips({base::Format(base::today(), "dddd, mmmm d, yyyy")});
}

void frmMainMenu::layMainButtons() {
    for (int i = 0; i < groupCount; ++i) {
        FlatButton* button = m_cmdMainMenu[std::size_t(i)];
        button->setShape(FlatButton::Shape::Tile);
        button->setIcon(look::icon(menuGroup(i).icon));
        button->setCheckable(true);
        button->setChecked(m_subMenuBuilt && i == m_group);
    }
}

void frmMainMenu::loadSubMenuButtons() {
    for (int i = 0; i < subMenuCount; ++i) {
        FlatButton* button = m_fltSubMenu[std::size_t(i)];
        labelWithKey(button, i + 1)->setObjectName(QStringLiteral("lblSubMenus_%1").arg(i));
        button->hide();
    }
    labelWithKey(m_ui->btnCashEntry, 1);
    labelWithKey(m_ui->btnChargeEntry, 2);
    labelWithKey(m_ui->FlatBttn5, 3);
    m_ui->btnCashEntry->setIcon(look::icon("assessment"));
    m_ui->btnChargeEntry->setIcon(look::icon("charge"));
    m_ui->FlatBttn5->setIcon(look::icon("previous"));
    m_ui->btnCommunication->setIcon(look::icon("bell", look::warn));
    m_ui->cmdPrepaid->setIcon(look::icon("charge", look::warn));
    m_ui->btnDepositComm->setIcon(look::icon("deposit", look::warn));
    m_ui->btnDischarge->setIcon(look::icon("leave", look::warn));
    const int iconSide = look::scaled(20);
    for (QToolButton* button : std::initializer_list<QToolButton*>{m_ui->btnCommunication, m_ui->cmdPrepaid,
                                                                   m_ui->btnDepositComm, m_ui->btnDischarge})
        button->setIconSize(QSize(iconSide, iconSide));
    // The texts are typed letter by letter: the panel keeps its width meanwhile.
    m_ui->fraWaiting->setMinimumWidth(fontMetrics().horizontalAdvance(m_ui->Label1->text()) +
                                      look::scaled(150));
}

void frmMainMenu::buildSubMenu() {
    for (int i = 0; i < subMenuCount; ++i) {
        FlatButton* button = m_fltSubMenu[std::size_t(i)];
        const SubMenuRow* row = subMenuRow(m_group, i);
        button->setEnabled(true);
        button->setVisible(row != nullptr);
        if (!row)
            continue;
        const QString caption = QString::fromLatin1(row->caption);
        const QString toolTip = QString::fromLatin1(row->toolTip);
        const Qt::Key shortcut = shortcutOf(row->command);
        button->setText(caption);
        button->setToolTip(toolTip);
        button->setIcon(look::icon(row->icon));
        if (toolTip != caption)
            button->setSecondLine(toolTip);
        else
            button->setSecondLine(shortcut == Qt::Key_unknown ? QString()
                                                              : QKeySequence(shortcut).toString());
    }
}

void frmMainMenu::showWaiting() {
    const std::tuple<QWidget*, QWidget*, QWidget*> lines[] = {
        {m_ui->fraCommunication, m_ui->btnCommunication, m_ui->Label1},
        {m_ui->fraPrepaid, m_ui->cmdPrepaid, m_ui->txtPrepaid},
        {m_ui->fraDeposit, m_ui->btnDepositComm, m_ui->Label2},
        {m_ui->fraDischarge, m_ui->btnDischarge, m_ui->lblDischarge}};
    bool nothing = true;
    for (const auto& [frame, button, label] : lines) {
        const bool shown = !button->isHidden() || !label->isHidden();
        frame->setVisible(shown);
        nothing = nothing && !shown;
    }
    m_ui->lblNothingWaiting->setVisible(nothing);
    m_ui->fraSilence->setVisible(!m_ui->lblSilence->isHidden());
}

bool frmMainMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        showWaiting();
    return Screen::eventFilter(watched, event);
}

void frmMainMenu::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isLoaded())
        showDate();
    Screen::changeEvent(event);
}

void frmMainMenu::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (plain && event->isAutoRepeat())
        event->accept(); // a key that is held down walks through no panels
    else if (!plain || (!m_keys->press(event->key()) && !pressWaiting(event->key())))
        Screen::keyPressEvent(event);
}

/// The letter beside each thing that waits, and that of the list. Nothing that is not shown is pressed.
bool frmMainMenu::pressWaiting(int key) {
    const auto press = [](ClickLabel* label) {
        if (!label->isHidden())
            Q_EMIT label->Click();
        return true;
    };
    switch (key) {
    case Qt::Key_N:
        return press(m_ui->Label1);
    case Qt::Key_P:
        if (!m_ui->cmdPrepaid->isHidden())
            m_ui->cmdPrepaid->click();
        return true;
    case Qt::Key_G:
        return press(m_ui->lblDischarge);
    case Qt::Key_M:
        return press(m_ui->lblSilence);
    case Qt::Key_Escape:
        if (m_ui->pnlDone->isAncestorOf(focusWidget()))
            focusGroup();
        leaveDone();
        return true;
    case Qt::Key_V:
        enterDone();
        return true;
    default:
        return false;
    }
}

/// On a small desktop the commands leave their room to the list until Escape or a main button.
void frmMainMenu::enterDone() {
    if (m_ui->pnlDone->enterList())
        return;
    m_listAlone = true;
    m_ui->picMainMenu->hide();
    m_ui->Frame2->hide();
    m_fltSubMenu[outPatientButton]->setEnabled(true);
    m_ui->pnlBody->layout()->activate();
    m_ui->pnlDone->enterList();
}

void frmMainMenu::leaveDone() {
    if (!std::exchange(m_listAlone, false))
        return;
    m_ui->picMainMenu->show();
    focusGroup();
}

void frmMainMenu::focusGroup() {
    m_cmdMainMenu[m_subMenuBuilt ? std::size_t(m_group) : 0]->setFocus();
}

void frmMainMenu::cmdMainMenu_Click(int index) {
    leaveDone();
    if (index != m_group) {
        m_group = index;
        m_subMenuBase = menuGroup(index).subMenuBase;
        m_subMenuBuilt = true;
        m_ui->fraGreeting->hide();
        m_ui->Frame2->hide();
        m_ui->picMainMenu->show();
        buildSubMenu();
    }
    layMainButtons();
}

} // namespace menu
