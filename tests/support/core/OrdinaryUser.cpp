#include "tests/support/core/OrdinaryUser.h"

#include "platform/base/Error.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <stdexcept>
#else
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tests {

#ifdef _WIN32
// Who asks for another user is left out there (packaging/windows/left-out).
QString asOrdinaryUser(const std::function<QString()>&) {
    throw std::runtime_error("no other user here");
}
void giveToOrdinaryUser(const QString&) {}
#else
namespace {

constexpr uid_t nobody = 65534;

QString told(const std::function<QString()>& body) {
    try {
        return body();
    } catch (const base::RunTimeError& error) {
        return QStringLiteral("%1: %2").arg(error.number()).arg(error.description());
    }
}

} // namespace

QString asOrdinaryUser(const std::function<QString()>& body) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const bool bound = geteuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0);
        const QByteArray text = (bound ? told(body) : QStringLiteral("still root")).toUtf8();
        _exit(write(ends[1], text.constData(), std::size_t(text.size())) == text.size() ? 0 : 1);
    }
    close(ends[1]);
    QByteArray text;
    char piece[4096];
    for (ssize_t got = 0; (got = read(ends[0], piece, sizeof piece)) > 0;)
        text.append(piece, got);
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << text.toStdString();
    return QString::fromUtf8(text);
}

void giveToOrdinaryUser(const QString& path) {
    if (geteuid() == 0) {
        EXPECT_EQ(chown(path.toUtf8().constData(), nobody, nobody), 0) << path.toStdString();
    }
}
#endif

} // namespace tests
