// Saves the same request of an out-patient again and again; the box tells no number, so nothing is said.

#include "orders/frmOutRequest.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "tests/orders/SavedLines.h"
#include "tests/support/workstation/Workstation.h"

#include <QPushButton>

namespace {

void saveRequest(tests::Workstation& workstation) {
    controls::setMessageScript([](const QString&, int, const QString&) { return controls::vbOK; });
    auto& screen = controls::SharedScreen<orders::frmOutRequest>::fresh();
    screen.take(
        {.IdNumber = session::Read(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE "
                                            "DcrDate IS NULL ORDER BY IdNum"))
                         .Fields(0)
                         .text()});
    screen.Show();
    tests::putLines(*screen.findChild<controls::FlexGrid*>(QStringLiteral("grdPackage")),
                    {"UR", "40001", "SYRINGE", "", "12.00", "2", "24.00"});
    auto* cmdSave = screen.findChild<QPushButton*>(QStringLiteral("cmdSave"));
    cmdSave->setEnabled(true);
    workstation.save([&] { cmdSave->click(); });
    controls::release<orders::frmOutRequest>();
}

} // namespace

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, saveRequest);
}
