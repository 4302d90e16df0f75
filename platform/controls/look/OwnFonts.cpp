#include "platform/controls/look/OwnFonts.h"

#include "platform/base/Installed.h"

#include <QDir>
#include <QFontDatabase>

namespace controls::look {

void takeOwnFonts() {
    static bool areTaken = false;
    if (areTaken)
        return;
    areTaken = true;
    const QDir fonts(base::sharedFile(QStringLiteral("fonts")));
    const QStringList files =
        fonts.entryList({QStringLiteral("*.otf"), QStringLiteral("*.ttf")}, QDir::Files, QDir::Name);
    for (const QString& file : files)
        QFontDatabase::addApplicationFont(fonts.filePath(file));
}

} // namespace controls::look
