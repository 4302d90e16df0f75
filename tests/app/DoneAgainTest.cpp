// What was done since the log-on, looked at once more from the menu: the screens come up with it found.
#include "app/AppScreens.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/screen/TestDoors.h"
#include "revocation/frmAssessmentStatus.h"
#include "revocation/frmRePrint.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QCoreApplication>
#include <QLineEdit>

namespace {

using tests::child;

class DoneAgain : public tests::LoggedOn {
  protected:
    ~DoneAgain() override {
        controls::release<revocation::frmRePrint>();
        controls::release<revocation::frmAssessmentStatus>();
    }
    app::AppScreens screens;
    tests::MessageScript boxes;
};

TEST_F(DoneAgain, ASlipIsTheCurrentRowOfItsPatient) {
    const QString from =
        " FROM STATION..tbNurseLogBook L INNER JOIN PATIENT_DATA..tbPatient P ON P.IdNum = L.IdNum "
        "WHERE L.ReferenceNum LIKE 'C%J' AND P.DcrDate IS NULL AND L.RecordStatus <> 'R' AND "
        "L.ItemID <> '' ORDER BY L.LogBookID";
    const QString slip = value("SELECT TOP 1 L.ReferenceNum" + from);
    const QString stay = value("SELECT TOP 1 L.IdNum" + from);
    ASSERT_FALSE(slip.isEmpty());
    tests::runModal([&] { screens.openRePrint({.number = slip, .IdNum = stay, .PatientType = "I"}); },
                    {[&](QWidget& window) {
                        QCoreApplication::processEvents();
                        auto& grid = child<controls::FlexGrid>(window, "grdTable");
                        EXPECT_EQ(child<QLineEdit>(window, "txtIdNum").text(), stay);
                        EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), slip);
                        EXPECT_EQ(window.focusWidget(), &grid);
                        window.close();
                    }});
}

TEST_F(DoneAgain, AnAssessmentIsFoundByItsPatientsName) {
    const QString from =
        " FROM BILLING..tbCashAssessment WHERE RevenueID = 'NU' AND ORNumber IS NULL ORDER BY AssessID";
    const QString reference = value("SELECT TOP 1 RefNum" + from);
    const QString patient = value("SELECT TOP 1 PatientName" + from);
    ASSERT_FALSE(reference.isEmpty());
    tests::runModal([&] { screens.openAssessmentStatus({.number = reference, .patient = patient}); },
                    {[&](QWidget& window) {
                        auto& list = child<controls::ListView>(window, "lvwListAssessment");
                        ASSERT_NE(list.SelectedItem(), nullptr);
                        EXPECT_EQ(list.SelectedItem()->SubItem(4), reference);
                        EXPECT_EQ(window.focusWidget(), &list);
                        window.close();
                    }});
}

TEST_F(DoneAgain, WithoutOneTheScreensOpenAsTheyAlwaysDid) {
    tests::runModal([&] { screens.open(session::MenuScreen::RePrint); }, {[&](QWidget& window) {
                        QCoreApplication::processEvents();
                        EXPECT_EQ(child<QLineEdit>(window, "txtIdNum").text(), "");
                        EXPECT_EQ(window.focusWidget()->objectName(), "txtIdNum");
                        window.close();
                    }});
}

} // namespace
