#include "lookup/frmWalkInMaster.h"

#include "lookup/frmAddWalkIn.h"
#include "platform/ado/Batch.h"
#include "platform/controls/fields/MaskedDate.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"
#include "tests/lookup/LookupFixture.h"
#include "tests/lookup/WalkInFixture.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTest>

namespace {

using tests::child;
using tests::keys;
using tests::keysToFocus;

class WalkInMaster : public tests::WalkInFixture {
  public:
    WalkInMaster() {
        for (const char* text :
             {"spNuclearaddcashpatient '0','W8001','AQUINO','BEA','SORIANO','2 LUNA "
              "ST','CENTRO','1100','F','2','02/29/1996','30'",
              "spNuclearaddcashpatient '0','W8002','AQUINO','CARLO','TAN','','','','M','0','','41'"})
            ado::runBatch(*hospital.open(), QString::fromLatin1(text));
    }

    void type(const QString& text) { keysToFocus(screen, text); }
    void search(const QString& text) {
        keys(child<QLineEdit>(screen, "txtSearch"), QStringLiteral("<Ctrl+A>") + text + "<Enter>");
    }
    /// The first patient of that name, opened for the edit.
    void edit(const QString& name) {
        search(name);
        type("<Down><Enter>");
        takeTexts();
    }
    std::string tab() const {
        const auto& tabs = child<QTabWidget>(screen, "ssWalkIn");
        return tabs.tabText(tabs.currentIndex()).toStdString();
    }
    void expectSaved() { boxes.expect({QStringLiteral("Record Saved."), controls::vbInformation}); }

    lookup::frmWalkInMaster& screen = openMaster();
    controls::FlexGrid& grid = child<controls::FlexGrid>(screen, "grdWalkIn");
};

TEST_F(WalkInMaster, OpensAtTheSearch) {
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("Walk-In Master File"));
    EXPECT_EQ(tab(), "Search Entry");
    EXPECT_EQ(child<QTabWidget>(screen, "ssWalkIn").tabText(1), QStringLiteral("Edit Entry"));
    EXPECT_EQ(button(screen, "cmdAdd").text(), QStringLiteral("&Add Walk-In"));
    EXPECT_EQ(focus(), "txtSearch");
    QStringList headers;
    for (int column = 0; column < grid.Cols(); ++column)
        headers += grid.TextMatrix(0, column).trimmed();
    EXPECT_EQ(
        headers.join(u'|'),
        QStringLiteral("|HospNum|LastName|FirstName|MiddleName|CivilStatusID|CivilStatus|Sex|BirthDate|Age|"
                       "Housestreet|Barangay|Town|Province"));
    EXPECT_FALSE(button(screen, "cmdEdit").isEnabled());
    EXPECT_EQ(trace(), "");
}

TEST_F(WalkInMaster, ItsColumnsShowNames) {
    const QFontMetrics metrics(grid.font());
    const int frame = controls::look::scaled(14);
    for (const auto& [column, name] :
         {std::pair(2, "DE AGBAYANI"), {3, "BENJAMIN EDUARDO"}, {4, "VILLANUEVA"}})
        EXPECT_GE(grid.columnWidth(column - 1), metrics.horizontalAdvance(QLatin1String(name)) + frame)
            << name;
}

TEST_F(WalkInMaster, SearchesOnEnterOnly) {
    type("aquin");
    EXPECT_EQ(trace(), "");
    type("o'<Enter>");
    EXPECT_EQ(trace(), "spGlobal_CashPatient '0', 'AQUINO`'");
    EXPECT_TRUE(grid.showsEmptyText());
    EXPECT_EQ(label(screen, "lblHits"), "No patient found.");
    type("<Enter>");
    takeTexts();
    search("AQUINO");
    EXPECT_EQ(trace(), "spGlobal_CashPatient '0', 'AQUINO'");
    ASSERT_EQ(grid.Rows(), 3);
    EXPECT_EQ(tests::cells(grid, 1),
              QStringLiteral(
                  "|W8001|AQUINO|BEA|SORIANO|2|MARRIED|F|2/29/1996|30|2 LUNA ST|CENTRO|QUEZON CITY|METRO "
                  "MANILA|1100"));
    EXPECT_EQ(grid.ColWidth(14), 0) << "the zip code does not show";
    EXPECT_TRUE(button(screen, "cmdEdit").isEnabled());
    EXPECT_EQ(focus(), "txtSearch");
}

TEST_F(WalkInMaster, EditShowsTheRowInHand) {
    edit("AQUINO");
    EXPECT_EQ(tab(), "Edit Entry");
    EXPECT_EQ(focus(), "txtLastName");
    const char* const fields[][2] = {{"txtHospNum", "W8001"},      {"txtLastName", "AQUINO"},
                                     {"txtFirstName", "BEA"},      {"txtMiddleName", "SORIANO"},
                                     {"txtAddress1", "2 LUNA ST"}, {"txtAddress2", "CENTRO"},
                                     {"txtZipCode", "1100"},       {"txtAge", "30"}};
    for (const auto& field : fields)
        EXPECT_EQ(text(screen, field[0]), field[1]) << field[0];
    EXPECT_EQ(child<QComboBox>(screen, "cmbSex").currentText(), QStringLiteral("Female"));
    EXPECT_EQ(child<QComboBox>(screen, "cmbCivil").currentText(), QStringLiteral("Married"));
    EXPECT_EQ(child<controls::MaskedDate>(screen, "dtpBirthDate").Text(), QStringLiteral("02/29/1996"));
    EXPECT_EQ(label(screen, "lblTown"), "QUEZON CITY, METRO MANILA");
    EXPECT_EQ(trace(), "") << "the row tells it all";
}

TEST_F(WalkInMaster, SavesInPlaceAndReadsTheListAgain) {
    edit("AQUINO");
    type("aquino-d'cruz<Enter>bea maria<Enter>");
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(
        trace(),
        "SELECT * FROM PATIENT_DATA..tbCashPatient WHERE hospnum='W8001'\n"
        "UPDATE: UPDATE PATIENT_DATA..tbCashPatient SET [LastName] = 'AQUINO-D`CRUZ', [FirstName] = 'BEA "
        "MARIA', "
        "[MiddleName] = 'SORIANO', [BirthDate] = '1996-02-29T00:00:00.000', [Age] = '30', [Sex] = 'F', "
        "[Civilstatusid] = '2', [HouseStreet] = '2 LUNA ST', [Barangay] = 'CENTRO', [ZipCode] = '1100' WHERE "
        "[hospnum] = 'W8001' AND [LastName] = 'AQUINO' AND [FirstName] = 'BEA' AND [MiddleName] = 'SORIANO' "
        "AND "
        "[BirthDate] = '1996-02-29T00:00:00.000' AND [Age] = '30' AND [Sex] = 'F' AND [Civilstatusid] = '2' "
        "AND "
        "[HouseStreet] = '2 LUNA ST' AND [Barangay] = 'CENTRO' AND [ZipCode] = '1100'\n"
        "spGlobal_CashPatient '0', 'AQUINO'");
    EXPECT_EQ(patient("W8001"), "AQUINO-D`CRUZ|BEA MARIA|SORIANO|2/29/1996|30|F|2|2 LUNA ST|CENTRO|1100");
    EXPECT_EQ(patient("W8002"), "AQUINO|CARLO|TAN|<Null>|41|M|0|||") << "nobody else";
    EXPECT_EQ(tab(), "Search Entry");
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), QStringLiteral("W8001")) << "the list stays at the patient";
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 2), QStringLiteral("AQUINO-D`CRUZ"));
}

TEST_F(WalkInMaster, TheBoxComesBeforeTheListIsRead) {
    edit("AQUINO");
    boxes.expect(
        {.prompt = QStringLiteral("Record Saved."), .style = controls::vbInformation, .meanwhile = [this] {
             EXPECT_EQ(takeTexts().size(), 2);
             EXPECT_FALSE(session::gConnection->inTransaction());
         }});
    type("<Alt+S>");
    EXPECT_EQ(trace(), "spGlobal_CashPatient '0', 'AQUINO'");
}

TEST_F(WalkInMaster, EveryFieldIsWritten) {
    edit("AQUINO");
    type("REAL<Enter>DINA<Enter>PAZ<Enter>");
    EXPECT_EQ(focus(), "dtpBirthDate");
    type("11201985<Enter><Ctrl+A>41<Enter>M<Enter>W<Enter>7 ORCHID "
         "ST<Enter>UGONG<Enter>1200<Enter>");
    EXPECT_EQ(focus(), "cmdSave");
    EXPECT_EQ(label(screen, "lblTown"), "MAKATI, METRO MANILA");
    EXPECT_EQ(trace(), "SELECT * FROM BUILD_FILE..tbCoAddress WHERE Zipcode = '1200'");
    expectSaved();
    type("<Enter>");
    EXPECT_EQ(patient("W8001"), "REAL|DINA|PAZ|11/20/1985|41|M|3|7 ORCHID ST|UGONG|1200");
}

TEST_F(WalkInMaster, QuotesTurnIntoBackQuotesAsTheyAreTyped) {
    edit("AQUINO");
    for (const char* field :
         {"txtLastName", "txtFirstName", "txtMiddleName", "txtAddress1", "txtAddress2", "txtZipCode"}) {
        keys(child<QLineEdit>(screen, field), "<Ctrl+A>o'a");
        EXPECT_EQ(text(screen, field), "O`A") << field;
    }
}

TEST_F(WalkInMaster, AnUnknownBirthDateStaysUnknownUntilItIsTyped) {
    search("AQUINO");
    type("<Down><Down><Enter>");
    ASSERT_EQ(text(screen, "txtHospNum"), "W8002");
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(patient("W8002"), "AQUINO|CARLO|TAN|<Null>|41|M|0|||");
    type("<Down><Down><Enter><Alt+B>05/06/1985");
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(patient("W8002"), "AQUINO|CARLO|TAN|5/6/1985|41|M|0|||");
    type("<Down><Down><Enter><Alt+B><Ctrl+A><Del>");
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(patient("W8002"), "AQUINO|CARLO|TAN|<Null>|41|M|0|||");
}

TEST_F(WalkInMaster, ARowWithoutSexAndStatusKeepsNone) {
    session::Run(ado::sql("UPDATE PATIENT_DATA..tbCashPatient SET Sex = '', Civilstatusid = '', Age = '' "
                          "WHERE hospnum = 'W8001'"));
    edit("AQUINO");
    EXPECT_EQ(child<QComboBox>(screen, "cmbSex").currentIndex(), -1);
    EXPECT_EQ(child<QComboBox>(screen, "cmbCivil").currentIndex(), -1);
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/29/1996||||2 LUNA ST|CENTRO|1100");
}

TEST_F(WalkInMaster, AZipCodeWithoutATownSaysSoAndIsSavedAsTyped) {
    edit("AQUINO");
    keys(child<QLineEdit>(screen, "txtZipCode"), "<Ctrl+A>77");
    EXPECT_EQ(label(screen, "lblTown"), "") << "the town of the former code";
    type("<Enter>");
    EXPECT_EQ(trace(), "SELECT * FROM BUILD_FILE..tbCoAddress WHERE Zipcode = '77'");
    EXPECT_EQ(label(screen, "lblTown"), "No town has this zip code.");
    EXPECT_EQ(focus(), "txtZipCode");
    keys(child<QLineEdit>(screen, "txtZipCode"), "<Ctrl+A>1000<Alt+T>");
    EXPECT_EQ(trace(), "SELECT * FROM BUILD_FILE..tbCoAddress WHERE Zipcode = '1000'");
    EXPECT_EQ(label(screen, "lblTown"), "MANILA, METRO MANILA");
}

TEST_F(WalkInMaster, BadInputIsRefusedAndStays) {
    edit("AQUINO");
    const auto refused = [this](const QString& prompt, const std::string& field) {
        boxes.expect({prompt, controls::vbInformation, QStringLiteral("Message")});
        type("<Alt+S>");
        EXPECT_EQ(focus(), field);
        EXPECT_EQ(trace(), "");
    };
    const QString longName(51, u'X');
    type(longName);
    refused("Lastname can hold 50 characters, not 51.", "txtLastName");
    EXPECT_EQ(text(screen, "txtLastName"), longName.toStdString());
    type("AQUINO");
    keys(child<QLineEdit>(screen, "txtAge"), "<Ctrl+A>151");
    refused("Age cannot be over 150.", "txtAge");
    boxes.expect({QStringLiteral("Cannot accept non-numeric values."), controls::vbExclamation,
                  QStringLiteral("Message")});
    type("3x0");
    EXPECT_EQ(text(screen, "txtAge"), "30");
    keys(child<controls::MaskedDate>(screen, "dtpBirthDate"), "<Ctrl+A>11/22/2026");
    refused("The birth date is still to come.", "dtpBirthDate");
    type("<Ctrl+A>11/22/1800");
    refused("The birth date is more than 150 years ago.", "dtpBirthDate");
    type("02/30/1996");
    refused("The birth date is no day of the calendar (mm/dd/yyyy).", "dtpBirthDate");
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/29/1996|30|F|2|2 LUNA ST|CENTRO|1100");
}

TEST_F(WalkInMaster, APatientWhoHasGoneMeanwhileIsToldAndNothingIsLost) {
    edit("AQUINO");
    type("REAL");
    session::Run(ado::sql("DELETE FROM PATIENT_DATA..tbCashPatient WHERE hospnum = 'W8001'"));
    takeTexts();
    boxes.expect({QStringLiteral("The patient W8001 is not on file any more."), controls::vbInformation,
                  QStringLiteral("Message")});
    type("<Alt+S>");
    EXPECT_EQ(trace(), "SELECT * FROM PATIENT_DATA..tbCashPatient WHERE hospnum='W8001'");
    EXPECT_EQ(tab(), "Edit Entry");
    EXPECT_EQ(text(screen, "txtLastName"), "REAL");
}

TEST_F(WalkInMaster, AFailedSaveChangesNothing) {
    const std::string before = patient("W8001");
    edit("AQUINO");
    type("REAL");
    for (int failing = 1; failing <= 2; ++failing) {
        const tests::FaultInjector fault(*session::gConnection, failing);
        type("<Alt+S>");
        EXPECT_EQ(errors.take().number(), 50000);
        EXPECT_EQ(patient("W8001"), before);
        EXPECT_EQ(text(screen, "txtLastName"), "REAL");
    }
}

/// Another workstation that changes the patient between the read and the write of a save.
class Meddler : public ado::Observer {
  public:
    explicit Meddler(const tests::TestHospital& hospital) : m_hospital(hospital) {
        session::gConnection->addObserver(this);
    }
    ~Meddler() override { session::gConnection->removeObserver(this); }
    void beforeStatement(const QString&, ado::StatementKind kind) override {
        if (kind == ado::StatementKind::WriteBack)
            m_hospital.run("UPDATE PATIENT_DATA..tbCashPatient SET Age = '99' WHERE hospnum = 'W8001'");
    }

  private:
    const tests::TestHospital& m_hospital;
};

TEST_F(WalkInMaster, AChangeByAnotherWorkstationIsNotOverwrittenUnseen) {
    edit("AQUINO");
    type("REAL");
    const Meddler meddler(hospital);
    type("<Alt+S>");
    EXPECT_EQ(errors.take().number(), -2147217864);
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/29/1996|99|F|2|2 LUNA ST|CENTRO|1100");
}

TEST_F(WalkInMaster, CancelAndEscapeLeaveTheEditAndWriteNothing) {
    for (const char* leave : {"<Alt+N>", "<Esc>"}) {
        edit("AQUINO");
        type("REAL" + QString::fromLatin1(leave));
        EXPECT_EQ(tab(), "Search Entry") << leave;
        EXPECT_EQ(focus(), "txtSearch");
        EXPECT_FALSE(child<QTabWidget>(screen, "ssWalkIn").isTabEnabled(1));
        EXPECT_FALSE(screen.isUnloaded());
        EXPECT_EQ(trace(), "");
    }
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/29/1996|30|F|2|2 LUNA ST|CENTRO|1100");
    type("<Esc>");
    EXPECT_TRUE(screen.isUnloaded());
}

TEST_F(WalkInMaster, AListWithoutZipCodesCanBeEdited) {
    // As a hospital's own procedure may give it.
    hospital.replaceProcedure(
        "ALTER PROCEDURE spGlobal_CashPatient @By varchar(1), @Text varchar(50) AS SELECT "
        "hospnum AS HospNum, LastName FROM PATIENT_DATA..tbCashPatient WHERE LastName = @Text");
    edit("AQUINO");
    EXPECT_EQ(text(screen, "txtHospNum"), "W8001");
    EXPECT_EQ(text(screen, "txtZipCode"), "");
}

TEST_F(WalkInMaster, AZipCodeThatTheListDoesNotShowIsKeptUnlessTyped) {
    hospital.replaceProcedure(
        "CREATE OR ALTER PROCEDURE spGlobal_CashPatient @By varchar(1), @Text varchar(50) AS SELECT hospnum "
        "AS "
        "HospNum, LastName, FirstName, MiddleName, Civilstatusid, '' AS CivilStatus, Sex, BirthDate, Age, "
        "HouseStreet, Barangay, '' AS Town, '' AS Province FROM PATIENT_DATA..tbCashPatient WHERE LastName = "
        "@Text");
    edit("AQUINO");
    keys(child<QLineEdit>(screen, "txtAddress2"), "<Ctrl+A>UGONG");
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/29/1996|30|F|2|2 LUNA ST|UGONG|1100");
    edit("AQUINO");
    keys(child<QLineEdit>(screen, "txtZipCode"), "<Ctrl+A>1200");
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/29/1996|30|F|2|2 LUNA ST|UGONG|1200");
}

TEST_F(WalkInMaster, APatientKeepsAName) {
    edit("AQUINO");
    for (const auto& [field, prompt] :
         {std::pair{"txtLastName", "Please enter lastname."}, {"txtFirstName", "Please enter firstname."}}) {
        const QString before = QString::fromStdString(text(screen, field));
        keys(child<QLineEdit>(screen, field), "<Ctrl+A> ");
        boxes.expect({QString::fromLatin1(prompt), controls::vbInformation, QStringLiteral("Message")});
        type("<Alt+S>");
        EXPECT_EQ(focus(), field);
        type("<Ctrl+A>" + before);
    }
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/29/1996|30|F|2|2 LUNA ST|CENTRO|1100");
}

TEST_F(WalkInMaster, TheAgeFollowsABirthDateThatIsChanged) {
    edit("AQUINO");
    keys(child<QLineEdit>(screen, "txtAge"), "<Ctrl+A>31");
    keys(child<controls::MaskedDate>(screen, "dtpBirthDate"), "<Tab>");
    EXPECT_EQ(text(screen, "txtAge"), "31") << "a date that stood already changes nothing";
    keys(child<controls::MaskedDate>(screen, "dtpBirthDate"), "<Ctrl+A>02/28/1986");
    expectSaved();
    type("<Alt+S>");
    EXPECT_EQ(patient("W8001"), "AQUINO|BEA|SORIANO|2/28/1986|40|F|2|2 LUNA ST|CENTRO|1100");
}

TEST_F(WalkInMaster, APatientIsRegisteredByKeysAloneAndFound) {
    tests::runModal([&] { type("<Alt+A>"); }, {[](QWidget& add) {
                        keysToFocus(
                            add, "de leon<Enter>mia<Enter>santos<Enter>07041988<Enter><Enter><Right><Enter>"
                                 "<Right><Enter>9 narra st<Enter>ugong<Enter>1200<Enter><Enter>");
                    }});
    EXPECT_EQ(trace(),
              "SELECT ZipCode, Town, Province FROM BUILD_FILE..tbCoAddress WHERE ZipCode = '1200'\n"
              "BEGIN\n"
              "SELECT * FROM PATIENT_DATA..tbLastWalkInNum\n"
              "UPDATE: UPDATE PATIENT_DATA..tbLastWalkInNum SET [lastopd] = 'W1031', [transnum] = 1031 WHERE "
              "[WalkInNumID] = 1 AND [lastopd] = 'W1030' AND [transnum] = 1030\n"
              "SELECT * FROM PATIENT_DATA..tbCashPatient WHERE hospnum='W1031'\n"
              "spNuclearaddcashpatient '0','W1031','DE LEON','MIA','SANTOS','9 NARRA "
              "ST','UGONG','1200','F','1','07/04/1988','38'\n"
              "COMMIT");
    activate(screen);
    EXPECT_EQ(label(screen, "lblHits"), "The patient was added as W1031.");
    EXPECT_EQ(focus(), "txtSearch");
    type("de leon<Enter>");
    EXPECT_EQ(trace(), "spGlobal_CashPatient '0', 'DE LEON'");
    QStringList found;
    for (int row = 1; row < grid.Rows(); ++row)
        found += tests::cells(grid, row);
    EXPECT_TRUE(found.contains(QStringLiteral("|W1031|DE LEON|MIA|SANTOS|1|SINGLE|F|7/4/1988|38|9 NARRA "
                                              "ST|UGONG|MAKATI|METRO MANILA|1200")))
        << found.join(u'\n').toStdString();
}

TEST_F(WalkInMaster, AnAdditionThatWasLeftSaysNothing) {
    tests::runModal([&] { type("<Alt+A>"); }, {[](QWidget& add) { keysToFocus(add, "X<Esc>"); }});
    EXPECT_EQ(label(screen, "lblHits"), "");
    EXPECT_EQ(trace(), "");
}

TEST_F(WalkInMaster, ADoubleClickOpensTheRow) {
    search("AQUINO");
    const QPoint middle = grid.viewport()->mapFrom(grid.parentWidget(), grid.cellRect(2, 3).center());
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(tab(), "Edit Entry");
    EXPECT_EQ(text(screen, "txtHospNum"), "W8002");
}

} // namespace
