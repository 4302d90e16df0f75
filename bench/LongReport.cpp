#include "bench/Measure.h"
#include "bench/Measures.h"

#include "platform/base/Error.h"

#include <QCoreApplication>
#include <QLocale>
#include <QProcess>

namespace bench {

namespace {

struct Taken {
    qint64 nanoseconds = 0;
    double mebibytes = 0;
};

/// Each in a process of its own, so that its peak memory is its own.
Taken taken(const QString& what, qint64 rows, const QString& folder) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/bench-report"),
                  {what, QString::number(rows), folder + QStringLiteral("/report.pdf")});
    process.waitForFinished(600'000);
    const QList<QByteArray> words = process.readAllStandardOutput().trimmed().split(' ');
    if (words.size() != 2)
        throw base::RunTimeError(5, QStringLiteral("bench-report %1 failed.").arg(what));
    return {words[0].toLongLong(), words[1].toDouble() / (1024 * 1024)};
}

QString named(qint64 rows) {
    return QLocale(QLocale::English).toString(rows);
}

} // namespace

bool longReport(const QString& folder) {
    bool met = true;
    double peak = 0;
    const auto runOf = [&](const QString& what, qint64 rows, double& memory) {
        return [&, what, rows](int) {
            const Taken one = taken(what, rows, folder);
            memory = std::max(memory, one.mebibytes);
            return one.nanoseconds;
        };
    };
    for (const auto& [rows, rounds] : {std::pair<qint64, int>{10'000, 9}, {100'000, 5}}) {
        peak = 0;
        double bare = 0;
        const Outcome outcome = interleave(rounds, 1, runOf(QStringLiteral("pdf"), rows, peak),
                                           runOf(QStringLiteral("bare"), rows, bare));
        met &= Report::line(QStringLiteral("%1 rows to PDF / bare painter").arg(named(rows)), outcome, 1.2);
        Report::amounts(QStringLiteral("  peak memory"), peak, bare, QStringLiteral("MiB"), 0);
    }
    constexpr double memoryGoal = 150;
    met &= Report::amounts(QStringLiteral("  peak memory / what it may be"), peak, memoryGoal,
                           QStringLiteral("MiB"), 1.0);
    const Taken million = taken(QStringLiteral("pdf"), 1'000'000, folder);
    met &= Report::amounts(QStringLiteral("peak memory, 1,000,000 / 100,000 rows"), million.mebibytes, peak,
                           QStringLiteral("MiB"), 1.2);
    Report::note(
        QStringLiteral("  1,000,000 rows to PDF in %1 s").arg(double(million.nanoseconds) / 1e9, 0, 'f', 1));
    constexpr double screenGoal = 100;
    std::vector<double> shown;
    for (int i = 0; i < 7; ++i)
        shown.push_back(double(taken(QStringLiteral("screen"), 1'000'000, folder).nanoseconds) / 1e6);
    std::sort(shown.begin(), shown.end());
    met &= Report::amounts(QStringLiteral("first page of 1,000,000 rows / what it may be"),
                           shown[shown.size() / 2], screenGoal, QStringLiteral("ms"), 1.0);
    return met;
}

} // namespace bench
