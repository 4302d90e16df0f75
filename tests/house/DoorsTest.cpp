#include "tests/house/SourceTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

/// Lines of what works with a server: everything but the servers and their tools.
void forEachLine(const std::function<void(const QString& file, const QString& line)>& look) {
    static const QStringList servers{"server/", "tools/", "platform/ado/"};
    int files = 0;
    for (const QString& file : tests::productSources()) {
        if (std::any_of(servers.begin(), servers.end(),
                        [&](const QString& folder) { return file.startsWith(folder); }))
            continue;
        ++files;
        for (const QString& line : tests::linesOf(file))
            look(file, line);
    }
    EXPECT_GT(files, 300);
}

TEST(Doors, NoClientSendsATextThatNobodyChecked) {
    forEachLine([](const QString& file, const QString& line) {
        EXPECT_FALSE(line.contains(QStringLiteral("ado/Batch.h"))) << file.toStdString();
    });
}

TEST(Doors, OnlyTheServersOfTheLogOnNameAProvider) {
    const QStringList allowed{"session/logon/HospitalServer.cpp", "session/logon/OdbcServer.cpp"};
    QStringList found;
    forEachLine([&](const QString& file, const QString& line) {
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
