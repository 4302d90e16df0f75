// Inputs that are nearly right, for what reads texts.

#include "tests/long/Fuzz.h"

#include "tests/long/FuzzTargets.h"
#include "tests/long/OnDuty.h"
#include "tests/server/engine/Mutator.h"
#include "tests/support/workstation/Watchdog.h"

#include <QSet>

#include <csignal>
#include <cstdlib>

namespace attacks {

namespace {

std::string current;

void tellInput(int signal) {
    std::printf("input %s\n", QByteArray::fromStdString(current).toHex().constData());
    std::fflush(stdout);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

int runBatchOf(const FuzzTarget& target, unsigned seed, int times) {
    std::vector<std::string> pool = corpusOf(target);
    if (pool.empty())
        fault(QStringLiteral("an empty corpus"));
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGILL})
        std::signal(signal, tellInput);
    tests::Mutator mutator(seed);
    QSet<QString> branches;
    for (int i = 0; i < times; ++i) {
        tests::Watchdog::beat();
        const bool asItIs = i < int(pool.size()) && branches.size() <= i;
        current = pool[std::size_t(asItIs ? i : mutator.number(int(pool.size())))];
        if (!asItIs)
            current = mutator.mutated(current);
        const QString branch = target.target(current);
        if (branches.contains(branch))
            continue;
        branches += branch;
        // what came to something new is worth another change
        if (pool.size() < 2000 && current.size() < 100'000)
            pool.push_back(current);
    }
    std::printf("branches %d\n", int(branches.size()));
    return 0;
}

} // namespace

void fuzz(Course& course) {
    while (course.goesOn()) {
        const FuzzTarget& target = fuzzTargets()[std::size_t(course.rounds() - 1) % fuzzTargets().size()];
        const QString name = QString::fromLatin1(target.name);
        const QString seed = QString::number(course.number(1 << 30));
        const QString times = QString::number(target.batch);
        const Ended ended = runPart("fuzz", {name, seed, times});
        course.count(name, target.batch);
        if (!ended.good)
            course.fail(QStringLiteral("%1 %2\n%3Again: --part fuzz %1 %4 %5")
                            .arg(name, ended.how, ended.said, seed, times));
    }
}

int fuzzPart(const QStringList& words) {
    const tests::Watchdog watchdog(30);
    for (const FuzzTarget& target : fuzzTargets()) {
        if (words.value(0) != QLatin1String(target.name))
            continue;
        if (words.size() == 3)
            return runBatchOf(target, words[1].toUInt(), words[2].toInt());
        std::printf("%s\n",
                    qPrintable(target.target(QByteArray::fromHex(words.value(1).toLatin1()).toStdString())));
        return 0;
    }
    return 2;
}

} // namespace attacks
