#include "server/hospital/Passwords.h"

#include "platform/base/Error.h"

#include <sodium.h>

namespace hospital {

QString passwordHash(const QString& password) {
    static const bool ready = sodium_init() >= 0;
    const QByteArray bytes = password.toUtf8();
    char text[crypto_pwhash_STRBYTES];
    if (!ready ||
        crypto_pwhash_str(text, bytes.constData(), std::size_t(bytes.size()),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw base::RunTimeError(7, QStringLiteral("Out of memory"));
    return QString::fromLatin1(text);
}

} // namespace hospital
