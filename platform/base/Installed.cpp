#include "platform/base/Installed.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace base {

namespace {

QString besideOrIn(const char* installed, const QString& name) {
    const QString own = QCoreApplication::applicationDirPath();
    const QString beside = own + u'/' + name;
    if (QFileInfo::exists(beside))
        return beside;
    const QString there = QDir::cleanPath(own + u'/' + QLatin1String(installed) + u'/' + name);
    return QFileInfo::exists(there) ? there : beside;
}

} // namespace

QString sharedFile(const QString& name) {
    return besideOrIn(SCINTRA_SHARE_FROM_PROGRAM, name);
}

QString helperProgram(const QString& name) {
#ifdef _WIN32
    return besideOrIn(SCINTRA_HELPERS_FROM_PROGRAM, name + QStringLiteral(".exe"));
#else
    return besideOrIn(SCINTRA_HELPERS_FROM_PROGRAM, name);
#endif
}

QString ownModule(const QString& name) {
#ifdef _WIN32
    return besideOrIn(SCINTRA_HELPERS_FROM_PROGRAM, name + QStringLiteral(".dll"));
#else
    return besideOrIn(SCINTRA_HELPERS_FROM_PROGRAM, QStringLiteral("lib%1.so").arg(name));
#endif
}

} // namespace base
