// The hidden grid of an assessment's lines: how a code in it is found, refused and priced.
#include "orders/frmOutRequest.h"
#include "session/Session.h"
#include "tests/orders/RequestFixture.h"

#include <QTest>

namespace {

class InputGrid : public tests::RequestFixture {
  public:
    controls::FlexGrid& input() { return tests::child<controls::FlexGrid>(screen(), "grdInput"); }
    /// A line with a department and a code, as the current one.
    void put(const QString& department, const QString& code) {
        if (!input().TextMatrix(input().Rows() - 1, 2).isEmpty())
            input().AddItem({});
        input().setCurrentCell(input().Rows() - 1, 2);
        input().setTextMatrix(input().Row(), 1, department);
        input().setTextMatrix(input().Row(), 2, code);
    }
    /// A code that has no list is not asked for in one.
    bool notFound(const QString& prompt) {
        boxes.expect({prompt, controls::vbExclamation, ""});
        bool found = true;
        tests::runModal([&] { found = screen().LookUpInputLine(); },
                        {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
        return !found;
    }
    QString outPatient(const char* hmo) const {
        return value(
            QStringLiteral("SELECT TOP 1 O.IdNum FROM PATIENT_DATA..tbOutPatient O INNER JOIN "
                           "BUILD_FILE..tbcoCompany C ON C.AccountNum = O.AccountNum WHERE C.IsHMO = "
                           "%1 ORDER BY O.IdNum DESC")
                .arg(QLatin1String(hmo)));
    }
    double rate(const char* column) const {
        return value(QStringLiteral("SELECT CONVERT(varchar(20), %1) FROM BUILD_FILE..tbcoNucExam WHERE "
                                    "NucExamID = '1001'")
                         .arg(QLatin1String(column)))
            .toDouble();
    }
    orders::frmOutRequest& out() { return static_cast<orders::frmOutRequest&>(screen()); }
};

TEST_F(InputGrid, AnHmoAccountIsToldWithItsNumber) {
    const QString id = outPatient("1");
    ASSERT_FALSE(id.isEmpty());
    openOut({.IdNumber = id});
    QString account;
    EXPECT_TRUE(out().Check_IfHMO("  " + id + " ", account));
    EXPECT_EQ(takeTexts(), QStringList{"RADIOLOGY..Radiology_CheckIfHMO '" + id + "'"});
    EXPECT_EQ(account, value("SELECT AccountNum FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '" + id + "'"));
    account = "before";
    EXPECT_FALSE(out().Check_IfHMO("nobody", account));
    EXPECT_EQ(account, "before");
}

TEST_F(InputGrid, AnHmoAccountIsPricedAtRateHAndAnyOtherAtRateA) {
    ASSERT_NE(rate("RateH"), rate("RateA"));
    for (const char* hmo : {"1", "0"}) {
        openOut({.IdNumber = outPatient(hmo)});
        screen().Initialize_TableInput();
        put("NU", "1001");
        EXPECT_TRUE(screen().LookUpInputLine());
        EXPECT_EQ(takeTexts().filter("CheckIfHMO").size(), 1);
        const double expected = rate(*hmo == '1' ? "RateH" : "RateA");
        EXPECT_EQ(input().TextMatrix(1, 3), "BONE SCAN, WHOLE BODY");
        EXPECT_EQ(input().TextMatrix(1, 5).toDouble(), expected) << hmo;
        EXPECT_EQ(input().TextMatrix(1, 13).toDouble(), expected);
    }
}

TEST_F(InputGrid, TheLiveGridNeverAsksForTheAccount) {
    openOut({.IdNumber = outPatient("1")});
    type("NU<Enter>1001<Enter>");
    EXPECT_EQ(cell(1, 5).toDouble(), rate("RateA"));
    EXPECT_EQ(takeTexts().filter("CheckIfHMO").size(), 0);
}

TEST_F(InputGrid, EnterInItsCodeLooksItUp) {
    openOut({.IdNumber = outPatient("0")});
    screen().Initialize_TableInput();
    put("NU", "1001");
    QTest::keyClick(&input(), Qt::Key_Return);
    EXPECT_EQ(input().TextMatrix(1, 5).toDouble(), rate("RateA"));
}

TEST_F(InputGrid, ItRefusesInItsOwnWords) {
    openOut({.IdNumber = outPatient("0")});
    screen().Initialize_TableInput();
    put("NU", "1001");
    EXPECT_TRUE(screen().LookUpInputLine());
    put("NU", "1001");
    boxes.expect({"You have already entered that item code", controls::vbExclamation, ""});
    EXPECT_FALSE(screen().LookUpInputLine());
    put("NU", "9x9x");
    EXPECT_TRUE(notFound("Item Code does not exist."));
    put("MD", "9x9x");
    EXPECT_TRUE(notFound("Doctor code not exist!"));
    put("FN", "201");
    EXPECT_TRUE(screen().LookUpInputLine());
    EXPECT_TRUE(input().TextMatrix(input().Row(), 3).startsWith("(PF) DR. "));
}

TEST_F(InputGrid, ItsListOfExamsAsksForNoAccount) {
    openOut({.IdNumber = outPatient("1")});
    screen().Initialize_TableInput();
    put("NU", "BONE SCAN, W");
    takeTexts();
    tests::runModal([&] { EXPECT_TRUE(screen().LookUpInputLine()); }, {[&](QWidget& list) {
                        EXPECT_EQ(takeTexts().filter("CheckIfHMO").size(), 0);
                        EXPECT_EQ(tests::child<controls::FlexGrid>(list, "grdTable").TextMatrix(0, 2),
                                  "Rate A");
                        tests::keysToFocus(list, "<Enter>");
                    }});
    EXPECT_EQ(takeTexts().filter("CheckIfHMO").size(), 1);
    EXPECT_EQ(input().TextMatrix(1, 5).toDouble(), rate("RateH"));
}

TEST_F(InputGrid, AnAdmittedPatientIsPricedByTheClassOfTheList) {
    open({.PatIdNum = admitted, .PatientType = "I", .PatientClass = "C"});
    screen().Initialize_TableInput();
    put("NU", "1001");
    EXPECT_TRUE(screen().LookUpInputLine());
    EXPECT_EQ(input().TextMatrix(1, 5).toDouble(), rate("RateC"));
    open({.PatIdNum = "W1001", .PatientType = "W", .PatientClass = "C"});
    screen().Initialize_TableInput();
    put("NU", "1001");
    EXPECT_TRUE(screen().LookUpInputLine());
    EXPECT_EQ(input().TextMatrix(1, 5).toDouble(), rate("Outpatient"));
}

TEST_F(InputGrid, NothingIsLookedUpBeforeItIsLaidOut) {
    openOut({.IdNumber = outPatient("0")});
    EXPECT_FALSE(screen().LookUpInputLine());
}

} // namespace
