// Programs killed at random moments of what they write.

#include "tests/long/Kills.h"

#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "server/engine/EmbeddedProvider.h"
#include "tests/long/Books.h"
#include "tests/support/hospital/DemoFile.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <array>

namespace attacks {

namespace {

constexpr const char* many = "1000";

/// Starts the program and kills it somewhere between the two moments. False when it ended before.
bool killed(Course& course, const QString& program, const QStringList& words, int fromMs, int toMs) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice()); // "init" asks for a password
    process.start(program, words);
    process.waitForStarted();
    const bool ended = process.waitForFinished(fromMs + course.number(toMs - fromMs));
    process.kill();
    process.waitForFinished();
    if (ended && process.exitCode() != 0)
        course.fail(program + QStringLiteral(" ended by itself: ") + QString::fromUtf8(process.readAll()));
    course.count(ended ? QStringLiteral("too late") : QStringLiteral("kills"));
    return !ended;
}

bool works(const QString& program, const QStringList& words) {
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice()); // "init" asks for a password
    process.start(program, words);
    return process.waitForFinished(mostSeconds * 1000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

void expectWhole(Course& course, const QString& what, const QString& file, const Books& before) {
    if (const QString damage = damageOf(file); !damage.isEmpty())
        return course.fail(what + QStringLiteral(": ") + damage);
    if (const QString odd = Books::of(file).disagreement(before); !odd.isEmpty())
        course.fail(what + QStringLiteral(": ") + odd);
}

/// A workstation saves again and again and is killed; after it another one's save works.
void duringSaves(Course& course, const QString& name) {
    const QString file = tests::demoHospital();
    const Books before = Books::of(file);
    const QString program = programBeside(name);
    killed(course, program, {file, QString::fromLatin1(many)}, 200, 1500);
    expectWhole(course, name, file, before);
    const Books between = Books::of(file);
    const auto whole = [](const Books& now, const Books& then) {
        return now.saves(then) + now.registrations(then) + now.filed(then);
    };
    course.count(QStringLiteral("whole saves"), whole(between, before));
    if (!course.failed() && !works(program, {file, QStringLiteral("1")}))
        course.fail(name + QStringLiteral(": nothing works after it"));
    const Books after = Books::of(file);
    if (whole(after, between) != 1)
        course.fail(name + QStringLiteral(": the save after it is not one"));
    expectWhole(course, name + QStringLiteral(", after it"), file, before);
    tests::forgetHospital(file);
}

void duringRequests(Course& course) {
    duringSaves(course, QStringLiteral("saver"));
}

void duringRegistrations(Course& course) {
    duringSaves(course, QStringLiteral("registrar"));
}

void duringAssessments(Course& course) {
    duringSaves(course, QStringLiteral("assessor"));
}

/// The first save of a result writes the section's log book and two rows of the ward: all of it, or none.
void duringResults(Course& course) {
    const QString file = tests::demoHospital();
    killed(course, programBeside(QStringLiteral("recorder")), {file, QString::fromLatin1(many)}, 200, 1500);
    if (const QString damage = damageOf(file); !damage.isEmpty())
        return course.fail(QStringLiteral("results: ") + damage);
    const auto session = engine::EmbeddedProvider::open(file, {});
    const auto count = [&](const char* query) {
        return base::textOf(ado::runBatch(*session, QString::fromLatin1(query)).rows.at(0, 0)).toInt();
    };
    const int results = count("SELECT COUNT(*) FROM NUCLEAR..tbNucLogBook WHERE CaseNumber LIKE '26-9____'");
    const int logBook =
        count("SELECT COUNT(*) FROM STATION..tbNurseLogBook WHERE RequestNum LIKE '50____' AND "
              "RecordStatus = 'W'");
    const int ward =
        count("SELECT COUNT(*) FROM STATION..tbNurseCommunicationFile WHERE RequestNum LIKE '50____' "
              "AND RecordStatus = 'W'");
    course.count(QStringLiteral("whole results"), results);
    if (logBook != results || ward != results)
        course.fail(
            QStringLiteral("%1 results, %2 and %3 rows of the ward").arg(results).arg(logBook).arg(ward));
    tests::forgetHospital(file);
}

/// Charged lines are cancelled one after the other: each is taken back on the bill, at the wards' and in its
/// request, or nowhere.
void duringCancellations(Course& course) {
    constexpr int lines = 150;
    const QString file = tests::demoHospital();
    {
        const auto session = engine::EmbeddedProvider::open(file, {});
        session->useDatabase(QStringLiteral("NUCLEAR"));
        session->begin();
        for (int number = 90001; number <= 90000 + lines; ++number) {
            for (const char* text : {"sp_Nuclear_AddRequest '104078','26004078','%1', "
                                     "'1001','100','204','I', 'C%1J','1001','%1','','1', "
                                     "'','NU'",
                                     "sp_addnurselogbook '104078','26004078', '1001','EXAM','100', "
                                     "'1001','1001', 'C%1J','NU','I','%1','1'",
                                     "sp_addbill 'I','26004078','11/21/2026 08:00:00 AM','C%1J', "
                                     "'1001','100','NU','1001','1','','', "
                                     "'104078'"})
                ado::runBatch(*session, QString::fromLatin1(text).arg(number));
        }
        session->commit();
    }
    killed(course, programBeside(QStringLiteral("canceller")), {file, QString::number(lines)}, 200, 1500);
    if (const QString damage = damageOf(file); !damage.isEmpty())
        return course.fail(QStringLiteral("cancellations: ") + damage);
    const auto session = engine::EmbeddedProvider::open(file, {});
    const auto count = [&](const char* query) {
        return base::textOf(ado::runBatch(*session, QString::fromLatin1(query)).rows.at(0, 0)).toInt();
    };
    const int revoked = count(
        "SELECT COUNT(*) FROM NUCLEAR..tbNucMaster WHERE RequestNum LIKE '90___' AND RequestStatus = 'R'");
    const int reversed =
        count("SELECT COUNT(*) FROM BILLING..tbDailyBill B INNER JOIN NUCLEAR..tbNucMaster N ON N.RefNum = "
              "B.RefNum WHERE N.RequestNum LIKE '90___' AND B.Marker = 'D' AND N.RequestStatus = 'R'");
    const int all =
        count("SELECT COUNT(*) FROM BILLING..tbDailyBill WHERE RefNum LIKE 'C90___J' AND Marker = 'D'");
    const int ward = count(
        "SELECT COUNT(*) FROM STATION..tbNurseLogBook WHERE RequestNum LIKE '90___' AND RecordStatus = 'R'");
    course.count(QStringLiteral("whole cancellations"), revoked);
    if (reversed != revoked || all != revoked || ward != revoked)
        course.fail(QStringLiteral("%1 cancelled, %2 of %3 reversals theirs, %4 at the wards'")
                        .arg(revoked)
                        .arg(reversed)
                        .arg(all)
                        .arg(ward));
    tests::forgetHospital(file);
}

/// The first start makes the hospital; the next one finds it whole, or makes it.
void duringFirstStart(Course& course) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("hospital.scintra"));
    const QString program = programBeside(QStringLiteral("../bin/scintra-server"));
    const QString command = course.number(2) == 0 ? QStringLiteral("demo") : QStringLiteral("init");
    const bool dead = killed(course, program, {command, file}, 1, 1200);
    if (dead && !QFile::exists(file) && !works(program, {command, file}))
        return course.fail(command + QStringLiteral(": the next start does not make it"));
    if (const QString damage = damageOf(file); !damage.isEmpty())
        return course.fail(command + QStringLiteral(": ") + damage);
    if (Books::of(file).slips < 0)
        course.fail(command + QStringLiteral(": no number row"));
}

/// A copy under way: the copy of before or the new one stands there, and the hospital is as it was.
void duringBackup(Course& course) {
    const QString file = tests::demoHospital();
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.scintra"));
    const QString program = programBeside(QStringLiteral("../bin/scintra-server"));
    const Books before = Books::of(file);
    const bool dead = killed(course, program, {"backup", file, copy}, 1, 120);
    expectWhole(course, QStringLiteral("backup"), file, before);
    if (QFile::exists(copy))
        expectWhole(course, QStringLiteral("copy"), copy, before);
    const QString second = folder.filePath(QStringLiteral("second.scintra"));
    if (dead && !works(program, {"backup", file, second}))
        course.fail(QStringLiteral("backup: the next one fails"));
    if (dead && !course.failed())
        expectWhole(course, QStringLiteral("second copy"), second, before);
    tests::forgetHospital(file);
}

} // namespace

void kills(Course& course) {
    constexpr std::array moments{duringRequests,   duringResults, duringRegistrations, duringAssessments,
                                 duringFirstStart, duringBackup,  duringCancellations};
    while (course.goesOn())
        moments[std::size_t(course.rounds() - 1) % moments.size()](course);
}

} // namespace attacks
