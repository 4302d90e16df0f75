#include "lookup/RateSelection.h"
#include "lookup/clsCashPatientSearch.h"
#include "lookup/clsLoadExam.h"
#include "lookup/clsOutPatientSearch.h"
#include "lookup/clsRegularPatientSearch.h"
#include "lookup/clsRevenueCode.h"
#include "lookup/frmListPatient.h"
#include "lookup/frmSearch.h"

#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/services/Services.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using tests::child;

/// The lists on the made-up hospital.
class Hospital : public tests::LoggedOn {
  protected:
    /// One value of one row.
    static QString one(const ado::Statement& statement) {
        ado::Recordset rows = session::Read(statement);
        return base::Trim(rows.Fields(0).text());
    }
};

class HospitalPatients : public Hospital {
  protected:
    HospitalPatients()
        : search(child<QLineEdit>(screen, "txtSearch")), grid(child<controls::FlexGrid>(screen, "grdTable")) {
        screen.Show();
        screen.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    }
    /// Lists the admission with that number.
    void list(const QString& idNumber) {
        child<QComboBox>(screen, "cmbSearch").setCurrentIndex(1);
        tests::keys(search, idNumber + QStringLiteral("<Enter>"));
    }

    lookup::frmListPatient screen;
    QLineEdit& search;
    controls::FlexGrid& grid;
};

const auto openStay = [] {
    return ado::sql(
        "SELECT TOP 1 P.IdNum FROM PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbPatient2 D ON "
        "D.IdNum = P.IdNum WHERE P.BillingDate IS NULL AND D.OkeyNU = 0");
};

TEST_F(HospitalPatients, TakesAnAdmittedPatientToRequestEntryOnce) {
    const QString idNumber = one(openStay());
    list(idNumber);
    ASSERT_EQ(grid.TextMatrix(1, 2), idNumber);
    // A second Enter while the request screen is open must not open another one.
    screens.whileOpen = [&] { QTest::keyClick(&grid, Qt::Key_Return); };
    tests::keys(search, QStringLiteral("<Down><Enter>"));
    ASSERT_EQ(screens.requests.size(), 1u);
    const session::RequestEntry& entry = screens.requests.front();
    EXPECT_EQ(entry.PatIdNum, idNumber);
    EXPECT_EQ(entry.PatientType, QStringLiteral("I"));
    EXPECT_FALSE(entry.CashBasis);
    EXPECT_FALSE(entry.NurseCommnunication);
    EXPECT_TRUE(screen.Valid);
    EXPECT_EQ(screen.ResultCode, idNumber);
    EXPECT_EQ(screen.PatientRecord.value(2), idNumber);
    EXPECT_EQ(session::gAdmission->IdNumber, idNumber);
    EXPECT_FALSE(screen.isUnloaded()) << "the list stays for the next patient";
    EXPECT_TRUE(search.hasFocus());
}

TEST_F(HospitalPatients, TheBlanksOfAWideColumnAreNoPartOfTheNumber) {
    const QString idNumber = one(openStay());
    list(idNumber);
    grid.setTextMatrix(1, 2, ' ' + idNumber + "  ");
    tests::keys(search, QStringLiteral("<Down><Enter>"));
    ASSERT_EQ(screens.requests.size(), 1u);
    EXPECT_EQ(screens.requests.front().PatIdNum, idNumber);
    EXPECT_EQ(screen.ResultCode, idNumber);
    EXPECT_EQ(session::gAdmission->IdNumber, idNumber);
}

TEST_F(HospitalPatients, ADoubleClickOpensOneRequest) {
    list(one(openStay()));
    const QRect cell = grid.cellRect(1, 3);
    const QPoint middle = grid.viewport()->mapFrom(grid.parentWidget(), cell.center());
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(screens.requests.size(), 1u);
}

TEST_F(HospitalPatients, AnAdmissionThatHasGoneMeanwhileIsNotFound) {
    const QString idNumber = one(openStay());
    list(idNumber);
    session::Run(ado::sql("DELETE FROM PATIENT_DATA..tbPatient WHERE IdNum = '{}'", idNumber));
    tests::MessageScript boxes{
        {QStringLiteral("No Existing Patient Found."), controls::vbOKOnly, QStringLiteral("Message")}};
    tests::keys(search, QStringLiteral("<Down><Enter>"));
    EXPECT_TRUE(screens.requests.empty());
    EXPECT_FALSE(screen.Valid);
}

TEST_F(HospitalPatients, RefusesAClosedAccountBeforeItsCashBasis) {
    const QString idNumber =
        one(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NOT NULL"));
    session::Run(ado::sql("UPDATE PATIENT_DATA..tbPatient2 SET OkeyNU = 1 WHERE IdNum = '{}'", idNumber));
    list(idNumber);
    tests::MessageScript boxes{
        {QStringLiteral("Patient`s account has already been closed.\nIf you have charges to "
                        "make, pls. notify the billing for further instructions."),
         controls::vbOKOnly, QStringLiteral("Message")}};
    tests::keys(search, QStringLiteral("<Down><Enter>"));
    EXPECT_TRUE(screens.requests.empty());
}

TEST_F(HospitalPatients, FindsByLastNameAndFirstName) {
    ado::Recordset patient = session::Read(
        ado::sql("SELECT TOP 1 M.LastName, M.FirstName, P.IdNum FROM PATIENT_DATA..tbMaster M INNER JOIN "
                 "PATIENT_DATA..tbPatient P ON P.HospNum = M.HospNum WHERE M.LastName LIKE 'S%'"));
    const QString last = patient.Fields(0).text();
    const QString first = patient.Fields(1).text();
    recorder->texts.clear();
    tests::keys(search, last.toLower() + QStringLiteral(", ") + first.toLower() + QStringLiteral("<Enter>"));
    EXPECT_EQ(takeTexts().join(u'\n').toStdString(),
              QStringLiteral("sp_Nuclear_getpatientbyfirstname 'I','%1',' %2'")
                  .arg(last.toUpper(), first.toUpper())
                  .toStdString());
    QStringList found;
    for (int row = 1; row < grid.Rows(); ++row)
        found += grid.TextMatrix(row, 2);
    EXPECT_TRUE(found.contains(base::Trim(patient.Fields(2).text())));
}

/// Types into the list that `search` opens.
bool searchWithList(const std::function<bool()>& search, const QString& typed) {
    bool found = false;
    tests::runModal([&] { found = search(); }, {[&](QWidget& list) { tests::keysToFocus(list, typed); }});
    return found;
}

TEST_F(Hospital, ARegularPatientIsFoundByNumber) {
    lookup::clsRegularPatientSearch search;
    EXPECT_TRUE(search.ValidatePatient(QStringLiteral("104001"), true));
    EXPECT_EQ(search.HospitalNumber(), QStringLiteral("104001"));
    EXPECT_FALSE(search.LastName().isEmpty());
    EXPECT_FALSE(search.Age().isEmpty());
}

TEST_F(Hospital, ARegularPatientIsPickedByBothNames) {
    ado::Recordset patient = session::Read(
        ado::sql("SELECT LastName, FirstName FROM PATIENT_DATA..tbMaster WHERE HospNum = '104007'"));
    const QString last = patient.Fields(0).text().toLower();
    const QString first = patient.Fields(1).text().toLower();
    lookup::clsRegularPatientSearch search;
    EXPECT_TRUE(searchWithList([&] { return search.ValidatePatient(QStringLiteral("NOBODY"), true); },
                               last + QStringLiteral(", ") + first + QStringLiteral("<Enter><Down><Enter>")));
    EXPECT_EQ(search.LastName().toLower(), last);
    EXPECT_EQ(search.FirstName().toLower(), first);
}

TEST_F(Hospital, AWalkInIsPickedFromTheList) {
    lookup::clsCashPatientSearch search;
    EXPECT_TRUE(searchWithList([&] { return search.ValidatePatient(QString(), true); },
                               QStringLiteral("<Down><Enter>")));
    EXPECT_TRUE(search.HospitalNumber().startsWith(u'W'));
    EXPECT_FALSE(search.CivilStatus().isEmpty());
    EXPECT_FALSE(search.ValidatePatient(QStringLiteral("NOBODY"), true));
}

TEST_F(Hospital, AWalkInIsAddedFromTheListAndPicked) {
    lookup::clsCashPatientSearch search;
    bool found = false;
    recorder->texts.clear();
    tests::runModal([&] { found = search.ValidatePatient(QString(), true); },
                    {[](QWidget& list) {
                         tests::keys(child<QLineEdit>(list, "txtSearch"), QStringLiteral("zzyzx<Alt+A>"));
                         tests::keysToFocus(list, QStringLiteral("<Down><Enter>"));
                     },
                     [](QWidget& entry) {
                         tests::keys(child<QLineEdit>(entry, "txtLastName"),
                                     QStringLiteral("zzyzx<Enter>ana<Enter>r<Enter>01012000<Enter><Alt+S>"));
                     }});
    EXPECT_TRUE(found);
    EXPECT_EQ(search.LastName(), QStringLiteral("ZZYZX"));
    EXPECT_EQ(search.Age(), QStringLiteral("26"));
    const QStringList texts = takeTexts();
    EXPECT_EQ(texts.first(), QStringLiteral("spGlobal_CashPatient '0', ''"));
    EXPECT_EQ(texts.count(QStringLiteral("spGlobal_CashPatient '0','ZZYZX'")), 1) << "only once it is added";
    EXPECT_EQ(texts.last(), QStringLiteral("spGlobal_CashPatient '1', '%1'").arg(search.HospitalNumber()));
}

TEST_F(Hospital, AnOutPatientIsFoundByNumber) {
    const QString idNumber =
        one(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS "
                     "NULL AND AccountNum <> HospNum ORDER BY IdNum"));
    lookup::clsOutPatientSearch search;
    EXPECT_TRUE(search.ValidatePatient(idNumber));
    EXPECT_EQ(search.IdNumber(), idNumber);
    EXPECT_FALSE(search.Company().isEmpty());
    EXPECT_EQ(search.AdmDate().size(), 10);
    EXPECT_EQ(search.AdmTime().size(), 7);
    EXPECT_EQ(search.DcrDate() + search.DcrTime() + search.BillingDate(), QString());
}

TEST_F(Hospital, AnOutPatientOnHisOwnAccountIsTakenByNumberOnly) {
    const QString idNumber =
        one(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS "
                     "NULL ORDER BY IdNum"));
    session::Run(
        ado::sql("UPDATE PATIENT_DATA..tbOutPatient SET AccountNum = HospNum WHERE IdNum = '{}'", idNumber));
    lookup::clsOutPatientSearch search;
    tests::MessageScript boxes{{QStringLiteral("Patient`s with Personal Account is Not Allowed.\n"
                                               "Please Use Cash Assessment Entry Option for this Patient."),
                                controls::vbInformation, QStringLiteral("Message")}};
    EXPECT_FALSE(searchWithList([&] { return search.ValidatePatient(QString()); },
                                QStringLiteral("<Shift+Tab><Down><Tab>") + idNumber +
                                    QStringLiteral("<Enter><Down><Enter>")));
    EXPECT_EQ(search.IdNumber(), QString());
    EXPECT_TRUE(search.ValidatePatient(idNumber));
    EXPECT_EQ(search.IdNumber(), idNumber);
}

TEST_F(Hospital, ValidatesARevenueCode) {
    lookup::clsRevenueCode code;
    EXPECT_TRUE(code.ValidateRevenue(QStringLiteral("NU")));
    EXPECT_EQ(code.RevenueID(), QStringLiteral("NU"));
    EXPECT_TRUE(code.ValidateRevenue(QStringLiteral("UR")));
    EXPECT_EQ(code.RevenueID(), QStringLiteral("UR"));
}

TEST_F(Hospital, AnUnknownRevenueCodeSaysSo) {
    tests::MessageScript boxes{{QStringLiteral("Item does not exists."), controls::vbExclamation}};
    lookup::clsRevenueCode code;
    EXPECT_FALSE(code.ValidateRevenue(QStringLiteral("QQ")));
}

TEST_F(Hospital, ALikeRevenueCodeIsPickedFromTheList) {
    lookup::clsRevenueCode code;
    bool valid = false;
    recorder->texts.clear();
    tests::runModal([&] { valid = code.ValidateRevenue(QStringLiteral("N")); }, {[](QWidget& list) {
                        tests::keys(child<QLineEdit>(list, "txtSearchStr"), QStringLiteral("<Enter>"));
                    }});
    EXPECT_TRUE(valid);
    EXPECT_EQ(takeTexts().join(u'\n').toStdString(),
              QStringLiteral("sp_Nuclear_SearchRevenue '1','N'\nsp_Nuclear_SearchRevenue '2','N'\n"
                             "spNuclear_SearchRevenue '0','N'\nspNuclear_SearchRevenue '1','%1'")
                  .arg(code.RevenueID())
                  .toStdString());
}

TEST_F(Hospital, LoadsAnExamOfTheCatalogue) {
    const QString examId = one(ado::sql("SELECT TOP 1 NucExamID FROM BUILD_FILE..tbcoNucExam"));
    lookup::clsLoadExam exam;
    exam.LoadExam(examId);
    EXPECT_TRUE(exam.Found());
    EXPECT_EQ(exam.ExamID(), examId);
    EXPECT_FALSE(exam.Exam().isEmpty());
    exam.LoadExam(QStringLiteral("none"));
    EXPECT_FALSE(exam.Found());
}

} // namespace
