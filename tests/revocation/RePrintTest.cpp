// Printing a slip again: the patient, the charges, what is sent for the slip and what it says.
#include "revocation/frmRePrint.h"

#include "platform/controls/screen/TestDoors.h"
#include "platform/report/layout/PageDocument.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"
#include "tests/revocation/RevocationFixture.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTest>

#include <variant>

namespace {

using controls::FlexGrid;
using controls::SharedScreen;
using revocation::frmRePrint;
using tests::child;
using tests::click;
using tests::keys;
using tests::lines;
using tests::Step;

using Rows = std::vector<std::vector<base::Value>>;

const char* const patientColumns =
    "IdNum,HospNum,LastName,FirstName,MiddleName,RoomClassID,RoomID,Sex,Age,BirthDate,"
    "AdmDate,Company,AttendingDr";
const char* const chargeColumns =
    "RefNum,TransDate,ItemID,Description,Quantity,Amount,UserID,requestdoctorname";

QString grids(const FlexGrid& grid, int row) {
    QStringList cells;
    for (int column = 1; column < grid.Cols(); ++column)
        cells += grid.TextMatrix(row, column);
    return cells.join(u'|');
}

/// On prepared answers; reports are written down instead of shown.
class Reprint : public testing::Test {
  protected:
    Reprint() {
        session::otherReportLaunchers() = {
            .prepareReport =
                [this](const QString& path, const QString& database, const std::vector<base::Value>& values) {
                    QStringList texts;
                    for (const base::Value& value : values)
                        texts += base::textOf(value);
                    launched += path.section(u'\\', -2) + u' ' + database + u' ' + texts.join(u'|');
                },
            .showReport =
                [this](bool tree, const QString& title, bool directPrint) {
                    launched += QStringLiteral("%1 %2 %3").arg(tree).arg(title).arg(directPrint);
                }};
        answerPatient();
    }
    ~Reprint() override {
        session::otherReportLaunchers() = {};
        controls::release<frmRePrint>();
    }
    /// Once; then nobody is found.
    void answerPatient() {
        session.server().answer(
            "SELECT P.IdNum",
            tests::ScriptedProvider::rowsOf(patientColumns,
                                            {{"26004001", "104001", "SANTOS", "MARIA", "REYES", "B", "301",
                                              "F", "40", nullptr, nullptr, "ACME INC.", "CRUZ, ANA D"}}),
            true);
    }
    void answer(const char* statement, const char* columns, const Rows& rows) {
        session.server().answer(QLatin1String(statement), tests::ScriptedProvider::rowsOf(columns, rows));
    }
    void answerCharges(const Rows& rows) { answer("sp_Nuclear_ChargesbyPatient", chargeColumns, rows); }
    void answerThreeCharges() {
        const base::DateTime moment = *base::fromIso("2026-11-20 14:05:00", 19);
        answerCharges({{"C900J", moment, "1001", "BONE SCAN", 1.0, 5200.5, "1001", "CRUZ, ANA D"},
                       {"C900J", moment, "201", nullptr, nullptr, nullptr, "1002", nullptr},
                       {"C901J", moment, "1101", "RENAL SCAN", 2.0, 900.0, "1002", "DIAZ, LUZ E"}});
    }
    void open(std::vector<Step> steps) {
        answer("SELECT", patientColumns, {});
        steps.push_back([](QWidget& window) { tests::keysToFocus(window, "<Esc>"); });
        tests::runModal([] { SharedScreen<frmRePrint>::fresh().ShowModal(); }, std::move(steps));
    }
    static Step finding(const char* text) {
        return [text](QWidget& window) {
            keys(child<QLineEdit>(window, "txtIdNum"), QLatin1String(text) + QStringLiteral("<Enter>"));
        };
    }
    static FlexGrid& grid(QWidget& window) { return child<FlexGrid>(window, "grdTable"); }
    static QPushButton& cmdPrint(QWidget& window) { return child<QPushButton>(window, "cmdPrint"); }
    /// But for those of the patient list.
    QStringList takeTexts() {
        QStringList texts = std::exchange(session.texts(), {});
        texts.removeIf([](const QString& text) { return text.startsWith("SELECT"); });
        return texts;
    }

    base::FixedClock clock = tests::fixedClock();
    tests::ScriptedSession session;
    tests::MessageScript boxes;
    QStringList launched;
};

TEST_F(Reprint, OpensForAnInpatientWithNothingToPrint) {
    open({[](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "RePrinting");
        EXPECT_EQ(child<QLabel>(window, "bandTitle").text(), "RePrint Charge Slip");
        const auto& code = child<QComboBox>(window, "cmbPatientCode");
        EXPECT_EQ(code.itemText(0), "Inpatient");
        EXPECT_EQ(code.itemText(1), "Outpatient");
        EXPECT_EQ(code.currentIndex(), 0);
        const std::pair<const char*, const char*> captions[] = {
            {"lblPatientCode", "Patient Code:"}, {"lblIdNum", "&Admission No.:"},
            {"lblHospNum", "Hospital No.:"},     {"lblLastName", "Last Name:"},
            {"lblFirstName", "First Name:"},     {"lblMiddleName", "Middle Name:"}};
        for (const auto& [name, caption] : captions)
            EXPECT_EQ(child<QLabel>(window, name).text(), caption);
        EXPECT_EQ(child<QGroupBox>(window, "fraCharges").title(), "Charges");
        EXPECT_EQ(cmdPrint(window).text(), "&Print");
        EXPECT_EQ(child<QPushButton>(window, "cmdClose").text(), "&Close");
        EXPECT_FALSE(cmdPrint(window).isEnabled());
        EXPECT_EQ(grids(grid(window), 0), "REF. #|DATE|CODE|DESCRIPTION|QTY|AMOUNT|ENCODER");
        const int widths[] = {1000, 2000, 1000, 3000, 1000, 1000, 1000};
        for (int column = 1; column <= 7; ++column)
            EXPECT_EQ(grid(window).ColWidth(column), widths[column - 1]);
    }});
}

TEST_F(Reprint, ListsThePatientsChargesAndGoesThere) {
    answerThreeCharges();
    open({finding("26004001"), [](QWidget& window) {
              const auto text = [&](const char* name) { return child<QLineEdit>(window, name).text(); };
              EXPECT_EQ(text("txtIdNum") + u' ' + text("txtHospNum") + u' ' + text("txtLastName") + u' ' +
                            text("txtFirstName") + u' ' + text("txtMiddleName"),
                        "26004001 104001 SANTOS MARIA REYES");
              ASSERT_EQ(grid(window).Rows(), 4);
              EXPECT_EQ(grids(grid(window), 1), "C900J|11/20/2026 02:05PM|1001|BONE SCAN|1|5200.50|1001");
              EXPECT_EQ(grids(grid(window), 2), "C900J|11/20/2026 02:05PM|201||||1002")
                  << "Null is an empty cell";
              EXPECT_TRUE(cmdPrint(window).isEnabled());
              EXPECT_TRUE(grid(window).hasFocus());
          }});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_ChargesbyPatient '26004001'");
}

TEST_F(Reprint, WithoutChargesNothingIsPrinted) {
    answerCharges({});
    open({finding("26004001"), [](QWidget& window) {
              EXPECT_FALSE(cmdPrint(window).isEnabled());
              keys(grid(window), "<Enter>");
              QTest::mouseDClick(grid(window).viewport(), Qt::LeftButton, {},
                                 grid(window).visualRect(grid(window).model()->index(0, 2)).center());
          }});
    EXPECT_EQ(lines(takeTexts()), "sp_Nuclear_ChargesbyPatient '26004001'");
    EXPECT_EQ(lines(launched), "");
}

/// One text for each line of the slip, and one print. The doctor is that of the last charge.
TEST_F(Reprint, ASlipOfSeveralLinesIsPrintedOnce) {
    answerThreeCharges();
    open({finding("26004001"), [&](QWidget& window) {
              takeTexts();
              click(cmdPrint(window));
          }});
    EXPECT_EQ(lines(takeTexts()), lines({"sp_Nuclear_ChargesbySlip 'C900J','1001','1001'",
                                         "sp_Nuclear_ChargesbySlip 'C900J','201','1001'"}));
    EXPECT_EQ(lines(launched), lines({"Reports\\Chargeslip.RPT NUCLEAR NUCLEAR MEDICINE COST CENTER "
                                      "SLIP|SANTOS, MARIA REYES|ACME INC.|"
                                      "26004001|REYES, JOAN P.||11/21/2026|DIAZ, LUZ E|C900J|",
                                      "0 Charge Slip Printing 0"}));
}

TEST_F(Reprint, TheNameIsWhatItsThreeBoxesShowAtThePrint) {
    answerThreeCharges();
    open({finding("26004001"), [](QWidget& window) {
              child<QLineEdit>(window, "txtLastName").setText("SANTOS-CRUZ");
              click(cmdPrint(window));
          }});
    EXPECT_TRUE(launched.value(0).contains("|SANTOS-CRUZ, MARIA REYES|")) << lines(launched);
}

TEST_F(Reprint, EnterAndADoubleClickOnAChargePrintItsSlip) {
    answerThreeCharges();
    open({finding("26004001"), [&](QWidget& window) {
              takeTexts();
              keys(grid(window), "<Down><Down><Enter>");
              QTest::mouseDClick(grid(window).viewport(), Qt::LeftButton, {},
                                 grid(window).visualRect(grid(window).model()->index(2, 4)).center());
          }});
    EXPECT_EQ(lines(takeTexts()), lines({"sp_Nuclear_ChargesbySlip 'C901J','1101','1001'",
                                         "sp_Nuclear_ChargesbySlip 'C901J','1101','1001'"}));
    EXPECT_EQ(launched.count(), 4);
}

TEST_F(Reprint, ARowWithoutASlipCannotBePrinted) {
    answerCharges({{"C900J", nullptr, "1001", "BONE SCAN", 1.0, 5200.5, "1001", ""},
                   {"", nullptr, "1101", "RENAL SCAN", 1.0, 900.0, "1001", ""}});
    open({finding("26004001"), [](QWidget& window) {
              EXPECT_TRUE(cmdPrint(window).isEnabled());
              keys(grid(window), "<Down>");
              EXPECT_FALSE(cmdPrint(window).isEnabled());
              keys(grid(window), "<Up>");
              EXPECT_TRUE(cmdPrint(window).isEnabled());
          }});
}

TEST_F(Reprint, ThePatientCodeIsTyped) {
    open({[](QWidget& window) {
        auto& code = child<QComboBox>(window, "cmbPatientCode");
        auto& number = child<QLineEdit>(window, "txtIdNum");
        keys(code, "o");
        EXPECT_EQ(code.currentIndex(), 1);
        EXPECT_TRUE(number.hasFocus());
        keys(code, "<Enter>");
        EXPECT_EQ(code.currentIndex(), 1);
        EXPECT_TRUE(number.hasFocus());
        keys(code, "I");
        EXPECT_EQ(code.currentIndex(), 0);
        keys(number, "26a");
        EXPECT_EQ(number.text(), "26A");
    }});
}

/// Left without a choice: for an in-patient there is nothing to print any more; for an out-patient what was
/// listed stays.
class LeftList : public Reprint, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(PatientCodes, LeftList, testing::Values(0, 1));

TEST_P(LeftList, PutsThePrintOutOfUseForAnInpatientOnly) {
    answerThreeCharges();
    open({finding("26004001"),
          [&](QWidget& window) {
              child<QComboBox>(window, "cmbPatientCode").setCurrentIndex(GetParam());
              keys(child<QLineEdit>(window, "txtIdNum"), "NOBODY<Enter>");
          },
          [](QWidget& picks) { tests::keysToFocus(picks, "<Esc>"); },
          [&](QWidget& window) { EXPECT_EQ(cmdPrint(window).isEnabled(), GetParam() == 1); }});
}

// ---- on the hospital

class ReprintedSlip : public tests::RevocationFixture {
  public:
    ReprintedSlip() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~ReprintedSlip() override { session::setProgramFolder({}); }

    /// The texts of the report that is open.
    static QStringList page() {
        QStringList texts;
        const auto document = session::gReport->run();
        for (const report::Item& item : document->page(0)->items) {
            if (const auto* text = std::get_if<report::TextRun>(&item))
                texts += text->text;
        }
        return texts;
    }
    /// Finds the patient; `look` sees the screen with its charges.
    void find(const tests::Charged& line, bool isIn, std::vector<Step> steps) {
        steps.insert(steps.begin(), [&](QWidget& window) {
            child<QComboBox>(window, "cmbPatientCode").setCurrentIndex(isIn ? 0 : 1);
            keys(child<QLineEdit>(window, "txtIdNum"), line.admission + QStringLiteral("<Enter>"));
        });
        tests::runModal([] { SharedScreen<frmRePrint>::fresh().ShowModal(); }, std::move(steps));
    }
};

TEST_F(ReprintedSlip, SaysWhatTheFirstOneSaidAndIsKnownAsACopy) {
    const tests::Charged line;
    post(hospital, line);
    QStringList texts;
    QString mark;
    find(line, true,
         {[](QWidget& window) {
              EXPECT_EQ(child<FlexGrid>(window, "grdTable").TextMatrix(1, 1), "C9001J");
              click(child<QPushButton>(window, "cmdPrint"));
          },
          [&](QWidget& viewer) {
              EXPECT_EQ(viewer.windowTitle(), "Charge Slip Printing");
              mark = session::gReport->watermark;
              texts = page();
              tests::close(viewer);
          },
          [](QWidget& window) { tests::keysToFocus(window, "<Esc>"); }});
    EXPECT_EQ(mark, "RE-PRINT");
    for (const char* text :
         {"C9001J", "AGUILAR, VIRGILIO AVELINO", "26004078", "1001", "5,620.00", "RE-PRINT"})
        EXPECT_TRUE(texts.join(u'\n').contains(QLatin1String(text))) << text << " in " << lines(texts);
}

/// The second routine: the slip and its values once more, by the formulas' names.
TEST_F(ReprintedSlip, ByFormulasSaysRoomDoctorAndWhoChargedIt) {
    tests::Charged line = tests::outPatients(hospital);
    post(hospital, line);
    QStringList texts, formulas;
    QString mark, caption, date;
    int charges = 0;
    find(line, false,
         {[](QWidget& window) { click(child<QPushButton>(window, "cmdPrint")); },
          [](QWidget& viewer) { tests::close(viewer); },
          [&](QWidget& window) {
              takeTexts();
              charges = child<FlexGrid>(window, "grdTable").Rows() - 1;
              date = child<FlexGrid>(window, "grdTable").TextMatrix(1, 2);
              dynamic_cast<frmRePrint&>(window).PrintChargeSlipFormulas();
          },
          [&](QWidget& viewer) {
              caption = viewer.windowTitle();
              mark = session::gReport->watermark;
              for (const QString& name : session::gReport->formulaNames())
                  formulas += name.toUpper() + u' ' + session::gReport->formula(name);
              texts = page();
              tests::close(viewer);
          },
          [](QWidget& window) { tests::keysToFocus(window, "<Esc>"); }});
    EXPECT_EQ(caption, "Charge Slip C9001J");
    EXPECT_EQ(mark, "RE-PRINT");
    const QString hospitalName = session::gHospitalName;
    const QString patient = value("SELECT LastName + ', ' + FirstName + ' ' + MiddleName FROM "
                                  "PATIENT_DATA..tbMaster WHERE HospNum = '" +
                                  line.hospNum + "'");
    const QString encoder =
        value("SELECT LastName + ', ' + FirstName FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'");
    for (const QString& formula :
         {QStringLiteral("PATIENT \"%1\"").arg(patient), QStringLiteral("CHARGEDATE \"%1\"").arg(date),
          QStringLiteral("ADDRESS \"%1\"").arg(session::gHospitalAddress), QStringLiteral("TITLE \"\""),
          QStringLiteral("ADMNO \"%1\"").arg(line.admission), QStringLiteral("ISSUER \"%1\"").arg(encoder),
          QStringLiteral("REMARKS \"/\""), QStringLiteral("HOSPITAL \"%1\"").arg(hospitalName),
          QStringLiteral("TIN \"\""), QStringLiteral("HOSPNUM \"%1\"").arg(line.hospNum),
          QStringLiteral("ROOMNUM \"OP\""), QStringLiteral("AGE \"\""), QStringLiteral("@USERID \"1001\"")})
        EXPECT_TRUE(formulas.contains(formula)) << formula.toStdString() << " in\n" << lines(formulas);
    EXPECT_TRUE(formulas.filter("QUANTITY")[0].contains("Round")) << "another formula stays as it is";
    for (const QString& text : {QStringLiteral("C9001J"), QStringLiteral("OP"), hospitalName, encoder})
        EXPECT_TRUE(texts.contains(text)) << text.toStdString() << " in " << lines(texts);
    const QStringList sent = takeTexts();
    EXPECT_EQ(sent.filter("ChargesbySlip").count(), charges) << "every charge, whatever its slip";
    EXPECT_EQ(sent.filter("ChargesbySlip").filter("'C9001J',").count(), charges);
    EXPECT_EQ(sent.filter("Select * from PASSWORD..tbPasswordMain where EmployeeID = '1001'").count(), 1);
}

TEST_F(ReprintedSlip, NamesOfEmployees) {
    EXPECT_EQ(frmRePrint::GetEmployeeName("1001"), "REYES, JOAN");
    EXPECT_EQ(frmRePrint::GetEmployeeName("0000"), "");
}

TEST_F(ReprintedSlip, ACancelledLineIsNotOnTheCopy) {
    const tests::Charged line;
    post(hospital, line);
    expectRevoked();
    cancelling(line, {pressing("cmdSave")});
    find(line, true, {[](QWidget& window) {
             const auto& grid = child<FlexGrid>(window, "grdTable");
             for (int row = 1; row < grid.Rows(); ++row)
                 EXPECT_NE(grid.TextMatrix(row, 1), "C9001J");
             tests::keysToFocus(window, "<Esc>");
         }});
}

} // namespace
