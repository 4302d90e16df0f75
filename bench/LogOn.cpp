#include "bench/LogOn.h"

#include "platform/base/Error.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"
#include "session/logon/clsCurrentUser.h"

namespace bench {

void logOnTo(const QString& file) {
    session::setHospitalFile(file);
    auto user = std::make_unique<session::clsCurrentUser>();
    user->setPasswordDeptCode(QString::fromLatin1(session::departmentNumber));
    if (user->logOnTo(session::fileServer(file), QStringLiteral("1001"), QStringLiteral("kerova")) !=
            session::LogOnResult::Good ||
        !session::wireSession(std::move(user)))
        throw base::RunTimeError(18456, QStringLiteral("Log-on failed for user 1001."));
}

} // namespace bench
