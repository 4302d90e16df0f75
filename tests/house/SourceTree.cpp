#include "tests/house/SourceTree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace tests {

namespace {

const QDir& root() {
    static const QDir folder(QStringLiteral(SCINTRA_SOURCE_DIR));
    return folder;
}

} // namespace

QStringList sourcesIn(const QString& folder) {
    QStringList sources;
    const QStringList tops =
        folder.isEmpty() ? root().entryList(QDir::Dirs | QDir::NoDotAndDotDot) : QStringList{folder};
    for (const QString& top : tops) {
        if (top == QLatin1String("build"))
            continue;
        QDirIterator all(root().filePath(top), {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (all.hasNext())
            sources += root().relativeFilePath(all.next());
    }
    sources.sort();
    return sources;
}

QStringList productSources() {
    QStringList sources = sourcesIn();
    sources.removeIf([](const QString& source) {
        return source.startsWith(QLatin1String("tests/")) || source.startsWith(QLatin1String("bench/")) ||
               source.startsWith(QLatin1String("cmake/"));
    });
    return sources;
}

QStringList linesOf(const QString& source) {
    QFile file(root().filePath(source));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << source.toStdString();
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

} // namespace tests
