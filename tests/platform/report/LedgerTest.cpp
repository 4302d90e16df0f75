// The ledger's paper beside the tables that it is made of, for every account of the made-up hospital.
#include "tests/platform/report/Totals.h"

#include <QRegularExpression>
#include <QSet>

namespace {

using tests::centsOf;
using tests::Paper;

class LedgerTest : public tests::Totals {
  protected:
    Paper ledger(const QString& account) {
        QStringList values{account, account.at(0).isLetter() ? "O" : "I"};
        while (values.size() < 14)
            values += QStringLiteral("x");
        return paper("PatientLedger.RPT", values);
    }
    qint64 cents(const QString& query) const {
        qint64 sum = 0;
        for (const QStringList& row : table(query))
            sum += centsOf(row.front());
        return sum;
    }
    static qint64 lastCell(const Paper& paper, const QString& start) {
        return centsOf(paper.line(start).back());
    }
    static qint64 balance(const Paper& paper) {
        const bool owed = paper.count("Balance due") > 0;
        return lastCell(paper, owed ? "Balance due" : "Balance in the patient's favour");
    }
    QString firstOf(const QString& query) const { return table(query).front().front(); }
};

TEST_F(LedgerTest, EveryAccountsBalanceIsItsBillAndStockCardLessItsDeposits) {
    const QSet<QString> accounts = column(
        "SELECT IdNum FROM PATIENT_DATA..tbPatient UNION SELECT IdNum FROM PATIENT_DATA..tbOutPatient");
    int charged = 0;
    int reversed = 0;
    int paid = 0;
    for (const QString& account : accounts) {
        const QString of = QStringLiteral(" WHERE IdNum = '%1'").arg(account);
        const qint64 bill = cents("SELECT Amount FROM BILLING..tbDailyBill" + of);
        const qint64 out =
            cents("SELECT Amount FROM INVENTORY..tbInvStockCard" + of + " AND Direction = 'O'");
        const qint64 back =
            cents("SELECT Amount FROM INVENTORY..tbInvStockCard" + of + " AND Direction = 'I'");
        const qint64 deposits = cents("SELECT Amount FROM BILLING..tbDeposit" + of);
        const Paper paper = ledger(account);
        EXPECT_EQ(lastCell(paper, "Total charged"), bill + out - qAbs(back)) << qPrintable(account);
        EXPECT_EQ(lastCell(paper, "Payments"), -deposits) << qPrintable(account);
        EXPECT_EQ(balance(paper), bill + out - qAbs(back) - deposits) << qPrintable(account);
        charged += bill > 0;
        reversed += paper.line("Total charged").size() == 4 && centsOf(paper.line("Total charged").at(2)) > 0;
        paid += deposits > 0;
    }
    EXPECT_GT(charged, 40);
    EXPECT_GT(reversed, 2);
    EXPECT_GT(paid, 2);
}

TEST_F(LedgerTest, TheLastLinesBalanceIsTheBalanceAndTheDaysAddUp) {
    const QString account = firstOf(
        "SELECT TOP 1 IdNum FROM BILLING..tbDailyBill WHERE Marker = 'D' AND IdNum LIKE 'O%' ORDER BY IdNum");
    const Paper paper = ledger(account);
    qint64 days = 0;
    for (const QString& cell : paper.firstCells()) {
        if (!cell.startsWith("Total of "))
            continue;
        const QStringList line = paper.line(cell);
        days += centsOf(line.at(1)) - centsOf(line.at(2));
    }
    EXPECT_EQ(days, balance(paper));
    static const QRegularExpression time(QStringLiteral("^\\d\\d:\\d\\d$"));
    qint64 running = 0;
    for (const QStringList& line : paper.lines()) {
        if (time.match(line.front()).hasMatch())
            running = centsOf(line.back());
    }
    EXPECT_EQ(running, balance(paper));
}

} // namespace
