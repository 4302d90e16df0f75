// Asks central supply for the same two supplies again and again.

#include "charges/frmCSEntry.h"
#include "tests/charges/asker/Asking.h"

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, [](tests::Workstation& workstation) {
        tests::askForTwo<charges::frmCSEntry>(workstation, "40001", "40002");
    });
}
