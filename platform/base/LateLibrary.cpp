#include "platform/base/LateLibrary.h"

#include "platform/base/Error.h"

namespace base {

LateLibrary::LateLibrary(int error, QString need, const QString& name, int version)
    : m_error(error), m_need(std::move(need)), m_library(name, version) {
#ifdef _WIN32
    const QString file = name + QStringLiteral(".dll");
#else
    const QString file = QStringLiteral("lib") + name;
#endif
    if (!m_library.load())
        throw RunTimeError(m_error, QStringLiteral("%1 need %2, which is not installed.").arg(m_need, file));
}

QFunctionPointer LateLibrary::address(const char* name) {
    const QFunctionPointer found = m_library.resolve(name);
    if (!found)
        throw RunTimeError(m_error, QStringLiteral("%1 need a newer %2 (%3 is missing).")
                                        .arg(m_need, m_library.fileName(), QLatin1StringView(name)));
    return found;
}

} // namespace base
