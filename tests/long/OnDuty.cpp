#include "tests/long/OnDuty.h"

#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/TestDoors.h"
#include "server/engine/EmbeddedProvider.h"
#include "session/Session.h"
#include "session/TestDoors.h"

#include "tests/support/hospital/DemoFile.h"
#include "tests/support/workstation/Watchdog.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdlib>

namespace attacks {

namespace {

void say(const QString& line) {
    QTextStream out(stdout);
    out << line << '\n';
    out.flush();
    std::fflush(stdout);
}

QString windowInFront() {
    const QWidget* modal = QApplication::activeModalWidget();
    const QWidget* window = modal ? modal : QApplication::activeWindow();
    return window ? window->objectName() : QString();
}

/// Nothing that a screen began stands open when the screen is gone.
void expectNothingLeft() {
    if (controls::ErrorBoundary::isStopping())
        return;
    if (const QWidget* modal = QApplication::activeModalWidget())
        fault(QStringLiteral("left open: ") + modal->objectName());
    if (QApplication::overrideCursor())
        fault(QStringLiteral("the hourglass was left"));
    if (session::gConnection && session::gConnection->inTransaction())
        fault(QStringLiteral("a transaction was left open"));
}

} // namespace

void fault(const QString& line) {
    say(QStringLiteral("fault ") + line);
    std::_Exit(1);
}

int onScreens(const std::function<void(OnDuty&)>& body) {
    const QTemporaryDir folder; // whatever is saved under a typed name
    QDir::setCurrent(folder.path());
    const tests::Watchdog watchdog(15);
    controls::ErrorBoundary::setHandler([](const base::RunTimeError& error) {
        say(QStringLiteral("error %1 %2, %3 [%4]")
                .arg(error.number())
                .arg(error.description(), windowInFront(), error.statement())
                .replace(u'\n', u' '));
    });
    session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR));
    OnDuty duty;
    try {
        body(duty);
        expectNothingLeft();
    } catch (const controls::ProgramStopped&) {
        // told by the boundary
    } catch (const base::RunTimeError& error) {
        fault(QStringLiteral("past the boundary: %1 %2 [%3]")
                  .arg(error.number())
                  .arg(error.description(), error.statement()));
    } catch (const std::exception& error) {
        fault(QStringLiteral("past the boundary: ") + QString::fromUtf8(error.what()));
    }
    if (testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed())
        fault(QStringLiteral("what a test's support found, above"));
    const QStringList broken = duty.hospital.way() == tests::Way::File
                                   ? engine::EmbeddedProvider::open(duty.hospital.file(), {})->check()
                                   : QStringList();
    if (!broken.isEmpty())
        fault(broken.join(u' '));
    std::fflush(stdout);
    // The program was perhaps stopped in the middle; there is nothing to take down in order.
    QDir::setCurrent(QDir::tempPath());
    QDir(folder.path()).removeRecursively();
    tests::forgetHospital(duty.hospital.file());
    std::_Exit(0);
}

} // namespace attacks
