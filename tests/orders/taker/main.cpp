// Takes the oldest request of the wards' in-tray again and again, and says which slip it became. A request
// that another desk took meanwhile ends it.

#include "orders/frmRequest.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "tests/support/workstation/Workstation.h"

#include <QCoreApplication>
#include <QPushButton>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int takenMeanwhile = 50004;

void takeOldest(tests::Workstation& workstation) {
    controls::ErrorBoundary::setHandler([&](const base::RunTimeError& error) {
        const bool isExpected = error.number() == takenMeanwhile;
        workstation.say(
            QStringLiteral("%1 at desk %2").arg(error.description()).arg(QCoreApplication::applicationPid()));
        std::fflush(stdout);
        std::_Exit(isExpected ? 0 : 1);
    });
    ado::Recordset tray = session::Read(ado::sql("sp_Nuclear_NurseCommunication"));
    while (!tray.Eof() && tray.Fields("PatientType").text() != u"I")
        tray.MoveNext();
    if (tray.Eof())
        return;
    auto& screen = controls::SharedScreen<orders::frmRequest>::fresh();
    screen.entry = {.PatIdNum = tray.Fields("Adm.No.").text(),
                    .PatientType = QStringLiteral("I"),
                    .NurseCommnunication = true,
                    .Classification = tray.Fields("Classification").text()};
    screen.Show();
    auto* cmdSave = screen.findChild<QPushButton*>(QStringLiteral("cmdSave"));
    if (cmdSave->isEnabled()) // else another desk was faster, and there is no line
        workstation.save([&] { cmdSave->click(); });
    controls::release<orders::frmRequest>();
}

} // namespace

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, takeOldest);
}
