#include "session/services/Services.h"
#include "platform/base/TestDoors.h"
#include "session/TestDoors.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"
#include "session/logon/PasswordCheck.h"
#include "session/logon/clsCurrentUser.h"
#include "session/services/PickListing.h"
#include "tests/session/Drive.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/ScriptedSession.h"

using namespace session;
using tests::ScriptedProvider;

namespace {

class Admission : public testing::Test {
  protected:
    void hospitalHas(const base::Value& company, const char* account, const base::Value& birthDate,
                     bool stayIsReadOnce = false) {
        session.server().answer(
            QStringLiteral("SELECT P.IdNum, P.HospNum, P.AdmDate"),
            ScriptedProvider::rowsOf(
                QStringLiteral("IdNum,HospNum,AdmDate,DcrDate,BillingDate,RoomID,AccountNum,Company,"
                               "DoctorID1,DoctorLast,DoctorFirst,DoctorMiddle,Height,Weight"),
                {{"2601184", "0045127", *base::makeDateTime({2026, 11, 18}), nullptr, nullptr, " 412 ",
                  account, company, "D0231", "CRUZ", "ANA", "", "158", "61"}}),
            stayIsReadOnce);
        session.server().answer(
            QStringLiteral("SELECT M.HospNum, M.LastName"),
            ScriptedProvider::rowsOf(
                QStringLiteral("HospNum,LastName,FirstName,MiddleName,Sex,BirthDate,BloodType,"
                               "HouseStreet,Barangay,Town,Province,AccountNum,Company"),
                {{"0045127", "SANTOS", "MARIA LUISA", nullptr, "F", birthDate, "O+", "1 RIZAL ST.", "",
                  "BAGUIO", nullptr, account, company}}));
    }
    const base::FixedClock clock{*base::makeDateTime({2026, 3, 13}, {9, 0})};
    tests::ScriptedSession session;
};

TEST_F(Admission, ReadsStayPatientAndDoctor) {
    hospitalHas("ACME LIFE", "A-77", *base::makeDateTime({1972, 3, 14}));
    ASSERT_TRUE(gAdmission->OpenAdmission(QStringLiteral(" 2601184 ")));
    EXPECT_TRUE(session.texts()[0].endsWith(QStringLiteral("WHERE P.IdNum = '2601184'")));
    EXPECT_TRUE(session.texts()[1].endsWith(QStringLiteral("WHERE M.HospNum = '0045127'")));
    EXPECT_EQ(gAdmission->IdNumber, u"2601184");
    EXPECT_EQ(gAdmission->Room, u"412");
    EXPECT_EQ(gAdmission->Account, u"A-77 - ACME LIFE");
    EXPECT_EQ(gAdmission->AccountNumber, u"A-77");
    EXPECT_TRUE(gAdmission->BillingDate.isNull());
    EXPECT_TRUE(gAdmission->dischargeDate.isNull());
    EXPECT_EQ(gAdmission->AdmissionDate, base::Value(*base::makeDateTime({2026, 11, 18})));
    EXPECT_EQ(gAdmission->AttendingDoctor1.Code, u"D0231");
    EXPECT_EQ(gAdmission->AttendingDoctor1.CompleteName, u"DR. ANA CRUZ");
    EXPECT_EQ(gAdmission->History.Height, u"158");
    EXPECT_EQ(gAdmission->Patient.LastName, u"SANTOS");
    EXPECT_EQ(gAdmission->Patient.MiddleName, u"") << "Null reads as an empty text";
    EXPECT_EQ(gAdmission->Patient.Age, u"53") << "the birthday is tomorrow";
    EXPECT_EQ(gAdmission->Patient.Address, u"1 RIZAL ST., BAGUIO");
}

TEST_F(Admission, PersonalAccountIsADash) {
    hospitalHas(nullptr, "0045127", nullptr);
    ASSERT_TRUE(gAdmission->OpenAdmission(QStringLiteral("2601184")));
    EXPECT_EQ(gAdmission->Account, u" - ");
    EXPECT_EQ(gAdmission->Patient.Age, u"");
    EXPECT_TRUE(gAdmission->Patient.BirthDate.isNull());
}

TEST_F(Admission, UnknownNumberEmptiesWhatWasOpen) {
    hospitalHas("ACME LIFE", "A-77", nullptr, true);
    ASSERT_TRUE(gAdmission->OpenAdmission(QStringLiteral("2601184")));
    session.server().answer(QStringLiteral("SELECT P.IdNum"),
                            ScriptedProvider::rowsOf(QStringLiteral("IdNum")));
    EXPECT_FALSE(gAdmission->OpenAdmission(QStringLiteral("x'y")));
    EXPECT_TRUE(session.texts().last().endsWith(QStringLiteral("WHERE P.IdNum = 'x`y'")));
    EXPECT_EQ(gAdmission->IdNumber, u"");
    EXPECT_EQ(gAdmission->Patient.LastName, u"");
}

TEST_F(Admission, CensusFindGivesThePatientsDirectFields) {
    hospitalHas("ACME LIFE", "A-77", nullptr);
    ASSERT_TRUE(gPatientFind->ValidateAdmission(QStringLiteral("2601184")));
    EXPECT_EQ(gPatientFind->LastName, u"SANTOS");
    EXPECT_EQ(gPatientFind->IdNumber, u"2601184");
    EXPECT_EQ(gPatientFind->Room, u"412");
    EXPECT_EQ(gPatientFind->HouseStreet, u"1 RIZAL ST.");
    EXPECT_EQ(gPatientFind->Town, u"BAGUIO");
    EXPECT_EQ(gPatientFind->Account, u"A-77 - ACME LIFE");
    ASSERT_TRUE(gPatientFind->ValidatePatient(QStringLiteral("0045127")));
    EXPECT_EQ(gPatientFind->HospitalNumber, u"0045127");
    EXPECT_EQ(gPatientFind->IdNumber, u"") << "no stay was asked for";
}

TEST(Services, NeedTheSessionsConnection) {
    const QString unknown = QStringLiteral("Server=NOWHERE");
    QString status;
    clsCensusFind census;
    EXPECT_FALSE(census.InitConnection(unknown, status));
    EXPECT_FALSE(status.isEmpty());
    clsRegistry registry;
    EXPECT_THROW(registry.OpenConnection(unknown), base::RunTimeError);
    clsLookupPad pad;
    EXPECT_THROW(pad.SearchListing(QStringLiteral("1"), clsLookupPad::doctors), base::RunTimeError);
}

class Silent : public testing::Test {
  protected:
    Silent() { gCodeFind->SearchMode = false; }
    tests::ScriptedSession session;
};

TEST_F(Silent, CompleteCodeIsTakenAndAnUnknownOneIsCancelled) {
    session.server().answer(
        QStringLiteral(
            "SELECT DoctorID, LastName, FirstName, MiddleName, Specialty FROM BUILD_FILE..tbcoDoctor WHERE "
            "DoctorID = 'D0231'"),
        ScriptedProvider::rowsOf(QStringLiteral("DoctorID,LastName,FirstName,MiddleName,Specialty"),
                                 {{"D0231", "CRUZ ", "ANA", nullptr, ""}}));
    EXPECT_TRUE(gCodeFind->SearchListing(QStringLiteral(" D0231 "), 1));
    EXPECT_FALSE(gCodeFind->Cancelled());
    EXPECT_EQ(gCodeFind->ResultCode, u"D0231");
    EXPECT_EQ(gCodeFind->DoctorRecord.LastName, u"CRUZ");
    EXPECT_EQ(gCodeFind->LastName, u"CRUZ");
    EXPECT_EQ(gCodeFind->DoctorRecord.MiddleName, u"");
    EXPECT_FALSE(gCodeFind->SearchListing(QStringLiteral("CRUZ"), 1));
    EXPECT_TRUE(gCodeFind->Cancelled());
    EXPECT_EQ(gCodeFind->ResultCode, u"");
    EXPECT_EQ(gCodeFind->DoctorRecord.LastName, u"");
    EXPECT_FALSE(gCodeFind->SearchListing({}, 1)) << "no code, no statement";
    EXPECT_EQ(session.texts().size(), 2);
}

TEST_F(Silent, ListingThatDoesNotExistIsAnError) {
    EXPECT_THROW(gCodeFind->SearchListing(QStringLiteral("1"), 99), base::RunTimeError);
    EXPECT_THROW(gDeptFind->PatientListing(QStringLiteral("1"), 1, false), base::RunTimeError);
}

TEST_F(Silent, ExamsAreConfinedToTheSection) {
    gCodeFind->OtherSectionID = QStringLiteral("NU");
    gCodeFind->SearchListing(QStringLiteral("1012"), 20);
    EXPECT_EQ(
        session.texts().last(),
        u"SELECT NucExamID, NucExam, RateA, RateB, RateC, RateD, RateE, RateH, Outpatient, Fixrate FROM "
        u"BUILD_FILE..tbcoNucExam WHERE NucExamID = '1012' AND ('NU' = 'NU' OR SectionID = 'NU') AND Status "
        u"= "
        u"'A'");
    gCodeFind->SearchListing(QStringLiteral("BID"), 16);
    EXPECT_EQ(session.texts().last(),
              u"SELECT DosageID, Dosage, Frequency FROM BUILD_FILE..tbCoDosage WHERE DosageID = 'BID'");
}

TEST(PickStatement, TypedTextsBecomePrefixes) {
    const auto text = [](const PickListing& listing, const QString& typed) {
        return pickStatement(listing, {}, typed).text();
    };
    EXPECT_TRUE(text(doctorListing, QStringLiteral("DELA CRUZ, ANA"))
                    .contains(QStringLiteral(
                        "((LastName LIKE 'DELA CRUZ%' AND FirstName LIKE 'ANA%') OR DoctorID LIKE "
                        "'DELA CRUZ, ANA%')")));
    EXPECT_TRUE(text(confinedPatientListing, QStringLiteral("O`HARA"))
                    .contains(QStringLiteral("LastName LIKE 'O_HARA%'")));
    EXPECT_TRUE(text(confinedPatientListing, QStringLiteral("O'HARA"))
                    .contains(QStringLiteral("LastName LIKE 'O_HARA%'")));
    EXPECT_TRUE(
        text(confinedPatientListing, QStringLiteral("26")).contains(QStringLiteral("P.IdNum LIKE '26%'")));
    EXPECT_TRUE(text(townListing, QStringLiteral("%")).contains(QStringLiteral("Town LIKE '_%'")));
    EXPECT_FALSE(text(confinedPatientListing, QStringLiteral("  ")).contains(QStringLiteral("LIKE")));
    for (const PickListing* listing :
         {&townListing, &doctorListing, &dosageListing, &examListing, &confinedPatientListing,
          &outPatientListing, &medicineListing, &supplyListing}) {
        for (const char* typed : {"", "A", "2600", "A,B", "'", "[x]", "##text"}) {
            const QString statement = text(*listing, QLatin1String(typed));
            EXPECT_TRUE(statement.startsWith(QStringLiteral("SELECT TOP 200 "))) << listing->title;
        }
    }
}

// --- on the hospital's own file

class OnFile : public tests::LoggedOn {
  protected:
    OnFile() { gCodeFind->SearchMode = false; }
    QString first(const ado::Statement& statement) {
        ado::Recordset row;
        row.Open(statement, *gConnection);
        return row.Eof() ? QString() : row.Fields(0).text();
    }
};

TEST_F(OnFile, EveryListingStatementRuns) {
    for (const PickListing* listing :
         {&townListing, &doctorListing, &dosageListing, &examListing, &confinedPatientListing,
          &outPatientListing, &medicineListing, &supplyListing}) {
        for (const char* typed : {"", "S", "1", "S,M", "'%["}) {
            ado::Recordset rows;
            rows.Open(pickStatement(*listing, {QStringLiteral("NU"), {}}, QLatin1String(typed)),
                      *gConnection);
            EXPECT_EQ(rows.State(), ado::Recordset::adStateOpen);
            if (!*typed) {
                EXPECT_GT(rows.RecordCount(), 0) << listing->title;
            }
            EXPECT_LE(rows.RecordCount(), PickListing::mostRows);
            for (const PickColumn& column : listing->columns) {
                if (column.field) {
                    EXPECT_NO_THROW(rows.Fields(column.field)) << listing->title << ": " << column.field;
                }
            }
        }
    }
}

TEST_F(OnFile, CodesOfEveryListingAreTakenAtOnce) {
    const QString doctor = first(ado::sql("SELECT TOP 1 DoctorID FROM BUILD_FILE..tbcoDoctor"));
    ASSERT_TRUE(gCodeFind->SearchListing(doctor, clsLookupPad::doctors));
    EXPECT_EQ(gCodeFind->DoctorRecord.ResultCode, doctor);
    EXPECT_FALSE(gCodeFind->DoctorRecord.LastName.isEmpty());

    const QString town = first(ado::sql("SELECT TOP 1 ZipCode FROM BUILD_FILE..tbCoAddress"));
    ASSERT_TRUE(gCodeFind->SearchListing(town, clsLookupPad::towns));
    EXPECT_EQ(gCodeFind->AddressRecord.ResultCode, town);
    EXPECT_FALSE(gCodeFind->AddressRecord.Town.isEmpty());

    gCodeFind->OtherSectionID = QStringLiteral("NU");
    ASSERT_TRUE(gCodeFind->SearchListing(QStringLiteral("1001"), clsLookupPad::exams));
    EXPECT_FALSE(gCodeFind->NuclearExamRecord.NuclearExam.isEmpty());
    EXPECT_TRUE(gCodeFind->NuclearExamRecord.RateA.asDouble());
    gCodeFind->OtherSectionID = QStringLiteral("UR");
    EXPECT_FALSE(gCodeFind->SearchListing(QStringLiteral("1001"), clsLookupPad::exams));
    ASSERT_TRUE(gCodeFind->SearchListing(QStringLiteral("BID"), clsLookupPad::dosages));
    EXPECT_EQ(gCodeFind->DosageRecord.ResultCode, u"BID");
    EXPECT_EQ(gCodeFind->DosageRecord.Frequency, u"2");

    const QString stay =
        first(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbPatient WHERE DcrDate IS NULL"));
    ASSERT_TRUE(gDeptFind->PatientListing(stay, clsDeptFind::confinedPatients, false));
    EXPECT_EQ(gDeptFind->Inpatient.IdNumber, stay);
    EXPECT_FALSE(gDeptFind->Inpatient.LastName.isEmpty());
    ASSERT_TRUE(gAdmission->OpenAdmission(stay));
    EXPECT_EQ(gAdmission->Patient.LastName, gDeptFind->Inpatient.LastName);
    EXPECT_FALSE(gDeptFind->PatientListing(QStringLiteral("nobody"), clsDeptFind::confinedPatients, false));
    EXPECT_FALSE(gDeptFind->Cancelled()) << "no list was shown";
    EXPECT_EQ(gDeptFind->Inpatient.IdNumber, u"");

    const QString out = first(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient"));
    ASSERT_TRUE(gDeptFind->PatientListing(out, clsDeptFind::outPatients, false));
    EXPECT_EQ(gDeptFind->Outpatient.RoomClassID, u"OPD");
}

TEST_F(OnFile, SuppliesAndMedicinesBringTheirLocation) {
    QString code = first(
        ado::sql("SELECT TOP 1 I.ItemID FROM INVENTORY..tbInvMaster I INNER JOIN INVENTORY..tbInvStock S "
                 "ON S.ItemID = I.ItemID WHERE I.ItemClass = 'CS' AND I.Inactive = 0"));
    QString location;
    gFormulist->DrugsORCSR = true;
    EXPECT_EQ(gFormulist->ShowList(code, false, location), u"") << "a supply is no medicine";
    gFormulist->DrugsORCSR = false;
    EXPECT_EQ(gFormulist->ShowList(code, false, location), code);
    EXPECT_EQ(location, u"224");
    ASSERT_TRUE(gDispense->Drug.SearchDrug(code, location));
    EXPECT_FALSE(gDispense->Drug.DrugName.isEmpty());
    EXPECT_GT(gDispense->Drug.Invent.SellingPriceIn, 0);
    EXPECT_TRUE(gDispense->Drug.SearchDrug(code, {}));
    EXPECT_FALSE(gDispense->Drug.SearchDrug(code, QStringLiteral("nowhere")));
    EXPECT_EQ(gDispense->Drug.DrugName, u"");
    QString unknown = QStringLiteral("nothing");
    QString elsewhere = QStringLiteral("nowhere");
    EXPECT_EQ(gFormulist->ShowList(code, false, elsewhere), u"") << "nothing lies there";
    EXPECT_EQ(elsewhere, u"nowhere");
    EXPECT_EQ(gFormulist->ShowList(unknown, false, location), u"");
    EXPECT_EQ(unknown, u"nothing");
}

TEST_F(OnFile, MovementLowersTheStockAndLeavesACard) {
    const QString code =
        first(ado::sql("SELECT TOP 1 ItemID FROM INVENTORY..tbInvStock WHERE LocationID = '224' AND "
                       "OnHand > 5"));
    const auto onHand = [&] {
        return base::Val(
            first(ado::sql("SELECT OnHand FROM INVENTORY..tbInvStock WHERE ItemID = '{}' AND LocationID = "
                           "'224'",
                           code)));
    };
    const double before = onHand();
    StockCardEntry entry;
    entry.itemCode = code;
    entry.dateTime = QStringLiteral("11/21/2026 08:30");
    entry.chargeSlip = QStringLiteral("C999J");
    entry.quantity = 2;
    entry.amount = 99.5;
    entry.stockDepartment = QStringLiteral("224");
    entry.stockClass16 = entry.stockClass17 = QStringLiteral("CS");
    entry.argument22 = QStringLiteral("O");
    gDispense->Drug.AppendStockCard(entry);
    EXPECT_DOUBLE_EQ(onHand(), before - 2);
    EXPECT_EQ(first(ado::sql("SELECT ItemID FROM INVENTORY..tbInvStockCard WHERE RefNum = 'C999J'")), code);
}

TEST_F(OnFile, UserAndHeadingComeFromTheFile) {
    EXPECT_EQ(gEmployeeCode, u"1001");
    EXPECT_EQ(gUser->employeename(), u"REYES, JOAN P.");
    EXPECT_FALSE(gHospitalName.isEmpty());
    EXPECT_TRUE(gUser->HAVE_RIGHTS(QStringLiteral("A")));
    EXPECT_FALSE(gUser->HAVE_RIGHTS(QStringLiteral("B")));
    EXPECT_EQ(gUser->PasswordDeptCode(), u"5");
}

TEST_F(OnFile, WrongTriesStayInTheFileAndLockTheCodeForAnotherDesk) {
    clsCurrentUser guess;
    for (int i = 0; i < 5; ++i)
        EXPECT_NE(guess.logOnTo(server(), QStringLiteral("1002"), QStringLiteral("guess")),
                  LogOnResult::Good);
    EXPECT_EQ(first(ado::sql("SELECT WrongTries FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1002'")),
              u"5");
    // Another desk has not counted anything itself.
    session::forgetPasswordTries();
    EXPECT_EQ(guess.logOnTo(server(), QStringLiteral("1002"), QStringLiteral("scintra")), LogOnResult::Wait);
    session::forgetPasswordTries();
    // Half a minute later.
    hospital.run(QStringLiteral("UPDATE PASSWORD..tbPasswordMain SET LockedUntil = DATEADD(second, -31, "
                                "LockedUntil) WHERE EmployeeID = '1002'"));
    EXPECT_EQ(guess.logOnTo(server(), QStringLiteral("1002"), QStringLiteral("scintra")), LogOnResult::Good);
    EXPECT_EQ(first(ado::sql("SELECT WrongTries FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1002'")),
              u"0");
    session::forgetPasswordTries();
}

TEST_F(OnFile, TheServersWaitsAreThoseOfTheProgram) {
    for (int tries = 0; tries < 14; ++tries) {
        hospital.run(
            QStringLiteral("UPDATE PASSWORD..tbPasswordMain SET WrongTries = %1, LockedUntil = NULL WHERE "
                           "EmployeeID = '1002'")
                .arg(tries));
        session::forgetPasswordTries();
        clsCurrentUser guess;
        EXPECT_EQ(guess.logOnTo(server(), QStringLiteral("1002"), QStringLiteral("guess")),
                  LogOnResult::Wrong);
        const int wait = session::PasswordTries::waitAfter(tries + 1);
        const QString left = first(
            ado::sql("SELECT DATEDIFF(second, GETDATE(), LockedUntil) FROM PASSWORD..tbPasswordMain WHERE "
                     "EmployeeID = '1002'"));
        if (wait == 0)
            EXPECT_EQ(left, u"") << tries;
        else
            EXPECT_NEAR(left.toInt(), wait, 2) << tries;
    }
    session::forgetPasswordTries();
}

TEST_F(OnFile, TheOwnPasswordThatIsWrongTwiceInTheSameWayCountsOnce) {
    session::forgetPasswordTries();
    const auto wrongTries = [this] {
        return first(ado::sql("SELECT WrongTries FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'"));
    };
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(gUser->checkPassword(QStringLiteral("guess")), LogOnResult::Wrong);
    EXPECT_EQ(wrongTries(), u"1");
    EXPECT_EQ(gUser->checkPassword(QStringLiteral("another")), LogOnResult::Wrong);
    EXPECT_EQ(wrongTries(), u"2");
    EXPECT_EQ(gUser->checkPassword(QStringLiteral("kerova")), LogOnResult::Good);
    EXPECT_EQ(wrongTries(), u"0");
}

TEST_F(OnFile, ReportLogOnsKnowTheHospitalsDatabases) {
    const auto connection = gUser->openReportConnection(gUser->ServerName(), QStringLiteral("Nuclear"),
                                                        QStringLiteral("sa"), gServerPassword);
    EXPECT_EQ(connection->State(), ado::Connection::adStateOpen);
    try {
        gUser->openReportConnection(gUser->ServerName(), QStringLiteral("NOWHERE"), QStringLiteral("sa"),
                                    gServerPassword);
        ADD_FAILURE();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 4060);
        EXPECT_EQ(error.description(),
                  u"Cannot open database \"NOWHERE\" requested by the login. The login failed.");
    }
}

} // namespace
