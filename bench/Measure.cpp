#include "bench/Measure.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace bench {

namespace {

Side sideOf(std::vector<qint64> times) {
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) {
        const auto index = std::size_t(share * double(times.size() - 1) + 0.5);
        return double(times[index]);
    };
    return {at(0.5), at(0.95)};
}

QString shown(double nanoseconds) {
    if (nanoseconds < 1e4)
        return QStringLiteral("%1 ns").arg(nanoseconds, 0, 'f', 0);
    if (nanoseconds < 1e7)
        return QStringLiteral("%1 us").arg(nanoseconds / 1e3, 0, 'f', 1);
    return QStringLiteral("%1 ms").arg(nanoseconds / 1e6, 0, 'f', 1);
}

bool put(const QString& name, const QString& ours, const QString& floor, double ratio, double goal) {
    const bool met = goal <= 0 || ratio <= goal;
    const QString wanted =
        goal > 0 ? QStringLiteral("<= %1 %2").arg(goal).arg(met ? u"ok" : u"OVER") : QStringLiteral("-");
    const QString line = QStringLiteral("%1 %2 %3 %4 %5\n")
                             .arg(name, -40)
                             .arg(ours, 26)
                             .arg(floor, 26)
                             .arg(ratio, 7, 'f', 2)
                             .arg(wanted, 11);
    std::fputs(line.toUtf8().constData(), stdout);
    std::fflush(stdout);
    return met;
}

} // namespace

qint64 timed(const std::function<void()>& body) {
    const auto start = std::chrono::steady_clock::now();
    body();
    const auto end = std::chrono::steady_clock::now();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(end - start).count();
}

Outcome interleave(int rounds, int warmUp, const Run& ours, const Run& floor) {
    std::vector<qint64> oursTimes, floorTimes;
    for (int round = 0; round < warmUp + rounds; ++round) {
        qint64 oursTime = 0;
        qint64 floorTime = 0;
        if (round % 2 == 0) {
            oursTime = ours(round);
            floorTime = floor(round);
        } else {
            floorTime = floor(round);
            oursTime = ours(round);
        }
        if (round >= warmUp) {
            oursTimes.push_back(oursTime);
            floorTimes.push_back(floorTime);
        }
    }
    return {sideOf(std::move(oursTimes)), sideOf(std::move(floorTimes))};
}

void Report::heading() {
    const QString line = QStringLiteral("%1 %2 %3 %4 %5\n")
                             .arg(u"measure", -40)
                             .arg(u"ours, median (p95)", 26)
                             .arg(u"floor, median (p95)", 26)
                             .arg(u"ratio", 7)
                             .arg(u"goal", 11);
    std::fputs(line.toUtf8().constData(), stdout);
}

bool Report::line(const QString& name, const Outcome& outcome, double goal) {
    const auto side = [](const Side& one) {
        return QStringLiteral("%1 (%2)").arg(shown(one.median), shown(one.p95));
    };
    return put(name, side(outcome.ours), side(outcome.floor), outcome.ratio(), goal);
}

bool Report::amounts(const QString& name, double ours, double floor, const QString& unit, double goal) {
    const auto amount = [&](double value) { return QStringLiteral("%1 %2").arg(value, 0, 'f', 1).arg(unit); };
    return put(name, amount(ours), amount(floor), floor > 0 ? ours / floor : 0, goal);
}

void Report::note(const QString& text) {
    std::fputs((text + u'\n').toUtf8().constData(), stdout);
}

qint64 peakMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

} // namespace bench
