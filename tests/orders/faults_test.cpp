#include "session/HospitalServer.h"
#include "tests/support/screens/LoggedOn.h"

#include <QFile>
#include <QProcess>
#include <QSet>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

constexpr int died = 77;

/// A demo hospital of its own that other processes work on.
class Faults : public testing::Test {
  public:
    ~Faults() override {
        for (const char* end : {"", "-wal", "-shm"})
            QFile::remove(file + QString::fromLatin1(end));
    }

    std::unique_ptr<QProcess> start(const QStringList& arguments) {
        auto process = std::make_unique<QProcess>();
        process->start(QStringLiteral(SCINTRA_BINARY_DIR "/tests/saver"), QStringList{file} + arguments);
        return process;
    }
    int value(const QString& query) {
        const ado::Result result = session::fileServer(file)->open(QStringLiteral("look"))->execute(query);
        return base::textOf(result.rows.at(0, 0)).toInt();
    }
    /// Rows of every table that a save of the two lines writes, and the stock on hand.
    QList<int> rows() {
        return {
            value("SELECT COUNT(*) FROM NUCLEAR..tbNucMaster"),
            value("SELECT COUNT(*) FROM STATION..tbNurseLogBook"),
            value("SELECT COUNT(*) FROM BILLING..tbDailyBill"),
            value("SELECT COUNT(*) FROM INVENTORY..tbInvStockCard"),
            value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip"),
            value("SELECT RequestNum FROM NUCLEAR..tbNucSlip"),
            value("SELECT -OnHand FROM INVENTORY..tbInvStock WHERE ItemID = '40001' AND LocationID = '224'")};
    }

    QString file = tests::demoHospital();
};

TEST_F(Faults, AProcessKilledAtAnyStepLeavesTheWholeRequestOrNothing) {
    const QList<int> before = rows();
    int step = 1;
    for (;; ++step) {
        auto process = start({"1", QString::number(step)});
        ASSERT_TRUE(process->waitForFinished(60'000));
        if (process->exitCode() == 0)
            break;
        ASSERT_EQ(process->exitCode(), died) << process->readAllStandardOutput().toStdString();
        ASSERT_EQ(rows(), before) << "killed before step " << step;
        ASSERT_LT(step, 100);
    }
    EXPECT_EQ(step, 16) << "begin, thirteen statements and the commit can be cut";
    const QList<int> after = rows();
    EXPECT_EQ(after, (QList<int>{before[0] + 2, before[1] + 2, before[2] + 1, before[3] + 1, before[4] + 1,
                                 before[5] + 2, before[6] + 2}))
        << "the next save works, and is whole";
}

TEST_F(Faults, EightWorkstationsNeverShareANumber) {
    constexpr int workstations = 8;
    constexpr int saves = 6;
    const QList<int> before = rows();
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < workstations; ++i)
        processes.push_back(start({QString::number(saves)}));
    QSet<QString> slips;
    for (auto& process : processes) {
        ASSERT_TRUE(process->waitForFinished(120'000));
        const QString said = QString::fromUtf8(process->readAllStandardOutput());
        ASSERT_EQ(process->exitCode(), 0) << said.toStdString();
        for (const QString& slip : said.split(u'\n', Qt::SkipEmptyParts)) {
            EXPECT_FALSE(slips.contains(slip)) << slip.toStdString();
            slips += slip;
        }
    }
    constexpr int all = workstations * saves;
    EXPECT_EQ(slips.size(), all);
    const QList<int> after = rows();
    EXPECT_EQ(after, (QList<int>{before[0] + 2 * all, before[1] + 2 * all, before[2] + all, before[3] + all,
                                 before[4] + all, before[5] + 2 * all, before[6] + 2 * all}));
    EXPECT_EQ(
        value("SELECT COUNT(*) FROM (SELECT RequestNum FROM NUCLEAR..tbNucMaster GROUP BY RequestNum HAVING "
              "COUNT(*) > 1) AS Twice"),
        0);
}

} // namespace
