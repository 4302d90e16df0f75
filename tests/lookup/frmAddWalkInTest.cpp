#include "lookup/frmAddWalkIn.h"

#include "platform/controls/fields/MaskedDate.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "tests/lookup/WalkInFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace {

using tests::child;
using tests::keys;
using tests::keysToFocus;

class AddWalkIn : public tests::WalkInFixture {
  public:
    /// All that a patient needs.
    void fillIn() { type("LUNA<Enter>ANA<Enter>REYES<Enter><Enter>31<Enter>"); }
    void type(const QString& text) { keysToFocus(screen, text); }
    void expectBox(const QString& prompt) {
        boxes.expect({prompt, controls::vbInformation, QStringLiteral("Message")});
    }
    /// The save is refused with the box, the field has the focus, and nothing was sent.
    void expectRefusal(const QString& prompt, const std::string& field) {
        takeTexts();
        expectBox(prompt);
        const auto before = boxes.boxes().size();
        type("<Alt+S>");
        EXPECT_EQ(boxes.boxes().size(), before + 1);
        EXPECT_EQ(focus(), field) << prompt.toStdString();
        EXPECT_EQ(takeTexts(), QStringList());
        EXPECT_FALSE(screen.isUnloaded());
    }
    void setSeries(const QString& last, int number) {
        session::Run(
            ado::sql("UPDATE PATIENT_DATA..tbLastWalkInNum SET lastopd = '{}', transnum = {}", last, number));
        takeTexts();
    }

    lookup::frmAddWalkIn& screen = openAdd();
};

TEST_F(AddWalkIn, OpensEmptyAtTheLastName) {
    EXPECT_EQ(focus(), "txtLastName");
    EXPECT_EQ(child<controls::MaskedDate>(screen, "mskBdate").Text(), QStringLiteral("__/__/____"));
    EXPECT_FALSE(screen.NewEntry);
    EXPECT_EQ(screen.IdNum, QString());
    EXPECT_EQ(trace(), "");
}

TEST_F(AddWalkIn, SavesUnderTheNextNumberInOneTransaction) {
    type("luna<Enter>ana<Enter>reyes<Enter>03141990<Enter>");
    EXPECT_EQ(focus(), "txtAge");
    EXPECT_EQ(text(screen, "txtAge"), "36");
    type("<Enter><Right><Enter><Right><Right><Enter>12 mabini st<Enter>centro<Enter>1000<Enter>");
    EXPECT_EQ(label(screen, "lblTown"), "MANILA, METRO MANILA");
    EXPECT_EQ(focus(), "btnSave");
    type("<Enter>");
    EXPECT_EQ(trace(),
              "SELECT ZipCode, Town, Province FROM BUILD_FILE..tbCoAddress WHERE ZipCode = '1000'\n"
              "BEGIN\n"
              "SELECT * FROM PATIENT_DATA..tbLastWalkInNum\n"
              "UPDATE: UPDATE PATIENT_DATA..tbLastWalkInNum SET [lastopd] = 'W1031', [transnum] = 1031 WHERE "
              "[WalkInNumID] = 1 AND [lastopd] = 'W1030' AND [transnum] = 1030\n"
              "SELECT * FROM PATIENT_DATA..tbCashPatient WHERE hospnum='W1031'\n"
              "spNuclearaddcashpatient '0','W1031','LUNA','ANA','REYES','12 MABINI "
              "ST','CENTRO','1000','F','2','03/14/1990','36'\n"
              "COMMIT");
    EXPECT_TRUE(screen.isUnloaded());
    ASSERT_EQ(session::workDone().size(), 1U);
    EXPECT_EQ(session::workDone().front().work, session::Work::WalkIn);
    EXPECT_EQ(session::workDone().front().patient, QStringLiteral("LUNA, ANA REYES"));
    EXPECT_TRUE(screen.NewEntry);
    EXPECT_EQ(screen.IdNum, QStringLiteral("W1031"));
    EXPECT_EQ(patient("W1031"), "LUNA|ANA|REYES|3/14/1990|36|F|2|12 MABINI ST|CENTRO|1000");
    EXPECT_EQ(series(), "W1031/1031");
}

TEST_F(AddWalkIn, AnEmptyBirthDateIsSentEmptyAndKeptAsUnknown) {
    fillIn();
    takeTexts();
    type("<Alt+S>");
    EXPECT_EQ(
        takeTexts().value(4),
        QStringLiteral("spNuclearaddcashpatient '0','W1031','LUNA','ANA','REYES','','','','M','0','','31'"));
    EXPECT_EQ(patient("W1031"), "LUNA|ANA|REYES|<Null>|31|M|0|||");
}

TEST_F(AddWalkIn, TheNumberFollowsTheOneLetter) {
    setSeries(QStringLiteral("Q1234"), 1234);
    fillIn();
    type("<Alt+S>");
    EXPECT_EQ(screen.IdNum, QStringLiteral("Q1235"));
    EXPECT_EQ(series(), "Q1235/1235");
}

TEST_F(AddWalkIn, TheNumberTakesItsOwnTextWhateverStoodBefore) {
    const struct {
        const char* last;
        const char* next;
    } cases[] = {{"W0099", "W100"}, {"W9999", "W10000"}, {"W", "W1"}, {" 41", "42"}, {"1234", "1235"}};
    for (const auto& one : cases) {
        setSeries(QString::fromLatin1(one.last), 7);
        lookup::frmAddWalkIn& next = openAdd();
        keysToFocus(next, "LUNA<Enter>ANA<Enter>REYES<Enter><Enter>31<Enter><Alt+S>");
        EXPECT_EQ(next.IdNum, QString::fromLatin1(one.next)) << one.last;
    }
}

TEST_F(AddWalkIn, ASeriesThatWasSetBackChangesWhoHasTheNumber) {
    setSeries(QStringLiteral("W1004"), 1004);
    ASSERT_NE(patient("W1005"), "");
    fillIn();
    type("<Alt+S>");
    EXPECT_EQ(
        takeTexts().value(4),
        QStringLiteral("spNuclearaddcashpatient '1','W1005','LUNA','ANA','REYES','','','','M','0','','31'"));
    EXPECT_EQ(patient("W1005"), "LUNA|ANA|REYES|<Null>|31|M|0|||");
    EXPECT_TRUE(screen.NewEntry);
    EXPECT_EQ(screen.IdNum, QStringLiteral("W1005"));
    EXPECT_EQ(value("SELECT COUNT(*) FROM PATIENT_DATA..tbCashPatient"), QStringLiteral("30"));
}

TEST_F(AddWalkIn, AsksForItsFieldsInTheirOrder) {
    expectRefusal("Please enter firstname.", "txtFirstName");
    type("ANA");
    expectRefusal("Please enter lastname.", "txtLastName");
    type("LUNA");
    expectRefusal("Please enter middlename.", "txtMiddleName");
    type("REYES");
    expectRefusal("Please enter age.", "txtAge");
    type("31<Alt+S>");
    EXPECT_TRUE(screen.NewEntry);
}

TEST_F(AddWalkIn, BlanksAreNoName) {
    type("LUNA<Enter>ANA<Enter>   <Enter><Enter>31<Enter>");
    expectRefusal("Please enter middlename.", "txtMiddleName");
}

TEST_F(AddWalkIn, TheAgeCountsCalendarYears) {
    const struct {
        const char* date;
        const char* age;
    } cases[] = {
        {"12311990", "36"}, {"01011990", "36"}, {"11212026", "0"}, {"12312025", "1"}, {"02292000", "26"}};
    for (const auto& one : cases) {
        keys(child<controls::MaskedDate>(screen, "mskBdate"),
             QStringLiteral("<Home><Shift+End><Del>%1<Enter>").arg(QString::fromLatin1(one.date)));
        EXPECT_EQ(text(screen, "txtAge"), one.age) << one.date;
        EXPECT_EQ(focus(), "txtAge") << "on by one field";
    }
    EXPECT_EQ(lookup::frmAddWalkIn::CalcAge(*base::makeDateTime({2027, 1, 1})), -1);
}

TEST_F(AddWalkIn, LeavingTheDateByTabOrMouseTakesTheAgeToo) {
    keys(child<controls::MaskedDate>(screen, "mskBdate"), "03142000<Tab>");
    EXPECT_EQ(text(screen, "txtAge"), "26");
    EXPECT_EQ(focus(), "txtAge");
    keys(child<controls::MaskedDate>(screen, "mskBdate"), "03142010<Shift+Tab>");
    EXPECT_EQ(text(screen, "txtAge"), "16");
    EXPECT_EQ(focus(), "txtMiddleName") << "back is back";
    keys(child<controls::MaskedDate>(screen, "mskBdate"), "03142020");
    QTest::mouseClick(&child<QLineEdit>(screen, "txtHouse"), Qt::LeftButton);
    EXPECT_EQ(text(screen, "txtAge"), "6");
}

TEST_F(AddWalkIn, AHalfTypedDateLeavesTheAgeAlone) {
    keys(child<QLineEdit>(screen, "txtAge"), "40");
    keys(child<controls::MaskedDate>(screen, "mskBdate"), "0314<Tab>");
    EXPECT_EQ(text(screen, "txtAge"), "40");
    EXPECT_EQ(child<controls::MaskedDate>(screen, "mskBdate").Text(), QStringLiteral("03/14/____"));
}

TEST_F(AddWalkIn, EnterOnABadDateSaysSoAndStays) {
    const struct {
        const char* date;
        const char* prompt;
    } cases[] = {{"02311990", "The birth date is no day of the calendar (mm/dd/yyyy)."},
                 {"0314", "The birth date is no day of the calendar (mm/dd/yyyy)."},
                 {"13011990", "The birth date is no day of the calendar (mm/dd/yyyy)."},
                 {"02291900", "The birth date is no day of the calendar (mm/dd/yyyy)."},
                 {"11222026", "The birth date is still to come."},
                 {"12311875", "The birth date is more than 150 years ago."}};
    for (const auto& one : cases) {
        expectBox(QString::fromLatin1(one.prompt));
        keys(child<controls::MaskedDate>(screen, "mskBdate"),
             QStringLiteral("<Home><Shift+End><Del>%1<Enter>").arg(QString::fromLatin1(one.date)));
        EXPECT_EQ(focus(), "mskBdate") << one.date;
    }
    EXPECT_EQ(text(screen, "txtAge"), "");
}

TEST_F(AddWalkIn, ABadDateIsNotSavedAndNothingIsLost) {
    type("LUNA<Enter>ANA<Enter>REYES<Enter>02311990<Tab>31<Enter>");
    expectRefusal("The birth date is no day of the calendar (mm/dd/yyyy).", "mskBdate");
    EXPECT_EQ(child<controls::MaskedDate>(screen, "mskBdate").Text(), QStringLiteral("02/31/1990"));
    EXPECT_EQ(text(screen, "txtLastName"), "LUNA");
    EXPECT_EQ(text(screen, "txtAge"), "31");
    type("<Home>02281990<Enter><Alt+S>");
    EXPECT_EQ(screen.IdNum, QStringLiteral("W1031"));
    EXPECT_EQ(patient("W1031"), "LUNA|ANA|REYES|2/28/1990|36|M|0|||");
}

TEST_F(AddWalkIn, TheAgeTakesNoLetters) {
    const auto refused = [this] {
        boxes.expect({QStringLiteral("Cannot accept non-numeric values."), controls::vbExclamation,
                      QStringLiteral("Message")});
    };
    refused();
    keys(child<QLineEdit>(screen, "txtAge"), "3a");
    EXPECT_EQ(text(screen, "txtAge"), "3");
    EXPECT_EQ(boxes.boxes().size(), 1u);
    refused();
    type("-");
    refused();
    type(" ");
    refused();
    type(".");
    EXPECT_EQ(boxes.boxes().size(), 4u);
    QApplication::clipboard()->setText(QStringLiteral("4x"));
    refused();
    type("<Ctrl+V>");
    EXPECT_EQ(boxes.boxes().size(), 5u);
    EXPECT_EQ(text(screen, "txtAge"), "3");
    type("6<Backspace>1<Left><Right>");
    EXPECT_EQ(text(screen, "txtAge"), "31");
    EXPECT_EQ(boxes.boxes().size(), 5u);
}

TEST_F(AddWalkIn, AnAgeBeyondAllYearsIsRefused) {
    type("LUNA<Enter>ANA<Enter>REYES<Enter><Enter>151<Enter>");
    expectRefusal("Age cannot be over 150.", "txtAge");
    type("99999999999999999999");
    expectRefusal("Age cannot be over 150.", "txtAge");
    type("150<Alt+S>");
    EXPECT_TRUE(screen.NewEntry);
}

TEST_F(AddWalkIn, TextsThatTheirColumnsCannotHoldAreRefusedWhole) {
    const struct {
        const char* field;
        const char* what;
        int most;
    } fields[] = {{"txtLastName", "Lastname", 50},     {"txtFirstName", "Firstname", 50},
                  {"txtMiddleName", "Middlename", 50}, {"txtHouse", "House and street", 100},
                  {"txtBarangay", "Barangay", 100},    {"txtZipCode", "Zip code", 10}};
    fillIn();
    for (const auto& one : fields) {
        const QString longest(one.most, u'X');
        keys(child<QLineEdit>(screen, one.field), "<Ctrl+A>" + longest + u'Y');
        expectRefusal(QStringLiteral("%1 can hold %2 characters, not %3.")
                          .arg(QString::fromLatin1(one.what))
                          .arg(one.most)
                          .arg(one.most + 1),
                      one.field);
        EXPECT_EQ(text(screen, one.field), (longest + u'Y').toStdString());
        type("<End><Backspace>");
    }
    type("<Alt+S>");
    EXPECT_EQ(
        value("SELECT LEN(LastName) + LEN(FirstName) + LEN(MiddleName) + LEN(HouseStreet) + LEN(Barangay) + "
              "LEN(ZipCode) FROM PATIENT_DATA..tbCashPatient WHERE hospnum = 'W1031'"),
        QStringLiteral("360"));
}

TEST_F(AddWalkIn, QuotesTurnIntoBackQuotesAsTheyAreTyped) {
    type("o'brien<Enter>d'arcy<Enter>l'or<Enter><Enter>31<Enter>");
    keys(child<QLineEdit>(screen, "txtHouse"), "5 st. paul's<Enter>l'eau");
    keys(child<QLineEdit>(screen, "txtZipCode"), "11'0");
    type("<Alt+S>");
    EXPECT_EQ(
        takeTexts().value(4),
        QStringLiteral("spNuclearaddcashpatient '0','W1031','O`BRIEN','D`ARCY','L`OR','5 ST. PAUL`S','L`EAU',"
                       "'11`0','M','0','','31'"));
}

TEST_F(AddWalkIn, SexAndCivilStatusGoByTheOptions) {
    for (int status = 0; status < 6; ++status) {
        lookup::frmAddWalkIn& next = openAdd();
        keysToFocus(next, "LUNA<Enter>ANA<Enter>REYES<Enter><Enter>31<Enter>");
        if (status % 2 == 1)
            keysToFocus(next, "<Right>");
        keysToFocus(next, "<Enter>");
        for (int right = 0; right < status; ++right)
            keysToFocus(next, "<Right>");
        EXPECT_EQ(focus(), "optCivil_" + std::to_string(status));
        keysToFocus(next, "<Alt+S>");
        const char* const sex = status % 2 == 1 ? "F" : "M";
        EXPECT_EQ(patient(next.IdNum),
                  std::string("LUNA|ANA|REYES|<Null>|31|") + sex + "|" + std::to_string(status) + "|||");
    }
}

TEST_F(AddWalkIn, ATownIsPickedFromTheList) {
    tests::runModal([&] { keys(child<QLineEdit>(screen, "txtZipCode"), "maka<Enter>"); },
                    {[](QWidget& list) { keysToFocus(list, "<Enter>"); }});
    EXPECT_EQ(text(screen, "txtZipCode"), "1200");
    EXPECT_EQ(label(screen, "lblTown"), "MAKATI, METRO MANILA");
    activate(screen);
    type("<Alt+Z><Home>9");
    EXPECT_EQ(label(screen, "lblTown"), "") << "the town of another code";
    tests::runModal([&] { tests::click(button(screen, "cmdTown")); },
                    {[](QWidget& list) { keysToFocus(list, "<Esc>"); }});
    EXPECT_EQ(text(screen, "txtZipCode"), "91200") << "left without a choice";
    EXPECT_EQ(label(screen, "lblTown"), "");
    activate(screen);
    EXPECT_EQ(focus(), "txtZipCode");
}

TEST_F(AddWalkIn, CancelAndEscapeSaveNothing) {
    fillIn();
    type("<Alt+C>");
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_FALSE(screen.NewEntry);
    EXPECT_EQ(screen.IdNum, QString());
    lookup::frmAddWalkIn& another = openAdd();
    EXPECT_EQ(text(another, "txtLastName"), "");
    keysToFocus(another, "X<Esc>");
    EXPECT_TRUE(another.isUnloaded());
    EXPECT_FALSE(another.NewEntry);
    EXPECT_EQ(trace(), "");
    EXPECT_EQ(series(), "W1030/1030");
}

TEST_F(AddWalkIn, AFailedStatementLeavesTheSeriesAsItWasAndARetryWorks) {
    constexpr int statements = 4;
    fillIn();
    for (int failing = 1; failing <= statements; ++failing) {
        {
            const tests::FaultInjector fault(*session::gConnection, failing);
            type("<Alt+S>");
        }
        EXPECT_EQ(errors.take().number(), 50000) << failing;
        EXPECT_TRUE(session::gConnection->inTransaction()) << "left open until the program stops";
        EXPECT_FALSE(screen.NewEntry);
        EXPECT_EQ(screen.IdNum, QString());
        session::gConnection->RollbackTrans(); // what the server does as the connection goes
        EXPECT_EQ(series(), "W1030/1030") << failing;
        EXPECT_EQ(patient("W1031"), "");
        EXPECT_EQ(text(screen, "txtLastName"), "LUNA");
    }
    const tests::FaultInjector fault(*session::gConnection, statements + 1);
    type("<Alt+S>");
    EXPECT_EQ(fault.seen(), statements);
    EXPECT_EQ(series(), "W1031/1031");
    EXPECT_EQ(patient("W1031"), "LUNA|ANA|REYES|<Null>|31|M|0|||");
}

// ---- several workstations

class WalkInNumbers : public tests::Workstations {
  public:
    Counts counts = [this] {
        return QList<int>{value("SELECT COUNT(*) FROM PATIENT_DATA..tbCashPatient"),
                          value("SELECT transnum FROM PATIENT_DATA..tbLastWalkInNum"),
                          value("SELECT SUBSTRING(lastopd, 2, 10) FROM PATIENT_DATA..tbLastWalkInNum")};
    };
};

TEST_F(WalkInNumbers, AProcessKilledAtAnyStepLeavesTheSeriesAsItWas) {
    const QList<int> before = counts();
    EXPECT_EQ(cutAtEveryStep(QStringLiteral("registrar"), counts), 6) << "begin, four statements, commit";
    EXPECT_EQ(counts(), (QList<int>{before[0] + 1, before[1] + 1, before[2] + 1})) << "the next one works";
}

TEST_F(WalkInNumbers, WorkstationsThatAddAtOnceShareNoNumber) {
    constexpr int workstations = 6;
    constexpr int saves = 8;
    constexpr int all = workstations * saves;
    const QList<int> before = counts();
    EXPECT_EQ(saveAtOnce(QStringLiteral("registrar"), workstations, saves).size(), all);
    EXPECT_EQ(counts(), (QList<int>{before[0] + all, before[1] + all, before[2] + all}));
}

} // namespace
