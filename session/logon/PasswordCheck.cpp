#include "session/logon/PasswordCheck.h"

#include "platform/base/DateTime.h"
#include "session/TestDoors.h"

#include <QHash>

#include <sodium.h>

#include <algorithm>
#include <array>

namespace session {
namespace {

struct Tries {
    int wrong = 0;
    base::DateTime freeAt;
};

QHash<QString, Tries>& triesByCode() {
    static QHash<QString, Tries> tries;
    return tries;
}

QString keyOf(const QString& employeeCode) {
    return employeeCode.trimmed().toUpper();
}

/// A hash that no password opens, made once; it costs the same to try as a real one.
const QByteArray& nobodysHash() {
    static const QByteArray hash = [] {
        std::array<char, crypto_pwhash_STRBYTES> text{};
        std::array<char, 32> secret{};
        randombytes_buf(secret.data(), secret.size());
        if (crypto_pwhash_str(text.data(), secret.data(), secret.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                              crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
            return QByteArray();
        return QByteArray(text.data());
    }();
    return hash;
}

} // namespace

int PasswordTries::waitAfter(int wrongTries) {
    if (wrongTries < freeTries)
        return 0;
    constexpr int mostDoublings = 7;
    return std::min(firstWaitSeconds << std::min(wrongTries - freeTries, mostDoublings), longestWaitSeconds);
}

int PasswordTries::secondsToWait(const QString& employeeCode) {
    const auto found = triesByCode().constFind(keyOf(employeeCode));
    if (found == triesByCode().constEnd())
        return 0;
    // A clock that was set back must not lock anybody out for longer than the wait itself.
    const qint64 left = std::min<qint64>(found->freeAt.ms - base::now().ms, longestWaitSeconds * 1000LL);
    return left > 0 ? int((left + 999) / 1000) : 0;
}

int PasswordTries::wrong(const QString& employeeCode, int knownTries) {
    Tries& tries = triesByCode()[keyOf(employeeCode)];
    tries.wrong = std::max(tries.wrong, knownTries) + 1;
    tries.freeAt = {base::now().ms + waitAfter(tries.wrong) * 1000LL};
    return tries.wrong;
}

void PasswordTries::mustWait(const QString& employeeCode, int wrongTries, int seconds) {
    triesByCode()[keyOf(employeeCode)] = {wrongTries, {base::now().ms + seconds * 1000LL}};
}

void PasswordTries::right(const QString& employeeCode) {
    triesByCode().remove(keyOf(employeeCode));
}

void forgetPasswordTries() {
    triesByCode().clear();
}

bool passwordMatches(const QString& hash, const QString& password) {
    if (sodium_init() < 0)
        return false;
    QByteArray text = hash.trimmed().toUtf8();
    const bool known = !text.isEmpty();
    if (!known)
        text = nobodysHash();
    text.append(qMax<qsizetype>(0, crypto_pwhash_STRBYTES - text.size()), '\0');
    QByteArray secret = password.toUtf8();
    const bool good = crypto_pwhash_str_verify(text.constData(), secret.constData(),
                                               static_cast<unsigned long long>(secret.size())) == 0;
    sodium_memzero(secret.data(), static_cast<std::size_t>(secret.size()));
    return known && good;
}

QString newSessionPassword() {
    if (sodium_init() < 0)
        return {};
    QByteArray bytes(16, Qt::Uninitialized);
    randombytes_buf(bytes.data(), static_cast<std::size_t>(bytes.size()));
    return QString::fromLatin1(bytes.toHex());
}

} // namespace session
