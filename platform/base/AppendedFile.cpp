#include "platform/base/AppendedFile.h"

#ifdef _WIN32
#include <QDir>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <QFile>
#endif

namespace base {

#ifdef _WIN32
// A file that the tool kit opens for appending is written where its end was a moment ago, and so is one on a
// server: writers take turns by a lock far behind any text. Who may read it is what its folder, in the user's
// profile, says.
void appendToOwn(const QString& file, const QByteArray& bytes) {
    const std::wstring path = QDir::toNativeSeparators(file).toStdWString();
    const HANDLE opened = CreateFileW(path.c_str(), FILE_READ_DATA | FILE_APPEND_DATA,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        return;
    OVERLAPPED turn{};
    turn.OffsetHigh = 0x7fffffff;
    LockFileEx(opened, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &turn);
    DWORD written = 0;
    WriteFile(opened, bytes.constData(), DWORD(bytes.size()), &written, nullptr);
    CloseHandle(opened);
}
#else
void appendToOwn(const QString& file, const QByteArray& bytes) {
    QFile opened(file);
    constexpr QFileDevice::Permissions own = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    if (!opened.open(QIODevice::WriteOnly | QIODevice::Append, own))
        return;
    if (opened.size() == 0 || (opened.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther)))
        opened.setPermissions(own); // one of an older program
    opened.write(bytes);
}
#endif

} // namespace base
