#include "session/reports/ReportLaunch.h"
#include "session/TestDoors.h"

#include "platform/base/Error.h"
#include "platform/controls/look/HeaderBand.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/output/Print.h"
#include "platform/report/viewer/Viewer.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/frmReportViewer.h"
#include "tests/session/Drive.h"
#include "tests/support/screens/LoggedOn.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPrintDialog>
#include <QTemporaryDir>
#include <QTimer>

using namespace session;

namespace {

class Launch : public tests::LoggedOn {
  protected:
    Launch() {
        QDir(folder.path()).mkdir(QStringLiteral("Reports"));
        write("One.RPT", R"(<report version="1" title="One">
  <page width="140mm" height="100mm" left="10mm" right="10mm" top="10mm" bottom="10mm"/>
  <parameter name="First"/>
  <parameter name="Second"/>
  <table name="Rooms" location="BUILD_FILE..tbcoRoom">SELECT TOP 1 RoomID FROM {table} ORDER BY RoomID</table>
</report>)");
        setProgramFolder(folder.path());
    }
    ~Launch() override {
        gReport.reset();
        setProgramFolder({});
        report::setPrintTarget(QString());
    }
    void write(const char* name, const char* text) {
        QFile definition(folder.filePath(QStringLiteral("Reports/") + QLatin1String(name)));
        ASSERT_TRUE(definition.open(QIODevice::WriteOnly));
        definition.write(text);
    }
    static int errorOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const base::RunTimeError& error) {
            return error.number();
        }
        return 0;
    }

    QTemporaryDir folder;
};

TEST_F(Launch, PathIsTheProgramFolderAndBackslashes) {
    EXPECT_EQ(reportPath(QStringLiteral("One.RPT")), folder.path() + QStringLiteral("\\Reports\\One.RPT"));
}

TEST_F(Launch, AReportThatIsOnlyOpenedKnowsWhoPrintsIt) {
    ASSERT_FALSE(gUser->employeename().isEmpty());
    OpenReport(reportPath(QStringLiteral("One.RPT")));
    EXPECT_EQ(gReport->printedBy, gUser->employeename());
    EXPECT_EQ(gReport->headingName, QString());
}

TEST_F(Launch, SetsHeadingLogOnAndParametersInOrder) {
    PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a"});
    ASSERT_TRUE(gReport);
    EXPECT_EQ(gReport->headingName, gHospitalName);
    EXPECT_EQ(gReport->printedBy, gUser->employeename());
    EXPECT_EQ(gReport->headingAddress, gHospitalAddress);
    ASSERT_EQ(gReport->tables().size(), 1U);
    const report::TableLogOn& table = gReport->tables()[0];
    EXPECT_EQ(table.location, u"BUILD_FILE..tbcoRoom");
    EXPECT_EQ(table.server, gUser->ServerName());
    EXPECT_EQ(table.database, u"NUCLEAR");
    EXPECT_EQ(table.login, u"sa");
    EXPECT_EQ(table.password, gServerPassword);
    EXPECT_TRUE(gReport->hasParameter(0));
    EXPECT_EQ(gReport->missingParameters(), std::vector<int>{1});
}

TEST_F(Launch, NoValuesLeaveAllFieldsAndSpareValuesAreIgnored) {
    PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {});
    EXPECT_EQ(gReport->missingParameters(), (std::vector<int>{0, 1}));
    PrepareReport(reportPath(QStringLiteral("ONE.rpt")), QStringLiteral("Nuclear"),
                  {"a", 2, "spare", "more"});
    EXPECT_TRUE(gReport->missingParameters().empty());
}

TEST_F(Launch, WrongDatabaseAndMissingFileAreErrors) {
    EXPECT_EQ(
        errorOf([] { PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NOWHERE"), {}); }),
        4060);
    EXPECT_EQ(
        errorOf([] { PrepareReport(reportPath(QStringLiteral("None.RPT")), QStringLiteral("NUCLEAR"), {}); }),
        20507);
    gServerPassword = QStringLiteral("guess");
    EXPECT_EQ(
        errorOf([] { PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {}); }),
        18456);
}

TEST_F(Launch, TableMovesToTheDatabaseUnderTheUsersOwnLogin) {
    report::TableLogOn table{QStringLiteral("BILLING..tbBill"), {}, {}, {}, {}};
    SetReportTableLogOn(table, QStringLiteral("NUCLEAR"));
    EXPECT_EQ(table.location, u"NUCLEAR..tbBill");
    EXPECT_EQ(table.server, gUser->ServerName());
    EXPECT_EQ(table.database, u"NUCLEAR");
    EXPECT_EQ(table.login, gUser->UserID());
    EXPECT_EQ(table.password, gUser->serverpassword());
}

TEST_F(Launch, ASubReportMovesToTheUsersDatabaseUnderTheFixedLogOn) {
    write("Two.RPT", R"(<report version="1" title="Two">
  <page width="140mm" height="100mm" left="10mm" right="10mm" top="10mm" bottom="10mm"/>
  <parameter name="Day"/>
  <table name="Rooms" location="BUILD_FILE..tbcoRoom">SELECT TOP 1 RoomID FROM {table} ORDER BY RoomID</table>
  <reportFooter height="10mm"><insert report="Summary" x="0mm" y="0mm"/></reportFooter>
  <subReport name="Summary">
    <parameter name="Database"/>
    <parameter name="Day"/>
    <table name="Users" location="PASSWORD..tbNuclearUserRights">SELECT EmployeeID FROM {table}</table>
    <details height="5mm"/>
  </subReport>
</report>)");
    PrepareReport(reportPath(QStringLiteral("Two.RPT")), QStringLiteral("BUILD_FILE"), {"a"});
    PrepareSubReport(QStringLiteral("Summary"), {"b"});
    const report::TableLogOn& main = gReport->tables()[0];
    EXPECT_EQ(main.location, u"BUILD_FILE..tbcoRoom") << "the report's own tables stay";
    EXPECT_EQ(main.database, u"BUILD_FILE");
    report::Report& summary = gReport->subReport(QStringLiteral("Summary"));
    ASSERT_EQ(summary.tables().size(), 1U);
    const report::TableLogOn& table = summary.tables()[0];
    EXPECT_EQ(table.location, u"NUCLEAR..tbNuclearUserRights");
    EXPECT_EQ(table.server, gUser->ServerName());
    EXPECT_EQ(table.database, gUser->Database());
    EXPECT_EQ(table.login, u"sa");
    EXPECT_EQ(table.password, gServerPassword);
    EXPECT_EQ(summary.missingParameters(), std::vector<int>{1}) << "its own fields, in their order";
    EXPECT_TRUE(gReport->missingParameters().empty());
    EXPECT_NE(errorOf([] { PrepareSubReport(QStringLiteral("Sumary"), {}); }), 0);
}

TEST_F(Launch, OnlyWhatStandsBeforeTheFirstPointMoves) {
    report::TableLogOn procedure{QStringLiteral("BILLING.dbo.sp_Some"), {}, {}, {}, {}};
    SetReportTableLogOn(procedure, QStringLiteral("NUCLEAR"));
    EXPECT_EQ(procedure.location, u"NUCLEAR.dbo.sp_Some");
    report::TableLogOn bare{QStringLiteral("tbBill"), {}, {}, {}, {}};
    SetReportTableLogOn(bare, QStringLiteral("NUCLEAR"));
    EXPECT_EQ(bare.location, u"NUCLEAR.tbBill"); // no part of its old place to keep
}

TEST_F(Launch, ATableThatCannotBeLoggedOnFailsAtOnce) {
    report::TableLogOn table{QStringLiteral("BILLING..tbBill"), {}, {}, {}, {}};
    EXPECT_EQ(errorOf([&] { SetReportTableLogOn(table, QStringLiteral("NOWHERE")); }), 4060);
}

TEST_F(Launch, EveryTableOfAReportCanBeReadUnderTheUsersOwnLogin) {
    PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a", "b"});
    for (report::TableLogOn& table : gReport->tables())
        SetReportTableLogOn(table, QStringLiteral("BUILD_FILE"));
    gReport->watermark = QStringLiteral("RE-PRINT");
    const QString target = folder.filePath(QStringLiteral("own.pdf"));
    report::setPrintTarget(target);
    ShowReport(false, QStringLiteral("One"), true);
    EXPECT_TRUE(QFile::exists(target));
}

TEST_F(Launch, NothingOpenIsAnError) {
    EXPECT_EQ(errorOf([] { ShowReport(false, {}, true); }), base::errors::objectNotSet);
    EXPECT_EQ(errorOf([] { PrepareSubReport(QStringLiteral("Summary"), {}); }), base::errors::objectNotSet);
}

TEST_F(Launch, DirectPrintPrintsAndReleasesTheReport) {
    for (const char* name : {"first.pdf", "second.pdf"}) {
        const QString target = folder.filePath(QLatin1String(name));
        report::setPrintTarget(target);
        PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a", "b"});
        ShowReport(false, QStringLiteral("One"), true);
        EXPECT_FALSE(gReport);
        EXPECT_TRUE(QFile::exists(target));
    }
}

TEST_F(Launch, ViewerShowsTheReportAndReleasesItWhenItIsLeft) {
    PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a", "b"});
    tests::whileModal([] { ShowReport(true, QStringLiteral("Room Report"), false); },
                      [](controls::Screen& viewer) {
                          EXPECT_EQ(viewer.objectName(), u"frmReportViewer");
                          EXPECT_EQ(viewer.windowTitle(), u"Room Report");
                          const auto& band = tests::childOf<controls::HeaderBand>(viewer, "bandHeader");
                          EXPECT_EQ(band.title(), u"Room Report");
                          EXPECT_EQ(band.subtitle(), u"Esc leaves");
                          EXPECT_FALSE(tests::childOf(viewer, "lblNotice").isVisible());
                          EXPECT_TRUE(gReport);
                          viewer.close();
                          EXPECT_FALSE(gReport);
                      });
    EXPECT_FALSE(gReport);
}

TEST_F(Launch, ViewerStartsUnderItsOwnCaptionAtPageWidthAndFillsTheScreen) {
    EXPECT_EQ(frmReportViewer().windowTitle(), u"VIEW REPORT");
    PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a", "b"});
    tests::whileModal([] { ShowReport(false, QStringLiteral("One"), false); },
                      [](controls::Screen& screen) {
                          auto& viewer = tests::childOf<report::Viewer>(screen, "CRViewer1");
                          EXPECT_TRUE(viewer.command(QStringLiteral("fitWidth"))->isChecked());
                          EXPECT_FALSE(viewer.isGroupTreeShown());
                          EXPECT_EQ(viewer.geometry(), screen.rect());
                          screen.resize(screen.width() - 200, screen.height() - 100);
                          QCoreApplication::processEvents();
                          EXPECT_EQ(viewer.geometry(), screen.rect());
                          screen.close();
                      });
}

TEST_F(Launch, AViewerThatIsToPrintAsksForThePrinterAsItLoads) {
    for (const bool prints : {true, false}) {
        PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a", "b"});
        frmReportViewer viewer;
        viewer.DirectPrint = prints;
        int asked = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&asked] {
            if (auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget())) {
                ++asked;
                dialog->reject();
            }
        });
        timer.start(0);
        viewer.Show();
        const auto& pages = tests::childOf<report::Viewer>(viewer, "CRViewer1");
        EXPECT_TRUE(QTest::qWaitFor([&] { return pages.document() && pages.document()->isComplete(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(asked, prints ? 1 : 0);
        viewer.Unload();
    }
}

TEST_F(Launch, ValuesThatAreMissingAreAskedForAndNothingIsShownOrPrintedWithoutThem) {
    const QString target = folder.filePath(QStringLiteral("missing.pdf"));
    report::setPrintTarget(target);
    for (const bool directPrint : {false, true}) {
        PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a"});
        int asked = 0;
        QTimer::singleShot(0, [&asked] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            ++asked;
            EXPECT_EQ(dialog->findChildren<QLineEdit*>().size(), 1) << "the first one has its value";
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        ShowReport(false, QStringLiteral("One"), directPrint);
        EXPECT_EQ(asked, 1);
        EXPECT_FALSE(gReport);
    }
    EXPECT_FALSE(QFile::exists(target));
    EXPECT_TRUE(controls::Screen::openScreens().empty());
}

class NoPrinter : public report::PrintTarget {
  public:
    bool isReady() const override { return false; }
    void print(const report::PageDocument&) override { ADD_FAILURE() << "printed without a printer"; }
};

TEST_F(Launch, MachineWithoutAPrinterGetsTheViewer) {
    report::setPrintTarget(std::make_unique<NoPrinter>());
    PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a", "b"});
    tests::whileModal([] { ShowReport(false, QStringLiteral("One"), true); },
                      [](controls::Screen& viewer) {
                          EXPECT_EQ(viewer.objectName(), u"frmReportViewer");
                          const auto& notice = tests::childOf<QLabel>(viewer, "lblNotice");
                          EXPECT_TRUE(notice.isVisible());
                          EXPECT_EQ(notice.text(),
                                    u"No printer is set up on this computer: the page is shown, "
                                    "not printed.");
                          viewer.Unload();
                      });
    EXPECT_FALSE(gReport);
}

class Jammed : public report::PrintTarget {
  public:
    bool isReady() const override { return true; }
    void print(const report::PageDocument&) override {
        throw base::RunTimeError(75, QStringLiteral("The printer is out of paper."));
    }
};

TEST_F(Launch, WhatThePrinterDoesNotTakeIsShown) {
    report::setPrintTarget(std::make_unique<Jammed>());
    PrepareReport(reportPath(QStringLiteral("One.RPT")), QStringLiteral("NUCLEAR"), {"a", "b"});
    tests::whileModal([] { ShowReport(false, QStringLiteral("One"), true); },
                      [](controls::Screen& viewer) {
                          EXPECT_EQ(tests::childOf<QLabel>(viewer, "lblNotice").text(),
                                    u"The printer is out of paper: the page is shown, not printed.");
                          viewer.Unload();
                      });
    EXPECT_FALSE(gReport);
}

} // namespace
