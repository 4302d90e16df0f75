#include <QDirIterator>
#include <QFile>
#include <QTextStream>

#include <gtest/gtest.h>

#include <functional>

namespace {

using Lines = std::function<void(const QString& file, const QString& line)>;

void forEachLine(const QStringList& folders, const Lines& look) {
    const QString root = QStringLiteral(SCINTRA_SOURCE_DIR "/");
    for (const QString& folder : folders) {
        QDirIterator all(root + folder, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        ASSERT_TRUE(all.hasNext()) << folder.toStdString();
        while (all.hasNext()) {
            QFile file(all.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
            QTextStream text(&file);
            for (QString line; text.readLineInto(&line);)
                look(file.fileName().mid(root.size()), line);
        }
    }
}

const QStringList& clients() {
    static const QStringList folders{"platform/base",
                                     "platform/odbc",
                                     "platform/controls",
                                     "platform/report",
                                     "platform/agent",
                                     "platform/voice",
                                     "session",
                                     "menu",
                                     "lookup",
                                     "entry",
                                     "orders",
                                     "results",
                                     "app"};
    return folders;
}

TEST(Doors, NoClientSendsATextThatNobodyChecked) {
    forEachLine(clients(), [](const QString& file, const QString& line) {
        EXPECT_FALSE(line.contains(QStringLiteral("ado/Batch.h"))) << file.toStdString();
    });
}

TEST(Doors, OnlyTheServersOfTheLogOnNameAProvider) {
    const QStringList allowed{"session/logon/HospitalServer.cpp", "session/logon/OdbcServer.cpp"};
    QStringList found;
    forEachLine(clients(), [&](const QString& file, const QString& line) {
        if (file.startsWith(QStringLiteral("platform/odbc/")))
            return;
        if ((line.contains(QStringLiteral("EmbeddedProvider::")) ||
             line.contains(QStringLiteral("OdbcProvider::"))) &&
            !found.contains(file))
            found += file;
    });
    found.sort();
    EXPECT_TRUE(found == allowed) << found.join(u' ').toStdString();
}

} // namespace
