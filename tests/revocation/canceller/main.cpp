// Cancels request 90001, 90002 and so on, one for each save that is asked for. With CANCELLER_WAITS set it
// says "ready" with the line open, and presses behind a line of its input, so that several desks have it open
// at once.

#include "platform/controls/screen/TestDoors.h"
#include "revocation/frmCancelRequest.h"
#include "revocation/frmCancellation.h"
#include "tests/support/workstation/Workstation.h"

#include <QPushButton>

#include <iostream>
#include <string>

namespace {

void cancelRequest(tests::Workstation& workstation) {
    static int number = 90000;
    revocation::frmCancelRequest search;
    revocation::frmCancellation cancellation;
    search.handOver(cancellation, QString::number(++number));
    cancellation.Show();
    if (qEnvironmentVariableIsSet("CANCELLER_WAITS")) {
        std::cout << "ready" << std::endl;
        std::string go;
        std::getline(std::cin, go);
    }
    auto* cmdSave = cancellation.findChild<QPushButton*>(QStringLiteral("cmdSave"));
    workstation.save([&] { cmdSave->click(); });
}

} // namespace

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, cancelRequest);
}
