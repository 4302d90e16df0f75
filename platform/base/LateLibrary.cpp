#include "platform/base/LateLibrary.h"

#include "platform/base/Error.h"

namespace base {

LateLibrary::LateLibrary(int error, QString need, const QString& name, int version)
    : m_error(error), m_need(std::move(need)), m_library(name, version) {
    if (!m_library.load())
        throw RunTimeError(m_error,
                           QStringLiteral("%1 need lib%2, which is not installed.").arg(m_need, name));
}

QFunctionPointer LateLibrary::address(const char* name) {
    const QFunctionPointer found = m_library.resolve(name);
    if (!found)
        throw RunTimeError(m_error, QStringLiteral("%1 need a newer %2 (%3 is missing).")
                                        .arg(m_need, m_library.fileName(), QLatin1StringView(name)));
    return found;
}

} // namespace base
