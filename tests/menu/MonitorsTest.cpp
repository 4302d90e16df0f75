#include "menu/IndicatorButton.h"
#include "menu/ServerMonitors.h"
#include "platform/controls/screen/Screen.h"
#include "session/Session.h"
#include "tests/menu/MenuBench.h"
#include "tests/support/screens/ErrorRecorder.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

namespace {

using session::MenuScreen;

const QString nurses = "sp_Nuclear_NurseCommunication";
const QString prepaid = "NUCLEAR..sp_Nuclear_PrepaidCheckRequest";
const QString notices = "Nuclear..spNuclear_LoadDischargeNoticeCount";

/// Keeps timers from ticking by themselves, however long a busy machine takes: a test ticks them.
class StandingClock : public QObject {
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::Timer; }
};

/// A menu that watches: how much waits is set before it is asked.
class Monitored : public tests::MenuBench {
  protected:
    Monitored() {
        menu::setMonitorMaker([this](const menu::Indicators& indicators) {
            auto made = std::make_unique<menu::ServerMonitors>(indicators);
            monitors = made.get();
            for (QTimer* each : made->findChildren<QTimer*>())
                each->installEventFilter(&clock);
            for (QTimer* each : made->merlin().figure().findChildren<QTimer*>())
                each->installEventFilter(&clock);
            return made;
        });
    }

    /// For the next question only.
    void wait(const QString& question, int count) {
        std::vector<std::vector<base::Value>> rows;
        if (question == notices)
            rows = {{QString::number(count)}};
        else
            rows.assign(std::size_t(count), {"x"});
        server.server().answerNext(question, tests::ScriptedProvider::rowsOf("recCount", rows));
    }
    /// Opens the menu where so much waits, and from then on nothing unless wait() says so.
    void open(int nurseRequests = 0, int prepaidRequests = 0, int dischargeNotices = 0) {
        wait(nurses, nurseRequests);
        wait(prepaid, prepaidRequests);
        wait(notices, dischargeNotices);
        wait(notices, dischargeNotices);
        answer(nurses, "recCount", {});
        answer(prepaid, "recCount", {});
        answer(notices, "recCount", {{"0"}});
        openMenu();
    }
    QTimer& timer(const char* name) { return *monitors->findChild<QTimer*>(name); }
    bool runs(const char* name) { return timer(name).isActive(); }
    static void fire(QTimer& timer) {
        ASSERT_TRUE(timer.isActive()) << timer.objectName().toStdString();
        if (timer.isSingleShot())
            timer.stop();
        ASSERT_TRUE(QMetaObject::invokeMethod(&timer, "timeout", Qt::DirectConnection));
    }
    void tick(const char* name) { fire(timer(name)); }
    QString text(const char* label) { return child<QLabel>(label)->text(); }
    QString colorOf(const char* button) {
        return child<menu::IndicatorButton>(button)->backColor().name().toUpper();
    }
    agent::Character& merlin() { return monitors->merlin().figure(); }
    void press(Qt::Key key) { QTest::keyClick(menuScreen().focusWidget(), key); }
    void clickFigure() {
        QTest::mouseClick(merlin().balloon()->windowHandle(), Qt::LeftButton, {},
                          merlin().balloon()->figureArea().center());
        QCoreApplication::processEvents();
    }
    /// The next frame, or the end of the sentence.
    void step() {
        QTimer& sentence = *merlin().findChild<QTimer*>("tmrSentence");
        fire(sentence.isActive() ? sentence : *merlin().findChild<QTimer*>("tmrFrames"));
    }

    menu::ServerMonitors* monitors = nullptr;
    StandingClock clock;
};

// --- the start

TEST_F(Monitored, StartAsksForNoticesFirstAndAllThreeAtTheEnd) {
    answer(nurses, "recCount", {});
    answer(prepaid, "recCount", {});
    answer(notices, "recCount", {{"0"}});
    showMenu();
    EXPECT_EQ(texts(),
              (QStringList{"Nuclear..spNuclear_LoadDischargeNoticeCount",
                           "SELECT BirthDate FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'",
                           "sp_Nuclear_DeleteRevokedData", "sp_Nuclear_NurseCommunication",
                           "NUCLEAR..sp_Nuclear_PrepaidCheckRequest 'NU'",
                           "Nuclear..spNuclear_LoadDischargeNoticeCount"}));
}

struct TimerRow {
    const char* name;
    int milliseconds;
    bool runsWithNothingWaiting;
    bool runsWithARequest;
    const char* text; ///< of its poll; "" for none
};

class EachTimer : public Monitored, public testing::WithParamInterface<TimerRow> {};

TEST_P(EachTimer, HasItsIntervalAndItsPoll) {
    const TimerRow& row = GetParam();
    open();
    EXPECT_EQ(timer(row.name).interval(), row.milliseconds);
    EXPECT_EQ(runs(row.name), row.runsWithNothingWaiting);
    wait(nurses, 1);
    tick("tmrChkPendingRequests");
    EXPECT_EQ(runs(row.name), row.runsWithARequest);
    texts().clear();
    if (row.runsWithARequest)
        tick(row.name);
    EXPECT_EQ(texts(), *row.text ? QStringList{row.text} : QStringList());
    EXPECT_EQ(runs(row.name), row.runsWithNothingWaiting)
        << "nothing waits any more, if it was asked"
        << (row.runsWithARequest && !row.runsWithNothingWaiting ? " (it was not)" : "");
}

INSTANTIATE_TEST_SUITE_P(
    Menu, EachTimer,
    testing::Values(TimerRow{"tmrChkPendingRequests", 30000, true, true, "sp_Nuclear_NurseCommunication"},
                    TimerRow{"tmrGetDischargeNotice", 30000, true, true,
                             "Nuclear..spNuclear_LoadDischargeNoticeCount"},
                    TimerRow{"tmrPrepaid", 50000, true, true, "NUCLEAR..sp_Nuclear_PrepaidCheckRequest 'NU'"},
                    TimerRow{"tmrCheckDeposit", 30000, true, true, ""},
                    TimerRow{"tmrPendingCaption", 150, false, false, ""},
                    TimerRow{"tmrPendingButton", 250, true, true, ""}));

TEST_F(Monitored, TheTimersOfTheIndicatorsRunWhileARequestWaits) {
    open(1);
    EXPECT_EQ(timer("Timer1").interval(), 150);
    EXPECT_EQ(timer("tmrPending").interval(), 250);
    EXPECT_TRUE(runs("Timer1"));
    EXPECT_TRUE(runs("tmrPending"));
    tick("tmrChkPendingRequests");
    EXPECT_FALSE(runs("Timer1"));
    EXPECT_FALSE(runs("tmrPending"));
}

TEST_F(Monitored, APollDoesNotBeginATickAnew) {
    open(1);
    const int left = timer("Timer1").remainingTime();
    QTest::qWait(20);
    wait(nurses, 1);
    tick("tmrChkPendingRequests");
    EXPECT_LT(timer("Timer1").remainingTime(), left);
}

TEST_F(Monitored, GoWithTheMenu) {
    open(1, 1, 1);
    EXPECT_NE(session::character(), nullptr);
    const QPointer<menu::ServerMonitors> alive(monitors);
    menuScreen().Unload();
    EXPECT_TRUE(alive.isNull());
    EXPECT_EQ(session::character(), nullptr);
}

// --- requests of nurses

TEST_F(Monitored, WithoutARequestNeitherButtonNorLabelIsSeenAndNeitherTimerRuns) {
    open();
    EXPECT_FALSE(isShown("btnCommunication"));
    EXPECT_FALSE(isShown("Label1"));
    EXPECT_FALSE(runs("Timer1"));
    EXPECT_FALSE(runs("tmrPending"));
    EXPECT_TRUE(isShown("lblNothingWaiting"));
    wait(nurses, 2);
    tick("tmrChkPendingRequests");
    EXPECT_TRUE(isShown("btnCommunication"));
    EXPECT_TRUE(isShown("Label1"));
    EXPECT_EQ(text("lblCommunicationCount"), "2");
    EXPECT_FALSE(isShown("lblNothingWaiting"));
    tick("tmrChkPendingRequests");
    EXPECT_FALSE(isShown("btnCommunication"));
    EXPECT_FALSE(isShown("Label1"));
    EXPECT_FALSE(isShown("fraCommunication"));
}

TEST_F(Monitored, TypesTheTextLetterByLetterAndBeginsAnew) {
    const QString whole = "There are pending requests.";
    open(1);
    EXPECT_EQ(text("Label1"), "") << "the start types nothing yet";
    for (int letters = 1; letters <= whole.size(); ++letters) {
        tick("Timer1");
        ASSERT_EQ(text("Label1"), whole.left(letters));
    }
    tick("Timer1");
    EXPECT_EQ(text("Label1"), whole);
    tick("Timer1");
    EXPECT_EQ(text("Label1"), "T");
}

TEST_F(Monitored, BothTypedTextsShareTheirPosition) {
    open(1);
    timer("tmrPendingCaption").start();
    tick("Timer1");
    tick("tmrPendingCaption");
    tick("Timer1");
    tick("tmrPendingCaption");
    EXPECT_EQ(text("Label1"), "The");
    EXPECT_EQ(text("Label2"), "Ther");
    for (int i = 5; i <= 27; ++i)
        tick("tmrPendingCaption");
    tick("Timer1"); // 28, too far for the shorter text
    EXPECT_EQ(text("Label1"), "The");
    tick("tmrPendingCaption");
    EXPECT_EQ(text("Label2"), "T");
}

TEST_F(Monitored, OneBlinkTimerBlinks) {
    open();
    QStringList colors;
    for (int i = 0; i < 4; ++i) {
        tick("tmrPendingButton");
        colors += colorOf("btnDepositComm");
    }
    EXPECT_EQ(colors, (QStringList{"#C8E3CB", "#96A679", "#C8E3CB", "#96A679"}));
}

TEST_F(Monitored, TwoBlinkTimersShareThePhaseAndStaySteady) {
    open(1);
    for (int i = 0; i < 4; ++i) {
        tick("tmrPending");
        tick("tmrPendingButton");
        EXPECT_EQ(colorOf("btnCommunication"), "#C8E3CB");
        EXPECT_EQ(colorOf("btnDepositComm"), "#96A679");
    }
}

// --- prepaid requests

TEST_F(Monitored, PrepaidRequestsAreShownWhileTheyWait) {
    open(0, 3);
    EXPECT_TRUE(isShown("cmdPrepaid"));
    EXPECT_TRUE(isShown("txtPrepaid"));
    EXPECT_EQ(text("lblPrepaidCount"), "3");
    EXPECT_TRUE(runs("tmrPrepaid"));
    press(Qt::Key_P);
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::PrepaidRequest)});
    tick("tmrPrepaid");
    EXPECT_FALSE(isShown("cmdPrepaid"));
    EXPECT_FALSE(isShown("txtPrepaid"));
    press(Qt::Key_P);
    EXPECT_EQ(opened().size(), 1) << "the key of what is not shown";
    EXPECT_TRUE(runs("tmrPrepaid"));
}

TEST_F(Monitored, ThePrepaidTimerStandsStillWhileItAsks) {
    open();
    tests::ErrorRecorder errors;
    session::gConnection->Close();
    tick("tmrPrepaid");
    errors.take();
    EXPECT_FALSE(runs("tmrPrepaid"));
}

// --- keys

TEST_F(Monitored, NOpensTheRequestsOfNursesAgainAndAgain) {
    open(1);
    clickOn("btnCommunication");
    EXPECT_FALSE(isEnabled("btnCommunication"));
    press(Qt::Key_N);
    press(Qt::Key_N);
    const QString screen = nameOf(MenuScreen::NurseCommunication);
    EXPECT_EQ(opened(), (QStringList{screen, screen, screen}));
    tick("tmrChkPendingRequests");
    press(Qt::Key_N);
    EXPECT_EQ(opened().size(), 3) << "nothing waits";
}

// --- notices of discharge

TEST_F(Monitored, WithoutANoticeTheCharacterStaysHidden) {
    open();
    tick("tmrGetDischargeNotice");
    EXPECT_FALSE(merlin().isVisible());
    EXPECT_EQ(merlin().waiting(), 0);
    EXPECT_FALSE(isShown("lblDischarge"));
}

TEST_F(Monitored, NoRowIsNoNotice) {
    open();
    server.server().answerNext(notices, tests::ScriptedProvider::rowsOf("recCount"));
    tick("tmrGetDischargeNotice");
    EXPECT_EQ(merlin().waiting(), 0);
}

TEST_F(Monitored, TheCharacterSaysItsSentencesAndHides) {
    open();
    wait(notices, 2);
    tick("tmrGetDischargeNotice");
    ASSERT_TRUE(merlin().isVisible());
    EXPECT_EQ(merlin().balloon()->place(), QPoint(650, 60));
    EXPECT_EQ(text("lblDischargeCount"), "2");
    QStringList said;
    for (int steps = 0; merlin().waiting() > 0 && steps < 1000; ++steps) {
        step();
        const QString now = merlin().balloon()->sentence();
        if (!now.isEmpty())
            said += now;
    }
    EXPECT_EQ(said,
              (QStringList{"You Have Received a Discharge Notice.", "You Have Received a Discharge Notice.",
                           "You Have Received a Discharge Notice!",
                           "Check if the Patients are Cleared in your Department.",
                           "You Have Received a Discharge Notice!",
                           "Check if the Patients are Cleared in your Department."}));
    EXPECT_FALSE(merlin().isVisible());
}

TEST_F(Monitored, ANoticeMayBeToldTwiceOnAStartAndIsNotPiledUp) {
    open(0, 0, 1);
    EXPECT_EQ(merlin().waiting(), 17) << "two rounds; the first has moved to its place";
    for (int i = 0; i < 50; ++i) {
        wait(notices, 1);
        tick("tmrGetDischargeNotice");
    }
    EXPECT_EQ(merlin().waiting(), 17);
}

TEST_F(Monitored, AClickLeadsToTheNoticesAndToTheChosenPatient) {
    open(0, 0, 1);
    server.screens.notice = {.Valid = true, .IdNum = "A-77"};
    clickFigure();
    EXPECT_EQ(server.screens.dischargeNotices, 1);
    EXPECT_EQ(server.screens.cleared, std::vector<QString>{"A-77"});
    EXPECT_EQ(texts(), QStringList{notices});
}

TEST_F(Monitored, AClickWithoutAChoiceAsksTheServerAgain) {
    open(0, 0, 1);
    press(Qt::Key_G);
    EXPECT_EQ(server.screens.dischargeNotices, 1);
    EXPECT_TRUE(server.screens.cleared.empty());
    EXPECT_EQ(texts(), QStringList{notices});
    press(Qt::Key_G);
    EXPECT_EQ(server.screens.dischargeNotices, 1) << "no notice waits any more";
}

TEST_F(Monitored, AClickWhileTheNoticesAreOpenOpensNothing) {
    open(0, 0, 1);
    server.screens.whileOpen = [this] { monitors->openDischargeNotices(); };
    press(Qt::Key_G);
    EXPECT_EQ(server.screens.dischargeNotices, 1);
}

TEST_F(Monitored, TheCharacterIsClickedOverAModalScreen) {
    open(0, 0, 1);
    QDialog screen;
    screen.setObjectName("modal");
    tests::runModal([&screen] { screen.exec(); }, {[this](QWidget& window) {
                        clickFigure();
                        QCoreApplication::processEvents();
                        EXPECT_EQ(server.screens.dischargeNotices, 1);
                        window.close();
                    }});
}

TEST_F(Monitored, TicksGoOnInTheLoopOfAModalScreen) {
    open();
    QDialog screen;
    tests::runModal([&screen] { screen.exec(); }, {[this](QWidget& window) {
                        wait(nurses, 1);
                        timer("tmrChkPendingRequests").removeEventFilter(&clock);
                        timer("tmrChkPendingRequests").setInterval(0);
                        EXPECT_TRUE(
                            QTest::qWaitFor([this] { return !child<QWidget>("Label1")->isHidden(); }));
                        timer("tmrChkPendingRequests").stop();
                        window.close();
                    }});
}

TEST_F(Monitored, TheCharacterTakesNoFocusFromWhatIsTyped) {
    open();
    QDialog screen;
    QLineEdit field(&screen);
    tests::runModal([&screen] { screen.exec(); }, {[&](QWidget& window) {
                        tests::keys(field, "before");
                        wait(notices, 1);
                        tick("tmrGetDischargeNotice");
                        QCoreApplication::processEvents();
                        EXPECT_TRUE(merlin().isVisible());
                        EXPECT_EQ(QApplication::focusWidget(), &field);
                        EXPECT_EQ(QApplication::activeWindow(), &window);
                        QTest::keyClicks(QApplication::focusWidget(), " and after");
                        EXPECT_EQ(field.text(), "before and after");
                        window.close();
                    }});
    EXPECT_TRUE(merlin().balloon()->windowFlags() & Qt::WindowDoesNotAcceptFocus);
}

TEST_F(Monitored, TheScreensItLeadsToPutItAwayAndBack) {
    open(0, 0, 1);
    ASSERT_NE(session::character(), nullptr);
    session::character()->Hide();
    EXPECT_EQ(merlin().waiting(), 1) << "its rounds are forgotten";
    while (merlin().waiting() > 0)
        step();
    EXPECT_FALSE(merlin().isVisible());
    session::character()->Show();
    EXPECT_TRUE(merlin().isVisible());
}

// --- silence

TEST_F(Monitored, IsSilencedForTheSessionByItsKey) {
    open(0, 0, 1);
    EXPECT_TRUE(isShown("lblSilence"));
    press(Qt::Key_M);
    EXPECT_FALSE(merlin().isVisible());
    wait(notices, 3);
    tick("tmrGetDischargeNotice");
    EXPECT_FALSE(merlin().isVisible());
    EXPECT_EQ(merlin().waiting(), 0);
    EXPECT_TRUE(isShown("lblDischarge")) << "it still waits";
    EXPECT_EQ(text("lblDischargeCount"), "3");
    press(Qt::Key_M);
    wait(notices, 3);
    tick("tmrGetDischargeNotice");
    EXPECT_TRUE(merlin().isVisible());
}

TEST_F(Monitored, IsSilencedOnItsBalloon) {
    open(0, 0, 1);
    while (merlin().balloon()->sentence().isEmpty())
        step();
    QTest::mouseClick(merlin().balloon()->windowHandle(), Qt::LeftButton, {},
                      merlin().balloon()->quietArea().center());
    EXPECT_TRUE(merlin().isSilenced());
    EXPECT_FALSE(merlin().isVisible());
    EXPECT_EQ(server.screens.dischargeNotices, 0);
    EXPECT_EQ(text("lblSilence"), "Merlin is quiet; let it speak again");
}

// --- a server that goes away

TEST_F(Monitored, AServerThatGoesAwayIsToldOnceByAllTimersTogether) {
    open(1);
    tests::ErrorRecorder errors;
    texts().clear();
    session::gConnection->Close();
    tick("tmrChkPendingRequests");
    EXPECT_TRUE(controls::ErrorBoundary::isStopping());
    tick("tmrGetDischargeNotice");
    tick("tmrPrepaid");
    tick("Timer1");
    EXPECT_EQ(text("Label1"), "") << "nothing runs any more";
    errors.take();
    EXPECT_TRUE(errors.isEmpty());
}

// --- the birthday

class LeapDay : public tests::MenuBench,
                public testing::WithParamInterface<std::tuple<int, int, int, bool>> {};

TEST_P(LeapDay, IsGreetedOnItself) {
    const auto& [year, month, day, greeted] = GetParam();
    const base::FixedClock now = tests::fixedClock(year, month, day, 8);
    answer("SELECT BirthDate", "BirthDate", {{*base::makeDateTime({1996, 2, 29})}});
    openMenu();
    EXPECT_EQ(isShown("StatusBar1_Panel2"), greeted);
    EXPECT_EQ(child<QLabel>("StatusBar1_Panel2")->text(), greeted ? "Happy BirthDay!!!" : "");
}

INSTANTIATE_TEST_SUITE_P(Menu, LeapDay,
                         testing::Values(std::tuple{2027, 2, 28, false}, std::tuple{2027, 3, 1, false},
                                         std::tuple{2028, 2, 28, false}, std::tuple{2028, 2, 29, true},
                                         std::tuple{2028, 3, 1, false}));

} // namespace
