// One workstation of its own: logs on to a hospital file, saves a number of requests, says each slip number.
// It can be made to die right before a step of a save, as when the power goes.
//     saver FILE SAVES [STEP]

#include "orders/frmRequest.h"
#include "platform/controls/Application.h"
#include "platform/controls/FlexGrid.h"
#include "platform/controls/MessageBox.h"
#include "session/HospitalServer.h"
#include "session/Session.h"
#include "session/clsCurrentUser.h"

#include <QPushButton>
#include <QTextStream>

#include <cstdlib>

namespace {

constexpr int died = 77;

/// Ends the process, with nothing closed or flushed, when the step's turn comes: begin, statements, commit.
class PowerCut : public ado::Observer {
  public:
    explicit PowerCut(int step) : m_left(step) {}
    void beforeStatement(const QString&, ado::StatementKind) override { count(); }
    void transactionStep(ado::TransactionStep) override { count(); }

  private:
    void count() {
        if (--m_left == 0)
            std::_Exit(died);
    }
    int m_left;
};

void saveOne(PowerCut& cut) {
    auto& screen = controls::SharedScreen<orders::frmRequest>::fresh();
    screen.PatIdNum = QStringLiteral("26004078");
    screen.PatientType = QStringLiteral("I");
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
    session::gConnection->addObserver(&cut); // behind the screen's own reads: it is the save that is cut
    cmdSave->click();
    session::gConnection->removeObserver(&cut);
}

} // namespace

int main(int argc, char** argv) {
    controls::Application application(argc, argv);
    const QString file = QString::fromLocal8Bit(argv[1]);
    const int saves = std::atoi(argv[2]);
    QTextStream out(stdout);
    controls::ErrorBoundary::setHandler([&](const base::RunTimeError& error) {
        out << "error " << error.number() << ' ' << error.description() << '\n';
        out.flush();
        std::_Exit(1);
    });
    controls::setMessageScript([&](const QString& prompt, int, const QString&) {
        out << prompt.section(u'\'', 1, 1) << '\n';
        out.flush();
        return controls::vbOK;
    });
    session::setHospitalFile(file);
    auto user = std::make_unique<session::clsCurrentUser>();
    user->setPasswordDeptCode(QStringLiteral("5"));
    if (!user->logOn(file, QStringLiteral("1001"), QStringLiteral("kerova")) ||
        !session::wireSession(std::move(user)))
        return 2;
    PowerCut cut(argc > 3 ? std::atoi(argv[3]) : 0);
    for (int i = 0; i < saves; ++i)
        saveOne(cut);
    controls::SharedScreen<orders::frmRequest>::release();
    session::forgetSession();
    return 0;
}
