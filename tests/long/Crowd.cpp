// Many processes on one hospital.

#include "tests/long/Crowd.h"

#include "platform/ado/Provider.h"
#include "session/logon/HospitalServer.h"
#include "tests/long/Books.h"
#include "tests/support/hospital/DemoFile.h"
#include "tests/support/workstation/Workstation.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

#include <memory>

namespace attacks {

namespace {

constexpr int stations = 12;
constexpr int saves = 4;

/// One of a crowd: started at once, looked at when it ends.
struct Member {
    std::unique_ptr<QProcess> process = std::make_unique<QProcess>();
    bool breaksOff = false;
    bool registers = false;
};

Member member(const QString& program, const QStringList& words) {
    Member one;
    one.process->setStandardInputFile(QProcess::nullDevice()); // "init" asks for a password
    one.process->start(program, words);
    return one;
}

QStringList linesOf(Member& one) {
    return QString::fromUtf8(one.process->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

/// The round's members, on `file`: most save requests, some register, some break off before a step of their
/// first save and take nothing along.
std::vector<Member> crowd(Course& course, const QString& file) {
    std::vector<Member> members;
    for (int i = 0; i < stations; ++i) {
        const bool registers = course.number(3) == 0;
        const bool breaksOff = course.number(4) == 0;
        QStringList words{file, QString::number(saves)};
        if (breaksOff)
            words += QString::number(1 + course.number(registers ? 6 : 15));
        members.push_back(
            member(programBeside(registers ? QStringLiteral("registrar") : QStringLiteral("saver")), words));
        members.back().breaksOff = breaksOff;
        members.back().registers = registers;
    }
    return members;
}

void oneRound(Course& course) {
    const QString file = tests::demoHospital();
    const Books before = Books::of(file);
    int saved = 0;
    int registered = 0;
    QSet<QString> numbers;
    for (Member& one : crowd(course, file)) {
        const bool ended = one.process->waitForFinished(mostSeconds * 1000);
        if (!ended) {
            one.process->kill();
            one.process->waitForFinished();
            course.fail(QStringLiteral("a workstation never ended"));
        }
        const QStringList lines = linesOf(one);
        const int code = one.process->exitCode();
        if (ended && code != (one.breaksOff ? tests::Workstation::died : 0))
            course.fail(QStringLiteral("exit code %1: %2").arg(code).arg(lines.join(u' ')));
        if (one.breaksOff) {
            course.count(QStringLiteral("broken off"));
            continue;
        }
        (one.registers ? registered : saved) += saves;
        for (const QString& line : lines) {
            if (numbers.contains(line))
                course.fail(QStringLiteral("told twice: ") + line);
            numbers += line;
        }
    }
    const Books after = Books::of(file);
    if (after.saves(before) != saved || after.registrations(before) != registered)
        course.fail(QStringLiteral("%1 of %2 saves, %3 of %4 registrations")
                        .arg(after.saves(before))
                        .arg(saved)
                        .arg(after.registrations(before))
                        .arg(registered));
    if (const QString odd = after.disagreement(before) + damageOf(file); !odd.isEmpty())
        course.fail(odd);
    course.count(QStringLiteral("saves"), saved);
    course.count(QStringLiteral("registrations"), registered);
    tests::forgetHospital(file);
}

/// Ends well also for one that came second and found the file there.
bool endedWell(Member& one, const QString& said) {
    return one.process->exitStatus() == QProcess::NormalExit &&
           (one.process->exitCode() == 0 || said.contains(QLatin1String("File already exists")));
}

} // namespace

void workstations(Course& course) {
    while (course.goesOn())
        oneRound(course);
}

namespace {

constexpr int manyStations = 16;
constexpr int manySaves = 1000;    // of each, where no rounds are asked for
constexpr int longestCrowd = 3600; // seconds

/// What a crowd said in the end: no slip of a save twice, every book tells of all of them.
void expectAllSaved(Course& course, const QString& way, const Ended& ended, const QString& file,
                    const Books& before) {
    if (!ended.good)
        return course.fail(way + u' ' + ended.how + u'\n' + ended.said.right(2000));
    QSet<QString> slips;
    int longest = 0;
    for (const QString& line : ended.said.split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(QLatin1String("longest ")))
            longest = std::max(longest, line.section(u' ', 1, 1).toInt());
        else if (!line.startsWith(QLatin1String("Data Successfully Saved!")))
            continue; // what Qt says of a platform without windows
        else if (slips.contains(line))
            course.fail(way + QStringLiteral(" told twice: ") + line);
        else
            slips += line;
    }
    const Books after = Books::of(file);
    const int wanted = manyStations * course.wanted(manySaves);
    if (after.saves(before) != wanted || slips.size() != wanted)
        course.fail(way + QStringLiteral(": %1 saves, %2 told").arg(after.saves(before)).arg(slips.size()));
    if (const QString odd = after.disagreement(before) + damageOf(file); !odd.isEmpty())
        course.fail(way + QStringLiteral(": ") + odd);
    course.count(way + QStringLiteral(" saves"), after.saves(before));
    course.count(way + QStringLiteral(" longest ms"), longest);
}

} // namespace

void allWorkstations(Course& course) {
    struct Way {
        const char* name;
        bool overTds;
    };
    for (const Way way : {Way{"file", false}, {"TDS", true}}) {
        if (course.failed())
            return;
        const QString name = QString::fromLatin1(way.name);
        const QString file = tests::demoHospital();
        const Books before = Books::of(file);
        const QString each = QString::number(course.wanted(manySaves));
        QElapsedTimer clock;
        clock.start();
        const Ended ended = way.overTds
                                ? runProgram(programBeside(QStringLiteral("tds-hospital")),
                                             {"--file", file, "--", QCoreApplication::applicationFilePath(),
                                              "--part", "workstations", "", each},
                                             longestCrowd)
                                : runPart("workstations", {file, each}, longestCrowd);
        course.count(name + QStringLiteral(" seconds"), clock.elapsed() / 1000);
        expectAllSaved(course, name, ended, file, before);
        tests::forgetHospital(file);
    }
}

int workstationsPart(const QStringList& words) {
    std::vector<Member> members;
    for (int i = 0; i < manyStations; ++i)
        members.push_back(member(programBeside(QStringLiteral("saver")), words));
    bool good = true;
    for (Member& one : members) {
        good = one.process->waitForFinished(longestCrowd * 1000) && one.process->exitCode() == 0 && good;
        std::fputs(one.process->readAllStandardOutput().constData(), stdout);
        std::fputs(one.process->readAllStandardError().constData(), stdout);
    }
    return good ? 0 : 1;
}

void starts(Course& course) {
    const QString program = programBeside(QStringLiteral("../bin/scintra-server"));
    while (course.goesOn()) {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("hospital.scintra"));
        std::vector<Member> members;
        int makers = 0;
        for (int i = 2 + course.number(4); i > 0; --i) {
            const int kind = course.number(3);
            members.push_back(
                kind == 0   ? member(program, {"init", file})
                : kind == 1 ? member(program, {"demo", file})
                            : member(QCoreApplication::applicationFilePath(), {"--part", "starts", file}));
        }
        for (Member& one : members) {
            const bool ended = one.process->waitForFinished(mostSeconds * 1000);
            const QString said =
                linesOf(one).join(u' ') + QString::fromUtf8(one.process->readAllStandardError());
            if (!ended || !endedWell(one, said))
                course.fail(QStringLiteral("a first start: ") + said.right(300));
            makers += one.process->exitCode() == 0;
        }
        course.count(QStringLiteral("starts"), qint64(members.size()));
        if (makers == 0)
            course.fail(QStringLiteral("none of the starts worked"));
        if (const QString damage = damageOf(file); !damage.isEmpty())
            course.fail(damage);
        const QStringList left = QDir(folder.path()).entryList({"*.new*"});
        if (!left.isEmpty())
            course.fail(QStringLiteral("left behind: ") + left.join(u' '));
    }
}

int startsPart(const QStringList& words) {
    const auto server = session::fileServer(words.value(0));
    try {
        if (!server->isThere())
            server->prepare([](int) {});
        server->open(QStringLiteral("1001"));
    } catch (const base::RunTimeError& error) {
        std::printf("%d %s\n", error.number(), qPrintable(error.description()));
        return 1;
    }
    return 0;
}

} // namespace attacks
