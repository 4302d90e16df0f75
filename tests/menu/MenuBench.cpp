#include "tests/menu/MenuBench.h"

#include "platform/controls/ErrorBoundary.h"
#include "platform/controls/MessageBox.h"
#include "session/HospitalServer.h"
#include "session/ReportLaunch.h"
#include "session/Session.h"
#include "session/clsCurrentUser.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTest>

#include <sodium.h>

namespace tests {

namespace {

constexpr const char* password = "open sesame";

const base::DateTime morning = *base::makeDateTime({2026, 11, 21}, {8, 30, 0, 0});

class ScriptedServer : public session::HospitalServer {
  public:
    explicit ScriptedServer(std::unique_ptr<ado::Provider> provider) : m_provider(std::move(provider)) {}
    QString name() const override { return "Scripted"; }
    QString serverName() const override { return "SCRIPT"; }
    QString connectionString() const override { return "Scripted"; }
    bool isThere() const override { return true; }
    void prepare(const std::function<void(int)>&) override {}
    std::unique_ptr<ado::Provider> open(const QString&) override { return std::move(m_provider); }

  private:
    std::unique_ptr<ado::Provider> m_provider;
};

QString hashOf(const char* text) {
    static const QString hash = [text] {
        char buffer[crypto_pwhash_STRBYTES];
        if (sodium_init() < 0 || crypto_pwhash_str(buffer, text, strlen(text), crypto_pwhash_OPSLIMIT_MIN,
                                                   crypto_pwhash_MEMLIMIT_MIN) != 0)
            ADD_FAILURE() << "no password hash";
        return QString::fromLatin1(buffer);
    }();
    return hash;
}

} // namespace

QString RecordingScreens::nameOf(session::MenuScreen screen, const QString& formMode) {
    return (QString::number(int(screen)) + u' ' + formMode).trimmed();
}

void RecordingScreens::showMainMenu() {
    opened += "menu";
}

void RecordingScreens::open(session::MenuScreen screen, const QString& formMode) {
    opened += nameOf(screen, formMode);
    if (whileOpen)
        whileOpen();
}

void RecordingScreens::openRequest(const session::RequestEntry&) {
    opened += "request";
}

void RecordingScreens::openOutRequest(const session::OutRequestEntry& entry) {
    opened += QStringLiteral("out-patient %1|%2|%3|%4|%5|%6")
                  .arg(entry.IdNumber)
                  .arg(entry.CashBasis)
                  .arg(entry.CashOrNum)
                  .arg(entry.CashPrice)
                  .arg(entry.NurseCommnunication)
                  .arg(entry.chargeEntry);
    if (whileOpen)
        whileOpen();
}

MenuBench::MenuBench() : clock(morning) {
    logOn();
    linkMenu();
    session::setScreens(&screens);
    session::gHospitalName = "Kerova General Hospital";
    session::gHospitalAddress = "1 Harbour Road";
    session::gDeptCode = "NU";
    session::gReportFrom.clear();
    session::gReportTo.clear();
    session::gReportOption.clear();
    controls::setMessageScript([this](const QString& prompt, int style, const QString& title) {
        events += "box";
        if (m_boxes.empty()) {
            ADD_FAILURE() << "unexpected box: " << prompt.toStdString();
            return controls::vbCancel;
        }
        const Box box = m_boxes.front();
        m_boxes.erase(m_boxes.begin());
        EXPECT_EQ(prompt, box.prompt);
        EXPECT_EQ(style, box.style);
        EXPECT_EQ(title, box.title);
        return box.answer;
    });
}

MenuBench::~MenuBench() {
    for (const Box& box : m_boxes)
        ADD_FAILURE() << "this box did not come: " << box.prompt.toStdString();
    controls::SharedScreen<menu::frmMainMenu>::release();
    controls::setMessageScript({});
    menu::links() = menu::defaultLinks();
    session::setScreens(nullptr);
    recorder.reset();
    session::gConnection = nullptr;
    session::gUser.reset();
}

void MenuBench::logOn() {
    auto provider = std::make_unique<ScriptedProvider>();
    server = provider.get();
    server->answer("SELECT EmployeeID,",
                   ScriptedProvider::rowsOf("EmployeeID,Name,PasswordHash,DeptCode,Status",
                                            {{"1001", "REYES, JOAN P.", hashOf(password), "5", "A"}}));
    session::gUser = std::make_unique<session::clsCurrentUser>();
    session::gUser->setPasswordDeptCode("5");
    const auto result =
        session::gUser->logOnTo(std::make_shared<ScriptedServer>(std::move(provider)), "1001", password);
    EXPECT_EQ(result, session::LogOnResult::Good);
    session::gConnection = &session::gUser->sqlconnection();
    session::gEmployeeCode = "1001";
    recorder = std::make_unique<StatementRecorder>(*session::gConnection);
}

void MenuBench::linkMenu() {
    menu::MenuLinks& links = menu::links();
    links = menu::defaultLinks();
    links.endProgram = [this] { events += "end"; };
    links.prepareReport = [this](const QString& path, const QString& database,
                                 const std::vector<base::Value>& values) {
        events += "prepare";
        RecordedReport report;
        report.path = path;
        report.database = database;
        report.values = values;
        reports.push_back(report);
    };
    links.prepareSubReport = [this](const QString& name, const std::vector<base::Value>& values) {
        events += "sub-report";
        reports.back().subReport = name;
        reports.back().subValues = values;
    };
    links.showReport = [this](bool groupTree, const QString& title, bool directPrint) {
        events += "show";
        reports.back().groupTree = groupTree;
        reports.back().title = title;
        reports.back().directPrint = directPrint;
    };
}

void MenuBench::answer(const QString& startsWith, const QString& columns,
                       const std::vector<std::vector<base::Value>>& rows, bool once) {
    server->answer(startsWith, ScriptedProvider::rowsOf(columns, rows), once);
}

menu::frmMainMenu& MenuBench::openMenu() {
    auto& screen = controls::SharedScreen<menu::frmMainMenu>::fresh();
    screen.Show();
    screen.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    recorder->texts.clear();
    return screen;
}

menu::frmMainMenu& MenuBench::menuScreen() {
    return controls::SharedScreen<menu::frmMainMenu>::current();
}

void MenuBench::click(const QString& buttonName) {
    if (auto* button = child<QAbstractButton>(buttonName)) {
        ASSERT_TRUE(button->isVisible()) << buttonName.toStdString();
        QTest::mouseClick(button, Qt::LeftButton);
    }
}

void MenuBench::trigger(const QString& actionName) {
    if (auto* action = child<QAction>(actionName)) {
        ASSERT_TRUE(action->isEnabled()) << actionName.toStdString();
        action->trigger();
    }
}

void MenuBench::expectBox(const QString& prompt, int style, const QString& title, int answer) {
    m_boxes.push_back({prompt, style, title, answer});
}

void MenuBench::inModal(std::function<void(QWidget&)> step) {
    QMetaObject::invokeMethod(
        qApp,
        [step = std::move(step)] {
            QWidget* window = QApplication::activeModalWidget();
            if (!window) {
                ADD_FAILURE() << "no modal window came";
                return;
            }
            step(*window);
        },
        Qt::QueuedConnection);
}

void MenuBench::pressIn(QWidget& window, const QString& buttonName) {
    auto* button = window.findChild<QAbstractButton*>(buttonName);
    if (!button) {
        ADD_FAILURE() << "no " << buttonName.toStdString() << " on " << window.objectName().toStdString();
        window.close();
        return;
    }
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace tests
