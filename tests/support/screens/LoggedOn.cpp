#include "tests/support/screens/LoggedOn.h"

#include "session/Session.h"
#include "session/logon/OdbcServer.h"
#include "session/logon/clsCurrentUser.h"

#include <stdexcept>

namespace tests {

std::shared_ptr<session::HospitalServer> serverOf(const TestHospital& hospital) {
    return hospital.way() == Way::File ? session::fileServer(hospital.file())
                                       : session::odbcServer(hospital.dataSource());
}

LoggedOn::LoggedOn(Way way) : hospital(way) {
    session::setHospitalFile(hospital.file());
    auto user = std::make_unique<session::clsCurrentUser>();
    user->setPasswordDeptCode(QStringLiteral("5"));
    if (user->logOnTo(server(), QStringLiteral("1001"), QStringLiteral("kerova")) !=
        session::LogOnResult::Good)
        throw std::runtime_error("1001 cannot log on");
    if (!session::wireSession(std::move(user)))
        throw std::runtime_error("a service failed");
    recorder = std::make_unique<StatementRecorder>(*session::gConnection);
}

LoggedOn::~LoggedOn() {
    recorder.reset();
    session::forgetSession();
    session::setHospitalFile({});
}

QStringList LoggedOn::takeTexts() {
    QStringList texts;
    for (const QString& text : std::exchange(recorder->texts, {}))
        texts += toTestDays(text);
    return texts;
}

} // namespace tests
