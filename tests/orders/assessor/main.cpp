// Saves the same assessment again and again, and says the number of each.

#include "orders/frmAssessment.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/orders/SavedLines.h"
#include "tests/support/workstation/Workstation.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

void saveAssessment(tests::Workstation& workstation) {
    QString told;
    controls::setMessageScript([&](const QString& prompt, int, const QString&) {
        told = prompt;
        return controls::vbOK;
    });
    auto& screen = controls::SharedScreen<orders::frmAssessment>::fresh();
    screen.Show();
    screen.findChild<QLineEdit*>(QStringLiteral("txtHospNum"))->setText(QStringLiteral("104078"));
    screen.findChild<QLineEdit*>(QStringLiteral("txtSname"))->setText(QStringLiteral("AGUILAR"));
    tests::putLines(*screen.findChild<controls::FlexGrid*>(QStringLiteral("grdTable")),
                    {"MD", "201", "(PF) DR. SANTOS", "", "", "1", "1500.00"});
    auto* btnSave = screen.findChild<QPushButton*>(QStringLiteral("btnSave"));
    btnSave->setEnabled(true);
    workstation.save([&] { btnSave->click(); });
    workstation.say(screen.isNextWanted() ? screen.AssessmentRef() : told);
    controls::release<orders::frmAssessment>();
}

} // namespace

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, saveAssessment);
}
