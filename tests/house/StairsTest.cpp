#include "tests/house/SourceTree.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>

namespace {

using tests::linesOf;
using tests::sourcesIn;

using Stairs = std::map<QString, QStringList>;

const QStringList& platform() {
    static const QStringList folders{"platform/base", "platform/ado", "platform/controls", "platform/report"};
    return folders;
}

/// The folders of the screens that a menu opens. None may know its sister.
const QStringList& screenFolders() {
    static const QStringList folders{"menu", "orders", "results", "revocation", "charges", "ledger"};
    return folders;
}

/// What each folder of the program may include besides itself. Nothing climbs. A folder that is only planned
/// stands here before it is made.
Stairs programStairs() {
    const QStringList core{"platform/base", "platform/ado"};
    const QStringList hospital{"server/engine", "server/hospital", "server/demo"};
    const QStringList screen = platform() + QStringList{"session", "lookup"};
    return {
        {"platform/base", {}},
        {"platform/ado", {"platform/base"}},
        {"platform/odbc", core},
        {"platform/controls", core},
        {"platform/report", core + QStringList{"platform/controls"}},
        {"platform/print", {"platform/report"}},
        {"platform/agent", core + QStringList{"platform/controls"}},
        {"platform/voice", {}},
        {"server/engine", core},
        {"server/hospital", core + QStringList{"server/engine"}},
        {"server/demo", core + QStringList{"server/engine", "server/hospital"}},
        {"server/site", core + hospital},
        {"session", platform() + hospital + QStringList{"platform/odbc"}},
        {"menu", platform() + QStringList{"platform/agent", "session"}},
        {"lookup", platform() + QStringList{"session"}},
        {"entry", screen},
        {"orders", screen + QStringList{"entry"}},
        {"results", screen},
        {"revocation", screen + QStringList{"entry"}},
        {"charges", screen + QStringList{"entry"}},
        {"ledger", screen},
        {"app", platform() + hospital + QStringList{"platform/agent", "session", "lookup", "entry"} +
                    screenFolders()},
    };
}

/// What stands on the program: tools, benchmarks and tests. A folder of tests sees what its own folder may
/// see, its own folder, and the support that it is built with.
Stairs stairsAround() {
    const QStringList core{"platform/base", "platform/ado"};
    const QStringList hospital{"server/engine", "server/hospital", "server/demo"};
    const QStringList server = hospital + QStringList{"server/site", "platform/odbc"};
    Stairs stairs{
        {"cmake", {}},
        {"tools", platform() + server + QStringList{"platform/voice", "session", "menu", "app"}},
        {"bench", platform() + server + screenFolders() +
                      QStringList{"session", "lookup", "entry", "app", "tests/support/core"}},
        {"tests/house", {}},
        {"tests/support/core", core},
        {"tests/support/odbc", core + QStringList{"server/engine", "tests/support/core"}},
        {"tests/support/tds",
         core + QStringList{"server/engine", "tests/support/core", "tests/support/odbc"}},
        {"tests/support/hospital", core + server + QStringList{"tests/support/core", "tests/support/odbc"}},
        {"tests/support/workstation", platform() + QStringList{"session"}},
        {"tests/support/screens",
         platform() + QStringList{"session", "tests/support/core", "tests/support/hospital",
                                  "tests/support/workstation"}},
        {"tests/server/sql", core},
        {"tests/tools", core + hospital + QStringList{"tests/support/core", "tests/support/tds"}},
        {"tests/platform/provider", core + QStringList{"platform/odbc", "server/engine"}},
    };
    static const QStringList support{"tests/support/core",    "tests/support/hospital",
                                     "tests/support/odbc",    "tests/support/tds",
                                     "tests/support/screens", "tests/support/workstation"};
    for (const auto& [folder, allowed] : programStairs())
        stairs[QStringLiteral("tests/") + folder] = allowed + QStringList{folder};
    for (auto& [folder, allowed] : stairs) {
        if (folder.startsWith(QStringLiteral("tests/")) &&
            !folder.startsWith(QStringLiteral("tests/support")) && folder != QLatin1String("tests/house"))
            allowed += support;
    }
    // reports are tried on a hospital; a save, on a server that the kit was sent to
    stairs["tests/platform/report"] += hospital;
    stairs["tests/orders"] += QStringList{"server/site", "platform/odbc"};
    stairs["tests/server/site"] += QStringLiteral("platform/odbc");
    // the attacks go at everything, with what the tests of screens and engine attack with
    stairs["tests/long"] =
        stairs["tests/app"] + QStringList{"tests/app", "tests/server/engine", "platform/odbc"};
    return stairs;
}

const Stairs& stairs() {
    static const Stairs all = [] {
        Stairs joined = programStairs();
        joined.merge(stairsAround());
        return joined;
    }();
    return all;
}

/// The folder of the stairs that a source lies in, whatever its theme there; "" for one that is on none.
QString folderOf(const QString& source) {
    QString found;
    for (const auto& [folder, allowed] : stairs()) {
        if (source.startsWith(folder + u'/') && folder.size() > found.size())
            found = folder;
    }
    return found;
}

/// The sources of the program, with `folders` those of some of its folders. A folder may be still to come.
QStringList programSources(const QStringList& folders = {}) {
    QStringList sources;
    for (const auto& [folder, allowed] : programStairs()) {
        if (folders.isEmpty() || folders.contains(folder))
            sources += sourcesIn(folder);
    }
    return sources;
}

/// Includes among the lines of `folder` that it may not have.
QStringList climbingIncludes(const QString& folder, const QStringList& lines) {
    static const QRegularExpression include(QStringLiteral("^#include \"([^\"]+/[^\"]+)\""));
    QStringList climbing;
    for (const QString& line : lines) {
        const QRegularExpressionMatch match = include.match(line);
        if (!match.hasMatch())
            continue;
        const QString target = folderOf(match.captured(1));
        if (target != folder && !stairs().at(folder).contains(target))
            climbing += line;
    }
    return climbing;
}

/// Fails for every line of the sources that `forbidden` finds.
void expectNowhere(const QStringList& sources, const QRegularExpression& forbidden) {
    ASSERT_FALSE(sources.isEmpty());
    for (const QString& source : sources) {
        for (const QString& line : linesOf(source))
            EXPECT_FALSE(forbidden.match(line).hasMatch())
                << source.toStdString() << ": " << line.toStdString();
    }
}

TEST(Stairs, KnowEveryFolderThatHoldsASource) {
    const QStringList all = sourcesIn();
    EXPECT_GT(all.size(), 600);
    for (const QString& source : all)
        EXPECT_FALSE(folderOf(source).isEmpty())
            << source.toStdString() << " lies in no folder of the stairs";
}

TEST(Stairs, KnowNoFolderThatIsNotThere) {
    for (const auto& [folder, allowed] : programStairs())
        EXPECT_FALSE(sourcesIn(folder).isEmpty()) << folder.toStdString();
}

TEST(Stairs, NoIncludeClimbs) {
    for (const QString& source : sourcesIn()) {
        const QString folder = folderOf(source);
        if (folder.isEmpty())
            continue;
        const QStringList climbing = climbingIncludes(folder, linesOf(source));
        EXPECT_TRUE(climbing.isEmpty())
            << source.toStdString() << ": " << climbing.join(QStringLiteral("; ")).toStdString();
    }
}

TEST(Stairs, NoScreenFolderMayKnowItsSister) {
    for (const QString& folder : screenFolders()) {
        for (const QString& sister : screenFolders()) {
            EXPECT_FALSE(stairs().at(folder).contains(sister)) << folder.toStdString();
            if (sister == folder)
                continue;
            EXPECT_EQ(climbingIncludes(folder, {"#include \"" + sister + "/frmAny.h\""}).size(), 1);
        }
    }
}

TEST(Stairs, AClimbIsSeen) {
    EXPECT_EQ(
        climbingIncludes("lookup", {"#include \"orders/frmRequest.h\"", "#include \"session/Session.h\""})
            .size(),
        1);
    EXPECT_EQ(climbingIncludes("platform/ado", {"#include \"session/logon/HospitalServer.h\""}).size(), 1);
    EXPECT_EQ(climbingIncludes("server/engine", {"#include \"server/hospital/Kit.h\""}).size(), 1);
    EXPECT_EQ(climbingIncludes("server/hospital", {"#include \"server/demo/Names.h\""}).size(), 1);
    EXPECT_EQ(climbingIncludes("orders", {"#include \"tests/support/core/Raised.h\""}).size(), 1);
    EXPECT_EQ(climbingIncludes("orders", {"#include \"attic/Screen.h\""}).size(), 1) << "no folder at all";
    EXPECT_EQ(climbingIncludes("tests/lookup", {"#include \"tests/orders/RequestFixture.h\""}).size(), 1);
    EXPECT_EQ(folderOf("tests/platform/report/Mill.h"), "tests/platform/report");
    EXPECT_EQ(folderOf("session/rights/frmAccess.h"), "session");
    EXPECT_EQ(folderOf("attic/Screen.h"), QString());
    EXPECT_EQ(folderOf("platform/Loose.h"), QString());
}

TEST(Stairs, OnlyTheLogOnNamesAProvider) {
    QStringList sources;
    for (const QString& source : programSources()) {
        if (!source.startsWith(QStringLiteral("session/logon/")) &&
            !source.startsWith(QStringLiteral("server/")) &&
            !source.startsWith(QStringLiteral("platform/odbc/")))
            sources += source;
    }
    expectNowhere(sources, QRegularExpression(QStringLiteral("\\b(Embedded|Odbc)Provider\\b")));
}

TEST(Portability, NothingOutsideThePlatformIsPosixOnly) {
    QStringList sources;
    for (const QString& source : programSources() + sourcesIn("tools")) {
        if (!source.startsWith(QStringLiteral("platform/")))
            sources += source;
    }
    expectNowhere(sources, QRegularExpression(
                               QStringLiteral("^#include <(unistd|sys/.*|fcntl|pthread|pwd|signal)\\.?h?>")));
}

TEST(Portability, NothingOutsideThePlatformKnowsOfWindows) {
    QStringList sources;
    for (const QString& source : programSources() + sourcesIn("tools")) {
        if (!source.startsWith(QStringLiteral("platform/")))
            sources += source;
    }
    expectNowhere(sources, QRegularExpression(QStringLiteral("\\b(_WIN32|WIN32|Q_OS_WIN\\w*|__MINGW\\w*)\\b|"
                                                             "^#include <(windows|io|winsock2?)\\.h>")));
}

TEST(Screens, ConnectOnlyThroughTheErrorBoundary) {
    expectNowhere(programSources(screenFolders() + QStringList{"session", "lookup", "entry"}),
                  QRegularExpression(QStringLiteral("(QObject::|\\s)connect\\(")));
}

TEST(TestDoors, AreOpenedByTestsAndBenchmarksOnly) {
    int doors = 0;
    for (const QString& source : programSources() + sourcesIn("tools")) {
        doors += source.endsWith(QStringLiteral("/TestDoors.h"));
        for (const QString& line : linesOf(source)) {
            if (!line.contains(QStringLiteral("/TestDoors.h\"")))
                continue;
            const QString folder = line.section(u'"', 1, 1).section(u'/', 0, -2);
            // what is behind a door is told where the rest of it is
            EXPECT_TRUE(source.startsWith(folder + u'/') && source.endsWith(QStringLiteral(".cpp")))
                << source.toStdString() << ": " << line.toStdString();
        }
    }
    EXPECT_GE(doors, 3);
}

/// A test program takes its sources by folder; by their names a reader tells a file of tests from its
/// helpers.
TEST(TestFiles, OnesWithTestsAreNamedSoAndNoOthers) {
    static const QRegularExpression aTest(
        QStringLiteral("^(TYPED_)?TEST(_F|_P)?\\((\\w+), \\w+\\)|^TEST(_F|_P)?\\($"));
    int named = 0;
    for (const QString& source : sourcesIn("tests")) {
        const QStringList lines = linesOf(source);
        const bool holdsTests = std::any_of(lines.begin(), lines.end(),
                                            [](const QString& line) { return aTest.match(line).hasMatch(); });
        EXPECT_EQ(holdsTests, source.endsWith(QStringLiteral("Test.cpp"))) << source.toStdString();
        named += holdsTests;
    }
    EXPECT_GT(named, 90);
}

} // namespace
