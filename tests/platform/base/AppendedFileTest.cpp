#include "platform/base/AppendedFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(AppendedFile, TakesEachLineWholeWhoeverElseWrites) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("lines.txt");
    constexpr int writers = 8;
    constexpr int lines = 200;
    std::vector<std::jthread> all;
    for (int writer = 0; writer < writers; ++writer)
        all.emplace_back([&, line = QByteArray(40 + writer, char('a' + writer)) + '\n'] {
            for (int i = 0; i < lines; ++i)
                base::appendToOwn(file, line);
        });
    all.clear();
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QByteArrayList found = written.readAll().split('\n');
    ASSERT_EQ(found.size(), writers * lines + 1);
    for (const QByteArray& line : found.first(writers * lines))
        ASSERT_TRUE(line.size() >= 40 && line == QByteArray(40 + line[0] - 'a', line[0]))
            << line.toStdString();
}

TEST(AppendedFile, IsLeftAloneWhereItCannotBeWritten) {
    const QTemporaryDir folder;
    base::appendToOwn(folder.path(), "line\n");
    base::appendToOwn(folder.filePath("nowhere/lines.txt"), "line\n");
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

} // namespace
