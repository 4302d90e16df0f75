#include "tests/long/OwnHome.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>

namespace attacks {

namespace {

struct Place {
    const char* variable;
    const char* folder; ///< in the home
};
constexpr Place places[] = {{"HOME", "."},
                            {"XDG_CONFIG_HOME", ".config"},
                            {"XDG_DATA_HOME", ".local/share"},
                            {"XDG_STATE_HOME", ".local/state"},
                            {"XDG_CACHE_HOME", ".cache"}};
constexpr const char* made = "SCINTRA_ATTACKS_HOME";

} // namespace

OwnHome::OwnHome() {
    const QString home = qEnvironmentVariable("HOME");
    if (!home.isEmpty() && qEnvironmentVariable(made) == home)
        return;
    m_folder.emplace(QDir::tempPath() + QStringLiteral("/attacks-home-XXXXXX"));
    if (!m_folder->isValid()) { // better none than in the user's own
        std::fprintf(stderr, "%s\n", qPrintable(m_folder->errorString()));
        std::exit(2);
    }
    for (const Place& place : places)
        qputenv(place.variable,
                QFile::encodeName(QDir::cleanPath(m_folder->filePath(QString::fromLatin1(place.folder)))));
    qputenv(made, qgetenv("HOME"));
}

} // namespace attacks
