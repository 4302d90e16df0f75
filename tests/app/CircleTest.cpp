// The whole circle around the section, by keys: what was assessed is paid at the cashier's, taken from the
// receipts, requested, and gets its result.
#include "app/AppScreens.h"
#include "orders/frmAssessment.h"
#include "orders/frmListCashComm.h"
#include "orders/frmOutRequest.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "results/frmRequestMaster.h"
#include "results/frmResult.h"
#include "results/frmResultEntry.h"
#include "server/demo/Neighbours.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/WorkDone.h"
#include "session/reports/ReportLaunch.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

using session::MenuScreen;
using tests::child;
using tests::keys;
using tests::keysToFocus;

class Circle : public tests::LoggedOn {
  protected:
    Circle() {
        session::setScreens(&appScreens);
        session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR));
    }
    ~Circle() override {
        controls::release<orders::frmAssessment>();
        controls::release<orders::frmListCashComm>();
        controls::release<orders::frmOutRequest>();
        controls::release<results::frmRequestMaster>();
        controls::release<results::frmResult>();
        controls::release<results::frmResultEntry>();
        session::gReport.reset();
        session::setProgramFolder({});
        session::setScreens(nullptr);
    }

    app::AppScreens appScreens;
    tests::MessageScript boxes;
};

TEST_F(Circle, FromAnAssessmentToItsResult) {
    const QString code = value(
        "SELECT TOP 1 HospNum FROM PATIENT_DATA..tbCashPatient WHERE BirthDate IS NOT NULL ORDER BY HospNum");
    const QString lastName =
        value("SELECT LastName FROM PATIENT_DATA..tbCashPatient WHERE HospNum = '" + code + "'");
    hospital.run("UPDATE BILLING..tbCashAssessment SET RecordStatus = 'R' WHERE RecordStatus = ''");
    const auto choose = [&code](QWidget& picker) {
        auto& grid = child<controls::FlexGrid>(picker, "grdTable");
        for (int at = 1; at < grid.Rows() && grid.TextMatrix(grid.Row(), 1) != code; ++at)
            keys(grid, "<Down>");
        keys(grid, "<Enter>");
    };
    boxes.expect({"Data Successfully Saved.", controls::vbInformation, "Message"});
    tests::runModal([&] { appScreens.open(MenuScreen::Assessment); },
                    {[&](QWidget& assessment) {
                         keys(child<QLineEdit>(assessment, "txtSname"), lastName + "<Enter>");
                         keys(child<QLineEdit>(assessment, "txtDoctorID"), "204<Enter>");
                         keys(child<controls::FlexGrid>(assessment, "grdTable"),
                              "NU<Enter>1001<Enter>R<Enter>1<Enter>");
                         child<QPushButton>(assessment, "btnSave").setFocus();
                         keysToFocus(assessment, "<Enter>");
                     },
                     choose, [&](QWidget& next) { child<QPushButton>(next, "btnClose").click(); }});
    const QString reference = value("SELECT RefNum FROM BILLING..tbCashAssessment WHERE HospNum = '" + code +
                                    "' AND RecordStatus = '' AND Amount = 5200");
    ASSERT_TRUE(reference.startsWith(u"NU")) << reference.toStdString();
    const auto cashier = hospital.open(QStringLiteral("cashier"));
    const QString told = demo::Neighbours(*cashier, 1).act(demo::Deed::Payment);
    const QString paid = " FROM BILLING..tbCashAssessment WHERE HospNum = '" + code +
                         "' AND RecordStatus = '1' AND Amount = 5200";
    const QString receipt = value("SELECT ORNumber" + paid);
    ASSERT_FALSE(receipt.isEmpty()) << told.toStdString();
    EXPECT_EQ(value("SELECT RecordStatus" + paid), "1");
    EXPECT_EQ(count("BILLING..tbCashReceipt", "ORNumber = '" + receipt + "' AND Amount = 5200"), 1);

    boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
    tests::runModal([&] { appScreens.open(MenuScreen::ListCashComm); },
                    {[&](QWidget& list) {
                         keysToFocus(list, receipt + "<Enter><Down><Enter>");
                         keysToFocus(list, "<Esc>");
                     },
                     choose,
                     [&](QWidget& request) {
                         keys(child<controls::FlexGrid>(request, "grdPackage"),
                              "NU<Enter>1001<Enter>R<Enter>1<Enter>");
                         keysToFocus(request, "<Alt+S>");
                     }});
    const QString filed = "RefNum = '" + receipt + "' AND ItemID = '1001'";
    ASSERT_EQ(count("NUCLEAR..tbNucMaster", filed + " AND HospNum = '" + code + "' AND RequestStatus = ''"),
              1);
    const QString number = value("SELECT RequestNum FROM NUCLEAR..tbNucMaster WHERE " + filed);
    EXPECT_EQ(count("STATION..tbNurseLogBook", "RequestNum = '" + number + "' AND HospNum = '" + code + "'"),
              1);
    EXPECT_EQ(count("BILLING..tbDailyBill", "HospNum = '" + code + "'"), 0) << "it was paid in cash";

    boxes.expect({"Data Successfully Saved!", controls::vbInformation, "Notification"});
    const auto leave = [](QWidget& window) {
        if (auto& screen = dynamic_cast<controls::Screen&>(window); !screen.isUnloaded())
            screen.Unload();
    };
    tests::runModal(
        [&] { appScreens.open(MenuScreen::RequestMaster, QStringLiteral("R")); },
        {[&](QWidget& door) {
             keysToFocus(door, code + "<Enter><Down><Enter>");
             leave(door);
         },
         [&](QWidget& list) {
             auto& grid = child<controls::FlexGrid>(list, "grdTable");
             for (int row = 1; row < grid.Rows() && grid.TextMatrix(grid.Row(), 1) != number; ++row)
                 keysToFocus(list, "<Down>");
             keysToFocus(list, "<Enter>");
             leave(list);
         },
         [&](QWidget& entry) {
             keysToFocus(entry, "90077");
             for (int tabs = 0; tabs < 40 && entry.focusWidget()->objectName() != u"txtRadiopharmaceutical";
                  ++tabs)
                 keysToFocus(entry, "<Tab>");
             keysToFocus(entry, "Tc-99m MDP<Enter><Home>20<Enter>I.V.<Enter>ANTERIOR<Enter>");
             keysToFocus(entry, "Bones are whole.<Enter>No lesion.<Alt+S>");
             leave(entry);
         }});
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", filed + " AND RequestStatus = 'W'"), 1);
    EXPECT_EQ(count("NUCLEAR..tbNucResult", "RequestNum = '" + number + "' AND HospNum = '" + code + "'"), 1);
    EXPECT_EQ(count("NUCLEAR..tbNucLogBook", "RequestNum = '" + number + "' AND CaseNumber = '26-90077'"), 1);

    using session::Work;
    const std::deque<session::WorkDone>& done = session::workDone();
    ASSERT_EQ(done.size(), 3U);
    EXPECT_EQ(std::pair(done[0].work, done[0].number), std::pair(Work::Result, number));
    EXPECT_FALSE(done[0].report.isEmpty());
    EXPECT_EQ(std::pair(done[1].work, done[1].number), std::pair(Work::PaidRequest, receipt));
    EXPECT_EQ(std::pair(done[2].work, done[2].number), std::pair(Work::Assessment, reference));
    for (const session::WorkDone& each : done)
        EXPECT_TRUE(each.patient.startsWith(lastName)) << each.patient.toStdString();
}

} // namespace
