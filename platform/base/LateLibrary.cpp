#include "platform/base/LateLibrary.h"

#include "platform/base/Error.h"

#include <QFileInfo>

namespace base {

namespace {

QString fileOf(const QString& name) {
    if (name.contains(u'/'))
        return QFileInfo(name).fileName();
#ifdef _WIN32
    return name + QStringLiteral(".dll");
#else
    return QStringLiteral("lib") + name;
#endif
}

} // namespace

LateLibrary::LateLibrary(int error, QString need, const QString& name, int version)
    : m_error(error), m_need(std::move(need)), m_library(name, version) {
    if (!m_library.load())
        throw RunTimeError(m_error,
                           QStringLiteral("%1 need %2, which is not installed.").arg(m_need, fileOf(name)));
}

QFunctionPointer LateLibrary::address(const char* name) {
    const QFunctionPointer found = m_library.resolve(name);
    if (!found)
        throw RunTimeError(m_error, QStringLiteral("%1 need a newer %2 (%3 is missing).")
                                        .arg(m_need, m_library.fileName(), QLatin1StringView(name)));
    return found;
}

} // namespace base
