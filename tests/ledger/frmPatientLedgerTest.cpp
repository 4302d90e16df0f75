#include "ledger/frmPatientLedger.h"

#include "ledger/LedgerHeading.h"
#include "lookup/clsOutPatientSearch.h"
#include "lookup/frmRegisteredOPD.h"
#include "platform/controls/screen/TestDoors.h"
#include "platform/report/Report.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"
#include "session/services/Services.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

namespace {

using ledger::headingOf;
using tests::child;
using tests::keys;

constexpr int longest = 60'000; // milliseconds

class PatientLedger : public tests::LoggedOn {
  protected:
    PatientLedger() {
        session::setProgramFolder(SCINTRA_SOURCE_DIR);
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
        takeTexts();
    }
    ~PatientLedger() override {
        screen.Unload();
        session::setProgramFolder({});
        controls::release<lookup::frmRegisteredOPD>();
    }

    /// Types a number for the class of that letter, "" for none.
    void search(const QString& letter, const QString& typed) {
        if (!letter.isEmpty())
            keys(child<QComboBox>(screen, "cmbPatientClass"), letter);
        keys(number, typed + QStringLiteral("<Enter>"));
    }
    QString text(const char* box) { return child<QLineEdit>(screen, box).text(); }
    /// The first page, once the ledger is complete.
    QString paper() {
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return viewer.document() && viewer.document()->isComplete(); }, longest));
        return viewer.document() ? tests::toTestDays(report::textOf(*viewer.document()->page(0))) : QString();
    }
    void run(const QString& statement) { hospital.run(statement); }

    ledger::frmPatientLedger screen;
    QLineEdit& number = child<QLineEdit>(screen, "txtIdNum");
    report::Viewer& viewer = child<report::Viewer>(screen, "Viewer");
};

TEST_F(PatientLedger, OpensWithoutAClassAndItsViewerOutOfSight) {
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("Patient'S Ledger"));
    const auto& classes = child<QComboBox>(screen, "cmbPatientClass");
    ASSERT_EQ(classes.count(), 2);
    EXPECT_EQ(classes.itemText(0), QStringLiteral("Inpatient"));
    EXPECT_EQ(classes.itemText(1), QStringLiteral("Outpatient"));
    EXPECT_EQ(classes.currentIndex(), -1);
    EXPECT_FALSE(viewer.isVisible());
    search({}, "26004078");
    EXPECT_EQ(takeTexts(), QStringList()) << "no class, no search";
    EXPECT_EQ(number.text(), QStringLiteral("26004078"));
}

TEST_F(PatientLedger, ShowsAnAdmittedPatientsAccount) {
    search("I", " 26004078 ");
    const session::clsAdmission& admission = session::gPatientFind->Admission;
    EXPECT_EQ(text("txtIdNum"), QStringLiteral("26004078"));
    EXPECT_EQ(text("txtHospNum"), admission.HospitalNumber);
    EXPECT_EQ(text("txtLastName"), admission.Patient.LastName);
    EXPECT_EQ(text("txtFirstName"), admission.Patient.FirstName);
    EXPECT_EQ(text("txtMiddleName"), admission.Patient.MiddleName);
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_GE(screen.height(), 9150 / 15);
    EXPECT_DOUBLE_EQ(viewer.pages()->zoom(), 0.85);
    EXPECT_EQ(session::gReport, nullptr);
    EXPECT_EQ(number.selectedText(), number.text()) << "the next number is typed over it";
    const QString page = paper();
    for (const QString& told : {admission.Patient.LastName + ", " + admission.Patient.FirstName + ' ' +
                                    admission.Patient.MiddleName,
                                QStringLiteral("26004078"), session::gHospitalName, session::gHospitalAddress,
                                QStringLiteral("DEPOSIT"), admission.Room})
        EXPECT_TRUE(page.contains(told)) << qPrintable(told) << "\nin\n" << qPrintable(page);
}

TEST_F(PatientLedger, ANumberThatIsNotOnFileLeavesTheScreenAsItIsAndSilent) {
    search("I", "26004078");
    paper();
    const auto shown = viewer.pages()->sharedDocument();
    keys(number, "99<Enter>");
    EXPECT_EQ(number.text(), QStringLiteral("99"));
    EXPECT_EQ(number.selectedText(), QStringLiteral("99")) << "the next number is typed over it";
    EXPECT_EQ(text("txtLastName"), QStringLiteral("AGUILAR"));
    EXPECT_EQ(viewer.pages()->sharedDocument(), shown);
}

TEST_F(PatientLedger, AnOutPatientWhoIsNotOnFileGetsTheBox) {
    tests::MessageScript script{
        {.prompt = QStringLiteral("Patient is not in the records."), .style = controls::vbInformation}};
    tests::runModal([&] { search("O", "NOBODY"); },
                    {[](QWidget& window) { tests::keysToFocus(window, "<Esc>"); }});
    EXPECT_FALSE(viewer.isVisible());
    EXPECT_EQ(number.text(), QStringLiteral("NOBODY"));
    EXPECT_EQ(number.selectedText(), QStringLiteral("NOBODY"));
}

TEST_F(PatientLedger, ShowsAnOutPatientsAccountAndUpperCasesWhatIsTyped) {
    search("O", "o26002017");
    EXPECT_EQ(text("txtIdNum"), QStringLiteral("O26002017"));
    EXPECT_EQ(
        text("txtHospNum"),
        value(QStringLiteral("SELECT HospNum FROM PATIENT_DATA..tbOutPatient WHERE IdNum = 'O26002017'")));
    EXPECT_FALSE(text("txtLastName").isEmpty());
    const QString page = paper();
    EXPECT_TRUE(page.contains(text("txtLastName") + QStringLiteral(", ") + text("txtFirstName")));
    EXPECT_TRUE(page.contains(QStringLiteral("OPD")));
    EXPECT_TRUE(page.contains(QStringLiteral("REVERSAL: BONE SCAN, THREE-PHASE")));
}

TEST_F(PatientLedger, ASecondNumberTakesThePlaceOfTheFirst) {
    search("I", "26004078");
    keys(number, "26004022<Enter>");
    EXPECT_TRUE(paper().contains(QStringLiteral("26004022")));
    EXPECT_EQ(text("txtIdNum"), QStringLiteral("26004022"));
}

TEST_F(PatientLedger, EscapeLeavesAndEndsTheLedger) {
    search("I", "26004078");
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_EQ(viewer.document(), nullptr);
}

// ---- what the report is told

class Heading : public tests::LoggedOn {
  protected:
    ledger::LedgerHeading inPatient() {
        EXPECT_TRUE(session::gPatientFind->ValidateAdmission(QStringLiteral("26004078")));
        return headingOf(session::gPatientFind->Admission);
    }
};

TEST_F(Heading, AnAccountWithoutACompanyIsPersonal) {
    session::clsAdmission admission;
    EXPECT_EQ(headingOf(admission).LedgerCompany, QStringLiteral("Personal"));
    admission.Company = QStringLiteral("MERALCO");
    EXPECT_EQ(headingOf(admission).LedgerCompany, QStringLiteral("MERALCO"));
}

TEST_F(Heading, TellsTheStayWithItsMoments) {
    session::clsAdmission admission;
    admission.AdmissionDate = *base::makeDateTime({2026, 11, 16}, {14, 5, 9});
    admission.Patient.HouseStreet = "1 RIZAL AVE";
    admission.Patient.Barangay = "CENTRO";
    admission.Patient.Town = "ANTIPOLO";
    admission.Patient.Province = "RIZAL";
    admission.Patient.LastName = "CRUZ";
    admission.Patient.FirstName = "ANA";
    admission.Patient.MiddleName = "DIAZ";
    admission.AccountNumber = "A100";
    const ledger::LedgerHeading heading = headingOf(admission);
    EXPECT_EQ(heading.LedgerPatientType, QStringLiteral("I"));
    EXPECT_EQ(heading.LedgerPatient, QStringLiteral("CRUZ, ANA DIAZ"));
    EXPECT_EQ(heading.LedgerHouseBrgy, QStringLiteral("1 RIZAL AVE CENTRO"));
    EXPECT_EQ(heading.LedgerTownProvince, QStringLiteral("ANTIPOLO RIZAL"));
    EXPECT_EQ(heading.LedgerAccountNo, QStringLiteral("A100"));
    EXPECT_EQ(heading.LedgerAdmitted, QStringLiteral("11/16/2026 02:05:09 PM"));
    EXPECT_EQ(heading.LedgerDischarged, QString()) << "still in the house";
}

TEST_F(Heading, ADateOfNoughtIsNone) {
    session::clsAdmission admission;
    admission.AdmissionDate = base::fromSerial(0);
    admission.dischargeDate = *base::makeDateTime({2026, 11, 20}, {0, 30, 0});
    EXPECT_EQ(headingOf(admission).LedgerAdmitted, QString());
    EXPECT_EQ(headingOf(admission).LedgerDischarged, QStringLiteral("11/20/2026 12:30:00 AM"));
}

TEST_F(Heading, AnOutPatientsMomentsAreJoinedAsTheSearchHasThem) {
    lookup::clsOutPatientSearch search;
    ASSERT_TRUE(search.ValidatePatient(QStringLiteral("O26002017")));
    const ledger::LedgerHeading heading = headingOf(search, "O26002017", "CRUZ, ANA");
    EXPECT_EQ(heading.LedgerPatientType, QStringLiteral("O"));
    EXPECT_EQ(heading.LedgerRoom, QStringLiteral("OPD"));
    EXPECT_EQ(heading.LedgerPatient, QStringLiteral("CRUZ, ANA"));
    EXPECT_EQ(heading.LedgerAdmitted, search.AdmDate() + u' ' + search.AdmTime());
    EXPECT_EQ(heading.LedgerDischarged, search.DcrDate() + u' ' + search.DcrTime());
    hospital.run("UPDATE PATIENT_DATA..tbOutPatient SET DcrDate = NULL WHERE IdNum = 'O26002017'");
    ASSERT_TRUE(search.ValidatePatient(QStringLiteral("O26002017")));
    EXPECT_EQ(headingOf(search, "O26002017", "CRUZ, ANA").LedgerDischarged, QStringLiteral(" "));
}

TEST_F(Heading, TheReportIsFedByNameInAnyOrderAndCase) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("ledger.RPT");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<report version=\"1\" title=\"T\"><page width=\"210mm\" height=\"297mm\" left=\"10mm\" "
               "top=\"10mm\" right=\"10mm\" bottom=\"10mm\"/><parameter name=\"Tin\"/>"
               "<parameter name=\"company\"/><parameter name=\"Other\"/><parameter name=\"@idnum\"/>"
               "<parameter name=\"COMPANYNAME\"/><details height=\"5mm\"/>"
               "<reportFooter height=\"5mm\"><field x=\"0mm\" y=\"0mm\" width=\"190mm\" height=\"5mm\" "
               "value=\"&quot;[&quot; &amp; {?Tin} &amp; &quot;|&quot; &amp; {?company} &amp; &quot;|&quot; "
               "&amp; {?@idnum} &amp; &quot;|&quot; &amp; {?COMPANYNAME} &amp; &quot;]&quot;\"/>"
               "</reportFooter></report>");
    file.close();
    const auto report = report::Report::open(path, {});
    session::gHospitalTin = QStringLiteral("123-456");
    ledger::LedgerHeading heading;
    heading.LedgerIdNum = "26004078";
    heading.LedgerCompany = "MERALCO";
    feedByName(*report, heading);
    EXPECT_EQ(report->missingParameters(), std::vector<int>{2}) << "one of another name gets nothing";
    EXPECT_TRUE(report->hasParameter(0)) << "an empty value is a value";
    EXPECT_EQ(report::textOf(*report->run()->page(0)), "[|MERALCO|26004078|" + session::gHospitalName + "]");
}

TEST_F(Heading, TheLedgersOwnParametersAreAllTold) {
    session::setProgramFolder(SCINTRA_SOURCE_DIR);
    session::OpenReport(session::reportPath("PatientLedger.RPT"));
    feedByName(*session::gReport, inPatient());
    EXPECT_EQ(
        session::gReport->parameterNames(),
        (QStringList{"@IDNUM", "@PATIENTTYPE", "COMPANYNAME", "COMPANYADDRESS", "TIN", "PATIENT", "HOUSEBRGY",
                     "TOWNPROVINCE", "ACCOUNTNO", "COMPANY", "HOSPNUM", "ROOM", "ADMITTED", "DISCHARGED"}));
    EXPECT_TRUE(session::gReport->missingParameters().empty());
    session::gReport.reset();
    session::setProgramFolder({});
}

} // namespace
