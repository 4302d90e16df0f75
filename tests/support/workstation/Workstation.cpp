#include "tests/support/workstation/Workstation.h"

#include "platform/base/DesksLanguage.h"
#include "platform/controls/screen/Application.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"
#include "session/logon/OdbcServer.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/support/workstation/PowerCut.h"
#include "tests/support/workstation/Watchdog.h"

#include <QElapsedTimer>
#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tests {

namespace {

bool logOn(const QString& file) {
    session::setHospitalFile(file);
    const auto server = file.isEmpty() ? session::odbcServer(qEnvironmentVariable("SCINTRA_TEST_DSN"))
                                       : session::fileServer(file);
    auto user = std::make_unique<session::clsCurrentUser>();
    user->setPasswordDeptCode(QStringLiteral("5"));
    return user->logOnTo(server, QStringLiteral("1001"), QStringLiteral("kerova")) ==
               session::LogOnResult::Good &&
           session::wireSession(std::move(user));
}

} // namespace

void Workstation::say(const QString& line) {
    QTextStream out(stdout);
    out << line << '\n';
}

void Workstation::save(const std::function<void()>& body) {
    PowerCut cut(m_stepsLeft);
    session::gConnection->addObserver(&cut);
    QElapsedTimer clock;
    clock.start();
    Watchdog::beat();
    body();
    m_longest = std::max(m_longest, clock.elapsed());
    session::gConnection->removeObserver(&cut);
}

int Workstation::run(int argc, char** argv, const std::function<void(Workstation&)>& work) {
    base::ignoreDesksLanguage();
    const controls::Application application(argc, argv);
    const Watchdog watchdog(15); // a lock is waited for 30 s, of the 150 that it may wait
    Workstation workstation;
    controls::ErrorBoundary::setHandler([&](const base::RunTimeError& error) {
        workstation.say(QStringLiteral("error %1 %2").arg(error.number()).arg(error.description()));
        std::_Exit(1);
    });
    controls::setMessageScript([&](const QString& prompt, int, const QString&) {
        workstation.say(prompt);
        return controls::vbOK;
    });
    if (!logOn(QString::fromLocal8Bit(argv[1])))
        return 2;
    workstation.m_stepsLeft = argc > 3 ? std::atoi(argv[3]) : 0;
    for (int saves = std::atoi(argv[2]); saves > 0; --saves)
        work(workstation);
    std::fprintf(stderr, "longest %lld ms\n", static_cast<long long>(workstation.m_longest));
    session::forgetSession();
    return 0;
}

} // namespace tests
