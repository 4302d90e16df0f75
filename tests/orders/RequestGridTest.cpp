#include "tests/orders/RequestFixture.h"

#include "platform/base/Format.h"
#include "session/Session.h"
#include "session/services/Services.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

using tests::RequestFixture;
using RequestGrid = RequestFixture;

namespace {

TEST_F(RequestGrid, ALineIsBuiltByKeysAlone) {
    openAdmitted();
    EXPECT_TRUE(field("txtEntry").isVisible()) << "the first cell waits for the clerk";
    EXPECT_FALSE(button("cmdSave").isEnabled());
    type("nu<Enter>");
    EXPECT_EQ(cell(1, 3), "NUCLEAR PROCEDURES");
    type("1001<Enter>");
    EXPECT_EQ(line(1), "NU|1001|BONE SCAN, WHOLE BODY|ROUTINE|5620.00||");
    EXPECT_TRUE(tests::child<QComboBox>(screen(), "cboEntry").isVisible());
    type("<Enter>");
    EXPECT_EQ(field("txtEntry").text(), "1");
    EXPECT_EQ(field("txtEntry").selectedText(), "1");
    type("2<Enter>");
    EXPECT_EQ(line(1), "NU|1001|BONE SCAN, WHOLE BODY|ROUTINE|5620.00|2|11240.00");
    EXPECT_EQ(field("txtGross").text(), "11240.00");
    EXPECT_TRUE(button("cmdSave").isEnabled());
    EXPECT_TRUE(button("cmdSavePrint").isEnabled());
    EXPECT_EQ(grid().Rows(), 3);
    EXPECT_EQ(grid().Row(), 2);
    EXPECT_EQ(grid().Col(), 1);
    EXPECT_TRUE(field("txtEntry").isVisible());
}

TEST_F(RequestGrid, AStatProcedureCostsAQuarterMore) {
    openAdmitted();
    type("NU<Enter>1001<Enter>");
    grid().setTextMatrix(1, 13, "1000.00");
    type("s");
    EXPECT_EQ(cell(1, 4), "STAT");
    EXPECT_EQ(cell(1, 5), "1250");
    type("<Enter>2<Enter>");
    EXPECT_EQ(cell(1, 7), "2500.00");
    type("<Up>");
    grid().setCurrentCell(1, 4);
    type("<Esc><Enter>R");
    EXPECT_EQ(cell(1, 5), "1000.00");
    EXPECT_EQ(cell(1, 7), "2500.00") << "the amount follows at the quantity";
    grid().setTextMatrix(1, 13, "");
    type("S");
    EXPECT_EQ(cell(1, 5), "0");
    type("R");
    EXPECT_EQ(cell(1, 5), "1") << "without a routine price";
    type("x");
    EXPECT_EQ(cell(1, 4), "ROUTINE") << "other letters are dropped";
}

TEST_F(RequestGrid, FeesAndSuppliesKnowNoSurcharge) {
    openAdmitted();
    type("MD<Enter>201<Enter>");
    EXPECT_EQ(grid().Col(), 6) << "a fee skips its type";
    grid().setCurrentCell(1, 4);
    type("<Esc><Enter>S");
    EXPECT_EQ(cell(1, 5), "1");
    grid().setTextMatrix(1, 13, "300.00");
    type("RS");
    EXPECT_EQ(cell(1, 5), "300.00");
    type("<Down>");
    const QString item =
        value("SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster WHERE ItemClass = 'CS' ORDER BY ItemID");
    grid().AddItem({});
    grid().setCurrentCell(2, 1);
    type("<Esc><Enter>UR<Enter>" + item + "<Enter>");
    const QString price = cell(2, 5);
    type("S");
    EXPECT_EQ(cell(2, 4), "STAT");
    EXPECT_EQ(cell(2, 5), price);
    EXPECT_EQ(cell(2, 10), price);
    EXPECT_EQ(cell(2, 11), "224");
}

TEST_F(RequestGrid, AQuantityIsOneCharacter) {
    openAdmitted();
    type("NU<Enter>1001<Enter><Enter>12");
    EXPECT_EQ(cell(1, 6), "1");
    type("<Enter>");
    EXPECT_EQ(cell(1, 6), "1");
    EXPECT_EQ(cell(1, 7), "5620.00");
    type("<Up>");
    grid().setCurrentCell(1, 6);
    type("<Esc><Enter>x7");
    EXPECT_EQ(cell(1, 6), "7") << "letters do not get through";
}

TEST_F(RequestGrid, ARoomThatIsNotOnFilePricesAtNothing) {
    const QString id =
        value("SELECT TOP 1 P.IdNum FROM PATIENT_DATA..tbPatient P LEFT JOIN BUILD_FILE..tbcoRoom R ON "
              "R.RoomID = P.RoomID WHERE R.RoomID IS NULL AND P.DcrDate IS NULL");
    ASSERT_FALSE(id.isEmpty());
    openAdmitted(id);
    type("NU<Enter>1001<Enter><Enter>1<Enter>");
    EXPECT_EQ(line(1), "NU|1001|BONE SCAN, WHOLE BODY|ROUTINE|0.00|1|0.00");
}

TEST_F(RequestGrid, AnExamStandsOnOneLineOnly) {
    openAdmitted();
    type("NU<Enter>1001<Enter><Enter>1<Enter>");
    boxes.expect({"Exam already selected.", controls::vbExclamation, "Assessment"});
    type("NU<Enter>1001<Enter>");
    EXPECT_EQ(cell(2, 2), "");
    EXPECT_EQ(cell(2, 13), "5620.00") << "the routine price is written before the other lines are looked at";
    EXPECT_EQ(cell(2, 5), "");
    EXPECT_EQ(grid().Col(), 2);
    EXPECT_TRUE(field("txtEntry").isVisible());
    type("1002<Enter>");
    EXPECT_EQ(cell(2, 2), "1002");
}

TEST_F(RequestGrid, TheSameCodeOfAnotherDepartmentIsAnotherItem) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>");
    grid().setTextMatrix(1, 1, "MD");
    type("NU<Enter>1001<Enter>");
    EXPECT_EQ(line(2), "NU|1001|BONE SCAN, WHOLE BODY|ROUTINE|5620.00||");
}

TEST_F(RequestGrid, AWrongCodeStaysOpen) {
    openAdmitted();
    type("NU<Enter>");
    boxes.expect({"Invalid Code.", controls::vbExclamation, ""});
    tests::runModal([&] { type("ZZZZ<Enter>"); }, {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
    EXPECT_EQ(cell(1, 2), "ZZZZ");
    EXPECT_TRUE(field("txtEntry").isVisible());
    EXPECT_EQ(grid().Col(), 2);
}

/// Raises an error of its own at the next statement.
class RaisesOnce : public ado::Observer {
  public:
    explicit RaisesOnce(base::RunTimeError error) : m_error(std::move(error)) {
        session::gConnection->addObserver(this);
    }
    ~RaisesOnce() override { session::gConnection->removeObserver(this); }
    void beforeStatement(const QString&, ado::StatementKind) override {
        if (!std::exchange(m_raised, true))
            throw m_error;
    }

  private:
    base::RunTimeError m_error;
    bool m_raised = false;
};

TEST_F(RequestGrid, AnErrorOfTheExamLookupIsABoxAndTheCodeStaysOpen) {
    openAdmitted();
    type("NU<Enter>");
    boxes.expect({"The line is down.", controls::vbCritical, ""});
    boxes.expect({"Invalid Code.", controls::vbExclamation, ""});
    {
        const RaisesOnce raises(base::RunTimeError(50000, "The line is down."));
        type("1001<Enter>");
    }
    EXPECT_TRUE(errors.isEmpty()) << "the program goes on";
    EXPECT_EQ(cell(1, 2), "1001");
    EXPECT_TRUE(field("txtEntry").isVisible());
    type("<Enter>");
    EXPECT_EQ(cell(1, 5), "5620.00") << "and so does the line";
}

TEST_F(RequestGrid, NoCurrentRecordInTheExamLookupEmptiesTheCode) {
    openAdmitted();
    type("NU<Enter>");
    boxes.expect({"Invalid Code.", controls::vbExclamation, ""});
    {
        const RaisesOnce raises(base::RunTimeError(base::errors::noCurrentRecord));
        type("1001<Enter>");
    }
    EXPECT_TRUE(errors.isEmpty());
    EXPECT_EQ(cell(1, 2), "");
    EXPECT_EQ(field("txtEntry").text(), "");
    EXPECT_TRUE(field("txtEntry").isVisible());
}

TEST_F(RequestGrid, AWrongDoctorHasItsOwnBox) {
    openAdmitted();
    type("FN<Enter>");
    boxes.expect({"Invalid Code", controls::vbOKOnly, ""});
    tests::runModal([&] { type("ZZZZ<Enter>"); }, {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
    EXPECT_TRUE(field("txtEntry").isVisible());
}

TEST_F(RequestGrid, AnItemThatIsNotOnFileSaysSo) {
    openAdmitted();
    type("UR<Enter>");
    boxes.expect({"Item not found on file.", controls::vbInformation, ""});
    boxes.expect({"Invalid Code.", controls::vbExclamation, ""});
    tests::runModal([&] { type("ZZZZ<Enter>"); }, {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
}

TEST_F(RequestGrid, AnUnknownDepartmentGoesOnToTheQuantity) {
    openAdmitted();
    boxes.expect({"Item does not exists.", controls::vbExclamation, ""});
    type("QQ<Enter>");
    EXPECT_EQ(grid().Col(), 6);
    EXPECT_EQ(cell(1, 6), "1");
}

TEST_F(RequestGrid, ACodeWithoutItemsGoesToTheAmount) {
    openAdmitted();
    type("MS<Enter>");
    EXPECT_EQ(grid().Col(), 7);
    EXPECT_FALSE(field("txtEntry").isVisible()) << "the amount is skipped on such a line";
}

TEST_F(RequestGrid, AFeeUnlocksTheAmountOfTheLinesBehindIt) {
    openAdmitted();
    type("MD<Enter>201<Enter><Enter>MS<Enter>");
    EXPECT_EQ(grid().Row(), 2);
    EXPECT_EQ(grid().Col(), 7);
    EXPECT_TRUE(field("txtEntry").isVisible()) << "the columns are the grid's, not the line's";
    type("80<Enter>");
    EXPECT_EQ(cell(2, 7), "80.00");
}

TEST_F(RequestGrid, ADoctorLookedUpAgainEmptiesTheAmount) {
    openAdmitted();
    type("MD<Enter>201<Enter><Tab>1500<Enter>");
    grid().setCurrentCell(1, 2);
    type("<Esc><Enter><Ctrl+A>202<Enter>");
    EXPECT_EQ(cell(1, 2), "202");
    EXPECT_EQ(cell(1, 7), "");
}

TEST_F(RequestGrid, ADoctorLookedUpAgainEmptiesTheQuantity) {
    openAdmitted();
    type("MD<Enter>201<Enter>3<Tab>1500<Enter>");
    ASSERT_EQ(cell(1, 6), "3");
    grid().setCurrentCell(1, 2);
    type("<Esc><Enter><Ctrl+A>202<Tab>"); // to the type: the quantity is not opened
    EXPECT_EQ(cell(1, 2), "202");
    EXPECT_EQ(cell(1, 6), "");
    EXPECT_EQ(cell(1, 7), "");
}

TEST_F(RequestGrid, ADepartmentTellsItsLineWhatItKnowsOfItsItems) {
    const auto told = [this](const char* department) {
        forget();
        openAdmitted();
        for (const int column : {8, 9, 10, 11})
            grid().setTextMatrix(1, column, "before");
        type(QStringLiteral("%1<Enter>").arg(QLatin1String(department)));
        return QStringList({cell(1, 8), cell(1, 9), cell(1, 10), cell(1, 11)}).join(u'|');
    };
    const auto onFile = [this](const char* department) {
        return value(
            QStringLiteral("SELECT WithItems + '|N|' + CASE WHEN SearchInventory = 1 THEN 'Y' ELSE "
                           "'N' END + '|' + ISNULL(LocationID, '') FROM BUILD_FILE..tbcoRevenueCode WHERE "
                           "RevenueID = '%1'")
                .arg(QLatin1String(department)));
    };
    EXPECT_EQ(told("UR"), onFile("UR"));
    EXPECT_EQ(told("MS"), onFile("MS"));
    EXPECT_TRUE(onFile("UR").endsWith("|224"));
    EXPECT_NE(onFile("UR"), onFile("MS"));
}

TEST_F(RequestGrid, ASupplyIsOneUntilTheClerkSaysMore) {
    openAdmitted();
    type("UR<Enter>40001<Enter>");
    ASSERT_EQ(grid().Col(), 4);
    EXPECT_EQ(cell(1, 6), "1");
    EXPECT_EQ(cell(1, 7), "") << "its amount follows at the quantity";
}

TEST_F(RequestGrid, EveryItemIsLookedForAmongTheSupplies) {
    openAdmitted();
    session::gFormulist->DrugsORCSR = true;
    const QString drug =
        value("SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster WHERE ItemClass = 'PH' ORDER BY ItemID");
    boxes.expect({"Item not found on file.", controls::vbInformation, ""});
    boxes.expect({"Invalid Code.", controls::vbExclamation, ""});
    tests::runModal([&] { type("MN<Enter>" + drug + "<Enter>"); },
                    {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
    EXPECT_FALSE(session::gFormulist->DrugsORCSR);
}

TEST_F(RequestGrid, AVariableRateUnlocksTheAmount) {
    const QString exam =
        value("SELECT TOP 1 NucExamID FROM BUILD_FILE..tbcoNucExam WHERE Fixrate = 'N' AND Status = "
              "'A' ORDER BY NucExamID");
    openAdmitted();
    type("NU<Enter>" + exam + "<Enter>");
    EXPECT_EQ(cell(1, 9), "Y");
    type("<Enter>1<Tab>500<Enter>");
    EXPECT_EQ(cell(1, 7), "500.00");
    EXPECT_EQ(field("txtGross").text(), "500.00");
}

QStringList captionsOf(const controls::FlexGrid& grid) {
    QStringList captions;
    for (int column = 0; column < grid.Cols(); ++column)
        captions += grid.TextMatrix(0, column);
    return captions;
}

TEST_F(RequestGrid, TheListOfExamsShowsThePriceByWhichTheLineIsMade) {
    openAdmitted();
    type("NU<Enter>");
    takeTexts();
    tests::runModal([&] { type("BONE SCAN, W<Enter>"); }, {[](QWidget& list) {
                        auto& exams = tests::child<controls::FlexGrid>(list, "grdTable");
                        EXPECT_EQ(captionsOf(exams).join(u'|'),
                                  "Code|Exam|Price|Rate A|Rate B|Rate C|Rate D|Rate E");
                        QStringList row;
                        for (int column = 0; column < exams.Cols(); ++column)
                            row += exams.TextMatrix(1, column);
                        EXPECT_EQ(row.join(u'|'), "1001|BONE SCAN, WHOLE BODY|5,620.00|5,200.00|5,620.00|"
                                                  "6,240.00|7,020.00|7,800.00");
                        tests::keysToFocus(list, "<Enter>");
                    }});
    EXPECT_EQ(cell(1, 5), "5620.00") << "as it was shown";
    const QStringList sent = takeTexts();
    ASSERT_EQ(sent.size(), 2) << "the list asks for nothing beyond its rows";
    EXPECT_TRUE(sent[1].contains("NucExam LIKE '%BONE SCAN, W%'"));
}

TEST_F(RequestGrid, AnOutPatientsListOfExamsShowsRateA) {
    openOut({.IdNumber = value("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL "
                               "ORDER BY IdNum")});
    type("NU<Enter>");
    tests::runModal([&] { type("BONE SCAN, W<Enter>"); }, {[](QWidget& list) {
                        auto& exams = tests::child<controls::FlexGrid>(list, "grdTable");
                        EXPECT_EQ(exams.TextMatrix(0, 2), "Price");
                        EXPECT_EQ(exams.TextMatrix(1, 2), "5,200.00");
                        tests::keysToFocus(list, "<Enter>");
                    }});
    EXPECT_EQ(cell(1, 5), "5200.00");
}

TEST_F(RequestGrid, F3DeletesLines) {
    openAdmitted();
    type("NU<F3>");
    EXPECT_EQ(cell(1, 1), "NU") << "the only line stays while it is open";
    EXPECT_EQ(grid().Rows(), 2);
    type("<Enter>1001<Enter><Enter>1<Enter>NU<Enter>1002<Enter><Enter>1<Enter>");
    ASSERT_EQ(grid().Rows(), 4);
    type("<Up><F3>");
    EXPECT_EQ(grid().Rows(), 3);
    EXPECT_EQ(field("txtGross").text(), "5620.00");
    EXPECT_TRUE(button("cmdSave").isEnabled());
    grid().setCurrentCell(1, 1);
    type("<Esc><F3><F3>");
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(line(1), "||||||");
    type("<F3>");
    EXPECT_EQ(grid().Rows(), 2) << "a grid keeps a line to type in";
    EXPECT_EQ(field("txtGross").text(), "0.00");
}

TEST_F(RequestGrid, F3LeavesTheSavesAsTheyAre) {
    openAdmitted();
    type("NU<Esc><F3>");
    EXPECT_EQ(line(1), "||||||") << "the only line, and it was begun";
    EXPECT_FALSE(button("cmdSave").isEnabled());
    EXPECT_FALSE(button("cmdSavePrint").isEnabled());
    type("<Enter>NU<Enter>1001<Enter><Enter>1<Enter><F3>");
    EXPECT_TRUE(button("cmdSave").isEnabled());
    EXPECT_TRUE(button("cmdSavePrint").isEnabled());
}

TEST_F(RequestGrid, F3InACellDeletesFromTwoLinesOn) {
    openAdmitted();
    type("NU<Enter>1001<Enter><Enter>1<Enter>");
    ASSERT_EQ(grid().Rows(), 3);
    type("MD<F3>");
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(line(1), "NU|1001|BONE SCAN, WHOLE BODY|ROUTINE|5620.00|1|5620.00");
}

TEST_F(RequestGrid, UpAndDownMoveOneLineFromTheListOfTypesAsFromACell) {
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU<Enter>1002<Enter>R<Enter>1<Enter>");
    const QStringList lines{line(1), line(2)};
    const QWidget& types = tests::child<QComboBox>(screen(), "cboEntry");
    for (const int column : {4, 2}) {
        const QWidget& editor = column == 4 ? types : field("txtEntry");
        grid().setCurrentCell(2, column);
        type("<Esc><Enter>");
        ASSERT_TRUE(editor.isVisible());
        for (const int row : {1, 1}) { // there is no line above the first
            type("<Up>");
            EXPECT_EQ(grid().Row(), row) << column;
            EXPECT_EQ(grid().Col(), column);
            EXPECT_TRUE(editor.isVisible());
        }
        for (const int row : {2, 3, 3}) { // and none is added behind the last
            type("<Down>");
            EXPECT_EQ(grid().Row(), row) << column;
            EXPECT_EQ(grid().Col(), column);
        }
        EXPECT_EQ(grid().Rows(), 4);
        EXPECT_EQ(QStringList({line(1), line(2)}), lines) << "no type was chosen on the way";
    }
}

TEST_F(RequestGrid, EnterInAFeesQuantityMakesItsAmountAnew) {
    openAdmitted();
    type("MD<Enter>201<Enter><Tab>1500<Enter>");
    ASSERT_EQ(field("txtGross").text(), "1500.00");
    grid().setCurrentCell(1, 6);
    type("<Esc><Enter>2<Enter>");
    EXPECT_EQ(cell(1, 6), "2");
    EXPECT_EQ(cell(1, 7), "0.00") << "a fee has no price";
    EXPECT_EQ(field("txtGross").text(), "0.00");
    EXPECT_EQ(grid().Row(), 2);
    EXPECT_EQ(grid().Col(), 1);
}

TEST_F(RequestGrid, AFeeTakesItsAmountByKeys) {
    openAdmitted();
    type("MD<Enter>201<Enter>");
    EXPECT_EQ(cell(1, 7), "");
    type("<Tab>1500.5<Enter>");
    EXPECT_EQ(cell(1, 7), "1500.50");
    EXPECT_EQ(field("txtGross").text(), "1500.50");
    EXPECT_EQ(grid().Row(), 2);
    type("<Shift+Tab>");
    EXPECT_EQ(grid().Row(), 1);
    EXPECT_EQ(grid().Col(), 7);
}

TEST_F(RequestGrid, EscapeLeavesTheCellAndKeysOpenItAgain) {
    openAdmitted();
    type("N<Esc>");
    EXPECT_FALSE(field("txtEntry").isVisible());
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_TRUE(screen().isVisible());
    type("U");
    EXPECT_TRUE(field("txtEntry").isVisible());
    EXPECT_EQ(cell(1, 1), "U") << "what is typed takes the cell's place";
}

TEST_F(RequestGrid, TheKeyThatOpensACellFollowsTheRulesOfItsColumn) {
    openAdmitted();
    type("<Esc>'");
    EXPECT_EQ(cell(1, 1), "`");
    type("<Esc>nu");
    EXPECT_EQ(cell(1, 1), "NU");
    type("<Enter>1001<Enter><Enter><Esc>");
    ASSERT_EQ(grid().Col(), 6);
    type("x");
    EXPECT_EQ(cell(1, 6), "1") << "a letter is no quantity";
    type("<Esc>3");
    EXPECT_EQ(cell(1, 6), "3");
    grid().setCurrentCell(1, 4);
    type("<Esc>s");
    EXPECT_EQ(cell(1, 4), "STAT");
}

TEST_F(RequestGrid, ACellThatIsScrolledAwayIsClosed) {
    openAdmitted();
    type("<Esc>");
    for (int row = 0; row < 40; ++row)
        grid().AddItem("\tMD\t201");
    grid().setCurrentCell(40, 1);
    type("<Enter>X");
    ASSERT_TRUE(field("txtEntry").isVisible());
    grid().verticalScrollBar()->setValue(0);
    EXPECT_FALSE(field("txtEntry").isVisible());
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(cell(40, 1), "X") << "what was typed stays in its own line";
    type("<Enter>");
    EXPECT_TRUE(field("txtEntry").isVisible());
    EXPECT_EQ(field("txtEntry").pos(), grid().cellRect(40, 1).topLeft());
    QTest::mousePress(grid().horizontalHeader()->viewport(), Qt::LeftButton);
    QTest::mouseRelease(grid().horizontalHeader()->viewport(), Qt::LeftButton);
    EXPECT_FALSE(field("txtEntry").isVisible());
}

TEST_F(RequestGrid, TheCellFollowsTheSizeOfTheScreen) {
    openAdmitted();
    type("N");
    screen().resize(screen().size() + QSize(100, 60));
    QCoreApplication::processEvents();
    EXPECT_TRUE(field("txtEntry").isVisible());
    EXPECT_EQ(field("txtEntry").pos(), grid().cellRect(1, 1).topLeft());
    EXPECT_EQ(field("txtEntry").width(), grid().cellRect(1, 1).width());
}

TEST_F(RequestGrid, TabLeavesAnEmptyLastLineAsItIs) {
    openAdmitted();
    type("NU<Enter>1001<Enter><Enter>1<Enter>");
    ASSERT_EQ(grid().Row(), 2);
    type("<Tab>");
    EXPECT_EQ(line(2), "||||||");
    EXPECT_TRUE(button("cmdSave").hasFocus());
}

TEST_F(RequestGrid, AFeeLineIsFinishedBehindItsType) {
    openAdmitted();
    type("MD<Enter>201<Enter>");
    grid().setCurrentCell(1, 4);
    type("<Esc><Enter>R<Enter>");
    EXPECT_EQ(grid().Row(), 2) << "four columns on there is none";
    EXPECT_EQ(grid().Col(), 1);
}

TEST_F(RequestGrid, ATypedQuoteIsABackQuote) {
    openAdmitted();
    type("N'");
    EXPECT_EQ(cell(1, 1), "N`");
}

TEST_F(RequestGrid, TheHeaderComesFromTheAdmission) {
    openAdmitted();
    EXPECT_EQ(field("txtLname").text(), "AGUILAR");
    EXPECT_EQ(field("txtIdNum").text(), admitted);
    EXPECT_EQ(field("txtHospNum").text(), "104078");
    EXPECT_EQ(field("txtRoom").text(), "205");
    EXPECT_EQ(field("txtCompany").text(), "Personal");
    EXPECT_TRUE(field("txtDoctor").text().startsWith("DR. "));
    EXPECT_EQ(field("txtGross").text(), "0");
    EXPECT_FALSE(field("txtOrNo").isVisible());
}

TEST_F(RequestGrid, TheHeaderTellsWhatTheAdmissionKnowsOfThePatient) {
    openAdmitted();
    const session::clsAdmission& admission = *session::gAdmission;
    const auto date = [](const base::Value& value) {
        return base::Format(value, QStringLiteral("mm/dd/yyyy"));
    };
    const std::pair<const char*, QString> fields[] = {{"txtAge", admission.Patient.Age},
                                                      {"txtSex", admission.Patient.Sex},
                                                      {"txtBDate", date(admission.Patient.BirthDate)},
                                                      {"txtBloodType", admission.Patient.BloodType},
                                                      {"txtWeight", admission.History.Weight},
                                                      {"txtHeight", admission.History.Height},
                                                      {"txtAdmDate", date(admission.AdmissionDate)}};
    for (const auto& [name, told] : fields) {
        EXPECT_EQ(field(name).text(), told) << name;
        EXPECT_NE(told, "") << name;
    }
}

TEST_F(RequestGrid, ACompanyAccountShowsItsNumber) {
    const QString open =
        "PATIENT_DATA..tbPatient WHERE DcrDate IS NULL AND AccountNum <> HospNum ORDER BY IdNum";
    openAdmitted(value("SELECT TOP 1 IdNum FROM " + open));
    EXPECT_EQ(field("txtCompany").text(), value("SELECT TOP 1 AccountNum FROM " + open));
}

TEST_F(RequestGrid, DoctorsArePickedInThreeWays) {
    openAdmitted();
    const QString first = value("SELECT FirstName FROM BUILD_FILE..tbcoDoctor WHERE DoctorID = '201'");
    const QString middle = value("SELECT MiddleName FROM BUILD_FILE..tbcoDoctor WHERE DoctorID = '201'");
    const QString last = value("SELECT LastName FROM BUILD_FILE..tbcoDoctor WHERE DoctorID = '201'");
    field("txtDoctorID").setFocus();
    type("201<Enter>");
    EXPECT_EQ(field("txtDoctor").text(), "DR. " + first + " " + last);
    EXPECT_FALSE(field("txtDoctorID").hasFocus()) << "the focus moves on";
    tests::click(tests::child<QWidget>(screen(), "cmdDoctor"));
    EXPECT_EQ(field("txtDoctor").text(), "DR. " + first + " " + middle + " " + last);
    field("txtDoctor").setFocus();
    field("txtDoctor").selectAll();
    type("201<Enter>");
    EXPECT_EQ(field("txtDoctor").text(), last + "," + first + " " + middle);
    field("txtDoctorID").clear();
    boxes.expect({"You must fill in the Requesting Doctor First!", controls::vbCritical, "DoctorId"});
    tests::runModal([&] { tests::keys(field("txtDoctorID"), "ZZZZ<Enter>"); },
                    {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
}

TEST_F(RequestGrid, WardLinesAskBeforeTheyAreLeft) {
    const QString ward = "SELECT IdNum FROM STATION..tbNurseCommunicationFile WHERE RequestNum = '7000001'";
    open({.PatIdNum = value(ward), .PatientType = "I", .NurseCommnunication = true, .Classification = "A"});
    EXPECT_EQ(grid().Rows(), 3);
    EXPECT_EQ(cell(1, 5), cell(1, 7)) << "the price takes the line's amount as it stands";
    EXPECT_EQ(cell(1, 11), "7000001");
    boxes.expect({"Are you Sure you want to Exit ?", controls::vbYesNo | controls::vbQuestion, "Message",
                  controls::vbNo});
    type("<Alt+E>");
    EXPECT_FALSE(screen().isUnloaded());
    boxes.expect({"Are you Sure you want to Exit ?", controls::vbYesNo | controls::vbQuestion, "Message",
                  controls::vbYes});
    type("<Alt+E>");
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_F(RequestGrid, ToLookAtAWardLinesTypeLeavesItsPrice) {
    const QString ward = "SELECT IdNum FROM STATION..tbNurseCommunicationFile WHERE RequestNum = '7000001'";
    open({.PatIdNum = value(ward), .PatientType = "I", .NurseCommnunication = true, .Classification = "A"});
    const QString line = this->line(1);
    ASSERT_NE(cell(1, 5), "1");
    auto& type = tests::child<QComboBox>(screen(), "cboEntry");
    grid().setFocus();
    grid().setCurrentCell(1, 2);
    this->type("<Enter><Tab>");
    ASSERT_TRUE(type.isVisible());
    EXPECT_EQ(type.currentText(), "");
    EXPECT_EQ(this->line(1), line);
    this->type("R");
    EXPECT_EQ(cell(1, 4), "ROUTINE");
    EXPECT_EQ(cell(1, 5), "1") << "without a routine price";
    grid().setCurrentCell(2, 4);
    const QString other = this->line(2);
    this->type("<Esc><Enter>");
    ASSERT_TRUE(type.isVisible());
    EXPECT_EQ(this->line(2), other);
    boxes.expect({"Are you Sure you want to Exit ?", controls::vbYesNo | controls::vbQuestion, "Message",
                  controls::vbYes});
    this->type("<Alt+E>");
}

TEST_F(RequestGrid, ACodeThatIsLookedUpAgainIsPricedByItsTypeAgain) {
    openAdmitted();
    type("NU<Enter>1001<Enter>S<Enter>1<Enter>NU<Enter>1002<Enter>R<Enter>1<Enter>");
    for (const char* code : {"1001", "1003"}) {
        grid().setCurrentCell(1, 2);
        type(QStringLiteral("<Esc><Enter><Ctrl+A>%1<Enter>").arg(code));
        ASSERT_EQ(grid().Col(), 4);
        EXPECT_EQ(cell(1, 4), "STAT");
        EXPECT_EQ(cell(1, 5).toDouble(), cell(1, 13).toDouble() * 1.25) << code;
    }
}

TEST_F(RequestGrid, ToLookAtAFeesTypeLeavesItsPrice) {
    openAdmitted();
    type("NU<Enter>1001<Enter>S<Enter>1<Enter>MD<Enter>201<Enter>");
    grid().setCurrentCell(2, 4);
    type("<Esc><Enter>");
    ASSERT_TRUE(tests::child<QComboBox>(screen(), "cboEntry").isVisible());
    EXPECT_EQ(cell(2, 4), "");
    EXPECT_EQ(cell(2, 5), "");
    grid().setCurrentCell(1, 4);
    type("<Esc><Enter>");
    EXPECT_EQ(line(1), "NU|1001|BONE SCAN, WHOLE BODY|STAT|7025|1|7025.00");
}

TEST_F(RequestGrid, TextsOfPaddedColumnsAreTrimmed) {
    hospital.replaceProcedure(
        "ALTER PROCEDURE sp_Nuclear_commsearchexam @IdNum varchar(20), @Classification "
        "varchar(10) AS SELECT 'NU  ' AS RevenueID, ' 1001 ' AS ItemID, 'BONE SCAN ' AS Exam, "
        "'5620 ' AS Amount, '1 ' AS Quantity, '7000001   ' AS RequestNum");
    open({.PatIdNum = admitted, .PatientType = "I", .NurseCommnunication = true, .Classification = "A"});
    EXPECT_EQ(line(1), "NU|1001|BONE SCAN||5620|1|5620");
    EXPECT_EQ(cell(1, 11), "7000001");
    boxes.expect({"Are you Sure you want to Exit ?", controls::vbYesNo | controls::vbQuestion, "Message",
                  controls::vbYes});
    type("<Alt+E>");
}

TEST_F(RequestGrid, AWardsLinePricesAtItsWholeAmountWhateverItsQuantity) {
    hospital.replaceProcedure(
        "ALTER PROCEDURE sp_Nuclear_commsearchexam @IdNum varchar(20), @Classification "
        "varchar(10) AS SELECT 'NU' AS RevenueID, '1001' AS ItemID, 'BONE SCAN' AS Exam, "
        "'11240' AS Amount, '2' AS Quantity, '7000001' AS RequestNum");
    open({.PatIdNum = admitted, .PatientType = "I", .NurseCommnunication = true, .Classification = "A"});
    EXPECT_EQ(line(1), "NU|1001|BONE SCAN||11240|2|11240");
    EXPECT_EQ(field("txtGross").text(), "11240.00");
    boxes.expect({"Are you Sure you want to Exit ?", controls::vbYesNo | controls::vbQuestion, "Message",
                  controls::vbYes});
    type("<Alt+E>");
}

TEST_F(RequestGrid, AnEmptyPlainScreenClosesSilently) {
    openAdmitted();
    type("NU<Enter><Alt+E>");
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_F(RequestGrid, PackageScreensGetTheGrids) {
    openAdmitted();
    type("<Esc>");
    tests::click(button("cmdPackage"));
    tests::click(button("cmdNucCharges"));
    ASSERT_EQ(screens.packages.size(), 1u);
    ASSERT_EQ(screens.nucCharges.size(), 1u);
    auto* unused = &tests::child<controls::FlexGrid>(screen(), "mshflexPackageItems");
    for (const session::PackageHandOver& grids : {screens.packages[0], screens.nucCharges[0]}) {
        EXPECT_EQ(grids.SourceGrid, &grid());
        EXPECT_EQ(grids.PackageGrid, unused);
    }
    EXPECT_EQ(field("txtGross").text(), "0.00");
}

TEST_F(RequestGrid, TheHiddenPackagePairWorks) {
    openAdmitted();
    auto& chkPackage = tests::child<QAbstractButton>(screen(), "chkPackage");
    auto& cboPackage = tests::child<QComboBox>(screen(), "cboPackage");
    EXPECT_FALSE(chkPackage.isVisible());
    chkPackage.setChecked(true);
    EXPECT_TRUE(button("cmdSave").isEnabled());
    EXPECT_GT(cboPackage.count(), 0);
    takeTexts();
    Q_EMIT cboPackage.activated(0);
    EXPECT_EQ(takeTexts(), QStringList{"spNuclear_ShowPackage '','" + cboPackage.itemText(0).left(1) + "'"});
    ASSERT_GT(grid().Rows(), 2);
    const int widths[] = {10, 800, 800, 4000, 1000, 1000};
    for (int column = 0; column < 6; ++column)
        EXPECT_EQ(grid().ColWidth(column), widths[column]) << column;
    double gross = 0;
    for (int row = 1; row < grid().Rows(); ++row)
        gross += cell(row, 6).toDouble();
    EXPECT_EQ(field("txtGross").text(), QString::number(gross, 'f', 2));
    boxes.expect({"No Record Found", controls::vbInformation, "Message"});
    cboPackage.addItem("?");
    cboPackage.setCurrentIndex(cboPackage.count() - 1);
    Q_EMIT cboPackage.activated(cboPackage.currentIndex());
    chkPackage.setChecked(false);
    EXPECT_FALSE(button("cmdSave").isEnabled());
    EXPECT_FALSE(grid().isVisible());
    EXPECT_EQ(cboPackage.count(), 0);
    EXPECT_EQ(field("txtGross").text(), "0");
}

} // namespace
