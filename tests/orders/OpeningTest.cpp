// What the request screen asks for as it opens, in each of its modes, and what it shows of it.
#include "session/Session.h"
#include "session/services/Services.h"
#include "tests/orders/RequestFixture.h"

#include <QLabel>
#include <QLocale>

namespace {

class Opening : public tests::RequestFixture {
  public:
    /// Opens the screen and tells what it sent; the texts of the services are the session's own.
    QStringList opened(const session::RequestEntry& entry) {
        auto& request = prepared(entry);
        takeTexts();
        request.Show();
        QStringList own;
        for (const QString& text : takeTexts())
            if (!text.startsWith("SELECT "))
                own += text;
        return own;
    }
    QString date(const QString& query) { return value("SELECT CONVERT(varchar(10), " + query); }
};

TEST_F(Opening, OfAnAdmittedPatient) {
    EXPECT_EQ(opened({.PatIdNum = admitted, .PatientType = "I"}),
              QStringList{"Select * From Build_file..tbcoRoom where roomid = '205'"});
    EXPECT_EQ(screen().windowTitle(), "Request Entry");
    EXPECT_EQ(grid().Cols(), 17);
    EXPECT_EQ(grid().Rows(), 2);
    const int widths[] = {200, 1000, 1000, 4000, 1500, 1000, 1000, 1000, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    QStringList headers;
    for (int column = 0; column < 17; ++column) {
        EXPECT_EQ(grid().ColWidth(column), widths[column]) << column;
        headers += cell(0, column);
    }
    EXPECT_EQ(headers.join(u'|'), "|Department|Code|Particular|Type|Price|Quantity|Amount|With "
                                  "Items||||Inventory Code|RoutinePrice|||");
    EXPECT_FALSE(button("cmdSave").isEnabled());
    EXPECT_FALSE(button("cmdSavePrint").isEnabled());
    const char* const captions[][2] = {
        {"lblLname", "Family Name "},
        {"lblFname", "Given Name  "},
        {"lblMname", "Middle Name "},
        {"lblCompany", "Account Name"},
        {"lblHelp", "F3 - Delete Line"},
        {"Label4",
         "Dept. Codes:  NU - Nuclear Procedures;                                MD/FN - Professional Fee or "
         "Readers Fee                           UR - Nuclear Supply"}};
    for (const auto& caption : captions)
        EXPECT_EQ(tests::child<QLabel>(screen(), caption[0]).text(), caption[1]);
    EXPECT_EQ(button("cmdPackage").text(), " &View Packages");
    EXPECT_EQ(button("cmdNucCharges").text(), "Nuclear Charges");
}

/// As a label shows the line with one blank between its words, in any room.
TEST_F(Opening, ShowsTheDepartmentCodesWithoutTheirBlanks) {
    opened({.PatIdNum = admitted, .PatientType = "I"});
    auto& legend = tests::child<QLabel>(screen(), "Label4");
    QLabel plain(legend.text().simplified(), legend.parentWidget());
    plain.setProperty("kind", "help");
    plain.setWordWrap(true);
    plain.show();
    for (const int width : {900, 500, 260}) {
        EXPECT_EQ(legend.heightForWidth(width), plain.heightForWidth(width)) << width;
        legend.resize(width, 90);
        plain.resize(width, 90);
        EXPECT_EQ(legend.grab().toImage(), plain.grab().toImage()) << width;
    }
    EXPECT_GT(legend.heightForWidth(260), legend.heightForWidth(900));
    QFont larger = legend.font();
    larger.setPointSize(20);
    legend.setFont(larger);
    plain.setFont(larger);
    EXPECT_EQ(legend.heightForWidth(500), plain.heightForWidth(500));
}

TEST_F(Opening, OfAnOutPatient) {
    const QString id = value("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient ORDER BY IdNum");
    const QString stay = " FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '" + id + "'";
    const QString doctor = value("SELECT DoctorID1" + stay);
    EXPECT_EQ(opened({.PatIdNum = id, .PatientType = "O"}),
              (QStringList{"spNuclearsearchoutpatient '" + id + "'",
                           "Select * From Build_file..tbcoRoom where roomid = 'OPD'"}));
    EXPECT_EQ(field("txtHospNum").text(), value("SELECT HospNum" + stay));
    EXPECT_EQ(tests::toTestDays(field("txtAdmDate").text()), date("AdmDate, 101)" + stay));
    EXPECT_EQ(field("txtDoctorID").text(), doctor);
    EXPECT_EQ(field("txtCompany").text(), value("SELECT AccountNum" + stay));
    const QString master =
        " FROM PATIENT_DATA..tbMaster WHERE HospNum = '" + field("txtHospNum").text() + "'";
    EXPECT_EQ(field("txtMname").text(), value("SELECT MiddleName" + master));
    EXPECT_EQ(tests::toTestDays(field("txtBDate").text()), date("BirthDate, 101)" + master));
    EXPECT_EQ(field("txtBloodType").text(), value("SELECT BloodType" + master));
}

TEST_F(Opening, OfAWalkIn) {
    const QString id = value("SELECT TOP 1 hospnum FROM PATIENT_DATA..tbCashPatient WHERE BirthDate IS NOT "
                             "NULL ORDER BY hospnum");
    const QString row = " FROM PATIENT_DATA..tbCashPatient WHERE hospnum = '" + id + "'";
    EXPECT_EQ(opened({.PatIdNum = id, .PatientType = "W"}),
              (QStringList{"spNuclearsearchcashpatient '" + id + "'",
                           "Select * From Build_file..tbcoRoom where roomid = 'OPD'"}));
    EXPECT_EQ(field("txtHospNum").text(), id);
    EXPECT_EQ(field("txtFname").text(), value("SELECT FirstName" + row));
    EXPECT_EQ(field("txtAge").text(), value("SELECT Age" + row));
    EXPECT_EQ(field("txtSex").text(), value("SELECT Sex" + row));
    EXPECT_EQ(tests::toTestDays(field("txtBDate").text()), date("BirthDate, 101)" + row));
    EXPECT_EQ(tests::toTestDays(field("txtAdmDate").text()), "11/21/2026") << "the workstation's date";
    EXPECT_EQ(field("txtCompany").text(), "Personal");
}

TEST_F(Opening, WithAWardsLines) {
    EXPECT_EQ(
        opened(
            {.PatIdNum = admitted, .PatientType = "I", .NurseCommnunication = true, .Classification = "Z"}),
        (QStringList{"Select * From Build_file..tbcoRoom where roomid = '205'",
                     "Nuclear..sp_Nuclear_commsearchexam '26004078','Z'"}));
    EXPECT_FALSE(button("cmdSave").isEnabled()) << "no line, nothing to save";
    tests::click(button("cmdClose"));
    EXPECT_TRUE(screen().isUnloaded()) << "and nothing to ask";
}

TEST_F(Opening, WithThePaidLinesOfAReceipt) {
    const QString receipt =
        value("SELECT TOP 1 ORNumber FROM BILLING..tbCashAssessment WHERE ORNumber <> '' AND "
              "RecordStatus = '1' ORDER BY AssessID");
    EXPECT_EQ(opened({.PatIdNum = admitted, .PatientType = "I", .CashBasis = true, .CashOrNum = receipt}),
              (QStringList{"Select * From Build_file..tbcoRoom where roomid = '205'",
                           "sp_Nuclear_getcashexam '" + receipt + "'"}));
    auto& lines = tests::child<controls::FlexGrid>(screen(), "grdInput");
    EXPECT_FALSE(lines.isVisible());
    EXPECT_EQ(lines.Row(), 1);
    EXPECT_EQ(lines.Col(), 1);
    EXPECT_EQ(lines.TextMatrix(1, 1), "NU");
    const QString first = " FROM BILLING..tbCashAssessment WHERE ORNumber = '" + receipt +
                          "' AND RecordStatus = '1' ORDER BY AssessID";
    EXPECT_EQ(lines.TextMatrix(1, 2), value("SELECT TOP 1 ItemID" + first));
    EXPECT_EQ(lines.TextMatrix(1, 6), value("SELECT TOP 1 Quantity" + first));
    EXPECT_EQ(lines.TextMatrix(1, 7), value("SELECT TOP 1 Amount" + first));
    double gross = 0;
    for (int row = 1; row < lines.Rows(); ++row)
        gross += lines.TextMatrix(row, 7).toDouble();
    EXPECT_EQ(field("txtGross").text(), QLocale(QLocale::English).toString(gross, 'f', 2));
    EXPECT_EQ(field("txtAmount").text(), field("txtGross").text());
    EXPECT_TRUE(field("txtOrNo").isVisible());
    EXPECT_TRUE(button("cmdSave").isEnabled());
}

TEST_F(Opening, AWardsLinesComeBeforeTheReceipts) {
    EXPECT_EQ(
        opened({.PatIdNum = admitted,
                .PatientType = "I",
                .CashBasis = true,
                .NurseCommnunication = true,
                .CashOrNum = "OR9",
                .Classification = "Z"}),
        (QStringList{"Select * From Build_file..tbcoRoom where roomid = '205'",
                     "Nuclear..sp_Nuclear_commsearchexam '26004078','Z'", "sp_Nuclear_getcashexam 'OR9'"}));
}

TEST_F(Opening, AnOutPatientsHeaderTellsAgeAndSex) {
    const QString id = value("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient ORDER BY IdNum");
    open({.PatIdNum = id, .PatientType = "O"});
    EXPECT_EQ(field("txtAge").text(), session::gPatientMaster->Age);
    EXPECT_EQ(field("txtSex").text(), session::gPatientMaster->Sex);
    EXPECT_NE(field("txtAge").text() + field("txtSex").text(), "");
}

TEST_F(Opening, AnAdmissionThatIsGoneLeavesTheHeaderEmpty) {
    EXPECT_EQ(opened({.PatIdNum = "00000000", .PatientType = "I"}),
              QStringList{"Select * From Build_file..tbcoRoom where roomid = ''"});
    EXPECT_EQ(field("txtIdNum").text(), "");
    EXPECT_EQ(field("txtLname").text(), "");
}

} // namespace
