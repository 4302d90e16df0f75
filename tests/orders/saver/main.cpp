// Saves the same request again and again, and says what the box told of each.

#include "orders/frmRequest.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/orders/SavedLines.h"
#include "tests/support/workstation/Workstation.h"

#include <QPushButton>

namespace {

void saveRequest(tests::Workstation& workstation) {
    auto& screen = controls::SharedScreen<orders::frmRequest>::fresh();
    screen.entry.PatIdNum = QStringLiteral("26004078");
    screen.entry.PatientType = QStringLiteral("I");
    screen.Show();
    auto* grid = screen.findChild<controls::FlexGrid*>(QStringLiteral("grdPackage"));
    tests::putLines(*grid, {"UR", "40001", "SYRINGE", "", "12.00", "2", "24.00"});
    auto* cmdSave = screen.findChild<QPushButton*>(QStringLiteral("cmdSave"));
    cmdSave->setEnabled(true);
    // Behind the screen's own reads: it is the save that is cut.
    workstation.save([&] { cmdSave->click(); });
    controls::release<orders::frmRequest>();
}

} // namespace

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, saveRequest);
}
