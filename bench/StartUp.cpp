#include "bench/HospitalFile.h"
#include "bench/Measure.h"
#include "bench/Measures.h"

#include "platform/base/Error.h"

#include <QCoreApplication>
#include <QProcess>

namespace bench {

namespace {

struct Start {
    qint64 nanoseconds = 0;
    double megabytes = 0;
};

/// From the start of the process to its first painted window.
Start startOf(const QString& program, const QStringList& arguments) {
    Start start;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    bool painted = false;
    start.nanoseconds = timed([&] {
        process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
        painted = process.waitForReadyRead(30'000);
    });
    process.waitForFinished();
    start.megabytes = process.readAllStandardOutput().trimmed().toDouble() / (1024 * 1024);
    if (!painted)
        throw base::RunTimeError(5, QStringLiteral("%1 showed no window.").arg(program));
    return start;
}

} // namespace

bool startUp(const QString& folder) {
    const QString file = hospitalFile(folder, 0);
    double ourMemory = 0;
    double floorMemory = 0;
    const auto runOf = [](const QString& program, const QStringList& arguments, double& memory) {
        return [=, &memory](int) {
            const Start start = startOf(program, arguments);
            memory = std::max(memory, start.megabytes);
            return start.nanoseconds;
        };
    };
    const Outcome outcome = interleave(21, 3, runOf(QStringLiteral("bench-start"), {file}, ourMemory),
                                       runOf(QStringLiteral("bench-minimal"), {}, floorMemory));
    const bool met = Report::line(QStringLiteral("start to log-on shown / bare window"), outcome, 1.35);
    Report::amounts(QStringLiteral("peak memory until then"), ourMemory, floorMemory, QStringLiteral("MB"),
                    0);
    return met;
}

} // namespace bench
