// A package from the request screen that opens it to what the save leaves on file.
#include "app/AppScreens.h"
#include "charges/frmReceivableEntry.h"
#include "orders/frmOutRequest.h"
#include "orders/frmRequest.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

using controls::FlexGrid;
using tests::child;
using tests::keysToFocus;

class PackageRoad : public tests::LoggedOn {
  public:
    PackageRoad() { session::setScreens(&program); }
    ~PackageRoad() override {
        session::gInventoryEntry = false;
        controls::release<orders::frmRequest>();
        controls::release<orders::frmOutRequest>();
        controls::release<charges::frmReceivableEntry>();
        session::setScreens(&screens);
    }

    app::AppScreens program;
    tests::MessageScript boxes;
    tests::ErrorRecorder errors;
};

TEST_F(PackageRoad, UnusedItemsAreChargedAndRecorded) {
    const QString slip = "C" + value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip") + "J";
    boxes.expect({"Data Successfully Saved! ChargeSlip No.: '" + slip + "'", controls::vbOKOnly, "Message"});
    tests::runModal([&] { program.openRequest({.PatIdNum = "26004078", .PatientType = "I"}); },
                    {[](QWidget&) {}, // its first cell opens
                     [&](QWidget& request) {
                         EXPECT_FALSE(child<QPushButton>(request, "cmdSave").isEnabled());
                         tests::click(child<QPushButton>(request, "cmdPackage"));
                         EXPECT_TRUE(child<QPushButton>(request, "cmdSave").isEnabled());
                         EXPECT_EQ(child<FlexGrid>(request, "grdPackage").Rows(), 4);
                         EXPECT_EQ(child<QLineEdit>(request, "txtGross").text(), "14257.00");
                         takeTexts();
                         tests::click(child<QPushButton>(request, "cmdSave"));
                     },
                     [](QWidget& package) {
                         EXPECT_EQ(package.objectName(), "frmNuclearPackage");
                         keysToFocus(package, "<Down><Enter><Down><Space><Enter>");
                     }});
    const QStringList sent = takeTexts();
    EXPECT_EQ(sent.filter("sp_Save_PackageItems_Unused"),
              QStringList{"STATION..sp_Save_PackageItems_Unused '26004078','P12','30013','MN','2','96','179',"
                          "'1001','" +
                          slip + "'"});
    EXPECT_EQ(sent.filter("sp_AppendStockCard").size(), 2);
    EXPECT_EQ(count("STATION..tbPackageItemsUnused", "ReferenceNum = '" + slip + "'"), 1);
    EXPECT_EQ(
        value("SELECT LocationID FROM STATION..tbPackageItemsUnused WHERE ReferenceNum = '" + slip + "'"),
        "179");
    EXPECT_EQ(count("STATION..tbNurseLogBook", "ReferenceNum = '" + slip + "'"), 3)
        << "it is charged as well";
}

TEST_F(PackageRoad, TheSectionsOwnPackagesOpenBesides) {
    tests::runModal([&] { program.openRequest({.PatIdNum = "26004078", .PatientType = "I"}); },
                    {[&](QWidget& request) {
                         tests::click(child<QPushButton>(request, "cmdNucCharges"));
                         EXPECT_EQ(child<FlexGrid>(request, "grdPackage").TextMatrix(1, 15), "N01");
                         tests::click(child<QPushButton>(request, "cmdClose"));
                     },
                     [](QWidget& package) {
                         EXPECT_EQ(package.objectName(), "frmNucCharges");
                         keysToFocus(package, "<Enter><Enter>");
                     }});
}

} // namespace
