#include "tests/menu/MenuBench.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace {

using menu::Deed;
using session::MenuScreen;

class MenuBarTest : public tests::MenuBench {
  protected:
    QStringList tree() {
        QStringList lines;
        describe(menuScreen().findChild<QMenuBar*>()->actions(), 0, lines);
        return lines;
    }

  private:
    static void describe(const QList<QAction*>& actions, int depth, QStringList& lines) {
        for (const QAction* action : actions) {
            const QString name = action->menu() ? action->menu()->objectName() : action->objectName();
            QString line = QString(2 * depth, u' ') + name + u' ' + action->text();
            if (!action->shortcut().isEmpty())
                line += u' ' + action->shortcut().toString();
            lines += line;
            if (action->menu())
                describe(action->menu()->actions(), depth + 1, lines);
        }
    }
};

TEST_F(MenuBarTest, HasTheWholeTree) {
    openMenu();
    EXPECT_EQ(tree().join('\n'), QStringLiteral("mnuDataEntry &Data Entry\n"
                                                "  mnuRequest Re&quest Entry\n"
                                                "    mnuAssessment &Assessment Entry\n"
                                                "    mnuOutRequest &OutPatient Request Entry\n"
                                                "      mnuOPDCashEntry &Cash Entry\n"
                                                "      mnuOPDChargeEntry C&hargeEntry\n"
                                                "    mnuInRequest &InPatient Request Entry F1\n"
                                                "  mnuResult Re&sult Entry\n"
                                                "    mnuResultEntry Result &Entry\n"
                                                "    mnuResultEditing Result &Viewing/Editing\n"
                                                "    mnuResultCancellation Result &Cancellation\n"
                                                "mnuFileMaintenance File &Maintenance\n"
                                                "  mnuCancellation Request &Cancellation F2\n"
                                                "  mnuReprintChargeSlip Re&Print ChargeSlip\n"
                                                "  mnuAssessmentStatus Assessment &Status\n"
                                                "  mnuLedger Patient's &Ledger F3\n"
                                                "  mnuWalkIn &Walk-In MasterFile\n"
                                                "  mnuBuildFile Build_File\n"
                                                "  mnuReceivableEntry Receivable Entry F4\n"
                                                "  mnuVerification OR/CHARGESLIP VERIFICATION F5\n"
                                                "mnuReports &Reports\n"
                                                "  mnuReportAudit Audit Report\n"
                                                "  mnuAuditReport &Transaction Report\n"
                                                "  mnuMonthlyReport &Monthly Report\n"
                                                "    mnuMonthlyByDate Sorted by Transaction &Date\n"
                                                "    mnuMonthlyByExam Grouped by E&xam\n"
                                                "  mnuRequestingDoctorReport Re&questing Doctor Report\n"
                                                "  mnuStatisticalReport S&tatistical Report\n"
                                                "  mnuDailyIncomeReport Daily &Income Report\n"
                                                "    mnuDailyIncomeOPDIPD In/Out Patient Charge\n"
                                                "    mnuDailyIncomeCashPatient Cash Patients\n"
                                                "  mnuCancelledProcedures &Cancelled Procedures Report\n"
                                                "  mnuReportReadersFee Readers Fee Report\n"
                                                "  mnuDoctorsCommision Doctor's Commision Report\n"
                                                "    mnuReportDoctorTD Based on Transaction Date\n"
                                                "    mnuReportDoctorPD Based on Payment Date\n"
                                                "  mnuReportCensus Census Report\n"
                                                "    mnuReportCensusAllPatient All Patient Census\n"
                                                "    mnuReportCensusbyStation Census by Station\n"
                                                "  mnuNucExams Nuclear &Procedures\n"
                                                "mnuExit E&xit Program\n"
                                                "  mnuLogOff Change Active &User\n"
                                                "  mnuExitMekeip Quit Application"));
}

struct OpenItem {
    const char* item;
    MenuScreen screen;
    const char* formMode = "";
};

class OpeningItem : public MenuBarTest, public testing::WithParamInterface<OpenItem> {};

TEST_P(OpeningItem, AsksNoRight) {
    openMenu();
    trigger(GetParam().item);
    EXPECT_EQ(texts(), QStringList());
    EXPECT_EQ(opened(), QStringList{nameOf(GetParam().screen, GetParam().formMode)});
}

INSTANTIATE_TEST_SUITE_P(Menu, OpeningItem,
                         testing::Values(OpenItem{"mnuAssessment", MenuScreen::Assessment},
                                         OpenItem{"mnuOPDCashEntry", MenuScreen::ListCashComm},
                                         OpenItem{"mnuInRequest", MenuScreen::ListPatient},
                                         OpenItem{"mnuResultEntry", MenuScreen::RequestMaster, "R"},
                                         OpenItem{"mnuResultEditing", MenuScreen::ResultMaster, "R"},
                                         OpenItem{"mnuResultCancellation", MenuScreen::ResultMaster, "C"},
                                         OpenItem{"mnuCancellation", MenuScreen::CancelRequest},
                                         OpenItem{"mnuReprintChargeSlip", MenuScreen::RePrint},
                                         OpenItem{"mnuAssessmentStatus", MenuScreen::AssessmentStatus},
                                         OpenItem{"mnuLedger", MenuScreen::PatientLedger},
                                         OpenItem{"mnuWalkIn", MenuScreen::WalkInMaster},
                                         OpenItem{"mnuVerification", MenuScreen::Verification}));

TEST_F(MenuBarTest, FunctionKeysReachTheScreensWithoutARight) {
    openMenu();
    for (const Qt::Key key : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F5})
        QTest::keyClick(&menuScreen(), key);
    EXPECT_EQ(opened(), (QStringList{nameOf(MenuScreen::ListPatient), nameOf(MenuScreen::CancelRequest),
                                     nameOf(MenuScreen::PatientLedger), nameOf(MenuScreen::Verification)}));
    EXPECT_EQ(texts(), QStringList());
}

class PasswordScreens : public MenuBarTest {
  protected:
    void SetUp() override {
        answer("SELECT OPDPassword", "OPDPassword", {{"Gate1"}});
        openMenu();
    }
    void type(const char* password) {
        inModal([password](QWidget& window) {
            EXPECT_EQ(window.objectName(), "frmAccess");
            tests::keys(tests::child<QWidget>(window, "txtPassword"), QString(password) + "<Enter>");
        });
    }
};

TEST_F(PasswordScreens, ReceivableEntryOpensBehindThePassword) {
    type("Gate1");
    withSteps([this] { QTest::keyClick(&menuScreen(), Qt::Key_F4); });
    EXPECT_EQ(texts(), QStringList{"SELECT OPDPassword FROM PATIENT_DATA..tbHospitalInfo"});
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::ReceivableSearch)});
}

TEST_F(PasswordScreens, WrongPasswordOpensNothing) {
    type("gate1");
    boxes.expect({"invalid Password.", 16, ""});
    trigger("mnuReceivableEntry");
    EXPECT_EQ(opened(), QStringList());
}

TEST_F(PasswordScreens, GivingUpCountsAsWrong) {
    inModal([](QWidget& window) { window.close(); });
    boxes.expect({"invalid Password.", 16, ""});
    trigger("mnuReceivableEntry");
    EXPECT_EQ(texts(), QStringList());
    EXPECT_EQ(opened(), QStringList());
}

TEST_F(PasswordScreens, BuildFileIsOutOfReachThoughItWouldWork) {
    auto* item = child<QAction>("mnuBuildFile");
    EXPECT_FALSE(item->isEnabled());
    item->trigger();
    EXPECT_EQ(opened(), QStringList());

    item->setEnabled(true);
    type("Gate1");
    trigger("mnuBuildFile");
    EXPECT_EQ(opened(), QStringList{nameOf(MenuScreen::NuclearChargesBuildFile)});
}

} // namespace
