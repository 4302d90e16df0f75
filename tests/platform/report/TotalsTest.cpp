// What the stored reports print of the section's lines must agree: with each other, and with the tables.
#include "tests/platform/report/Totals.h"

using tests::busy;
using tests::centsOf;
using tests::Line;
using tests::numberIn;
using tests::Paper;
using tests::Period;
using tests::Sum;
using tests::Totals;
using tests::year;

// --- the section's lines

class TotalsOf : public Totals, public testing::WithParamInterface<Period> {};

TEST_P(TotalsOf, TransactionsAreWhatTheTablesHoldWithoutTheRevoked) {
    const Period& period = GetParam();
    const Paper printed = transactions(period);
    EXPECT_EQ(printed.total("Total, "),
              sumOf([&](const Line& line) { return line.in(period) && !line.revoked(); }));
    EXPECT_EQ(printed.groups(), printed.total("Total, ")); // the days
    EXPECT_GT(printed.total("Total, ").count, 50);
}

TEST_P(TotalsOf, MonthlyIsTransactionsWithoutSupplies) {
    const Period& period = GetParam();
    const Sum supplies =
        sumOf([&](const Line& line) { return line.in(period) && !line.revoked() && !line.procedure(); });
    EXPECT_GT(supplies.count, 5);
    EXPECT_EQ(over(period, "NucMonthlyReport.RPT").total("Total, "),
              transactions(period).total("Total, ") - supplies);
}

TEST_P(TotalsOf, ByDateByExamByDoctorAndInTheStatisticsItIsTheSame) {
    const Period& period = GetParam();
    const Sum expected =
        sumOf([&](const Line& line) { return line.in(period) && !line.revoked() && line.procedure(); });
    const Paper byExam = over(period, "NucMonthlyReportPerExam.RPT");
    const Paper byDoctor = over(period, "NucRequestingDoctorreport.RPT");
    EXPECT_EQ(over(period, "NucMonthlyReport.RPT").total("Total, "), expected);
    EXPECT_EQ(byExam.total("Total, "), expected);
    EXPECT_EQ(byExam.groups(), expected);
    EXPECT_EQ(byDoctor.total("All doctors, "), expected);
    EXPECT_EQ(byDoctor.groups(), expected);

    const QStringList statistics = over(period, "NucStatisticalReport.RPT").line("Total");
    ASSERT_EQ(statistics.size(), 6);
    EXPECT_EQ((Sum{numberIn(statistics[4]), centsOf(statistics[5])}), expected);
    const char kinds[] = {'I', 'O', 'W'};
    for (int i = 0; i < 3; ++i) {
        const Sum ofKind = sumOf([&](const Line& line) {
            return line.in(period) && !line.revoked() && line.procedure() && line.kind == kinds[i];
        });
        EXPECT_EQ(numberIn(statistics[1 + i]), ofKind.count) << kinds[i];
        EXPECT_GT(ofKind.count, 0) << kinds[i];
    }
}

TEST_P(TotalsOf, TheAuditOfAllIsThatOfInOutAndCashPatients) {
    const Period& period = GetParam();
    const char kinds[] = {'I', 'O', 'W'};
    Sum together;
    for (int option = 0; option < 3; ++option) {
        const Paper part = audit(period, option);
        const Sum printed = part.total("Total, ");
        EXPECT_EQ(part.groups(), printed) << option;
        const auto ofKind = [&](const Line& line) { return line.in(period) && line.kind == kinds[option]; };
        EXPECT_EQ(printed.count, sumOf(ofKind).count) << option; // the revoked are listed, not counted
        EXPECT_EQ(printed.cents,
                  sumOf([&](const Line& line) { return ofKind(line) && !line.revoked(); }).cents)
            << option;
        together = together + printed;
    }
    const Paper all = audit(period, 3);
    EXPECT_EQ(all.total("Total, "), together);
    EXPECT_EQ(all.groups(), together);
    const int revoked = sumOf([&](const Line& line) { return line.in(period) && line.revoked(); }).count;
    EXPECT_GT(revoked, 2);
    EXPECT_TRUE(
        all.line("Total, ")[0].endsWith(QStringLiteral(" lines, %1 revoked and not counted").arg(revoked)))
        << qPrintable(all.line("Total, ")[0]);
    EXPECT_EQ(transactions(period).total("Total, "), (Sum{together.count - revoked, together.cents}));
}

INSTANTIATE_TEST_SUITE_P(Reports, TotalsOf, testing::Values(busy, year),
                         [](const auto& period) { return period.param.name; });

TEST_F(Totals, ChargedMinusCancelledIsLeft) {
    const Sum charged = sumOf([](const Line& line) { return line.in(year); });
    EXPECT_EQ(transactions(year).total("Total, "),
              charged - over(year, "NucCancelledProcedures.RPT").total("Cancelled, "));
}

TEST_F(Totals, CancelledLinesCountOnTheDayOfTheirReversal) {
    // Those that the made-up hospital keeps with their day, and those that the screen revoked.
    const Sum revoked{busyPeriod().revokedLines(), busyPeriod().revokedCents()};
    const Sum kept = amounts("SELECT Amount FROM tbNucMaster WHERE RequestStatus = 'R' AND RevokeDate >= "
                             "'2026-11-09' AND RevokeDate < '2026-11-21'");
    EXPECT_GT(kept.count, 0);
    EXPECT_EQ(over(busy, "NucCancelledProcedures.RPT").total("Cancelled, "), kept + revoked);
}

// --- the income

TEST_F(Totals, TheDaysIncomeAddsUpToTheCharges) {
    QSet<QString> days =
        column("SELECT DISTINCT CONVERT(varchar(10), TransDate, 101) FROM BILLING..tbDailyBill");
    days.unite(column("SELECT DISTINCT CONVERT(varchar(10), TransDate, 101) FROM BILLING..tbCashReceipt"));
    EXPECT_GT(days.size(), 30);
    Sum charges, cash;
    for (const QString& day : days) {
        const Paper inOut = paper("NucDailyIncomeReport.RPT", {"A", day});
        const Paper paid = paper("NucDailyIncomeReport.RPT", {"B", day});
        EXPECT_EQ(inOut.groups().cents, inOut.total("Income of the day").cents) << qPrintable(day);
        EXPECT_EQ(paid.groups().cents, paid.total("Income of the day").cents) << qPrintable(day);
        charges = charges + inOut.groups();
        cash = cash + paid.groups();
    }
    EXPECT_EQ(charges, amounts("SELECT Amount FROM BILLING..tbDailyBill WHERE RevenueID = 'NU'"));
    EXPECT_EQ(
        cash,
        amounts(
            "SELECT Amount FROM BILLING..tbCashAssessment WHERE RevenueID = 'NU' AND RecordStatus = '1'"));
    // Every procedure is either charged to an account or paid by receipt, and what was revoked is taken off
    // again.
    EXPECT_EQ(charges.cents + cash.cents, over(year, "NucMonthlyReport.RPT").total("Total, ").cents);
}

TEST_F(Totals, ADaysIncomeHoldsItsFirstAndLastMoment) {
    const Paper first = paper("NucDailyIncomeReport.RPT", {"A", "11/09/2026"});
    EXPECT_EQ(first.groups(), amounts("SELECT Amount FROM BILLING..tbDailyBill WHERE RevenueID = 'NU' AND "
                                      "TransDate >= '2026-11-09' AND TransDate < '2026-11-10'"));
    EXPECT_EQ(first.count("00:00"), 3) << "charged in and out, and a reversal";
}
