#include "session/logon/PasswordCheck.h"

#include "platform/base/DateTime.h"
#include "session/TestDoors.h"

#include <QHash>

#include <sodium.h>

#include <algorithm>
#include <utility>

namespace session {
namespace {

struct Tries {
    int wrong = 0;
    base::DateTime freeAt;
    int wait = 0;           ///< its whole length, seconds
    QByteArray lastGuess{}; ///< the wrong password itself is kept nowhere
};

QHash<QString, Tries>& triesByCode() {
    static QHash<QString, Tries> tries;
    return tries;
}

QString keyOf(const QString& employeeCode) {
    return employeeCode.trimmed().toUpper();
}

/// A hash that no password opens: that of bytes nobody kept. It costs the same to try as a real one, from the
/// first time on.
constexpr char nobodysHash[] = "$argon2id$v=19$m=65536,t=2,p=1$X+tpa4wDTnAkzgKLtiWzhA$E98JVr"
                               "efwaScB9R5LG8Ub/AHWYpbfYI4w8aMLKJGsKQ";

/// A guess so that it can be known again, by a key of this run of the program alone.
QByteArray guessMark(const QString& password) {
    static const QByteArray key = [] {
        QByteArray bytes(crypto_generichash_KEYBYTES, Qt::Uninitialized);
        randombytes_buf(bytes.data(), std::size_t(bytes.size()));
        return bytes;
    }();
    QByteArray secret = password.toUtf8();
    QByteArray mark(crypto_generichash_BYTES, Qt::Uninitialized);
    crypto_generichash(reinterpret_cast<unsigned char*>(mark.data()), std::size_t(mark.size()),
                       reinterpret_cast<const unsigned char*>(secret.constData()),
                       static_cast<unsigned long long>(secret.size()),
                       reinterpret_cast<const unsigned char*>(key.constData()), std::size_t(key.size()));
    sodium_memzero(secret.data(), std::size_t(secret.size()));
    return mark;
}

} // namespace

int PasswordTries::waitAfter(int wrongTries) {
    if (wrongTries < freeTries)
        return 0;
    constexpr int mostDoublings = 7;
    return std::min(firstWaitSeconds << std::min(wrongTries - freeTries, mostDoublings), longestWaitSeconds);
}

int PasswordTries::secondsToWait(const QString& employeeCode) {
    const auto found = triesByCode().find(keyOf(employeeCode));
    if (found == triesByCode().end())
        return 0;
    // A clock that was set back must not lock anybody out for longer than the wait itself.
    if (found->freeAt.ms - base::now().ms > found->wait * 1000LL)
        found->freeAt = {base::now().ms + found->wait * 1000LL};
    const qint64 left = found->freeAt.ms - base::now().ms;
    return left > 0 ? int((left + 999) / 1000) : 0;
}

QString PasswordTries::waitSentence(const QString& employeeCode) {
    const int seconds = secondsToWait(employeeCode);
    return seconds == 1 ? QStringLiteral("Too many wrong tries. Please wait 1 second.")
                        : QStringLiteral("Too many wrong tries. Please wait %1 seconds.").arg(seconds);
}

int PasswordTries::wrong(const QString& employeeCode, int knownTries) {
    Tries& tries = triesByCode()[keyOf(employeeCode)];
    tries.wrong = std::max(tries.wrong, knownTries) + 1;
    tries.wait = waitAfter(tries.wrong);
    tries.freeAt = {base::now().ms + tries.wait * 1000LL};
    return tries.wrong;
}

bool PasswordTries::isLastGuess(const QString& employeeCode, const QString& password) {
    QByteArray& last = triesByCode()[keyOf(employeeCode)].lastGuess;
    const QByteArray mark = guessMark(password);
    return std::exchange(last, mark) == mark;
}

void PasswordTries::mustWait(const QString& employeeCode, int wrongTries, int seconds) {
    triesByCode()[keyOf(employeeCode)] = {wrongTries, {base::now().ms + seconds * 1000LL}, seconds};
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
        text = nobodysHash;
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
