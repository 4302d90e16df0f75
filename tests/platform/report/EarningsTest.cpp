// What readers and doctors earn and are paid, and who lies in the house: each told twice and the same.
#include "tests/platform/report/Totals.h"

using tests::busy;
using tests::centsOf;
using tests::Line;
using tests::numberIn;
using tests::Paper;
using tests::Sum;
using tests::Totals;

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
    const QString inPeriod =
        "TransDate >= '2026-11-09' AND TransDate < '2026-11-21' AND RevenueID IN ('MD', 'FN')";
    auto fees = table(
        "SELECT ItemID, RevenueID, Amount FROM BILLING..tbDailyBill WHERE RefNum LIKE 'C%J' AND " + inPeriod);
    const auto cash = table(
        "SELECT ItemID, RevenueID, Amount FROM BILLING..tbCashAssessment WHERE RecordStatus = '1' AND " +
        inPeriod);
    EXPECT_EQ(cash.size(), 1U);
    fees.insert(fees.end(), cash.begin(), cash.end());
    Sum charged, owed;
    for (const QStringList& c : fees) {
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
    report->subReport("Summary").setParameter(1, tests::toServerDays(slashed));
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
