// Asks the pharmacy for the same two medicines again and again.

#include "charges/frmPHEntry.h"
#include "tests/charges/asker/Asking.h"

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, [](tests::Workstation& workstation) {
        tests::askForTwo<charges::frmPHEntry>(workstation, "30001", "30002");
    });
}
