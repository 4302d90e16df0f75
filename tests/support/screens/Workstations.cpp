#include "tests/support/screens/Workstations.h"

#include "tests/support/workstation/Workstation.h"

#include <QCoreApplication>
#include <QProcess>

namespace tests {

namespace {

constexpr int mostSteps = 100;
constexpr int longest = 120'000; // milliseconds

} // namespace

std::unique_ptr<QProcess> Workstations::start(const QString& program, const QStringList& arguments) const {
    auto process = std::make_unique<QProcess>();
    process->start(QCoreApplication::applicationDirPath() + u'/' + program,
                   QStringList{hospital.file()} + arguments);
    return process;
}

int Workstations::cutAtEveryStep(const QString& program, const Counts& counts) {
    const QList<int> before = counts();
    for (int step = 1; step < mostSteps; ++step) {
        const auto process = start(program, {"1", QString::number(step)});
        EXPECT_TRUE(process->waitForFinished(longest));
        if (process->exitCode() == 0)
            return step - 1;
        EXPECT_EQ(process->exitCode(), Workstation::died) << process->readAllStandardOutput().toStdString();
        EXPECT_EQ(counts(), before) << "killed before step " << step;
        if (testing::Test::HasFailure())
            return 0;
    }
    ADD_FAILURE() << "never a whole save";
    return 0;
}

QSet<QString> Workstations::saveAtOnce(const QString& program, int workstations, int saves) {
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < workstations; ++i)
        processes.push_back(start(program, {QString::number(saves)}));
    QSet<QString> all;
    for (const auto& process : processes) {
        EXPECT_TRUE(process->waitForFinished(longest));
        const QString said = QString::fromUtf8(process->readAllStandardOutput());
        EXPECT_EQ(process->exitCode(), 0) << said.toStdString();
        for (const QString& line : said.split(u'\n', Qt::SkipEmptyParts)) {
            EXPECT_FALSE(all.contains(line)) << line.toStdString();
            all += line;
        }
    }
    return all;
}

} // namespace tests
