// The stored definitions, run on the made-up hospital and read back out of their PDF files.
#include "tests/platform/report/StoredReports.h"

#include <QRegularExpression>

namespace {

using DefinitionsTest = tests::StoredReports;

void expectLines(const QString& text, const QStringList& wanted) {
    for (const QString& one : wanted)
        EXPECT_TRUE(text.contains(one)) << qPrintable(one) << "\nin\n" << qPrintable(text.left(6000));
}

const QString from = QStringLiteral("10/01/2026");
const QString to = QStringLiteral("11/21/2026");
const QString inPeriod = QStringLiteral("TransDate >= '2026-10-01' AND TransDate < '2026-11-22'");

} // namespace

TEST_F(DefinitionsTest, TheTransactionReportPrintsTheSameFedInEitherOrder) {
    const QString first = printed("NuclearTrans.RPT", {from, to, "ST. LUCIA'S HOSPITAL", "1 Harbour Road"});
    const QString second = printed("NuclearTrans.RPT", {"ST. LUCIA'S HOSPITAL", "1 Harbour Road", from, to});
    EXPECT_EQ(first, second);
    expectLines(first,
                {"ST. LUCIA'S HOSPITAL\n", "1 Harbour Road\n",
                 "Nuclear Transaction Report From 10/01/2026 to 11/21/2026", "05:04 C20043J 26004034 LAZARO",
                 "12 lines 63,805.50", "Printed 11/21/2026 08:30 AM",
                 "Total, " +
                     value("SELECT COUNT(*) FROM vwNuclearLine WHERE LineStatus <> 'R' AND " + inPeriod) +
                     " lines " +
                     money("SELECT SUM(Amount) FROM vwNuclearLine WHERE LineStatus <> 'R' AND " + inPeriod)});
}

TEST_F(DefinitionsTest, TheListOfProceduresReadsTheExamFileUnderEitherLogOn) {
    const auto report = open("NucExams.RPT", {});
    EXPECT_TRUE(report->parameterNames().isEmpty());
    report->tables().front().database = "BUILD_FILE";
    const QString text = printed(*report);
    EXPECT_EQ(logOns, QStringList{"BUILD_FILE"});
    EXPECT_EQ(text, printed("NucExams.RPT", {}));
    expectLines(text, {"List of Nuclear Procedures 45 procedures", "IMAGING\n",
                       "1003 BONE SCAN, LIMITED 3,800.00 4,100.00 4,560.00 5,130.00 5,700.00 4,370.00 "
                       "3,800.00",
                       "29 procedures", "RADIO-IMMUNOASSAY\n", "HEADING NAME\n"});
}

TEST_F(DefinitionsTest, TheMonthlyReportRunsItsAmountAlong) {
    const QString text = printed("NucMonthlyReport.RPT", {from, to});
    const QString nuclear = QStringLiteral("FROM vwNuclearLine WHERE RevenueID = 'NU' AND LineStatus <> 'R' "
                                           "AND ") +
                            inPeriod;
    const QString total = money("SELECT SUM(Amount) " + nuclear);
    expectLines(text, {"Monthly Performance Report by Transaction Date From 10/01/2026 to 11/21/2026",
                       "Total, " + value("SELECT COUNT(*) " + nuclear) + " procedures " + total});
    EXPECT_EQ(text.count(total), 2); // the last line's running amount is the total
}

TEST_F(DefinitionsTest, TheMonthlyReportPerExamGroupsAndAverages) {
    const QString text = printed("NucMonthlyReportPerExam.RPT", {from, to});
    const QString ofExam = "FROM vwNuclearLine WHERE ItemID = '1207' AND LineStatus <> 'R' AND " + inPeriod;
    expectLines(text, {"1207 ANTI-TG\n", value("SELECT COUNT(*) " + ofExam) + " procedures, " +
                                             money("SELECT AVG(Amount) " + ofExam) + " on average " +
                                             money("SELECT SUM(Amount) " + ofExam)});
    EXPECT_LT(text.indexOf("1207 ANTI-TG"), text.indexOf("1208 ANTI-TPO"));
}

TEST_F(DefinitionsTest, TheStatisticalReportDrawsItsBars) {
    const auto report = open("NucStatisticalReport.RPT", {from, to});
    const auto document = report->run();
    const QString text = printed(*report);
    const QString ofExam = "FROM vwNuclearLine WHERE ItemID = '1010' AND LineStatus <> 'R' AND " + inPeriod;
    const auto ofKind = [&](const char* kind) {
        return value(QStringLiteral("SELECT COUNT(*) %1 AND PatientKind = '%2'").arg(ofExam, kind)) + ' ';
    };
    expectLines(text, {"Statistical Report From 10/01/2026 to 11/21/2026", "Requests by procedure",
                       "1010 HEPATOBILIARY SCAN " + ofKind("I") + ofKind("O") + ofKind("W") +
                           value("SELECT COUNT(*) " + ofExam) + ' ' + money("SELECT SUM(Amount) " + ofExam)});
    const int last = document->pageCount() - 1;
    ASSERT_GT(last, 0);
    EXPECT_TRUE(tests::textsOf(*document, 0).contains("Out-patients"));
    EXPECT_TRUE(tests::textsOf(*document, last).contains("Statistical Report"));
    EXPECT_FALSE(tests::textsOf(*document, last).contains("Out-patients")); // bars stand under no columns
    int bars = 0;
    for (int page = 0; page < document->pageCount(); ++page) {
        for (const report::Item& item : document->page(page)->items) {
            const auto* box = std::get_if<report::Rectangle>(&item);
            bars += box && box->fill == QColor("#2A7F93");
        }
    }
    EXPECT_EQ(QString::number(bars),
              value("SELECT COUNT(DISTINCT ItemID) FROM vwNuclearLine WHERE RevenueID = 'NU' AND "
                    "LineStatus <> 'R' AND " +
                    inPeriod));
}

TEST_F(DefinitionsTest, CancelledProceduresCountByTheDayOfTheRevocation) {
    const QString count = value("SELECT COUNT(*) FROM tbNucMaster WHERE RequestStatus = 'R' AND "
                                "ISNULL(RevokeDate, TransDate) >= '2026-10-01'");
    expectLines(printed("NucCancelledProcedures.RPT", {from, to}),
                {"Report on Cancelled Procedures", "Cancelled, " + count + " lines"});
}

TEST_F(DefinitionsTest, RequestingDoctorsStandEachUnderTheirName) {
    const QString text = printed("NucRequestingDoctorreport.RPT", {from, to});
    const QString ofDoctor = "FROM vwNuclearLine L INNER JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = "
                             "L.DoctorID WHERE D.LastName = 'ABELLA' AND D.FirstName = 'CLARA' AND "
                             "L.RevenueID = 'NU' AND L.LineStatus <> 'R' AND " +
                             inPeriod;
    expectLines(text, {"DR. ABELLA, CLARA\n", "All doctors, ",
                       value("SELECT COUNT(*) " + ofDoctor) + " procedures " +
                           money("SELECT SUM(Amount) " + ofDoctor)});
    EXPECT_EQ(text.count("DR. ABELLA, CLARA"), 1);
}

TEST_F(DefinitionsTest, TheDailyIncomeTellsChargesFromCash) {
    const QString on = QStringLiteral(" WHERE CONVERT(varchar(10), %2.TransDate, 101) = '%1'");
    const QString day = value(
        "SELECT CONVERT(varchar(10), MAX(TransDate), 101) FROM BILLING..tbDailyBill WHERE Marker = 'D'");
    const QString bill = "FROM BILLING..tbDailyBill B" + on.arg(day, "B") + " AND B.RevenueID = 'NU' ";
    const QString charges = printed("NucDailyIncomeReport.RPT", {"A", day});
    expectLines(charges, {"Daily Income Report: In/Out Patient Charge " + day,
                          " 1 " + money("SELECT MIN(B.Amount) " + bill + "AND B.Marker = 'D'"),
                          "Income of the day " + money("SELECT SUM(B.Amount) " + bill)});
    EXPECT_EQ(charges.contains("\nIN-PATIENTS"),
              value("SELECT COUNT(*) " + bill + "AND PatientType = 'I'") != "0");
    EXPECT_EQ(charges.contains("\nOUT-PATIENTS"),
              value("SELECT COUNT(*) " + bill + "AND PatientType = 'O'") != "0");

    const QString receipts =
        QStringLiteral("FROM BILLING..tbCashAssessment A INNER JOIN BILLING..tbCashReceipt R ON "
                       "R.ORNumber = A.ORNumber");
    const QString cashDay = value("SELECT CONVERT(varchar(10), MAX(R.TransDate), 101) " + receipts);
    const QString cash = printed("NucDailyIncomeReport.RPT", {"B", cashDay});
    expectLines(cash,
                {"Daily Income Report: Cash Patients " + cashDay, "CASH PATIENTS\n",
                 "Income of the day " + money("SELECT SUM(A.Amount) " + receipts + on.arg(cashDay, "R"))});
    EXPECT_FALSE(cash.contains("IN-PATIENTS"));
}

TEST_F(DefinitionsTest, TheAuditTakesOneKindOfPatientOrAll) {
    const QStringList titles{"IN-PATIENT TRANSACTIONS", "OUT-PATIENT TRANSACTIONS",
                             "CASH-PATIENT TRANSACTIONS", "ALL-PATIENT TRANSACTIONS"};
    for (int option = 0; option < 4; ++option) {
        const QString text =
            printed("NuclearMonthlyReport.RPT", {from, to, QString::number(option), "2 Quay Street"});
        expectLines(text, {titles[option] + " From 10/01/2026 to 11/21/2026", "2 Quay Street\n"});
        EXPECT_EQ(text.contains("\nIN-PATIENTS\n"), option == 0 || option == 3) << option;
        EXPECT_EQ(text.contains("\nOUT-PATIENTS\n"), option == 1 || option == 3) << option;
        EXPECT_EQ(text.contains("\nCASH PATIENTS\n"), option == 2 || option == 3) << option;
    }
}

TEST_F(DefinitionsTest, TheReaderReportOpensWithoutDates) {
    expectLines(printed("ReaderReport.RPT", {"VALE HOSPITAL", "1 Harbour Road", from, to}),
                {"VALE HOSPITAL\n", "Readers Fee Report From 10/01/2026 to 11/21/2026",
                 "DR. DE LEON, BEATRIZ\n", " 20 ", "All readers"});
    const QString cancelled = printed("ReaderReport.RPT", {"VALE HOSPITAL", "1 Harbour Road", "CANCEL", to});
    expectLines(cancelled, {"No dates were chosen", "Choose a first and a last day to print this report.",
                            "All readers 0.00 0.00"});
    EXPECT_FALSE(cancelled.contains("DR. "));
}

TEST_F(DefinitionsTest, TheCommisionIsAShareOfTheFees) {
    const QString text = printed("DoctorsCommisionReport.RPT",
                                 {"VALE HOSPITAL", "1 Harbour Road", "NU", "REYES, JOAN P.", from, to});
    expectLines(text, {"VALE HOSPITAL\n", "Charged from 10/01/2026 to 11/21/2026", "DR. DE LEON, BEATRIZ\n",
                       "16 lines 20,000.00 10,320.00", "Printed by REYES, JOAN P., 11/21/2026 08:30 AM"});
    EXPECT_FALSE(printed("DoctorsCommisionReport.RPT", {"V", "A", "XX", "R", from, to}).contains("DR. "));
}

TEST_F(DefinitionsTest, TheCommisionPaidGoesByTheDayOfThePayment) {
    const QStringList rest{"NU", "VALE HOSPITAL", "1 Harbour Road", "REYES, JOAN P."};
    const QString text = printed("DoctorsCommisionPaid.RPT", QStringList{"11/16/2026", to} + rest);
    expectLines(text,
                {"VALE HOSPITAL\n", "Paid from 11/16/2026 to 11/21/2026", "DR. SANTOS, ALBERTO\n",
                 "11/16/2026 C20111J LAZARO, HERMINIA ONG Reader's fee FREE T4 UMALI, ROSARIO G. 380.00",
                 "7 payments 5,680.00",
                 "All doctors " + money("SELECT SUM(Amount) FROM CARDIO..tbReaderPayment WHERE "
                                        "PaidDate >= '2026-11-16'")});
    EXPECT_FALSE(text.contains("11/01/2026"));
    expectLines(
        printed("DoctorsCommisionPaid.RPT", QStringList{"CANCEL", to} + rest),
        {"No dates were chosen", "Choose a first and a last day to print this report.", "All doctors 0.00"});
}

TEST_F(DefinitionsTest, TheGrandCensusGivesItsTreeByRoomClass) {
    const auto report = open("GrandCensus_NVH.RPT", {"2026/11/21"});
    const auto document = report->run();
    QStringList classes;
    for (const report::TreeEntry& entry : document->groupTree())
        classes << entry.text;
    EXPECT_EQ(classes, (QStringList{"ROOM NOT ON FILE", "ROOM CLASS A", "ROOM CLASS B", "ROOM CLASS C",
                                    "ROOM CLASS D", "ROOM CLASS E"}));
    const QString present = value("SELECT COUNT(*) FROM PATIENT_DATA..tbPatient WHERE DcrDate IS NULL OR "
                                  "DcrDate >= '2026-11-21'");
    expectLines(printed(*report), {"Grand Census As of 11/21/2026", "All patients: " + present});
}

TEST_F(DefinitionsTest, TheCensusByStationEndsWithItsSummary) {
    const auto report = open("CensusByStation_Nvh.RPT", {"11/21/2026"});
    report::Report& summary = report->subReport("Summary");
    EXPECT_EQ(summary.parameterNames(), (QStringList{"Database", "Day"}));
    summary.setParameter(0, "PATIENT_DATA");
    summary.setParameter(1, tests::toServerDays("2026/11/21"));
    const QString present = value("SELECT COUNT(*) FROM PATIENT_DATA..tbPatient WHERE DcrDate IS NULL OR "
                                  "DcrDate >= '2026-11-21'");
    const QString text = printed(*report);
    expectLines(text, {"Census by Station As of 11/21/2026", "EMERGENCY ROOM\n", "All patients: " + present,
                       "Station Class A Class B Class C Class D Class E No class Patients",
                       "NO STATION 0 0 0 0 0 1 1", "EMERGENCY ROOM 6 0 0 0 0 0 6"});
    EXPECT_TRUE(text.contains(QRegularExpression("All stations( \\d+){6} " + present)));
    EXPECT_GT(text.indexOf("Summary"), text.indexOf("All patients"));
}

TEST_F(DefinitionsTest, ADayWithoutRowsSaysSoOnOnePage) {
    const QStringList day{"01/01/2001", "01/01/2001"};
    const struct {
        const char* file;
        QStringList values;
        const char* sentence;
    } reports[] = {
        {"NuclearTrans.RPT", day + QStringList{"H", "A"}, "No transactions in this period."},
        {"NucMonthlyReport.RPT", day, "No procedures in this period."},
        {"NucMonthlyReportPerExam.RPT", day, "No procedures in this period."},
        {"NucStatisticalReport.RPT", day, "No procedures in this period."},
        {"NucCancelledProcedures.RPT", day, "Nothing was cancelled in this period."},
        {"NucRequestingDoctorreport.RPT", day, "No procedures in this period."},
        {"NucDailyIncomeReport.RPT", {"A", day[0]}, "No income on this day."},
        {"NucDailyIncomeReport.RPT", {"B", day[0]}, "No income on this day."},
        {"NuclearMonthlyReport.RPT", day + QStringList{"3", "A"}, "No transactions in this period."},
        {"ReaderReport.RPT", QStringList{"H", "A"} + day, "No results were read in this period."},
        {"DoctorsCommisionReport.RPT", QStringList{"H", "A", "NU", "U"} + day,
         "No doctors' fees were charged in this period."},
        {"DoctorsCommisionPaid.RPT", day + QStringList{"NU", "H", "A", "U"},
         "No doctor was paid in this period."},
        {"GrandCensus_NVH.RPT", {"2001/01/01"}, "No patient lay in the house on this day."},
        {"CensusByStation_Nvh.RPT", {"01/01/2001"}, "No patient lay in the house on this day."}};
    for (const auto& [file, values, sentence] : reports) {
        const auto document = open(file, values)->run();
        ASSERT_EQ(document->pageCount(), 1) << file;
        EXPECT_TRUE(report::textOf(*document->page(0)).contains(sentence)) << file;
    }
    // With rows, no report says that there are none.
    EXPECT_FALSE(printed("NuclearTrans.RPT", {from, to, "H", "A"}).contains("No transactions"));
}
