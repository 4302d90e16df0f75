// Saves cut off at each of their statements.

#include "tests/long/Steps.h"

#include "app/AppScreens.h"
#include "platform/ado/Batch.h"
#include "platform/base/Error.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/TestDoors.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/engine/file/SqliteFile.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/long/Books.h"
#include "tests/long/OnDuty.h"
#include "tests/long/Saves.h"
#include "tests/support/hospital/DemoFile.h"
#include "tests/support/workstation/PowerCut.h"
#include "tests/support/workstation/Watchdog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

namespace attacks {

namespace {

using tests::PowerCut;

/// What stands in a hospital file: all rows of all tables, but for what is a session's own: the lines that
/// wait for the printer, and the rights that were asked for.
class Content {
  public:
    explicit Content(const QString& file);
    bool operator==(const Content& other) const { return m_tables == other.m_tables; }
    /// The tables that are not the same.
    QString changesTo(const Content& other) const;

  private:
    std::map<std::string, std::string> m_tables;
};

Content::Content(const QString& file) {
    const auto provider = engine::EmbeddedProvider::open(file, {});
    const auto each = [&](const std::string& query, const auto& row) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(provider->handle(), query.c_str(), -1, &statement, nullptr);
        const engine::SqliteStatement owner(statement);
        while (sqlite3_step(statement) == SQLITE_ROW)
            row(statement);
    };
    each("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' AND name NOT IN "
         "('NUCLEAR.tbNucChargeSlip', 'NUCLEAR.tbNuclearSessionRights')",
         [&](sqlite3_stmt* row) { m_tables[engine::columnText(row, 0)]; });
    for (auto& [table, rows] : m_tables) {
        each("SELECT * FROM " + engine::quotedName(table), [&rows = rows](sqlite3_stmt* row) {
            for (int column = 0; column < sqlite3_column_count(row); ++column)
                rows += engine::columnText(row, column) + '\x1f';
            rows += '\n';
        });
    }
}

QString Content::changesTo(const Content& other) const {
    QStringList names;
    for (const auto& [table, rows] : m_tables) {
        const auto found = other.m_tables.find(table);
        if (found == other.m_tables.end() || found->second != rows)
            names += QString::fromStdString(table);
    }
    return names.join(u' ');
}

QString prepared(const Save& save) {
    const QString file = tests::demoHospital();
    const auto provider = engine::EmbeddedProvider::open(file, {});
    provider->useDatabase(QStringLiteral("NUCLEAR"));
    for (const QString& text :
         QString::fromUtf8(save.before).split(QStringLiteral(";\n"), Qt::SkipEmptyParts))
        ado::runBatch(*provider, text);
    return file;
}

QString copyOf(const QString& file) {
    static int number = 0;
    const QString copy = file + QStringLiteral("-copy%1").arg(++number);
    if (!QFile::copy(file, copy))
        qFatal("%s cannot be copied", qPrintable(file));
    return copy;
}

/// One save, and what it has to be.
class Trial {
  public:
    Trial(Course& course, const Save& save);
    ~Trial() { tests::forgetHospital(m_file); }

    int points() const { return m_points; }
    void cutAt(int point);
    /// All of them were cut: each part of the save stood there alone.
    void expectAllParts();

  private:
    Ended run(const QString& file, int point) const {
        return runPart("steps", {QString::fromUtf8(m_save.name), file, QString::number(point)});
    }
    void fail(const QString& what) {
        m_course.fail(QLatin1String(m_save.name) + QStringLiteral(": ") + what);
    }
    void expectNextSave(const QString& file, bool isFirst, const QString& cut);

    Course& m_course;
    const Save& m_save;
    QString m_file; ///< before the save
    int m_points = 0;
    std::vector<Content> m_stages; ///< nothing, each part, the whole, in the order in which they were seen
    std::unique_ptr<Content> m_whole;
};

Trial::Trial(Course& course, const Save& save) : m_course(course), m_save(save), m_file(prepared(save)) {
    const QString nothing = copyOf(m_file);
    if (const Ended ended = run(nothing, 1);
        ended.how != QStringLiteral("exit code %1").arg(PowerCut::died)) {
        fail(QStringLiteral("not one statement: ") + ended.how + u'\n' + ended.said);
        return;
    }
    m_stages.emplace_back(nothing);
    tests::forgetHospital(nothing);
    const QString whole = copyOf(m_file);
    const Ended ended = run(whole, 0);
    if (!ended.good) {
        fail(ended.how + u'\n' + ended.said);
        return;
    }
    m_points = ended.said.section(QStringLiteral("points "), 1).section(u' ', 0, 0).toInt();
    course.count(QStringLiteral("statements"), ended.said.section(QStringLiteral("statements "), 1).toInt());
    m_whole = std::make_unique<Content>(whole);
    if (*m_whole == m_stages[0])
        fail(QStringLiteral("nothing is saved\n") + ended.said);
    tests::forgetHospital(whole);
}

/// The next save is the one that was cut, where nothing of it is kept; behind a whole one it is another's.
void Trial::expectNextSave(const QString& file, bool isFirst, const QString& cut) {
    const Ended next =
        isFirst ? run(file, 0) : runPart("steps", {QStringLiteral("walk-in"), file, QStringLiteral("0")});
    if (!next.good)
        return fail(cut + QStringLiteral("the next save fails, ") + next.how + u'\n' + next.said);
    const Content found(file);
    if (isFirst && !(found == *m_whole))
        fail(cut + QStringLiteral("the next save is another one: ") + found.changesTo(*m_whole));
}

void Trial::cutAt(int point) {
    const QString file = copyOf(m_file);
    const QString cut = QStringLiteral("cut at point %1, ").arg(point);
    const Ended ended = run(file, point);
    m_course.count(QStringLiteral("cuts"));
    if (ended.how != QStringLiteral("exit code %1").arg(PowerCut::died))
        return fail(cut + (ended.good ? QStringLiteral("not reached") : ended.how) + u'\n' + ended.said);
    if (const QString damage = damageOf(file); !damage.isEmpty())
        return fail(cut + damage);
    const Content found(file);
    const auto stage = std::find(m_stages.begin(), m_stages.end(), found);
    const bool isPart = !(found == *m_whole);
    if (stage == m_stages.end()) {
        m_stages.push_back(found);
        if (isPart && m_save.parts == 1)
            return fail(cut + QStringLiteral("neither the whole nor nothing: ") + found.changesTo(*m_whole));
    }
    const bool isNothing = stage == m_stages.begin();
    m_course.count(isNothing ? QStringLiteral("nothing")
                   : isPart  ? QStringLiteral("a part")
                             : QStringLiteral("whole"));
    expectNextSave(file, isNothing, cut);
    tests::forgetHospital(file);
}

void Trial::expectAllParts() {
    if (!m_course.failed() && int(m_stages.size()) != m_save.parts + 1)
        fail(QStringLiteral("%1 states of the file, not %2").arg(m_stages.size()).arg(m_save.parts + 1));
}

} // namespace

void steps(Course& course) {
    const int first = course.number(int(saves().size()));
    while (course.goesOn()) {
        const Save& save = saves()[std::size_t(first + course.rounds()) % saves().size()];
        Trial trial(course, save);
        course.count(QStringLiteral("saves"));
        if (!course.failed())
            trial.cutAt(2 + course.number(trial.points() - 1));
    }
}

void allSteps(Course& course) {
    for (const Save& save : saves()) {
        if (!course.goesOn())
            return;
        Trial trial(course, save);
        course.count(QStringLiteral("saves"));
        for (int point = 2; point <= trial.points() && !course.failed(); ++point)
            trial.cutAt(point);
        trial.expectAllParts();
        std::printf("  %-40s %3d points\n", save.name, trial.points());
        std::fflush(stdout);
    }
}

namespace {

/// 1001 on a file that is there, on the clock of all tests.
class AtDesk {
  public:
    explicit AtDesk(const QString& file) {
        session::setHospitalFile(file);
        auto user = std::make_unique<session::clsCurrentUser>();
        user->setPasswordDeptCode(QStringLiteral("5"));
        if (user->logOnTo(session::fileServer(file), QStringLiteral("1001"), QStringLiteral("kerova")) !=
                session::LogOnResult::Good ||
            !session::wireSession(std::move(user)))
            fault(QStringLiteral("1001 cannot log on"));
        session::setScreens(&m_screens);
    }

  private:
    base::FixedClock m_clock{tests::demoMoment()};
    app::AppScreens m_screens;
};

void pressAndTell(QWidget& screen, const Save& save, int point) {
    PowerCut cut(point, PowerCut::Points::BeforeAndBehind);
    const int from = point;
    controls::setMessageScript([&cut](const QString& prompt, int style, const QString&) {
        std::printf("box %s\n", qPrintable(prompt));
        cut.point();
        return (style & 0x0F) == controls::vbYesNo ? controls::vbYes : controls::vbOK;
    });
    session::gConnection->addObserver(&cut);
    press(screen, save);
    cut.point();
    std::printf("points %d statements %d\n", from - point, cut.statements());
    std::fflush(stdout);
    std::_Exit(session::gConnection->inTransaction() || from > 0 ? 1 : 0);
}

} // namespace

int stepsPart(const QStringList& words) {
    const auto save = std::find_if(saves().begin(), saves().end(), [&](const Save& one) {
        return words.value(0) == QLatin1String(one.name);
    });
    if (save == saves().end() || words.size() != 3)
        return 2;
    const tests::Watchdog watchdog(60);
    session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR));
    session::otherReportLaunchers() = {.prepareReport = [](const auto&, const auto&, const auto&) {},
                                       .showReport = [](auto, const auto&, auto) {}};
    controls::ErrorBoundary::setHandler([](const base::RunTimeError& error) {
        fault(QStringLiteral("%1 %2 [%3]").arg(error.number()).arg(error.description(), error.statement()));
    });
    controls::setMessageScript([](const QString& prompt, int style, const QString&) {
        std::printf("box %s\n", qPrintable(prompt));
        return (style & 0x0F) == controls::vbYesNo ? controls::vbYes : controls::vbOK;
    });
    const AtDesk desk(words[1]);
    try {
        for (const tests::ScreenOpener& opener : tests::screenOpeners()) {
            if (qstrcmp(opener.screen, save->screen) != 0)
                continue;
            opener.open([&](QWidget& screen) {
                fill(screen, *save);
                if (testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed())
                    fault(QStringLiteral("it could not be filled"));
                pressAndTell(screen, *save, words[2].toInt());
            });
        }
    } catch (const base::RunTimeError& error) {
        fault(QStringLiteral("past the boundary: %1 %2").arg(error.number()).arg(error.description()));
    } catch (const std::exception& error) {
        fault(QStringLiteral("past the boundary: ") + QString::fromUtf8(error.what()));
    }
    fault(QStringLiteral("no such screen"));
}

} // namespace attacks
