// What every stored page owes to whoever holds it: who printed it, letters that can be read, a word where
// there is nothing, and a sheet that says the same.
#include "platform/base/Conversion.h"
#include "platform/report/definition/ReportDefinition.h"
#include "tests/platform/report/StoredReports.h"
#include "tests/support/hospital/DemoFile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

const QString from = QStringLiteral("10/01/2026");
const QString to = QStringLiteral("11/21/2026");

/// A definition and values that give it rows.
struct Filled {
    const char* file;
    QStringList values;
    bool handedOut = false; ///< to patients and wards
    int periodAt = -1;      ///< where its first day stands among the values, the last one behind; -1: none
};

const std::vector<Filled>& allPages() {
    static const QString name = QStringLiteral("VALE GENERAL HOSPITAL");
    static const QString address = QStringLiteral("1 Harbour Road");
    static const QString user = QStringLiteral("CRUZ, MARIA");
    static const std::vector<Filled> all = {
        {"NuclearTrans.RPT", {from, to, name, address}, false, 0},
        {"NucMonthlyReport.RPT", {from, to}, false, 0},
        {"NucMonthlyReportPerExam.RPT", {from, to}, false, 0},
        {"NucStatisticalReport.RPT", {from, to}, false, 0},
        {"NucCancelledProcedures.RPT", {from, to}, false, 0},
        {"NucRequestingDoctorreport.RPT", {from, to}, false, 0},
        {"NuclearMonthlyReport.RPT", {from, to, "3", address}, false, 0},
        {"ReaderReport.RPT", {name, address, from, to}, false, 2},
        {"DoctorsCommisionReport.RPT", {name, address, "NU", user, from, to}, false, 4},
        {"DoctorsCommisionPaid.RPT", {from, to, "NU", name, address, user}, false, 0},
        {"NucDailyIncomeReport.RPT", {"A", "11/20/2026"}},
        {"NucExams.RPT", {}},
        {"GrandCensus_NVH.RPT", {"2026/11/21"}},
        {"CensusByStation_Nvh.RPT", {to}},
        {"Chargeslip.RPT",
         {"NUCLEAR MEDICINE COST CENTER SLIP", "SEBASTIAN, ISIDRO GABRIEL AQUILINO", "SAN ROQUE TEACHERS",
          "26004104", user, "", to, "DR. SANTOS, ALBERTO", "C20001J", "(1004)CRUZ, MARIA"},
         true},
        {"ChargeSlip1.rpt", {}, true},
        {"NucRequestForm.rpt", {"PS401", user}, true},
        {"NucResult.rpt", {"26004001", "50001"}, true},
        {"NucResultGFR.rpt", {"26004037", "50064"}, true},
        {"NucResultMPI.rpt", {"26004002", "50003"}, true},
        {"NucResultRadio.rpt", {"26004006", "50019"}, true},
        {"PatientLedger.RPT",
         {"26004001", "I", name, address, "123-456-789", "GUTIERREZ, MAURICIO SALAZAR", "327 YAKAL ST UGONG",
          "SANTA ROSA", "104001", "LUNTIAN CARE SYSTEMS", "104001", "ER1", "09/08/2026", ""},
         true},
    };
    return all;
}

/// On a hospital of its own: rows are changed, and changed back.
class PagesTest : public tests::StoredReports {
  protected:
    const QString& hospitalFile() const override {
        static const QTemporaryDir own;
        static const QString file = [] {
            QString copy = own.filePath(QStringLiteral("pages.scintra"));
            QFile::copy(tests::originalHospital(), copy);
            return copy;
        }();
        return file;
    }
    std::unique_ptr<report::Report> open(const Filled& page) {
        auto opened = StoredReports::open(QLatin1String(page.file), page.values);
        opened->printedBy = QStringLiteral("CRUZ, MARIA");
        for (const QString& name : opened->subReportNames()) {
            opened->subReport(name).setParameter(0, "PATIENT_DATA");
            opened->subReport(name).setParameter(1, tests::toServerDays("2026/11/21"));
        }
        return opened;
    }
    static const report::TextRun* find(const report::Page& page, const QString& start) {
        for (const report::Item& item : page.items) {
            const auto* run = std::get_if<report::TextRun>(&item);
            if (run && run->text.startsWith(start))
                return run;
        }
        return nullptr;
    }
    /// The result's heading and where the exam's name stands below it.
    report::Length examBelow(const char* file, const QStringList& values, const QString& exam) {
        const auto document = open({file, values})->run();
        const auto first = document->page(0);
        const report::TextRun* run = find(*first, exam);
        EXPECT_TRUE(run) << file;
        return run ? run->baseline : report::Length();
    }
    QStringList captionsOf(const report::RowSource& rows) {
        QStringList captions;
        for (const ado::Column& column : rows.columns())
            captions << column.name;
        return captions;
    }
};

} // namespace

TEST_F(PagesTest, EveryDefinitionIsAmongThem) {
    QStringList files = QDir(QStringLiteral(SCINTRA_SOURCE_DIR "/Reports")).entryList(QDir::Files);
    for (const Filled& page : allPages())
        EXPECT_EQ(files.removeAll(QLatin1String(page.file)), 1) << page.file;
    EXPECT_TRUE(files.isEmpty()) << qPrintable(files.join(u' '));
}

TEST_F(PagesTest, EachTellsWhoPrintedItAndWhen) {
    for (const Filled& page : allPages()) {
        const auto document = open(page)->run();
        for (int i = 0; i < document->pageCount(); ++i) {
            const report::Page& one = *document->page(i);
            const report::TextRun* foot = find(one, QStringLiteral("Printed by CRUZ, MARIA, "));
            ASSERT_TRUE(foot) << page.file << " page " << i + 1;
            EXPECT_EQ(tests::toTestDays(foot->text), "Printed by CRUZ, MARIA, 11/21/2026 08:30 AM")
                << page.file;
            EXPECT_TRUE(report::textOf(one).contains(
                QStringLiteral("Page %1 of %2").arg(i + 1).arg(document->pageCount())))
                << page.file;
        }
    }
}

TEST_F(PagesTest, WhereNobodyIsKnownTheTimeStandsAlone) {
    for (Filled page : allPages()) {
        page.values.replaceInStrings(QStringLiteral("CRUZ, MARIA"), QString());
        const auto opened = open(page);
        opened->printedBy.clear();
        const auto document = opened->run();
        const auto first = document->page(0);
        const report::TextRun* foot = find(*first, QStringLiteral("Printed "));
        ASSERT_TRUE(foot) << page.file;
        EXPECT_EQ(tests::toTestDays(foot->text), "Printed 11/21/2026 08:30 AM") << page.file;
    }
}

TEST_F(PagesTest, APeriodThatEndsBeforeItBeginsSaysSo) {
    int periods = 0;
    for (Filled page : allPages()) {
        if (page.periodAt < 0)
            continue;
        ++periods;
        EXPECT_FALSE(report::textOf(*open(page)->run()->page(0)).contains("after the last")) << page.file;
        std::swap(page.values[page.periodAt], page.values[page.periodAt + 1]);
        const auto document = open(page)->run();
        ASSERT_EQ(document->pageCount(), 1) << page.file;
        const QString text = tests::toTestDays(report::textOf(*document->page(0)));
        EXPECT_TRUE(text.contains("The first day is after the last: 11/21/2026 to 10/01/2026")) << page.file;
        EXPECT_TRUE(text.contains("Choose a first day that is not after the last one.")) << page.file;
        EXPECT_FALSE(text.contains(QChar(0x2026))) << page.file << " is cut";
        // One day alone is a period.
        page.values[page.periodAt + 1] = page.values[page.periodAt];
        EXPECT_FALSE(report::textOf(*open(page)->run()->page(0)).contains("after the last")) << page.file;
    }
    EXPECT_EQ(periods, 10);
}

TEST_F(PagesTest, WhatIsHandedOutIsSetInNinePointsOnOneLineWithItsLabels) {
    run("DELETE FROM tbNucChargeSlip");
    run("sp_Nuclear_DumpChargeSlip '1024','MYOCARDIAL PERFUSION, REST AND "
        "STRESS','1','14800','14800','','NU'");
    for (const Filled& page : allPages()) {
        if (!page.handedOut)
            continue;
        const auto document = open(page)->run();
        // The text is put together by baselines: a label a hair too low is no neighbour of its value.
        static const QRegularExpression labelled(QStringLiteral("^Patient('s Name)?\t[A-Z].*\t[^\t]+\t"));
        const QStringList lines = report::textOf(*document->page(0)).split(u'\n');
        if (page.file != QLatin1String("ChargeSlip1.rpt") &&
            page.file != QLatin1String("PatientLedger.RPT")) {
            EXPECT_EQ(lines.filter(labelled).size(), 1) << page.file << '\n' << qPrintable(lines.join(u'\n'));
        }
        for (const report::Item& item : document->page(0)->items) {
            const auto* run = std::get_if<report::TextRun>(&item);
            if (!run)
                continue;
            EXPECT_GE(run->face.size.points(), 8.99) << page.file << ": " << qPrintable(run->text);
            EXPECT_FALSE(run->text.endsWith(QChar(0x2026))) << page.file << ": " << qPrintable(run->text);
        }
    }
}

// ---- a last row that holds nothing leaves no hole

TEST_F(PagesTest, AResultsHeadingEndsBelowItsLastFilledRow) {
    const ado::Rows one = rows("SELECT TOP 1 R.IdNum, R.RequestNum, H.NucExam FROM tbNucResult R INNER JOIN "
                               "vwNuclearResultRequest H ON H.RequestNum = R.RequestNum WHERE "
                               "ISNULL(H.Company, '') = '' AND R.Weight <> '' ORDER BY R.RequestNum");
    ASSERT_EQ(one.count(), 1);
    const QStringList request{base::textOf(one.at(0, 0)), base::textOf(one.at(0, 1))};
    const QString exam = base::textOf(one.at(0, 2));
    const QString weigh =
        "UPDATE tbNucResult SET Weight = '%1', Height = '%2' WHERE RequestNum = '" + request[1] + "'";
    for (const char* file : {"NucResult.rpt", "NucResultGFR.rpt", "NucResultMPI.rpt"}) {
        run(weigh.arg("61", "150"));
        const double filled = examBelow(file, request, exam).mm();
        run(weigh.arg("", "150"));
        EXPECT_EQ(examBelow(file, request, exam).mm(), filled) << file;
        run(weigh.arg("", " "));
        EXPECT_NEAR(examBelow(file, request, exam).mm(), filled - 5.1, 0.001) << file;
    }
    run(weigh.arg("61", "150"));
}

TEST_F(PagesTest, ASlipWithoutDoctorAndNurseKeepsNoRowForThem) {
    const auto headingAt = [&](const QString& doctor, const QString& nurse) {
        const auto document =
            open({"Chargeslip.RPT", {"SLIP", "P", "A", "1", "U", "", to, doctor, "C1J", nurse}})->run();
        const auto first = document->page(0);
        const report::TextRun* run = find(*first, "Description");
        EXPECT_EQ(find(*document->page(0), "Doctor") != nullptr, !doctor.isEmpty());
        EXPECT_EQ(find(*document->page(0), "Nurse") != nullptr, !nurse.isEmpty());
        return run ? run->baseline.mm() : 0.0;
    };
    const double both = headingAt("DR. SANTOS", "(1004)CRUZ");
    EXPECT_EQ(headingAt("", "(1004)CRUZ"), both);
    EXPECT_EQ(headingAt("DR. SANTOS", ""), both);
    EXPECT_NEAR(headingAt("", ""), both - 4.8, 0.001);
}

TEST_F(PagesTest, ALedgerWithoutCompanyAndDischargeKeepsNoRowForThem) {
    Filled page = allPages().back();
    const auto headingAt = [&](const QString& company, const QString& discharged) {
        page.values[9] = company;
        page.values[13] = discharged;
        const auto document = open(page)->run();
        const auto first = document->page(0);
        const report::TextRun* run = find(*first, "Particulars");
        return run ? run->baseline.mm() : 0.0;
    };
    const double both = headingAt("LUNTIAN", "11/01/2026");
    EXPECT_EQ(headingAt("LUNTIAN", ""), both);
    EXPECT_NEAR(headingAt("", ""), both - 4.4, 0.001);
}

// ---- who earns, who cancelled, who paid

TEST_F(PagesTest, ADoctorWithoutARateIsToldOnThePage) {
    const QStringList values{"H", "A", "NU", "U", from, to};
    EXPECT_FALSE(printed("DoctorsCommisionReport.RPT", values).contains("No rate"));
    run("UPDATE CARDIO..tbReaderRate SET RevenueID = 'XX' WHERE DoctorID = '202' AND RevenueID = 'FN'");
    const int without =
        value("SELECT COUNT(*) FROM BILLING..tbDailyBill WHERE ItemID = '202' AND RevenueID = "
              "'FN' AND TransDate >= '2026-10-01' AND TransDate < '2026-11-22' AND RefNum "
              "LIKE 'C%J'")
            .toInt();
    ASSERT_GT(without, 1);
    const QString text = printed("DoctorsCommisionReport.RPT", values);
    EXPECT_EQ(text.count("no rate 0.00"), without) << qPrintable(text.left(3000));
    const QString said =
        QStringLiteral("No rate is on file for %1 fees: nothing is counted for them.").arg(without);
    EXPECT_EQ(text.count(said), 2) << "below the doctor, and below all of them";
    EXPECT_LT(text.indexOf(said), text.indexOf(QString::fromUtf8("DR. PEÑA")));
    run("UPDATE CARDIO..tbReaderRate SET RevenueID = 'FN' WHERE DoctorID = '202' AND RevenueID = 'XX'");
}

TEST_F(PagesTest, AReaderWithoutARateIsToldAndARateOfNothingIsNone) {
    const QStringList values{"H", "A", from, to};
    run("UPDATE CARDIO..tbReaderRate SET RevenueID = 'XX' WHERE DoctorID = '202' AND RevenueID = 'FN'");
    run("UPDATE CARDIO..tbReaderRate SET Percentage = 0 WHERE DoctorID = '203' AND RevenueID = 'FN'");
    const QString text = printed("ReaderReport.RPT", values);
    const int without =
        value("SELECT COUNT(*) FROM tbNucLogBook WHERE DoctorID = '202' AND Status <> 'R' AND ResultDate >= "
              "'2026-10-01' AND ResultDate < '2026-11-22'")
            .toInt();
    EXPECT_EQ(text.count(" no rate 0.00"), without);
    EXPECT_EQ(text.count(QStringLiteral("No rate is on file for %1 results").arg(without)), 2);
    EXPECT_TRUE(text.contains(" 0 0.00")) << "a rate of nothing is a rate";
    run("UPDATE CARDIO..tbReaderRate SET RevenueID = 'FN' WHERE DoctorID = '202' AND RevenueID = 'XX'");
    run("UPDATE CARDIO..tbReaderRate SET Percentage = 20 WHERE DoctorID = '203' AND RevenueID = 'FN'");
}

TEST_F(PagesTest, TheCancelledListNamesWhoCancelled) {
    const ado::Rows reversals =
        rows("SELECT DISTINCT U.Name FROM BILLING..tbDailyBill B INNER JOIN PASSWORD..tbPasswordMain U ON "
             "U.EmployeeID = B.UserID WHERE B.Marker = 'D' ORDER BY U.Name");
    ASSERT_GT(reversals.count(), 0);
    // One whose reversal is gone, and whose line is still known as revoked.
    const QString slip =
        value("SELECT MIN(RefNum) FROM tbNucMaster WHERE RequestStatus = 'R' AND TransDate >= "
              "'2026-10-01' AND TransDate < '2026-11-22'");
    run("UPDATE BILLING..tbDailyBill SET Marker = 'X' WHERE Marker = 'D' AND RefNum = '" + slip + "'");
    const auto listed = open({"NucCancelledProcedures.RPT", {from, to}})->sheetRows();
    const QStringList captions = captionsOf(*listed);
    QStringList known;
    for (qsizetype i = 0; i < reversals.count(); ++i)
        known << base::textOf(reversals.at(i, 0));
    ASSERT_GT(listed->count(), 10);
    for (qsizetype i = 0; i < listed->count(); ++i) {
        const QString by = base::textOf(listed->at(i, captions.indexOf("Cancelled by")));
        const bool isGone = base::textOf(listed->at(i, captions.indexOf("Slip No."))) == slip;
        EXPECT_TRUE(isGone ? by == "not recorded" : known.contains(by)) << qPrintable(by);
    }
    const QString text = printed("NucCancelledProcedures.RPT", {from, to});
    EXPECT_EQ(text.count("not recorded"), 1) << qPrintable(text);
    EXPECT_TRUE(text.contains(known.first())) << qPrintable(text);
    run("UPDATE BILLING..tbDailyBill SET Marker = 'D' WHERE Marker = 'X'");
}

TEST_F(PagesTest, ThePaidCommisionsNameThePatientAndWhoPaid) {
    const QString payer = value("SELECT Name FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '3001'");
    ASSERT_TRUE(payer.contains(','));
    const auto rows = open({"DoctorsCommisionPaid.RPT", {from, to, "NU", "H", "A", "U"}})->sheetRows();
    const QStringList captions = captionsOf(*rows);
    ASSERT_GT(rows->count(), 20);
    for (qsizetype i = 0; i < rows->count(); ++i) {
        EXPECT_EQ(base::textOf(rows->at(i, captions.indexOf("Paid by"))), payer);
        const QString slip = base::textOf(rows->at(i, captions.indexOf("Slip No.")));
        EXPECT_EQ(base::textOf(rows->at(i, captions.indexOf("Patient"))),
                  value("SELECT DISTINCT M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName FROM "
                        "BILLING..tbDailyBill B INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = B.HospNum "
                        "WHERE B.RefNum = '" +
                        slip + "'"))
            << qPrintable(slip);
    }
}

TEST_F(PagesTest, APaymentOfAReceiptNamesItsPatientAndAStrangersCodeStandsForHim) {
    run("INSERT INTO CARDIO..tbReaderPayment (DoctorID, RevenueID, RefNum, ItemID, Amount, PaidDate, UserID) "
        "SELECT TOP 1 '202', 'NU', ORNumber, '1001', 77, '2026-11-20', 'ZZ9' FROM BILLING..tbCashAssessment "
        "WHERE ORNumber = 'OR31001'");
    const QString text =
        printed("DoctorsCommisionPaid.RPT", {"11/20/2026", "11/20/2026", "NU", "H", "A", "U"});
    EXPECT_TRUE(
        text.contains("11/20/2026 OR31001 ZABALA, ROSARIO FUENTES NU BONE SCAN, WHOLE BODY ZZ9 77.00"))
        << qPrintable(text);
    run("DELETE FROM CARDIO..tbReaderPayment WHERE UserID = 'ZZ9'");
}

// ---- workbooks and CSV files

TEST_F(PagesTest, EachHasASheetHeadedWithCaptions) {
    static const QRegularExpression columnName(QStringLiteral("[a-z][A-Z]|ID\\b|_"));
    for (const Filled& page : allPages()) {
        const auto opened = open(page);
        const auto& sheet = opened->definition().sheet;
        ASSERT_FALSE(sheet.columns.empty()) << page.file;
        QStringList captions;
        for (const report::SheetColumn& column : sheet.columns) {
            EXPECT_TRUE(
                QStringLiteral("hGH hLH hFSH bHCG SO4").contains(column.caption.section(u' ', 0, 0)) ||
                !columnName.match(column.caption).hasMatch())
                << page.file << ": " << qPrintable(column.caption);
            captions << column.caption;
        }
        EXPECT_EQ(captions.removeDuplicates(), 0) << page.file;
        const report::SheetHeading heading = opened->rowsHeading();
        for (const char* prompt : {"0 in, 1 out", "A charges", "yyyy", "I or O"})
            EXPECT_FALSE(heading.lines.join(u'\n').contains(QLatin1String(prompt))) << page.file;
    }
}

TEST_F(PagesTest, EachColumnOfAListIsInItsSheetUnderTheSameWords) {
    for (const Filled& page : allPages()) {
        if (page.handedOut)
            continue;
        const auto opened = open(page);
        const QStringList captions = captionsOf(*opened->sheetRows());
        const report::ReportDefinition& definition = opened->definition();
        const int style = [&] {
            for (std::size_t i = 0; i < definition.styles.size(); ++i)
                if (definition.styles[i].name == "column")
                    return int(i);
            return -1;
        }();
        for (const report::Band& band : definition.pageHeaders) {
            for (const report::Element& element : band.elements) {
                const QString* text = element.value.constant.asText();
                // A day that the page tells once a group stands in every row of the sheet, with the time.
                if (element.style != style || !text || *text == "Time")
                    continue;
                EXPECT_TRUE(captions.contains(*text)) << page.file << ": " << qPrintable(*text);
            }
        }
    }
}

TEST_F(PagesTest, AmountsAgesAndDatesAreTypedInEverySheet) {
    static const QStringList moments{"Date",      "Cancelled",   "Requested",      "Read",
                                     "Paid",      "Admitted",    "Discharged",     "Birth Date",
                                     "Exam Date", "Result Date", "Date of request"};
    static const QStringList amounts{"Amount",    "Price",   "To Date", "Charges", "Credits",    "Balance",
                                     "Commision", "Class A", "Class E", "HMO",     "Out-patient"};
    static const QStringList numbers{"Age", "Qty.", "Quantity", "%", "In-patients", "Requests"};
    run("DELETE FROM tbNucChargeSlip");
    run("sp_Nuclear_DumpChargeSlip '1001','BONE SCAN','2','5200','10400','','NU'");
    int typed = 0;
    for (const Filled& page : allPages()) {
        const auto rows = open(page)->sheetRows();
        EXPECT_GT(rows->count(), 0) << page.file;
        const QStringList captions = captionsOf(*rows);
        for (qsizetype column = 0; column < captions.size(); ++column) {
            const bool isMoment = moments.contains(captions[column]);
            const bool isAmount = amounts.contains(captions[column]);
            if (!isMoment && !isAmount && !numbers.contains(captions[column]))
                continue;
            EXPECT_EQ(rows->look(column) == report::CellLook::Amount, isAmount) << page.file << column;
            EXPECT_EQ(rows->look(column) != report::CellLook::Plain, isAmount || isMoment)
                << page.file << ": " << qPrintable(captions[column]);
            for (qsizetype row = 0; row < rows->count(); ++row) {
                const base::Value cell = rows->at(row, column);
                if (cell.isNull())
                    continue;
                ++typed;
                EXPECT_EQ(cell.asDateTime() != nullptr, isMoment)
                    << page.file << ": " << qPrintable(captions[column] + ' ' + base::textOf(cell));
                EXPECT_EQ(cell.asDouble() != nullptr, !isMoment)
                    << page.file << ": " << qPrintable(captions[column] + ' ' + base::textOf(cell));
            }
        }
    }
    EXPECT_GT(typed, 3000);
}
