// What the stored reports print must agree: with each other, and with the tables as this test adds them up by
// itself.
#include "platform/base/Conversion.h"
#include "tests/platform/report/BusyPeriod.h"
#include "tests/platform/report/Paper.h"
#include "tests/platform/report/StoredReports.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <map>

namespace {

using tests::centsOf;
using tests::numberIn;
using tests::Paper;
using tests::Sum;

struct Period {
    const char* name;
    const char *from, *to;   ///< as the reports take it
    const char *first, *end; ///< as the tables hold it; `end` is the day after the last
};
void PrintTo(const Period& period, std::ostream* stream) {
    *stream << period.name;
}

constexpr Period busy{"Busy", tests::BusyPeriod::first, tests::BusyPeriod::last, "2026-11-09", "2026-11-21"};
constexpr Period year{"Year", "01/01/2026", "12/31/2026", "2026-01-01", "2027-01-01"};

/// One line as the tables hold it.
struct Line {
    QString moment, idNum, revenue, item, status, number, refNum;
    qint64 cents;
    char kind; ///< 'I', 'O', 'W'
    bool cash; ///< stands in the cashier's table only

    bool in(const Period& period) const { return moment >= period.first && moment < period.end; }
    bool revoked() const { return status == "R"; }
    bool procedure() const { return revenue == "NU"; }
};

class Totals : public tests::StoredReports {
  protected:
    static const QTemporaryDir& busyFolder() {
        static const QTemporaryDir made;
        return made;
    }
    /// The made-up hospital with the odd lines in it.
    static const tests::BusyPeriod& busyPeriod() {
        static const tests::BusyPeriod made = [] {
            QFile::copy(demoHospital(), busyFile());
            return tests::BusyPeriod(busyFile());
        }();
        return made;
    }
    static const QString& busyFile() {
        static const QString file = busyFolder().filePath("busy.scintra");
        return file;
    }
    const QString& hospitalFile() const override {
        busyPeriod();
        return busyFile();
    }

    Paper paper(const QString& file, const QStringList& values) { return Paper(*open(file, values)->run()); }
    Paper over(const Period& period, const QString& file) { return paper(file, {period.from, period.to}); }
    Paper audit(const Period& period, int option) {
        return paper("NuclearMonthlyReport.RPT", {period.from, period.to, QString::number(option), "A"});
    }
    Paper transactions(const Period& period) {
        return paper("NuclearTrans.RPT", {period.from, period.to, "H", "A"});
    }

    /// Every row of a query as texts; Null is "".
    std::vector<QStringList> table(const QString& query) const {
        const ado::Rows found = rows(query);
        std::vector<QStringList> all;
        for (qsizetype i = 0; i < found.count(); ++i) {
            QStringList cells;
            for (std::size_t c = 0; c < found.columns.size(); ++c)
                cells << (found.at(i, qsizetype(c)).isNull() ? QString()
                                                             : base::textOf(found.at(i, qsizetype(c))));
            all.push_back(cells);
        }
        return all;
    }
    QSet<QString> column(const QString& query) const {
        QSet<QString> all;
        for (const QStringList& cells : table(query))
            all.insert(cells[0]);
        return all;
    }
    /// The section's lines, put together without the kit: requests, and paid lines that no request was filed
    /// for.
    std::vector<Line> lines() const;
    template <typename Wanted>
    Sum sumOf(Wanted wanted) const {
        Sum sum;
        for (const Line& line : lines()) {
            if (wanted(line))
                sum.add(line.cents);
        }
        return sum;
    }
    /// What a doctor gets of a fee, in hundredths: "doctor/revenue".
    std::map<QString, double> shares() const {
        std::map<QString, double> all;
        for (const QStringList& cells :
             table("SELECT DoctorID, RevenueID, Percentage FROM CARDIO..tbReaderRate"))
            all[cells[0] + '/' + cells[1]] = cells[2].toDouble();
        return all;
    }
};

std::vector<Line> Totals::lines() const {
    const QSet<QString> admitted = column("SELECT IdNum FROM PATIENT_DATA..tbPatient");
    const QSet<QString> outPatients = column("SELECT IdNum FROM PATIENT_DATA..tbOutPatient");
    QSet<QString> filed;
    std::vector<Line> all;
    const auto add = [&](const QStringList& c, bool cash) {
        const char kind = admitted.contains(c[1]) ? 'I' : outPatients.contains(c[1]) ? 'O' : 'W';
        all.push_back({c[0], c[1], c[2], c[3], c[4], c[6], c[7], centsOf(c[5]), kind, cash});
    };
    for (const QStringList& c :
         table("SELECT CONVERT(varchar(23), TransDate, 121), IdNum, RevenueID, ItemID, "
               "RequestStatus, Amount, RequestNum, RefNum FROM tbNucMaster")) {
        filed.insert(c[7] + '/' + c[3]);
        if (!c[3].isEmpty())
            add(c, false);
    }
    for (const QStringList& c : table(
             "SELECT CONVERT(varchar(23), TransDate, 121), IdNum, RevenueID, ItemID, '', Amount, RequestNum, "
             "ORNumber FROM BILLING..tbCashAssessment WHERE RecordStatus = '1' AND RevenueID = 'NU'")) {
        if (!filed.contains(c[7] + '/' + c[3]))
            add(c, true);
    }
    return all;
}

} // namespace

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
    Sum expected{busyPeriod().revokedLines(), busyPeriod().revokedCents()};
    for (const QStringList& c :
         table("SELECT Amount FROM tbNucMaster WHERE RequestStatus = 'R' AND RevokeDate >= "
               "'2026-11-09' AND RevokeDate < '2026-11-21'"))
        expected.add(centsOf(c[0]));
    EXPECT_GT(expected.count, busyPeriod().revokedLines());
    EXPECT_EQ(over(busy, "NucCancelledProcedures.RPT").total("Cancelled, "), expected);
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
    Sum billed, received;
    for (const QStringList& c : table("SELECT Amount FROM BILLING..tbDailyBill WHERE RevenueID = 'NU'"))
        billed.add(centsOf(c[0]));
    for (const QStringList& c :
         table("SELECT Amount FROM BILLING..tbCashAssessment WHERE RevenueID = 'NU' AND "
               "RecordStatus = '1'"))
        received.add(centsOf(c[0]));
    EXPECT_EQ(charges, billed);
    EXPECT_EQ(cash, received);
    // Every procedure is either charged to an account or paid by receipt, and what was revoked is taken off
    // again.
    EXPECT_EQ(charges.cents + cash.cents, over(year, "NucMonthlyReport.RPT").total("Total, ").cents);
}

TEST_F(Totals, ADaysIncomeHoldsItsFirstAndLastMoment) {
    const Paper first = paper("NucDailyIncomeReport.RPT", {"A", "11/09/2026"});
    Sum expected;
    for (const QStringList& c :
         table("SELECT Amount FROM BILLING..tbDailyBill WHERE RevenueID = 'NU' AND TransDate "
               ">= '2026-11-09' AND TransDate < '2026-11-10'"))
        expected.add(centsOf(c[0]));
    EXPECT_EQ(first.groups(), expected);
    EXPECT_EQ(first.count("00:00"), 3) << "charged in and out, and a reversal";
}

// --- readers and doctors

TEST_F(Totals, ReadersGetTheirShareOfWhatTheyRead) {
    std::map<QString, qint64> amounts;
    for (const Line& line : lines())
        amounts[line.number] = line.cents;
    const auto share = shares();
    Sum read, fees;
    for (const QStringList& c : table("SELECT RequestNum, DoctorID FROM tbNucLogBook WHERE Status <> 'R' AND "
                                      "ResultDate >= '2026-11-09' AND ResultDate < '2026-11-21'")) {
        ASSERT_TRUE(amounts.contains(c[0])) << qPrintable(c[0]);
        const auto percentage = share.find(c[1] + "/FN");
        read.add(amounts[c[0]]);
        fees.add(percentage == share.end() ? 0 : qRound64(double(amounts[c[0]]) * percentage->second / 100));
    }
    const Paper printed = paper("ReaderReport.RPT", {"H", "A", busy.from, busy.to});
    EXPECT_EQ(printed.total("All readers", 1).cents, read.cents);
    EXPECT_EQ(printed.total("All readers", 2).cents, fees.cents);
    EXPECT_EQ(printed.groups(1), read);
    EXPECT_EQ(printed.groups(2), fees);
    EXPECT_GT(read.count, 10);
}

TEST_F(Totals, ARevokedResultIsNobodysUntilItIsReadAgain) {
    QStringList cases =
        paper("ReaderReport.RPT", {"H", "A", busy.from, busy.to}).firstCells().filter("26-700");
    cases.sort();
    EXPECT_EQ(cases, (QStringList{"26-7001", "26-7002", "26-7004", "26-7006"}));
}

TEST_F(Totals, TheCommisionIsTheDoctorsShareOfTheFeesCharged) {
    const auto share = shares();
    Sum charged, owed;
    for (const QStringList& c : table(
             "SELECT ItemID, RevenueID, Amount FROM BILLING..tbDailyBill WHERE RevenueID IN ('MD', 'FN') AND "
             "RefNum LIKE 'C%J' AND TransDate >= '2026-11-09' AND TransDate < '2026-11-21'")) {
        const auto percentage = share.find(c[0] + '/' + c[1]);
        charged.add(centsOf(c[2]));
        owed.add(percentage == share.end() ? 0 : qRound64(double(centsOf(c[2])) * percentage->second / 100));
    }
    const Paper printed = paper("DoctorsCommisionReport.RPT", {"H", "A", "NU", "U", busy.from, busy.to});
    EXPECT_EQ(printed.total("All doctors", 1).cents, charged.cents);
    EXPECT_EQ(printed.total("All doctors", 2).cents, owed.cents);
    EXPECT_EQ(printed.groups(1), charged);
    EXPECT_EQ(printed.groups(2), owed);
}

TEST_F(Totals, WhatIsPaidIsNetOfWhatWasTakenBack) {
    Sum paid;
    for (const QStringList& c : table("SELECT Amount, RefNum, RevenueID FROM CARDIO..tbReaderPayment WHERE "
                                      "PaidDate >= '2026-11-09' AND "
                                      "PaidDate < '2026-11-21'")) {
        if (c[2] == "NU" || (c[1].startsWith('C') && c[1].endsWith('J'))) // others are of other departments
            paid.add(centsOf(c[0]));
    }
    const Paper printed = paper("DoctorsCommisionPaid.RPT", {busy.from, busy.to, "NU", "H", "A", "U"});
    EXPECT_EQ(printed.total("All doctors").cents, paid.cents);
    EXPECT_EQ(printed.groups(), paid);
    EXPECT_EQ(printed.line("11/19/2026").last(), "-111.11");
}

TEST_F(Totals, AHalfMonthsCommisionIsPaidOnItsDay) {
    const Sum owed =
        paper("DoctorsCommisionReport.RPT", {"H", "A", "NU", "U", "11/01/2026", "11/15/2026"}).groups(2);
    EXPECT_GT(owed.count, 5);
    EXPECT_EQ(paper("DoctorsCommisionPaid.RPT", {"11/16/2026", "11/16/2026", "NU", "H", "A", "U"}).groups(),
              owed);
}

// --- the census

class Census : public Totals, public testing::WithParamInterface<const char*> {};

TEST_P(Census, ByClassByStationAndInTheSummaryAllPatientsAreTheSame) {
    const QString iso = QString::fromLatin1(GetParam());
    const QString slashed = QString(iso).replace(u'-', u'/');
    const QString american = iso.mid(5, 2) + '/' + iso.right(2) + '/' + iso.left(4);
    int inTheHouse = 0;
    for (const QStringList& c :
         table("SELECT CONVERT(varchar(10), AdmDate, 121), CONVERT(varchar(10), DcrDate, 121) "
               "FROM PATIENT_DATA..tbPatient"))
        inTheHouse += c[0] <= iso && (c[1].isEmpty() || c[1] >= iso);
    EXPECT_GT(inTheHouse, 50);

    const Paper grand = paper("GrandCensus_NVH.RPT", {slashed});
    EXPECT_EQ(numberIn(grand.line("All patients: ")[0]), inTheHouse);
    EXPECT_EQ(grand.groups().count, inTheHouse);

    const auto report = open("CensusByStation_Nvh.RPT", {american});
    report->subReport("Summary").setParameter(0, "PATIENT_DATA");
    report->subReport("Summary").setParameter(1, slashed);
    const Paper byStation(*report->run());
    EXPECT_EQ(numberIn(byStation.line("All patients: ")[0]), inTheHouse);
    EXPECT_EQ(byStation.groups().count, inTheHouse);
    const QStringList summary = byStation.line("All stations");
    ASSERT_EQ(summary.size(), 8);
    int classes = 0;
    for (int i = 1; i < 7; ++i)
        classes += numberIn(summary[i]);
    EXPECT_EQ(classes, inTheHouse);
    EXPECT_EQ(numberIn(summary[7]), inTheHouse);
}

INSTANTIATE_TEST_SUITE_P(Reports, Census, testing::Values("2026-11-20", "2026-11-21", "2026-11-22"));
