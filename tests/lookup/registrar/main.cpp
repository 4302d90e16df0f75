// Registers the same walk-in patient again and again, and says each number.

#include "lookup/frmAddWalkIn.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/workstation/Workstation.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

void registerPatient(tests::Workstation& workstation) {
    auto& screen = controls::SharedScreen<lookup::frmAddWalkIn>::fresh();
    screen.Show();
    const auto fill = [&](const char* field, const char* text) {
        screen.findChild<QLineEdit*>(QString::fromLatin1(field))->setText(QString::fromLatin1(text));
    };
    fill("txtLastName", "LUNA");
    fill("txtFirstName", "ANA");
    fill("txtMiddleName", "REYES");
    fill("txtAge", "31");
    auto* btnSave = screen.findChild<QPushButton*>(QStringLiteral("btnSave"));
    workstation.save([&] { btnSave->click(); });
    workstation.say(screen.IdNum);
    controls::release<lookup::frmAddWalkIn>();
}

} // namespace

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, registerPatient);
}
