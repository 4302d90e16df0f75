#include "bench/HospitalFile.h"
#include "bench/LogOn.h"
#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/OrderLines.h"

#include "entry/RequestColumns.h"
#include "entry/RequestPosting.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"

#include <QCoreApplication>
#include <QProcess>

#include <sched.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>

namespace bench {

namespace {

constexpr int desksAtOnce = 16;
constexpr int millisecondsEach = 3000;
constexpr int rounds = 3;
constexpr double longestMilliseconds = 1000;

/// What a crowd of desks did in its time.
struct Crowd {
    double nanosecondsASave = 0;
    double longest = 0; ///< milliseconds from a save's begin to its end on disk
};

using Desk = std::unique_ptr<QProcess>;

/// Nanoseconds, the same for all processes of the computer.
qint64 now() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

/// What is measured ahead of all others shall not keep its own kind from the processors.
void takeTurns() {
    sched_param own{};
    if (sched_getscheduler(0) == SCHED_FIFO && sched_getparam(0, &own) == 0)
        sched_setscheduler(0, SCHED_RR, &own);
}

QList<QByteArray> answerOf(QProcess& desk) {
    while (!desk.canReadLine())
        if (!desk.waitForReadyRead(60'000))
            throw base::RunTimeError(5, QStringLiteral("A desk says nothing: ") +
                                            QString::fromUtf8(desk.readAllStandardError()));
    return desk.readLine().trimmed().split(' ');
}

/// All are logged on before the first one saves.
Crowd atOnce(const QString& file, int count) {
    std::vector<Desk> desks;
    for (int i = 0; i < count; ++i) {
        desks.push_back(std::make_unique<QProcess>());
        desks.back()->start(QCoreApplication::applicationFilePath(), {QStringLiteral("--desk"), file});
    }
    for (const Desk& desk : desks)
        answerOf(*desk);
    const qint64 end = now() + millisecondsEach * 1'000'000LL;
    for (const Desk& desk : desks) {
        desk->write(QByteArray::number(end) + '\n');
        desk->waitForBytesWritten();
    }
    Crowd crowd;
    double saves = 0;
    for (const Desk& desk : desks) {
        const QList<QByteArray> answer = answerOf(*desk);
        saves += answer.value(0).toDouble();
        crowd.longest = std::max(crowd.longest, answer.value(1).toDouble());
    }
    for (const Desk& desk : desks)
        desk->waitForFinished();
    crowd.nanosecondsASave = millisecondsEach * 1e6 / saves;
    return crowd;
}

} // namespace

bool desks(const QString& folder) {
    const QString hospital = hospitalFile(folder, 0);
    double longest = 0;
    double longestAlone = 0;
    const auto crowd = [&](int count, double& longestOfAll) {
        return [&hospital, &longestOfAll, count](int) {
            const Crowd found = atOnce(copyOf(hospital, QStringLiteral("desks.scintra")), count);
            longestOfAll = std::max(longestOfAll, found.longest);
            return qint64(found.nanosecondsASave);
        };
    };
    const Outcome outcome = interleave(rounds, 0, crowd(desksAtOnce, longest), crowd(1, longestAlone));
    bool met = Report::line(QStringLiteral("a save of 16 desks at once / of one"), outcome, 1 / 0.9);
    met &= Report::amounts(QStringLiteral("longest save of 16 desks / a second"), longest,
                           longestMilliseconds, QStringLiteral("ms"), 1);
    Report::note(QStringLiteral("  longest of one desk: %1 ms").arg(longestAlone, 0, 'f', 1));
    return met;
}

int desk(const QString& file) {
    takeTurns();
    logOnTo(file);
    controls::FlexGrid lines;
    lines.setCols(entry::requestColumnCount);
    controls::FlexGrid unused;
    fill(lines, tenLines());
    const session::RequestEntry request{.PatIdNum = QStringLiteral("26004078"),
                                        .PatientType = QStringLiteral("I")};
    const entry::PostingHeader header{request, QStringLiteral("104078"), request.PatIdNum,
                                      QStringLiteral("201"), QStringLiteral("204")};
    std::puts("ready");
    std::fflush(stdout);
    long long end = 0;
    if (std::scanf("%lld", &end) != 1)
        return 1;
    const auto save = [&] {
        entry::RequestPosting posting(entry::inPatientPosting, header, lines, unused);
        session::gConnection->BeginTrans();
        posting.post();
        session::gConnection->CommitTrans();
    };
    int saves = 0;
    qint64 longest = 0;
    for (; now() < end; ++saves)
        longest = std::max(longest, timed(save));
    std::printf("%d %.1f\n", saves, double(longest) / 1e6);
    std::fflush(stdout);
    session::forgetSession();
    return 0;
}

} // namespace bench
