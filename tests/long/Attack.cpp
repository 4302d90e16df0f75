#include "tests/long/Attack.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>

namespace attacks {

Course::Course(quint32 seed, int seconds, int rounds)
    : m_seed(seed), m_milliseconds(qint64(seconds) * 1000), m_most(rounds), m_random(seed) {
    m_clock.start();
}

bool Course::goesOn() {
    if (failed() || (m_most > 0 && m_rounds >= m_most) ||
        (m_milliseconds > 0 && m_clock.elapsed() >= m_milliseconds))
        return false;
    ++m_rounds;
    return true;
}

int Course::number(int below) {
    return int(m_random() % unsigned(below));
}

void Course::fail(const QString& what) {
    m_faults += what;
}

void Course::tell(const char* attack) const {
    std::printf("%s: %d rounds in %.1f s", attack, m_rounds, double(m_clock.elapsed()) / 1000);
    for (const auto& [figure, value] : m_figures)
        std::printf(", %s %lld", qPrintable(figure), static_cast<long long>(value));
    std::printf("\n");
    for (const QString& fault : m_faults)
        std::printf("FAULT %s\n", qPrintable(fault));
    std::printf("%s: %s (seed %u)\n", attack, failed() ? "FAILED" : "passed", m_seed);
    std::fflush(stdout);
}

Ended runPart(const char* attack, const QStringList& words, int seconds) {
    return runProgram(QCoreApplication::applicationFilePath(),
                      QStringList{QStringLiteral("--part"), QString::fromLatin1(attack)} + words, seconds);
}

Ended runProgram(const QString& program, const QStringList& words, int seconds) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, words);
    const bool ended = process.waitForFinished(seconds * 1000);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    Ended result;
    result.said = QString::fromUtf8(process.readAll());
    if (!ended)
        result.how = QStringLiteral("never ended");
    else if (process.exitStatus() == QProcess::CrashExit)
        result.how = QStringLiteral("crashed");
    else if (process.exitCode() != 0)
        result.how = QStringLiteral("exit code %1").arg(process.exitCode());
    result.good = result.how.isEmpty();
    return result;
}

QString programBeside(const QString& name) {
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

} // namespace attacks
