#include "platform/base/TestDoors.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/reports/ReportLaunch.h"
#include "session/reports/frmDailyReport.h"
#include "session/reports/frmDateEntry.h"
#include "session/reports/frmReportDate.h"
#include "session/rights/frmAccess.h"
#include "tests/session/Drive.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QLabel>
#include <QPushButton>

using namespace session;
using tests::childOf;
using tests::ScriptedProvider;

namespace {

class DateDialogs : public testing::Test {
  protected:
    DateDialogs() {
        gReportFrom = QStringLiteral("from");
        gReportTo = QStringLiteral("to");
        gReportOption = QStringLiteral("option");
        gReportOptionTitle = QStringLiteral("title");
    }
    ~DateDialogs() override {
        controls::release<frmReportDate>();
        controls::release<frmDateEntry>();
        controls::release<frmDailyReport>();
    }
    template <typename Form>
    void show(const std::function<void(controls::Screen&)>& driver) {
        tests::whileModal([] { controls::SharedScreen<Form>::fresh().ShowModal(); }, driver);
    }
    static void click(controls::Screen& screen, const char* button) {
        QTest::mouseClick(&childOf(screen, button), Qt::LeftButton);
    }
    const base::FixedClock clock{*base::makeDateTime({2026, 3, 5}, {23, 59})};
};

TEST_F(DateDialogs, RangeStartsWithTodayAndEnterStoresIt) {
    show<frmReportDate>([](controls::Screen& screen) {
        EXPECT_EQ(screen.windowTitle(), u"Reports: Date Range");
        auto& start = childOf<QLineEdit>(screen, "dtStart");
        EXPECT_EQ(start.text(), u"03/05/2026");
        EXPECT_EQ(childOf<QLineEdit>(screen, "dtEnd").text(), u"03/05/2026");
        EXPECT_EQ(childOf<QPushButton>(screen, "cmdEnter").text(), u"&Enter");
        EXPECT_EQ(childOf<QPushButton>(screen, "cmdClose").text(), u"&Close");
        QTest::keyClicks(&start, "2/28/26");
        QTest::keyClick(&start, Qt::Key_Return);
        EXPECT_TRUE(childOf(screen, "dtEnd").hasFocus());
        QTest::keyClick(&childOf(screen, "dtEnd"), Qt::Key_Return);
        EXPECT_TRUE(childOf(screen, "cmdEnter").hasFocus());
        QTest::keyClick(&childOf(screen, "cmdEnter"), Qt::Key_Return);
    });
    auto& result = controls::SharedScreen<frmReportDate>::current();
    EXPECT_FALSE(result.Cancel);
    EXPECT_EQ(result.startdate, u"02/28/2026");
    EXPECT_EQ(result.enddate, u"03/05/2026");
    EXPECT_EQ(gReportFrom, u"from") << "the caller copies the dates";
    result.Unload();
    EXPECT_FALSE(result.Cancel);
    EXPECT_EQ(result.startdate, u"02/28/2026");
}

TEST_F(DateDialogs, RangeIsCancelledByCloseByEscapeAndByTheWindow) {
    show<frmReportDate>([](controls::Screen& screen) { click(screen, "cmdEnter"); });
    EXPECT_FALSE(controls::SharedScreen<frmReportDate>::current().Cancel);
    show<frmReportDate>([](controls::Screen& screen) { click(screen, "cmdClose"); });
    EXPECT_TRUE(controls::SharedScreen<frmReportDate>::current().Cancel);
    show<frmReportDate>([](controls::Screen& screen) { click(screen, "cmdEnter"); });
    show<frmReportDate>([](controls::Screen& screen) { QTest::keyClick(&screen, Qt::Key_Escape); });
    EXPECT_TRUE(controls::SharedScreen<frmReportDate>::current().Cancel);
    show<frmReportDate>([](controls::Screen& screen) { screen.close(); });
    EXPECT_TRUE(controls::SharedScreen<frmReportDate>::current().Cancel);
}

TEST_F(DateDialogs, OneDateLeavesTheSecondOut) {
    tests::whileModal(
        [] {
            auto& dialog = controls::SharedScreen<frmReportDate>::fresh();
            dialog.hideEndDate();
            dialog.ShowModal();
        },
        [](controls::Screen& screen) {
            EXPECT_FALSE(childOf(screen, "dtEnd").isVisible());
            EXPECT_FALSE(childOf(screen, "lblEnd").isVisible());
            QTest::keyClick(&childOf(screen, "dtStart"), Qt::Key_Return);
            EXPECT_TRUE(childOf(screen, "cmdEnter").hasFocus());
            click(screen, "cmdEnter");
        });
    EXPECT_EQ(controls::SharedScreen<frmReportDate>::current().startdate, u"03/05/2026");
}

TEST_F(DateDialogs, DateEntryWritesOnOkAndCancelsByWord) {
    show<frmDateEntry>([](controls::Screen& screen) {
        EXPECT_EQ(screen.windowTitle(), u"Date Entry");
        EXPECT_EQ(childOf<QPushButton>(screen, "cmdDate_0").text(), u"&Ok");
        EXPECT_EQ(childOf<QPushButton>(screen, "cmdDate_1").text(), u"&Cancel");
        QTest::keyClick(&childOf(screen, "dtStart"), Qt::Key_Return);
        QTest::keyClicks(&childOf(screen, "dtEnd"), "03/31/2026");
        click(screen, "cmdDate_0");
    });
    EXPECT_EQ(gReportFrom, u"03/05/2026");
    EXPECT_EQ(gReportTo, u"03/31/2026");
    show<frmDateEntry>([](controls::Screen& screen) { click(screen, "cmdDate_1"); });
    EXPECT_EQ(gReportFrom, u"CANCEL");
    EXPECT_EQ(gReportTo, u"03/31/2026");
}

TEST_F(DateDialogs, DateEntryEscapeKeepsTheOldValues) {
    show<frmDateEntry>([](controls::Screen& screen) { QTest::keyClick(&screen, Qt::Key_Escape); });
    EXPECT_EQ(gReportFrom, u"from");
    EXPECT_EQ(gReportTo, u"to");
}

struct Option {
    const char* button;
    const char* caption;
    const char* from;
    const char* option;
    const char* title;
};

class DailyReport : public DateDialogs, public testing::WithParamInterface<Option> {};

TEST_P(DailyReport, WritesItsChoice) {
    show<frmDailyReport>([](controls::Screen& screen) {
        EXPECT_EQ(screen.windowTitle(), u"Daily Transaction Report");
        EXPECT_EQ(childOf<QPushButton>(screen, GetParam().button).text(), QLatin1String(GetParam().caption));
        QTest::keyClick(&childOf(screen, "dtpReportDate"), Qt::Key_Return);
        QTest::keyClicks(&childOf(screen, "dtpEndDate"), "12/01/2026");
        click(screen, GetParam().button);
    });
    EXPECT_EQ(gReportFrom, QLatin1String(GetParam().from));
    EXPECT_EQ(gReportTo, u"12/01/2026");
    EXPECT_EQ(gReportOption, QLatin1String(GetParam().option));
    EXPECT_EQ(gReportOptionTitle, QLatin1String(GetParam().title));
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, DailyReport,
    testing::Values(Option{"cmdOptions_0", "&IN Patients", "03/05/2026", "0", "IN-PATIENT TRANSACTIONS"},
                    Option{"cmdOptions_1", "&OUT Patients", "03/05/2026", "1", "OUT-PATIENT TRANSACTIONS"},
                    Option{"cmdOptions_2", "&CASH Patients", "03/05/2026", "2", "CASH-PATIENT TRANSACTIONS"},
                    Option{"cmdOptions_3", "&ALL Patients", "03/05/2026", "3", "ALL-PATIENT TRANSACTIONS"},
                    Option{"cmdOptions_4", "E&xit", "CANCEL", "4", "title"}));

TEST_F(DateDialogs, DailyReportEscapeKeepsTheOldValues) {
    show<frmDailyReport>([](controls::Screen& screen) { QTest::keyClick(&screen, Qt::Key_Escape); });
    EXPECT_EQ(gReportFrom, u"from");
    EXPECT_EQ(gReportTo, u"to");
    EXPECT_EQ(gReportOption, u"option");
    EXPECT_EQ(gReportOptionTitle, u"title");
}

class Access : public testing::Test {
  protected:
    ~Access() override { controls::release<frmAccess>(); }
    bool type(const char* password) {
        auto& dialog = controls::SharedScreen<frmAccess>::fresh();
        tests::whileModal([&] { dialog.ShowModal(); },
                          [&](controls::Screen& screen) {
                              EXPECT_EQ(screen.windowTitle(), u"ENTER PASSWORD : ");
                              EXPECT_EQ(childOf<QLabel>(screen, "lblKeys").text(),
                                        u"<b>Enter</b> checks the password");
                              QTest::keyClicks(&childOf(screen, "txtPassword"), QLatin1String(password));
                              QTest::keyClick(&childOf(screen, "txtPassword"), Qt::Key_Return);
                          });
        EXPECT_TRUE(dialog.isUnloaded());
        return dialog.Valid;
    }
    void hospitalHas(const char* password) {
        session.server().answer(QStringLiteral("SELECT OPDPassword FROM PATIENT_DATA..tbHospitalInfo"),
                                ScriptedProvider::rowsOf(QStringLiteral("OPDPassword"), {{password}}));
    }
    tests::ScriptedSession session;
};

TEST_F(Access, ComparesExactlyAndUnloads) {
    hospitalHas("Kerova");
    EXPECT_TRUE(type("Kerova"));
    EXPECT_FALSE(type("kerova"));
    EXPECT_FALSE(type("Kerova "));
    EXPECT_EQ(session.texts(),
              QStringList(3, QStringLiteral("SELECT OPDPassword FROM PATIENT_DATA..tbHospitalInfo")));
}

TEST_F(Access, AnEmptyPasswordOpensNothing) {
    hospitalHas("");
    EXPECT_FALSE(type("")) << "not even where the hospital has none yet";
}

TEST_F(Access, NoRowIsNoPassword) {
    session.server().answer(QStringLiteral("SELECT OPDPassword"),
                            ScriptedProvider::rowsOf(QStringLiteral("OPDPassword")));
    EXPECT_FALSE(type(""));
}

TEST_F(Access, AnEnterThatIsHeldDownAnswersNothing) {
    hospitalHas("Kerova");
    auto& dialog = controls::SharedScreen<frmAccess>::fresh();
    tests::whileModal([&] { dialog.ShowModal(); },
                      [&](controls::Screen& screen) {
                          QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
                          QCoreApplication::sendEvent(&childOf(screen, "txtPassword"), &held);
                          EXPECT_TRUE(screen.isVisible());
                          EXPECT_TRUE(session.texts().isEmpty());
                          screen.close();
                      });
}

TEST_F(Access, OtherKeysDoNothing) {
    hospitalHas("Kerova");
    auto& dialog = controls::SharedScreen<frmAccess>::fresh();
    tests::whileModal([&] { dialog.ShowModal(); },
                      [&](controls::Screen& screen) {
                          QTest::keyClicks(&childOf(screen, "txtPassword"), QStringLiteral("Kerova"));
                          QTest::keyClick(&childOf(screen, "txtPassword"), Qt::Key_Escape);
                          EXPECT_TRUE(screen.isVisible());
                          EXPECT_TRUE(session.texts().isEmpty());
                          screen.close();
                      });
    EXPECT_FALSE(dialog.Valid);
}

} // namespace
