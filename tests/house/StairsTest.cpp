#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <gtest/gtest.h>

#include <map>

namespace {

/// What each folder may include besides itself. Nothing climbs, and no screen folder knows its sister.
const std::map<QString, QStringList>& stairs() {
    static const QStringList platform{"platform/base", "platform/ado", "platform/controls",
                                      "platform/report"};
    static const QStringList hospital{"server/engine", "server/hospital", "server/demo"};
    static const std::map<QString, QStringList> allowed{
        {"platform/base", {}},
        {"platform/ado", {"platform/base"}},
        {"platform/odbc", {"platform/base", "platform/ado"}},
        {"platform/controls", {"platform/base", "platform/ado"}},
        {"platform/report", {"platform/base", "platform/ado", "platform/controls"}},
        {"server/engine", {"platform/base", "platform/ado"}},
        {"server/hospital", {"platform/base", "platform/ado", "server/engine"}},
        {"server/demo", {"platform/base", "platform/ado", "server/engine", "server/hospital"}},
        {"server/site", {"platform/base", "platform/ado", "server/engine", "server/hospital", "server/demo"}},
        {"session", platform + hospital + QStringList{"platform/odbc"}},
        {"menu", platform + QStringList{"session"}},
        {"lookup", platform + QStringList{"session"}},
        {"entry", platform + QStringList{"session", "lookup"}},
        {"orders", platform + QStringList{"session", "lookup", "entry"}},
        {"results", platform + QStringList{"session", "lookup"}},
        {"app", platform + hospital + QStringList{"session", "menu", "lookup", "entry", "orders", "results"}},
    };
    return allowed;
}

QStringList sourcesOf(const QString& folder) {
    QStringList files;
    QDirIterator all(QStringLiteral(SCINTRA_SOURCE_DIR "/") + folder, {"*.h", "*.cpp"}, QDir::Files,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        files += all.next();
    return files;
}

QStringList linesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

/// The folder of the stairs that a header lies in, whatever its theme there; "" for one that is none of ours.
QString folderOf(const QString& header) {
    for (const auto& [folder, allowed] : stairs()) {
        if (header.startsWith(folder + u'/'))
            return folder;
    }
    return {};
}

/// Includes of `file` that its folder may not have.
QStringList climbingIncludes(const QString& folder, const QStringList& lines) {
    static const QRegularExpression include(QStringLiteral("^#include \"([^\"]+)\""));
    QStringList climbing;
    for (const QString& line : lines) {
        const QString target = folderOf(include.match(line).captured(1));
        if (!target.isEmpty() && target != folder && !stairs().at(folder).contains(target))
            climbing += line;
    }
    return climbing;
}

TEST(Stairs, NoIncludeClimbs) {
    for (const auto& [folder, allowed] : stairs()) {
        const QStringList files = sourcesOf(folder);
        EXPECT_FALSE(files.isEmpty()) << folder.toStdString();
        for (const QString& file : files) {
            const QStringList climbing = climbingIncludes(folder, linesOf(file));
            EXPECT_TRUE(climbing.isEmpty())
                << file.toStdString() << ": " << climbing.join(QStringLiteral("; ")).toStdString();
        }
    }
}

TEST(Stairs, AClimbIsSeen) {
    EXPECT_EQ(
        climbingIncludes("lookup", {"#include \"orders/frmRequest.h\"", "#include \"session/Session.h\""})
            .size(),
        1);
    EXPECT_EQ(climbingIncludes("platform/ado", {"#include \"session/Session.h\""}).size(), 1);
}

TEST(Stairs, OnlyTheUserObjectNamesAProvider) {
    for (const QString folder : {"menu", "lookup", "entry", "orders", "results"}) {
        for (const QString& file : sourcesOf(folder)) {
            for (const QString& line : linesOf(file))
                EXPECT_FALSE(line.contains(QStringLiteral("EmbeddedProvider")) ||
                             line.contains(QStringLiteral("OdbcProvider")))
                    << file.toStdString();
        }
    }
}

TEST(Portability, NothingOutsideThePlatformIsPosixOnly) {
    static const QRegularExpression posix(
        QStringLiteral("^#include <(unistd|sys/.*|fcntl|pthread|pwd|signal)\\.?h?>"));
    for (const auto& [folder, allowed] : stairs()) {
        if (folder.startsWith(QStringLiteral("platform/")))
            continue;
        for (const QString& file : sourcesOf(folder)) {
            for (const QString& line : linesOf(file))
                EXPECT_FALSE(posix.match(line).hasMatch())
                    << file.toStdString() << ": " << line.toStdString();
        }
    }
}

TEST(Screens, ConnectOnlyThroughTheErrorBoundary) {
    for (const QString folder : {"session", "menu", "lookup", "entry", "orders", "results"}) {
        for (const QString& file : sourcesOf(folder)) {
            for (const QString& line : linesOf(file))
                EXPECT_FALSE(line.contains(QRegularExpression(QStringLiteral("(QObject::|\\s)connect\\("))))
                    << file.toStdString() << ": " << line.toStdString();
        }
    }
}

} // namespace
