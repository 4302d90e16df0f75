#include "session/services/frmPickList.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/services/Services.h"
#include "tests/session/Drive.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/ScriptedSession.h"

#include <QLabel>
#include <QPushButton>

using namespace session;
using controls::FlexGrid;
using tests::childOf;
using tests::ScriptedProvider;

namespace {

class Doctors : public testing::Test {
  protected:
    Doctors() {
        session.server().answer(QStringLiteral("SELECT DoctorID"), rows({}));
        session.server().answer(search(QStringLiteral("LastName LIKE 'CR%'")),
                                rows({{"D1", "CRUZ", "ANA", "B", "X"}, {"D2", "CRUZ", "BEN", "C", "Y"}}));
        session.server().answer(search(QStringLiteral("LastName LIKE 'CRUZ%' AND FirstName LIKE 'BEN%'")),
                                rows({{"D2", "CRUZ", "BEN", "C", "Y"}}));
        session.server().answer(search(QStringLiteral("LastName LIKE 'CRUZ%'")),
                                rows({{"D1", "CRUZ", "ANA", "B", "X"}, {"D2", "CRUZ", "BEN", "C", "Y"}}));
        session.server().answer(search(QStringLiteral("LastName LIKE 'ZZ%'")), rows({}));
        session.server().answer(
            QStringLiteral("SELECT TOP 200 DoctorID, LastName, FirstName, MiddleName, Specialty FROM "
                           "BUILD_FILE..tbcoDoctor WHERE Status = 'A' ORDER BY"),
            rows({{"D3", "ABAD", "CARLA", "D", "Z"},
                  {"D1", "CRUZ", "ANA", "B", "X"},
                  {"D2", "CRUZ", "BEN", "C", "Y"}}));
    }
    static ado::Result rows(const std::vector<std::vector<base::Value>>& doctors) {
        return ScriptedProvider::rowsOf(QStringLiteral("DoctorID,LastName,FirstName,MiddleName,Specialty"),
                                        doctors);
    }
    static QString search(const QString& condition) {
        return QStringLiteral("SELECT TOP 200 DoctorID, LastName, FirstName, MiddleName, Specialty FROM "
                              "BUILD_FILE..tbcoDoctor WHERE Status = 'A' AND ((") +
               condition;
    }
    bool list(const char* text, const std::function<void(controls::Screen&)>& driver) {
        bool found = false;
        tests::whileModal(
            [&] { found = gCodeFind->SearchListing(QLatin1String(text), clsLookupPad::doctors); }, driver);
        return found;
    }
    static QString hits(controls::Screen& list) { return childOf<QLabel>(list, "lblHits").text(); }

    tests::ScriptedSession session;
};

TEST_F(Doctors, ListOpensOnEverybodyWithTheSearchBoxFocused) {
    EXPECT_TRUE(list("", [this](controls::Screen& list) {
        EXPECT_EQ(list.windowTitle(), u"Doctors");
        EXPECT_TRUE(childOf(list, "txtSearch").hasFocus());
        auto& grid = childOf<FlexGrid>(list, "grdTable");
        ASSERT_EQ(grid.Rows(), 4);
        EXPECT_EQ(grid.TextMatrix(0, 1), u"Last Name");
        EXPECT_EQ(grid.TextMatrix(1, 0), u"D3");
        EXPECT_EQ(hits(list), u"3 doctors");
        QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_Down);
        EXPECT_EQ(grid.Row(), 2);
        QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_PageDown);
        EXPECT_EQ(grid.Row(), 3);
        QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_Down);
        EXPECT_EQ(grid.Row(), 3);
        QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_Up);
        EXPECT_TRUE(childOf(list, "txtSearch").hasFocus());
        EXPECT_EQ(session.texts().size(), 1);
        QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_Return);
    }));
    EXPECT_EQ(gCodeFind->ResultCode, u"D1");
    EXPECT_FALSE(gCodeFind->Cancelled());
}

TEST_F(Doctors, TheSearchIsInCapitalsAndTakesNoQuote) {
    EXPECT_FALSE(list("", [](controls::Screen& list) {
        auto& search = childOf<QLineEdit>(list, "txtSearch");
        QTest::keyClicks(&search, "o'n");
        EXPECT_EQ(search.text(), u"O`N");
        QTest::keyClick(&list, Qt::Key_Escape);
    }));
}

TEST_F(Doctors, EscapeLeavesAndIsCancelled) {
    EXPECT_FALSE(list("cruz", [](controls::Screen& list) {
        EXPECT_EQ(childOf<QLineEdit>(list, "txtSearch").text(), u"cruz");
        EXPECT_EQ(hits(list), u"2 doctors");
        QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_Escape);
    }));
    EXPECT_TRUE(gCodeFind->Cancelled());
    EXPECT_EQ(gCodeFind->ResultCode, u"");
    EXPECT_EQ(gCodeFind->DoctorRecord.ResultCode, u"");
}

TEST_F(Doctors, EnterBehindTheLastLetterShowsTheHitsFirst) {
    EXPECT_TRUE(list("", [this](controls::Screen& list) {
        auto& search = childOf<QLineEdit>(list, "txtSearch");
        QTest::keyClicks(&search, QStringLiteral("cr"));
        EXPECT_EQ(search.text(), u"CR");
        EXPECT_EQ(session.texts().size(), 1) << "the pause is not over";
        QTest::keyClick(&search, Qt::Key_Return);
        EXPECT_TRUE(list.isVisible()) << "two rows that nobody has seen";
        EXPECT_EQ(hits(list), u"2 doctors");
        EXPECT_EQ(session.texts().size(), 2);
        QTest::keyClick(&search, Qt::Key_Return);
    }));
    EXPECT_EQ(gCodeFind->ResultCode, u"D1");
}

TEST_F(Doctors, NoWayTakesARowThatTheTypingHasLeftBehind) {
    for (const auto& take : std::vector<std::function<void(controls::Screen&)>>{
             [](controls::Screen& list) { QTest::keyClick(&list, Qt::Key_S, Qt::AltModifier); },
             [](controls::Screen& list) {
                 childOf(list, "grdTable").setFocus(Qt::TabFocusReason);
                 QTest::keyClick(&childOf(list, "grdTable"), Qt::Key_Return);
             }}) {
        EXPECT_TRUE(list("", [&](controls::Screen& list) {
            QTest::keyClicks(&childOf(list, "txtSearch"), QStringLiteral("cr"));
            take(list);
            EXPECT_TRUE(list.isVisible()) << "the row was of another text";
            EXPECT_EQ(hits(list), u"2 doctors");
            take(list);
        }));
        EXPECT_EQ(gCodeFind->ResultCode, u"D1");
    }
}

TEST_F(Doctors, AnEnterThatIsHeldDownTakesNothing) {
    EXPECT_FALSE(list("", [](controls::Screen& list) {
        for (const char* on : {"txtSearch", "grdTable"}) {
            childOf(list, on).setFocus();
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
            QCoreApplication::sendEvent(&childOf(list, on), &held);
            EXPECT_TRUE(list.isVisible()) << on;
        }
        QTest::keyClick(&list, Qt::Key_Escape);
    }));
}

TEST_F(Doctors, OneHitIsTakenByTheSameEnter) {
    EXPECT_TRUE(list("", [](controls::Screen& list) {
        auto& search = childOf<QLineEdit>(list, "txtSearch");
        QTest::keyClicks(&search, QStringLiteral("CRUZ, BEN"));
        QTest::keyClick(&search, Qt::Key_Return);
    }));
    EXPECT_EQ(gCodeFind->ResultCode, u"D2");
    EXPECT_EQ(gCodeFind->FirstName, u"BEN");
}

TEST_F(Doctors, ListFollowsTheTypingAfterAPause) {
    list("", [this](controls::Screen& list) {
        QTest::keyClicks(&childOf(list, "txtSearch"), QStringLiteral("CR"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return session.texts().size() == 2; }));
        EXPECT_EQ(hits(list), u"2 doctors");
        QTest::keyClick(&list, Qt::Key_Escape);
    });
}

TEST_F(Doctors, NoHitSaysSoAndEnterTakesNothing) {
    EXPECT_FALSE(list("", [](controls::Screen& list) {
        auto& search = childOf<QLineEdit>(list, "txtSearch");
        QTest::keyClicks(&search, QStringLiteral("ZZ"));
        QTest::keyClick(&search, Qt::Key_Return);
        QTest::keyClick(&search, Qt::Key_Return);
        EXPECT_TRUE(list.isVisible());
        EXPECT_EQ(hits(list), u"No doctors");
        EXPECT_FALSE(childOf(list, "cmdSelect").isEnabled());
        QTest::keyClick(&search, Qt::Key_Down);
        QTest::keyClick(&search, Qt::Key_Escape);
    }));
}

TEST_F(Doctors, DoubleClickAndSelectTakeTheRow) {
    EXPECT_TRUE(list("", [](controls::Screen& list) {
        auto& grid = childOf<FlexGrid>(list, "grdTable");
        const QPoint cell = grid.mapFromParent(grid.cellRect(2, 1).center());
        const QPoint spot = grid.viewport()->mapFrom(&grid, cell);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, spot);
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, spot);
    }));
    EXPECT_EQ(gCodeFind->ResultCode, u"D1");
    EXPECT_TRUE(list(
        "", [](controls::Screen& list) { QTest::mouseClick(&childOf(list, "cmdSelect"), Qt::LeftButton); }));
    EXPECT_EQ(gCodeFind->ResultCode, u"D3");
    EXPECT_FALSE(list(
        "", [](controls::Screen& list) { QTest::mouseClick(&childOf(list, "cmdClose"), Qt::LeftButton); }));
}

TEST_F(Doctors, TwoHundredRowsSayThatThereMayBeMore) {
    std::vector<std::vector<base::Value>> many;
    for (int i = 0; i < PickListing::mostRows; ++i)
        many.push_back({QString::number(i), "SAME", "NAME", "", ""});
    session.server().answer(search(QStringLiteral("LastName LIKE 'SAME%'")), rows(many));
    list("same", [](controls::Screen& list) {
        EXPECT_EQ(hits(list), u"The first 200 doctors. Type more to see others.");
        QTest::keyClick(&list, Qt::Key_Escape);
    });
}

TEST(DoctorsByCode, CompleteCodeOpensNoList) {
    tests::ScriptedSession session;
    session.server().answer(
        QStringLiteral("SELECT DoctorID, LastName, FirstName, MiddleName, Specialty FROM "
                       "BUILD_FILE..tbcoDoctor WHERE DoctorID = 'D2'"),
        ScriptedProvider::rowsOf(QStringLiteral("DoctorID,LastName,FirstName,MiddleName,Specialty"),
                                 {{"D2", "CRUZ", "BEN", "C", "Y"}}));
    EXPECT_TRUE(gCodeFind->SearchMode);
    EXPECT_TRUE(gCodeFind->SearchListing(QStringLiteral("D2"), clsLookupPad::doctors));
    EXPECT_EQ(gCodeFind->ResultCode, u"D2");
}

TEST(Exams, APriceThatCannotBeReadIsLeftOut) {
    tests::ScriptedSession session;
    session.server().answer(QStringLiteral("SELECT NucExamID"), ado::Result());
    session.server().answer(
        QStringLiteral("SELECT TOP 200 NucExamID"),
        ScriptedProvider::rowsOf(
            QStringLiteral("NucExamID,NucExam,RateA,RateB,RateC,RateD,RateE,RateH,Outpatient,Fixrate"),
            {{"1", "ONE", 100, 200, 300, 400, 500, 600, 700, "Y"},
             {"2", "TWO", 100, {}, 300, 400, 500, 600, 700, "Y"}}));
    gCodeFind->ExamPrice = [](const NuclearExamRecord& exam) {
        return exam.RateB.isNull() ? throw base::RunTimeError(base::errors::typeMismatch)
                                   : base::CDbl(exam.RateB);
    };
    tests::whileModal([] { gCodeFind->SearchListing({}, clsLookupPad::exams); },
                      [](controls::Screen& list) {
                          const auto& grid = childOf<FlexGrid>(list, "grdTable");
                          EXPECT_EQ(grid.TextMatrix(0, 2), u"Price");
                          EXPECT_EQ(grid.TextMatrix(1, 2), u"200.00");
                          EXPECT_EQ(grid.TextMatrix(2, 2), u"");
                          QTest::keyClick(&list, Qt::Key_Escape);
                      });
    gCodeFind->ExamPrice = nullptr;
    tests::whileModal([] { gCodeFind->SearchListing({}, clsLookupPad::exams); },
                      [](controls::Screen& list) {
                          EXPECT_EQ(childOf<FlexGrid>(list, "grdTable").TextMatrix(0, 2), u"Rate A");
                          QTest::keyClick(&list, Qt::Key_Escape);
                      });
}

class PickOnFile : public tests::LoggedOn {};

TEST_F(PickOnFile, ConfinedPatientIsPickedByName) {
    ado::Recordset stay;
    stay.Open(ado::sql("SELECT TOP 1 M.LastName, M.FirstName FROM PATIENT_DATA..tbPatient P INNER JOIN "
                       "PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum WHERE P.DcrDate IS NULL AND "
                       "M.LastName NOT LIKE "
                       "'%[^A-Z]%'"),
              *gConnection);
    const QString last = stay.Fields("LastName").text();
    const QString first = stay.Fields("FirstName").text();
    bool found = false;
    tests::whileModal(
        [&] { found = gDeptFind->PatientListing(last + u',' + first, clsDeptFind::confinedPatients, true); },
        [&](controls::Screen& list) {
            EXPECT_EQ(childOf<FlexGrid>(list, "grdTable").TextMatrix(1, 1), last);
            QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_Return);
        });
    EXPECT_TRUE(found);
    EXPECT_EQ(gDeptFind->Inpatient.LastName, last);
    EXPECT_EQ(gDeptFind->Inpatient.FirstName, first);
    tests::whileModal([&] { found = gDeptFind->PatientListing({}, clsDeptFind::confinedPatients, true); },
                      [](controls::Screen& list) { QTest::keyClick(&list, Qt::Key_Escape); });
    EXPECT_FALSE(found);
    EXPECT_TRUE(gDeptFind->Cancelled());
}

TEST_F(PickOnFile, MedicineIsPickedFromTheList) {
    gFormulist->DrugsORCSR = true;
    QString text;
    QString location;
    QString code;
    tests::whileModal([&] { code = gFormulist->ShowList(text, true, location); },
                      [](controls::Screen& list) {
                          EXPECT_EQ(list.windowTitle(), u"List of Medicines");
                          QTest::keyClick(&childOf(list, "txtSearch"), Qt::Key_Return);
                      });
    EXPECT_FALSE(code.isEmpty());
    EXPECT_EQ(text, code);
    EXPECT_FALSE(location.isEmpty());
    EXPECT_TRUE(gDispense->Drug.SearchDrug(code, location));
}

} // namespace
