// Saves the same request again and again, and says what the box told of each.

#include "orders/frmRequest.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/workstation/Workstation.h"

#include <QPushButton>

namespace {

void saveRequest(tests::Workstation& workstation) {
    auto& screen = controls::SharedScreen<orders::frmRequest>::fresh();
    screen.entry.PatIdNum = QStringLiteral("26004078");
    screen.entry.PatientType = QStringLiteral("I");
    screen.Show();
    auto* grid = screen.findChild<controls::FlexGrid*>(QStringLiteral("grdPackage"));
    const char* lines[2][7] = {{"NU", "1001", "BONE SCAN", "ROUTINE", "100.00", "1", "100.00"},
                               {"UR", "40001", "SYRINGE", "", "12.00", "2", "24.00"}};
    grid->setRows(3);
    for (int row = 1; row <= 2; ++row) {
        for (int column = 1; column <= 7; ++column)
            grid->setTextMatrix(row, column, QString::fromLatin1(lines[row - 1][column - 1]));
    }
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
