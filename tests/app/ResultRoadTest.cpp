// A result without the mouse: from the main menu to the viewer, in the program as main() puts it together.
#include "app/AppScreens.h"
#include "menu/frmMainMenu.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "results/frmRequestMaster.h"
#include "results/frmResult.h"
#include "results/frmResultEntry.h"
#include "results/frmResultMaster.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QAction>
#include <QPushButton>
#include <QTest>

namespace {

using controls::SharedScreen;
using menu::frmMainMenu;
using tests::child;
using tests::keysToFocus;
using tests::Step;

class ResultRoad : public tests::LoggedOn {
  protected:
    ResultRoad() {
        session::setScreens(&appScreens);
        session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR));
        session::screens().showMainMenu();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mainMenu()));
        ado::Recordset request = session::Read(ado::sql(
            "SELECT TOP 1 N.HospNum, N.RequestNum FROM tbNucMaster N INNER JOIN BUILD_FILE..tbcoNucExam E ON "
            "E.NucExamID = N.ItemID WHERE N.RequestStatus = '' AND N.RevenueID = 'NU' AND E.FormType IS NULL "
            "AND "
            "NOT EXISTS (SELECT 1 FROM tbNucMaster L WHERE L.HospNum = N.HospNum AND L.RequestNum > "
            "N.RequestNum) "
            "ORDER BY N.RequestNum DESC"));
        hospNum = request.Fields("HospNum").text();
        requestNum = request.Fields("RequestNum").text();
    }
    ~ResultRoad() override {
        controls::release<frmMainMenu>();
        controls::release<results::frmRequestMaster>();
        controls::release<results::frmResultMaster>();
        controls::release<results::frmResult>();
        controls::release<results::frmResultEntry>();
        session::gReport.reset();
        session::setProgramFolder({});
        session::setScreens(nullptr);
    }
    static frmMainMenu& mainMenu() { return SharedScreen<frmMainMenu>::current(); }
    static void road(const std::function<void()>& open, std::vector<Step> steps) {
        tests::runModal(open, std::move(steps));
    }
    Step patient() const {
        return [this](QWidget& door) { keysToFocus(door, hospNum + QStringLiteral("<Enter><Down><Enter>")); };
    }
    QString status() const {
        return session::Read(
                   ado::sql("SELECT RequestStatus FROM tbNucMaster WHERE RequestNum = '{}'", requestNum))
            .Fields(0)
            .text();
    }

    app::AppScreens appScreens;
    tests::MessageScript boxes;
    QString hospNum, requestNum;
};

TEST_F(ResultRoad, AResultIsEnteredAndShownWithoutTheMouse) {
    boxes.expect({QStringLiteral("Data Successfully Saved!"), controls::vbInformation,
                  QStringLiteral("Notification")});
    road([] { keysToFocus(mainMenu(), QStringLiteral("R1")); },
         {[&](QWidget& door) {
              EXPECT_EQ(door.objectName(), QStringLiteral("frmRequestMaster"));
              patient()(door);
          },
          [&](QWidget& list) {
              EXPECT_EQ(child<controls::FlexGrid>(list, "grdTable").TextMatrix(1, 1), requestNum);
              keysToFocus(list, QStringLiteral("<Enter>"));
          },
          [](QWidget& entry) {
              EXPECT_EQ(entry.objectName(), QStringLiteral("frmResultEntry"));
              keysToFocus(entry, QStringLiteral("90001"));
              for (int tabs = 0; tabs < 40 && entry.focusWidget()->objectName() != u"txtRadiopharmaceutical";
                   ++tabs)
                  keysToFocus(entry, QStringLiteral("<Tab>"));
              keysToFocus(entry,
                          QStringLiteral("Tc-99m MDP<Enter><Home>20<Enter>I.V.<Enter>ANTERIOR<Enter>"));
              EXPECT_EQ(entry.focusWidget()->objectName(), QStringLiteral("txtConsultation"));
              keysToFocus(entry, QStringLiteral("The patient's bones are whole.<Enter>No lesion."));
              keysToFocus(entry, QStringLiteral("<Alt+P>"));
          },
          [](QWidget& viewer) {
              EXPECT_EQ(viewer.windowTitle(), QStringLiteral("Imaging Section Report"));
              const QString text =
                  report::textOf(*child<report::Viewer>(viewer, "CRViewer1").document()->page(0));
              for (const char* line : {"NM No.", "26-90001", "Dose\t20 mCi",
                                       "The patient`s bones are whole.\nNo lesion.", "Page 1 of 1"})
                  EXPECT_TRUE(text.contains(QLatin1String(line))) << line << "\nin\n" << qPrintable(text);
              keysToFocus(viewer, QStringLiteral("<Esc>"));
          },
          [](QWidget& door) {
              EXPECT_EQ(door.objectName(), QStringLiteral("frmRequestMaster"));
              keysToFocus(door, QStringLiteral("<Esc>"));
          }});
    EXPECT_EQ(status(), QStringLiteral("W"));
    EXPECT_TRUE(mainMenu().isVisible());
}

TEST_F(ResultRoad, TheMenuBarOpensTheDoorsInTheirModes) {
    const auto formMode = [](const char* action) {
        QString mode;
        road([&] { mainMenu().findChild<QAction*>(QLatin1String(action))->trigger(); }, {[&](QWidget& door) {
                 mode = door.objectName() + u' ' + dynamic_cast<results::ResultPicker&>(door).FormMode;
                 keysToFocus(door, QStringLiteral("<Esc>"));
             }});
        return mode;
    };
    EXPECT_EQ(formMode("mnuResultEntry"), QStringLiteral("frmRequestMaster R"));
    EXPECT_EQ(formMode("mnuResultEditing"), QStringLiteral("frmResultMaster R"));
    EXPECT_EQ(formMode("mnuResultCancellation"), QStringLiteral("frmResultMaster C"));
}

TEST_F(ResultRoad, ASavedResultIsRevokedWithoutTheMouse) {
    session::Run(ado::sql(
        "sp_Nuclear_SaveResult '{}','','{}','26-90001','I','201','205','1001','5 mCi','MDP','IV','AP',"
        "'TEXT','NORMAL','','60','165','1001','11/21/2026 8:30:00 AM',''",
        hospNum, requestNum));
    boxes.expect(
        {QStringLiteral("Result successfully revoked!"), controls::vbInformation, QStringLiteral("Message")});
    road([] { keysToFocus(mainMenu(), QStringLiteral("R3")); },
         {patient(),
          [&](QWidget& list) {
              auto& grid = child<controls::FlexGrid>(list, "grdTable");
              for (int row = 1; row < grid.Rows() && grid.TextMatrix(grid.Row(), 1) != requestNum; ++row)
                  keysToFocus(list, QStringLiteral("<Down>"));
              keysToFocus(list, QStringLiteral("<Enter>"));
          },
          [](QWidget& entry) {
              EXPECT_EQ(entry.focusWidget()->objectName(), QStringLiteral("btnClose"))
                  << "never on the revoking one";
              keysToFocus(entry, QStringLiteral("<Alt+R>"));
          },
          [](QWidget& door) { keysToFocus(door, QStringLiteral("<Esc>")); }});
    EXPECT_EQ(status(), QString());
}

} // namespace
