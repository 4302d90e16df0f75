// What stands at the head of each stored report's first page, line by line: heading, period, title, columns,
// rows.
#include "tests/platform/report/StoredReports.h"

#include <ostream>

namespace {

struct FirstPage {
    const char* file;
    QStringList values;
    QStringList lines; ///< each the beginning of one, since long names break where the font wants
};

void PrintTo(const FirstPage& page, std::ostream* stream) {
    *stream << page.file << ' ' << page.values.join(' ').toStdString();
}

class FirstPageOf : public tests::StoredReports, public testing::WithParamInterface<FirstPage> {};

} // namespace

TEST_P(FirstPageOf, ReadsFromTheHeadingToItsRows) {
    const auto report = open(GetParam().file, GetParam().values);
    for (const QString& name : report->subReportNames()) {
        report->subReport(name).setParameter("Database", "PATIENT_DATA");
        report->subReport(name).setParameter("Day", tests::toServerDays("2026/11/21"));
    }
    const QStringList lines = tests::toTestDays(report::textOf(*report->run()->page(0)))
                                  .replace(u'\t', QStringLiteral(" | "))
                                  .split(u'\n');
    const QStringList& wanted = GetParam().lines;
    ASSERT_GT(lines.size(), wanted.size());
    for (qsizetype i = 0; i < wanted.size(); ++i)
        EXPECT_EQ(lines[i].left(wanted[i].size()), wanted[i]);
    EXPECT_TRUE(lines.last().contains("11/21/2026 08:30 AM | Page 1 of ")) << qPrintable(lines.last());
}

INSTANTIATE_TEST_SUITE_P(
    Reports, FirstPageOf,
    testing::Values(
        FirstPage{"NuclearTrans.RPT",
                  {"11/01/2026", "11/21/2026", "VALE HOSPITAL", "1 Harbour Road"},
                  {"VALE HOSPITAL", "1 Harbour Road", "From 11/01/2026 to 11/21/2026",
                   "Nuclear Transaction Report",
                   "Time | Slip No. | Adm. No. | Patient | Type | Code | Procedure | Qty. | Amount",
                   "11/02/2026", "16:35 | C20109J | O26002069 | DE LOS VILLARAMA"}},
        FirstPage{"NucExams.RPT",
                  {},
                  {"HEADING NAME", "HEADING ADDRESS", "45 procedures", "List of Nuclear Procedures",
                   "Code | Procedure | Class A | Class B | Class C | Class D | Class E | HMO | Out-patient",
                   "IMAGING",
                   "1003 | BONE SCAN, LIMITED | 3,800.00 | 4,100.00 | 4,560.00 | 5,130.00 | 5,700.00 | "
                   "4,370.00 | 3,800.00"}},
        FirstPage{
            "NucMonthlyReport.RPT",
            {"11/05/2026", "11/21/2026"},
            {"HEADING NAME", "HEADING ADDRESS", "From 11/05/2026 to 11/21/2026",
             "Monthly Performance Report by Transaction Date",
             "Date | Slip No. | Adm. No. | Patient | Type | Procedure | Requesting Doctor | Amount | To Date",
             "11/05/2026 | C20113J | 26004093 | D'CUNANAN, FERNANDO ROBLES | In | ANTI-TG | CALDERON, ELENA "
             "| 1,560.00 | 1,560.00",
             "11/05/2026 | C20113J | 26004093 | D'CUNANAN, FERNANDO ROBLES | In | ANTI-TPO | CALDERON, ELENA "
             "| 1,560.00 | 3,120.00"}},
        FirstPage{"NucMonthlyReportPerExam.RPT",
                  {"11/01/2026", "11/21/2026"},
                  {"HEADING NAME", "HEADING ADDRESS", "From 11/01/2026 to 11/21/2026",
                   "Monthly Performance Report by Exam",
                   "Date | Slip No. | Adm. No. | Patient | Type | Requesting Doctor | Amount | To Date",
                   "1207  ANTI-TG",
                   "11/05/2026 | C20113J | 26004093 | D'CUNANAN, FERNANDO ROBLES | In | CALDERON, ELENA | "
                   "1,560.00 | 1,560.00"}},
        FirstPage{"NucStatisticalReport.RPT",
                  {"11/01/2026", "11/21/2026"},
                  {"HEADING NAME", "HEADING ADDRESS", "From 11/01/2026 to 11/21/2026", "Statistical Report",
                   "Code | Procedure | In-patients | Out-patients | Cash | Requests | Amount",
                   "1206 | THYROGLOBULIN | 5 | 1 | 0 | 6 | 10,250.00"}},
        FirstPage{
            "NucCancelledProcedures.RPT",
            {"11/01/2026", "11/21/2026"},
            {"HEADING NAME", "HEADING ADDRESS", "From 11/01/2026 to 11/21/2026",
             "Report on Cancelled Procedures",
             "Cancelled | Requested | Slip No. | Patient | Type | Code | Procedure | Cancelled by | Amount",
             "11/02/2026 | 11/02/2026 | C20109J | DE LOS VILLARAMA"}},
        FirstPage{
            "NucRequestingDoctorreport.RPT",
            {"11/01/2026", "11/21/2026"},
            {"HEADING NAME", "HEADING ADDRESS", "From 11/01/2026 to 11/21/2026", "Requesting Doctor Report",
             "Date | Slip No. | Patient | Type | Procedure | Qty. | Amount", "DR. ABELLA, CLARA",
             "11/06/2026 | C20116J | ROMERO, VICENTE RECTO | In | GASTRIC EMPTYING STUDY | 1 | 6,120.00"}},
        FirstPage{"NucDailyIncomeReport.RPT",
                  {"A", "11/19/2026"},
                  {"HEADING NAME", "HEADING ADDRESS", "11/19/2026",
                   "Daily Income Report: In/Out Patient Charge",
                   "Time | Reference | Patient | Code | Procedure | Qty. | Amount", "IN-PATIENTS",
                   "14:30 | C20163J | MADRIGAL, LUNINGNING DAVID | 1204 | T3 | 1 | 770.00"}},
        FirstPage{"NucDailyIncomeReport.RPT",
                  {"B", "11/19/2026"},
                  {"HEADING NAME", "HEADING ADDRESS", "11/19/2026", "Daily Income Report: Cash Patients",
                   "Time | Reference | Patient | Code | Procedure | Qty. | Amount", "CASH PATIENTS",
                   "09:10 | OR31021 | BONDOC, ROMEO RUBEN VARGAS | 1016 | MECKEL'S SCAN | 1 | 4,600.00",
                   "1 line | 4,600.00", "Income of the day | 4,600.00"}},
        FirstPage{"NuclearMonthlyReport.RPT",
                  {"11/01/2026", "11/21/2026", "0", "2 Quay Street"},
                  {"HEADING NAME", "2 Quay Street", "From 11/01/2026 to 11/21/2026",
                   "IN-PATIENT TRANSACTIONS",
                   "Date | Slip No. | Request | Adm. No. | Patient | Procedure | Keyed by | State | Amount",
                   "IN-PATIENTS", "11/03/2026 14:21 | C20110J | 50247 | 26004091 | DE LA ESGUERRA"}},
        FirstPage{"ReaderReport.RPT",
                  {"VALE HOSPITAL", "1 Harbour Road", "11/02/2026", "11/02/2026"},
                  {"VALE HOSPITAL", "1 Harbour Road", "From 11/02/2026 to 11/02/2026", "Readers Fee Report",
                   "Case No. | Read | Patient | Type | Procedure | Amount | % | Fee", "DR. SANTOS, ALBERTO",
                   "26-00086 | 11/02/2026 | DE LOS VILLARAMA"}},
        FirstPage{"DoctorsCommisionReport.RPT",
                  {"VALE HOSPITAL", "1 Harbour Road", "NU", "REYES, JOAN P.", "11/01/2026", "11/21/2026"},
                  {"VALE HOSPITAL", "1 Harbour Road", "Charged from 11/01/2026 to 11/21/2026",
                   "Doctor's Commision Report",
                   "Date | Slip No. | Patient | Type | Fee | Amount | % | Commision", "DR. DE LEON, BEATRIZ",
                   "11/03/2026 | C20110J | DE LA ESGUERRA, RAMON NOLASCO | In | Reader's fee | 400.00 | 20 | "
                   "80.00"}},
        FirstPage{"DoctorsCommisionPaid.RPT",
                  {"11/01/2026", "11/21/2026", "NU", "VALE HOSPITAL", "1 Harbour Road", "REYES, JOAN P."},
                  {"VALE HOSPITAL", "1 Harbour Road", "Paid from 11/01/2026 to 11/21/2026",
                   "Doctor's Commision Paid",
                   "Paid | Slip No. | Patient | Fee | Procedure | Paid by | Amount", "DR. DE LEON, BEATRIZ",
                   "11/01/2026 | C20100J | CATACUTAN, ISIDRO LACSON | Professional fee | FREE T3 | UMALI, "
                   "ROSARIO G. | 1,800.00"}},
        FirstPage{"GrandCensus_NVH.RPT",
                  {"2026/11/21"},
                  {"HEADING NAME", "HEADING ADDRESS", "As of 11/21/2026", "Grand Census",
                   "Room | Station | Adm. No. | Patient | Age | Sex | Admitted | Doctor", "ROOM NOT ON FILE",
                   "X99 | 26004146 | HERNANDEZ, ANGELICA DOMINGO | 73 | F | 11/18/2026 | DIZON, FELIPE",
                   "1 patient", "ROOM CLASS A"}},
        FirstPage{"CensusByStation_Nvh.RPT",
                  {"11/21/2026"},
                  {"HEADING NAME", "HEADING ADDRESS", "As of 11/21/2026", "Census by Station",
                   "Room | Class | Adm. No. | Patient | Age | Sex | Admitted | Doctor", "NO STATION",
                   "X99 | 26004146 | HERNANDEZ, ANGELICA DOMINGO | 73 | F | 11/18/2026 | DIZON, FELIPE",
                   "1 patient", "SECOND FLOOR WARD"}}));
