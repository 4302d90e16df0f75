// Whom an assessment is for: the three kinds of patients, and at which rate each is priced.
#include "platform/base/Conversion.h"
#include "platform/controls/look/HeaderBand.h"
#include "session/Session.h"
#include "tests/orders/AssessmentFixture.h"

#include <QLabel>
#include <QMenu>
#include <QTest>

namespace {

class AssessmentPatient : public tests::AssessmentFixture {
  public:
    AssessmentPatient() { open(); }

    /// Whoever the cash basis of the section says this of, still in the house: "number|hospital number|...".
    QString confined(const char* okeyNU) const {
        return value(
            QStringLiteral("SELECT TOP 1 P.IdNum FROM PATIENT_DATA..tbPatient P INNER JOIN "
                           "PATIENT_DATA..tbPatient2 D ON D.IdNum = P.IdNum INNER JOIN "
                           "BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID WHERE P.DcrDate IS NULL AND "
                           "P.BillingDate IS NULL AND D.OkeyNU = %1 AND R.RoomClassID <> 'A' ORDER "
                           "BY P.IdNum")
                .arg(QLatin1String(okeyNU)));
    }
    QString expected(const QString& idNum) const {
        return value("SELECT P.HospNum + '|' + P.IdNum + '|' + M.LastName + '|' + M.FirstName + '|' + "
                     "M.MiddleName + '|' + R.RoomClassID FROM PATIENT_DATA..tbPatient P INNER JOIN "
                     "PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum INNER JOIN BUILD_FILE..tbcoRoom R ON "
                     "R.RoomID = P.RoomID WHERE P.IdNum = '" +
                     idNum + "'");
    }
    void expectRefused() {
        boxes.expect({"Patient is not Under Cash Basis. Use Post Charges Option.", controls::vbInformation,
                      "Message Alert"});
    }
    QString price(const char* rate) const {
        return value(QStringLiteral("SELECT CONVERT(varchar(20), %1) FROM BUILD_FILE..tbcoNucExam WHERE "
                                    "NucExamID = '1001'")
                         .arg(QLatin1String(rate)));
    }
};

TEST_F(AssessmentPatient, TheScreenOpensEmptyAndAsksNothing) {
    EXPECT_EQ(screen().windowTitle(), "Assessment Entry");
    EXPECT_EQ(patient(), "|||||");
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(grid().Cols(), 17);
    EXPECT_EQ(cell(0, 2), "Code");
    EXPECT_EQ(field("txtGross").text(), "0.00");
    EXPECT_TRUE(field("txtSname").hasFocus());
    EXPECT_FALSE(button("btnSave").isEnabled());
    EXPECT_FALSE(button("btnClear").isEnabled());
    const char* const captions[][2] = {{"lblSname", "Last Name "},
                                       {"lblFname", "First Name  "},
                                       {"lblMname", "Middle Name "},
                                       {"lblDoctor", "Requesting Doctor"},
                                       {"lblGross", "Total Amount"}};
    for (const auto& caption : captions)
        EXPECT_EQ(tests::child<QLabel>(screen(), caption[0]).text(), caption[1]);
    const char* const kinds[] = {"&Walk-In", "&OPD/ Regular Patients", "&Confined Patients"};
    for (int kind = 0; kind < 3; ++kind)
        EXPECT_EQ(
            tests::child<QRadioButton>(screen(), QByteArray("optType_").append(char('0' + kind))).text(),
            kinds[kind]);
    const char* const commands[][2] = {{"btnSave", " &Save"},
                                       {"btnClear", " &Save/Print"},
                                       {"btnClose", " &Close"},
                                       {"cmdPackage", " &View Packages"}};
    for (const auto& command : commands)
        EXPECT_EQ(button(command[0]).text(), command[1]);
    EXPECT_TRUE(tests::child<QRadioButton>(screen(), "optType_0").isChecked());
}

TEST_F(AssessmentPatient, AWalkInIsPickedFromTheListEvenWhenHeIsTheOnlyOne) {
    const QString name = value("SELECT LastName FROM PATIENT_DATA..tbCashPatient WHERE hospnum = 'W1003'");
    tests::runModal([&] { find("optType_0", name.toLower() + "<Enter>"); },
                    {[](QWidget& list) { tests::keysToFocus(list, "<Down><Enter>"); }});
    const QStringList sent = takeTexts();
    EXPECT_EQ(sent.value(0), "spGlobal_CashPatient '0', '" + name + "'");
    const QString found = field("txtHospNum").text();
    EXPECT_EQ(sent.last(), "spGlobal_CashPatient '1', '" + found + "'");
    EXPECT_EQ(patient(), value("SELECT hospnum + '||' + LastName + '|' + FirstName + '|' + MiddleName + '|A' "
                               "FROM PATIENT_DATA..tbCashPatient WHERE hospnum = '" +
                               found + "'"));
    EXPECT_EQ(screen().focusWidget(), &field("txtDoctorID"));
}

TEST_F(AssessmentPatient, AWalkInWhoIsNotOnFileLeavesTheNameToBeTypedAgain) {
    find("optType_0", "zzz<Enter>");
    EXPECT_EQ(takeTexts(), QStringList{"spGlobal_CashPatient '0', 'ZZZ'"});
    EXPECT_EQ(patient(), "||ZZZ|||");
    EXPECT_EQ(tests::child<controls::HeaderBand>(screen(), "band").subtitle(),
              "Nobody was chosen. Type the last name and press Enter");
    EXPECT_TRUE(field("txtSname").hasFocus());
    EXPECT_EQ(field("txtSname").selectedText(), "ZZZ");
}

TEST_F(AssessmentPatient, ANameIsSearchedForInCapitalsHoweverItGotThere) {
    field("txtSname").setText("zzz");
    tests::keys(field("txtSname"), "<Enter>");
    EXPECT_EQ(takeTexts(), QStringList{"spGlobal_CashPatient '0', 'ZZZ'"});
    EXPECT_EQ(field("txtSname").text(), "ZZZ");
}

TEST_F(AssessmentPatient, ARegularOutPatientIsRatedAtClassA) {
    find("optType_1", "104078<Enter>");
    EXPECT_EQ(takeTexts(), QStringList{"spGlobal_RegularPatients '','1', '104078'"});
    EXPECT_EQ(patient(), "104078|T104078C|AGUILAR|VIRGILIO|AVELINO|A");
    EXPECT_TRUE(field("txtDoctorID").hasFocus());
    type("204<Enter>");
    EXPECT_EQ(field("txtDoctor").text(), value("SELECT 'DR. ' + FirstName + ' ' + LastName FROM "
                                               "BUILD_FILE..tbcoDoctor WHERE DoctorID = '204'"));
    EXPECT_TRUE(grid().hasFocus());
    type("NU<Enter>1001<Enter>");
    EXPECT_EQ(cell(1, 5).toDouble(), price("RateA").toDouble());
    EXPECT_NE(price("RateA"), price("RateB"));
    type("S<Enter>2<Enter>");
    EXPECT_EQ(cell(1, 5).toDouble(), price("RateA").toDouble() * 1.25);
    EXPECT_EQ(cell(1, 7).toDouble(), price("RateA").toDouble() * 2.5);
    EXPECT_EQ(field("txtGross").text(), cell(1, 7));
    EXPECT_TRUE(button("btnSave").isEnabled());
    EXPECT_TRUE(button("btnClear").isEnabled());
}

TEST_F(AssessmentPatient, AConfinedPatientUnderCashBasisIsTakenAtHisRoomsClass) {
    const QString idNum = confined("1");
    ASSERT_FALSE(idNum.isEmpty());
    find("optType_2", idNum + "<Enter>");
    EXPECT_EQ(takeTexts().last(),
              "Select top 1 * from patient_data..tbPatient2 where Idnum = '" + idNum + "'");
    EXPECT_EQ(patient(), expected(idNum));
    const QString roomClass = field("txtRoomClassID").text();
    grid().setFocus();
    type("NU<Enter>1001<Enter>");
    EXPECT_EQ(cell(1, 5).toDouble(), price(qPrintable("Rate" + roomClass)).toDouble());
}

TEST_F(AssessmentPatient, AConfinedPatientOnANormalAccountIsRefused) {
    const QString idNum = confined("0");
    expectRefused();
    find("optType_2", idNum + "<Enter>");
    EXPECT_EQ(field("txtHospNum").text(), "");
    EXPECT_EQ(field("txtIdNum").text(), "");
    EXPECT_EQ(field("txtRoomClassID").text(), "");
    EXPECT_TRUE(field("txtSname").hasFocus());
}

TEST_F(AssessmentPatient, AStayThatTheDepartmentsHoldNothingAboutIsRefusedToo) {
    const QString idNum = confined("1");
    hospital.run("DELETE FROM PATIENT_DATA..tbPatient2 WHERE IdNum = '" + idNum + "'");
    expectRefused();
    find("optType_2", idNum + "<Enter>");
    EXPECT_EQ(field("txtIdNum").text(), "");
}

TEST_F(AssessmentPatient, ANumberThatIsNoneIsAcceptedAtOnce) {
    const QString idNum = confined("0");
    hospital.run("UPDATE PATIENT_DATA..tbPatient SET IdNum = 'X26' WHERE IdNum = '" + idNum + "'");
    find("optType_2", "X26<Enter>");
    EXPECT_EQ(takeTexts().filter("tbPatient2 where Idnum").size(), 0);
    EXPECT_EQ(field("txtIdNum").text(), "X26");
    EXPECT_TRUE(field("txtDoctorID").hasFocus());
}

TEST_F(AssessmentPatient, AnotherNameOrKindForgetsTheFormerPatient) {
    find("optType_1", "104078<Enter>");
    tests::keys(field("txtSname"), "<End>X");
    EXPECT_EQ(patient(), "||AGUILARX|||");
    find("optType_1", "<Ctrl+A>104078<Enter>");
    EXPECT_EQ(patient(), "104078|T104078C|AGUILAR|VIRGILIO|AVELINO|A");
    tests::click(tests::child<QRadioButton>(screen(), "optType_2"));
    EXPECT_EQ(patient(), "||AGUILAR|||");
}

TEST_F(AssessmentPatient, LinesArePricedForAPatientAndGoWithHisClass) {
    EXPECT_FALSE(grid().isEnabled()) << "nobody is known yet, and no price";
    EXPECT_FALSE(button("cmdPackage").isEnabled());
    openForRegular();
    type("<Enter>NU<Enter>1001<Enter>R<Enter>1<Enter>");
    const QString priced = line(1);
    tests::click(tests::child<QRadioButton>(screen(), "optType_0"));
    EXPECT_FALSE(grid().isEnabled());
    const int before = lastAssessment();
    button("btnSave").click();
    EXPECT_EQ(lastAssessment(), before) << "nothing is filed for nobody";
    EXPECT_TRUE(field("txtSname").hasFocus());
    find("optType_1", "104078<Enter>");
    EXPECT_TRUE(grid().isEnabled());
    EXPECT_EQ(line(1), priced) << "of the same class";
    find("optType_2", confined("1") + "<Enter>");
    EXPECT_EQ(line(1), "||||||");
    EXPECT_EQ(field("txtGross").text(), "0.00");
    EXPECT_FALSE(button("btnSave").isEnabled());
}

TEST_F(AssessmentPatient, TheDoctorIsFoundByNameAsWell) {
    const QString last = value("SELECT LastName FROM BUILD_FILE..tbcoDoctor WHERE DoctorID = '204'");
    const QString first = value("SELECT FirstName FROM BUILD_FILE..tbcoDoctor WHERE DoctorID = '204'");
    tests::runModal([&] { tests::keys(field("txtDoctor"), last + ", " + first + "<Enter>"); },
                    {[](QWidget& list) { tests::keysToFocus(list, "<Down><Enter>"); }});
    EXPECT_EQ(field("txtDoctorID").text(), "204");
    EXPECT_TRUE(field("txtDoctor").text().startsWith(last + "," + first));
}

TEST_F(AssessmentPatient, ADoctorsListThatIsLeftAsksForOne) {
    boxes.expect({"You must fill in the Requesting Doctor First!", controls::vbCritical, "DoctorId"});
    tests::runModal([&] { tests::keys(field("txtDoctorID"), "<Enter>"); },
                    {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
}

TEST_F(AssessmentPatient, ARepeatedExamIsRefused) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU<Enter>");
    boxes.expect({"Exam already selected.", controls::vbExclamation, "Assessment"});
    type("1001<Enter>");
    EXPECT_EQ(cell(2, 2), "");
    boxes.expect({"Invalid Code.", controls::vbExclamation, ""});
    tests::runModal([&] { type("9x9x<Enter>"); }, {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
}

TEST_F(AssessmentPatient, APackageBringsItsLinesAtItsPrices) {
    openForRegular();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    takeTexts();
    tests::click(button("cmdPackage"));
    EXPECT_EQ(takeTexts(), QStringList{"spNuclear_PackageList"});
    auto& menu = tests::child<QMenu>(screen(), "mnuPackages");
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.actions().first()->text(), "A - THYROID WORK-UP");
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(takeTexts(), QStringList{"spNuclear_ShowPackage 'Y','A'"});
    ASSERT_EQ(grid().Rows(), 4) << "the empty line is filled first";
    const ado::Rows rows = hospital.run("spNuclear_ShowPackage 'Y','A'");
    double gross = cell(1, 7).toDouble();
    for (int row = 2; row <= 3; ++row) {
        const auto text = [&](int column) { return base::textOf(rows.at(row - 2, column)); };
        EXPECT_EQ(cell(row, 1), text(0));
        EXPECT_EQ(cell(row, 2), text(1));
        EXPECT_EQ(cell(row, 3), text(2));
        EXPECT_EQ(cell(row, 5).toDouble(), text(4).toDouble());
        EXPECT_EQ(cell(row, 13).toDouble(), text(4).toDouble());
        EXPECT_EQ(cell(row, 6).toDouble(), text(3).toDouble());
        EXPECT_EQ(cell(row, 7).toDouble(), text(5).toDouble());
        gross += text(5).toDouble();
    }
    EXPECT_EQ(field("txtGross").text().toDouble(), gross);
    EXPECT_TRUE(button("btnSave").isEnabled());
}

TEST_F(AssessmentPatient, APackageWithoutLinesForCashSaysSo) {
    hospital.run("UPDATE NUCLEAR..tbNucPackageItem SET RevenueID = 'UR'");
    openForRegular();
    tests::click(button("cmdPackage"));
    boxes.expect({"No Record Found", controls::vbInformation, "Message"});
    QTest::keyClick(&tests::child<QMenu>(screen(), "mnuPackages"), Qt::Key_Return);
    EXPECT_FALSE(button("btnSave").isEnabled());
    hospital.run("UPDATE NUCLEAR..tbNucPackage SET Status = 0");
    boxes.expect({"No Record Found", controls::vbInformation, "Message"});
    tests::click(button("cmdPackage"));
}

} // namespace
