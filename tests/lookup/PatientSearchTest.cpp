#include "lookup/clsCashPatientSearch.h"
#include "lookup/clsOutPatientSearch.h"
#include "lookup/clsRegularPatientSearch.h"
#include "lookup/frmPatientList.h"
#include "lookup/frmRegisteredOPD.h"
#include "platform/base/Error.h"
#include "tests/lookup/LookupFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace {

using tests::child;
using Cells = std::vector<base::Value>;

const char* const patientColumns =
    "HospNum,LastName,FirstName,MiddleName,AdmDate,Sex,BirthDate,Age,HouseStreet,Barangay,Town,Province,"
    "CivilStatus";
const char* const stayColumns =
    "IdNum,LastName,FirstName,MiddleName,AdmDate,HospNum,AccountNum,Company,DcrDate,BillingDate,Sex,"
    "BirthDate,Age,HouseStreet,Barangay,Town,Province,CivilStatus,InvoiceNumber,LateCharges,OPDStatus";

Cells patient(const char* hospNum, const base::Value& civilStatus = "2") {
    return {hospNum,
            "SANTOS ",
            "MARIA",
            "REYES",
            nullptr,
            "F",
            base::Value(*base::makeDateTime({1980, 2, 29})),
            "46",
            "12 MABINI ST",
            "CENTRO",
            "PILA",
            "LAGUNA",
            civilStatus};
}

class PatientSearch : public tests::LookupFixture {
  protected:
    /// Runs `search` and does `step` in the list that it opens.
    template <typename Search>
    static bool picked(const Search& search, const tests::Step& step) {
        bool valid = false;
        tests::runModal([&] { valid = search(); }, {step});
        return valid;
    }
    static void takeFirst(QWidget& list) { tests::keysToFocus(list, QStringLiteral("<Down><Enter>")); }
    static void close(QWidget& list) { tests::click(child<QPushButton>(list, "cmdClose")); }
    QString statements() { return takeStatements().join(u'\n'); }
};

class RegularPatientSearch : public PatientSearch {
  protected:
    bool validate(const char* text, bool showList = true) {
        return search.ValidatePatient(QString::fromLatin1(text), showList);
    }
    bool pick(const char* text, const tests::Step& step) {
        return picked([&] { return validate(text); }, step);
    }
    lookup::clsRegularPatientSearch search;
};

TEST_F(RegularPatientSearch, OneRowIsTakenWithoutAList) {
    answer("spGlobal_RegularPatients ''", patientColumns, {patient("104001")});
    EXPECT_TRUE(validate("104001"));
    EXPECT_EQ(statements(), "spGlobal_RegularPatients '','1', '104001'");
    EXPECT_EQ(search.HospitalNumber(), "104001");
    EXPECT_EQ(search.LastName(), "SANTOS");
    EXPECT_EQ(search.FirstName(), "MARIA");
    EXPECT_EQ(search.MiddleName(), "REYES");
    EXPECT_EQ(search.Sex(), "F");
    EXPECT_EQ(search.BirthDate(), "2/29/1980");
    EXPECT_EQ(search.Age(), "46");
    EXPECT_EQ(search.HouseStreet(), "12 MABINI ST");
    EXPECT_EQ(search.Barangay(), "CENTRO");
    EXPECT_EQ(search.Town(), "PILA");
    EXPECT_EQ(search.Province(), "LAGUNA");
    EXPECT_EQ(search.CivilStatus(), "2");
}

TEST_F(RegularPatientSearch, OneRowIsTakenWithoutShowListToo) {
    answer("spGlobal_RegularPatients ''", patientColumns, {patient("104001")});
    EXPECT_TRUE(validate("104001", false));
}

TEST_F(RegularPatientSearch, AnEmptyCivilStatusReadsOne) {
    answer("spGlobal_RegularPatients ''", patientColumns, {patient("104001", "")}, true);
    ASSERT_TRUE(validate("104001"));
    EXPECT_EQ(search.CivilStatus(), "1");
    answer("spGlobal_RegularPatients ''", patientColumns, {patient("104001", nullptr)});
    ASSERT_TRUE(validate("104001"));
    EXPECT_EQ(search.CivilStatus(), "1");
}

TEST_F(RegularPatientSearch, NobodyWithoutShowListIsFalse) {
    answer("spGlobal_RegularPatients", patientColumns);
    EXPECT_FALSE(validate("SANTOS", false));
    EXPECT_EQ(statements(), "spGlobal_RegularPatients '','1', 'SANTOS'");
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(RegularPatientSearch, NobodyOpensTheListAndThePickIsLoaded) {
    answer("spGlobal_RegularPatients ''", patientColumns);
    answer("spGlobal_RegularPatients '0','0'", patientColumns, {patient("104001"), patient("104002")});
    answer("spGlobal_RegularPatients '0','1'", patientColumns, {patient("104002")});
    EXPECT_TRUE(pick("SANTOS", [](QWidget& window) {
        auto& list = dynamic_cast<lookup::frmPatientList&>(window);
        EXPECT_EQ(list.ListCaption, "Regular Patients");
        EXPECT_EQ(child<QLineEdit>(list, "txtSearch").text(), "SANTOS");
        EXPECT_FALSE(child<QPushButton>(list, "cmdAddWalkIn").isVisible());
        tests::keysToFocus(window, QStringLiteral("<Down><Down><Enter>"));
    }));
    EXPECT_EQ(statements(), "spGlobal_RegularPatients '','1', 'SANTOS'\n"
                            "spGlobal_RegularPatients '0','0','SANTOS'\n"
                            "spGlobal_RegularPatients '0','1', '104002'");
    EXPECT_EQ(search.HospitalNumber(), "104002");
}

TEST_F(RegularPatientSearch, SeveralRowsOpenTheListToo) {
    answer("spGlobal_RegularPatients '','1'", patientColumns, {patient("104001"), patient("104001")});
    answer("spGlobal_RegularPatients", patientColumns, {patient("104001")});
    EXPECT_TRUE(pick("104001", takeFirst));
}

TEST_F(RegularPatientSearch, ACancelledListIsFalseWithoutABox) {
    answer("spGlobal_RegularPatients ''", patientColumns);
    answer("spGlobal_RegularPatients '1'", patientColumns, {patient("104001")});
    EXPECT_FALSE(pick("", close));
    EXPECT_EQ(statements(), "spGlobal_RegularPatients '','1', ''\n"
                            "spGlobal_RegularPatients '1','0',''");
    EXPECT_EQ(boxes(), QStringList());
    EXPECT_EQ(search.HospitalNumber(), "");
}

TEST_F(RegularPatientSearch, APatientWhoHasGoneMeanwhileIsNotFound) {
    answer("spGlobal_RegularPatients '0','0'", patientColumns, {patient("104001")});
    answer("spGlobal_RegularPatients", patientColumns);
    EXPECT_FALSE(pick("SANTOS", takeFirst));
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(RegularPatientSearch, TheListOfTheNextSearchRemembersNothing) {
    answer("spGlobal_RegularPatients ''", patientColumns);
    answer("spGlobal_RegularPatients", patientColumns, {patient("104001")});
    EXPECT_TRUE(pick("SANTOS", takeFirst));
    EXPECT_FALSE(pick("REYES", close));
}

TEST_F(RegularPatientSearch, AQuoteIsRefusedBeforeAnythingIsSent) {
    EXPECT_THROW(validate("O'BRIEN"), base::RunTimeError);
    EXPECT_EQ(statements(), "");
}

class CashPatientSearch : public PatientSearch {
  protected:
    bool validate(const char* text, bool showList = true) {
        return search.ValidatePatient(QString::fromLatin1(text), showList);
    }
    bool pick(const char* text, const tests::Step& step) {
        return picked([&] { return validate(text); }, step);
    }
    lookup::clsCashPatientSearch search;
};

const char* const cashColumns =
    "HospNum,LastName,FirstName,MiddleName,CivilStatusID,CivilStatus,Sex,BirthDate,"
    "Age,HouseStreet,Barangay,Town,Province";

Cells walkIn(const char* hospNum, const base::Value& civilStatus = "MARRIED") {
    return {hospNum, "LUNA", "ANA",         "R",      "2",     civilStatus, "F",
            nullptr, "31",   "2 MABINI ST", "CENTRO", nullptr, nullptr};
}

TEST_F(CashPatientSearch, ASingleRowOpensTheListAllTheSame) {
    answer("spGlobal_CashPatient", cashColumns, {walkIn("W8001")});
    EXPECT_TRUE(pick("LUNA", [](QWidget& window) {
        auto& list = dynamic_cast<lookup::frmPatientList&>(window);
        EXPECT_EQ(list.ListCaption, "Walk In Patients");
        EXPECT_EQ(child<QLineEdit>(list, "txtSearch").text(), "LUNA");
        EXPECT_TRUE(child<QPushButton>(list, "cmdAddWalkIn").isVisible());
        takeFirst(window);
    }));
    EXPECT_EQ(statements(), "spGlobal_CashPatient '0', 'LUNA'\n"
                            "spGlobal_CashPatient '0','LUNA'\n"
                            "spGlobal_CashPatient '1', 'W8001'");
    EXPECT_EQ(search.HospitalNumber(), "W8001");
    EXPECT_EQ(search.LastName(), "LUNA");
    EXPECT_EQ(search.BirthDate(), "");
    EXPECT_EQ(search.Age(), "31");
    EXPECT_EQ(search.Town(), "");
    EXPECT_EQ(search.CivilStatus(), "MARRIED");
}

TEST_F(CashPatientSearch, NobodyIsFalseWithoutAList) {
    answer("spGlobal_CashPatient", cashColumns);
    EXPECT_FALSE(validate("LUNA"));
    EXPECT_EQ(statements(), "spGlobal_CashPatient '0', 'LUNA'");
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(CashPatientSearch, WithoutShowListNobodyIsTakenNotEvenTheOnlyOne) {
    answer("spGlobal_CashPatient", cashColumns, {walkIn("W8001")});
    EXPECT_FALSE(validate("LUNA", false));
    EXPECT_EQ(statements(), "spGlobal_CashPatient '0', 'LUNA'");
}

TEST_F(CashPatientSearch, ACancelledListIsFalseWithoutABox) {
    answer("spGlobal_CashPatient", cashColumns, {walkIn("W8001")});
    EXPECT_FALSE(pick("LUNA", [](QWidget& list) { tests::keysToFocus(list, QStringLiteral("<Esc>")); }));
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(CashPatientSearch, AnEmptyCivilStatusReadsOne) {
    answer("spGlobal_CashPatient", cashColumns, {walkIn("W8001", nullptr)});
    EXPECT_TRUE(pick("LUNA", takeFirst));
    EXPECT_EQ(search.CivilStatus(), "1");
}

class OutPatientSearch : public PatientSearch {
  protected:
    static Cells stay(const char* idNum, const char* accountNum = "C001") {
        return {idNum,
                "SANTOS",
                "MARIA",
                "REYES",
                base::Value(*base::makeDateTime({2026, 11, 20}, {14, 5})),
                "104001",
                accountNum,
                "KEROVA MILLS",
                nullptr,
                nullptr,
                "F",
                nullptr,
                "46",
                "12 MABINI ST",
                "CENTRO",
                "PILA",
                "LAGUNA",
                "",
                "",
                false,
                ""};
    }
    bool validate(const char* text) { return search.ValidatePatient(QString::fromLatin1(text)); }
    bool pick(const char* text, const tests::Step& step) {
        return picked([&] { return validate(text); }, step);
    }
    lookup::clsOutPatientSearch search;
};

TEST_F(OutPatientSearch, OneRowIsTakenWithoutAList) {
    answer("spGlobal_RegisteredOPD", stayColumns, {stay("O002001")});
    EXPECT_TRUE(validate("O002001"));
    EXPECT_EQ(statements(), "spGlobal_RegisteredOPD '0','1', 'O002001'");
    EXPECT_EQ(search.IdNumber(), "O002001");
    EXPECT_EQ(search.HospitalNumber(), "104001");
    EXPECT_EQ(search.LastName(), "SANTOS");
    EXPECT_EQ(search.FirstName(), "MARIA");
    EXPECT_EQ(search.MiddleName(), "REYES");
    EXPECT_EQ(search.AccountNum(), "C001");
    EXPECT_EQ(search.Company(), "KEROVA MILLS");
    EXPECT_EQ(search.AdmDate(), "11/20/2026");
    EXPECT_EQ(search.AdmTime(), "02:05PM");
    EXPECT_EQ(search.Sex(), "F");
    EXPECT_EQ(search.BirthDate(), "");
    EXPECT_EQ(search.Age(), "46");
    EXPECT_EQ(search.Province(), "LAGUNA");
    EXPECT_EQ(search.InvoiceNumber(), "");
    EXPECT_FALSE(search.LateCharges());
}

TEST_F(OutPatientSearch, NullDatesReadEmptyAndAnEmptyCivilStatusStaysEmpty) {
    answer("spGlobal_RegisteredOPD", stayColumns, {stay("O002001")});
    ASSERT_TRUE(validate("O002001"));
    EXPECT_EQ(search.DcrDate(), "");
    EXPECT_EQ(search.DcrTime(), "");
    EXPECT_EQ(search.BillingDate(), "");
    EXPECT_EQ(search.CivilStatus(), "");
}

TEST_F(OutPatientSearch, DatesAndTimesOfAClosedStay) {
    Cells closed = stay("O002001");
    closed[8] = base::Value(*base::makeDateTime({2026, 11, 21}, {0, 7}));
    closed[9] = base::Value(*base::makeDateTime({2026, 11, 21}, {9, 0}));
    closed[18] = "77";
    closed[19] = true;
    answer("spGlobal_RegisteredOPD", stayColumns, {closed});
    ASSERT_TRUE(validate("O002001"));
    EXPECT_EQ(search.DcrDate(), "11/21/2026");
    EXPECT_EQ(search.DcrTime(), "12:07AM");
    EXPECT_EQ(search.BillingDate(), "11/21/2026");
    EXPECT_EQ(search.InvoiceNumber(), "77");
    EXPECT_TRUE(search.LateCharges());
}

TEST_F(OutPatientSearch, WithoutATextTheListOfOpenStaysComes) {
    answer("spGlobal_RegisteredOPD '0','1', ''", stayColumns);
    answer("spGlobal_RegisteredOPD '1'", stayColumns, {stay("O002001"), stay("O002002")});
    answer("spGlobal_RegisteredOPD '0','1', 'O002001'", stayColumns, {stay("O002001")});
    EXPECT_TRUE(pick("", [](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Registered OPD");
        EXPECT_TRUE(child<QCheckBox>(window, "chkCurrent").isChecked());
        takeFirst(window);
    }));
    EXPECT_EQ(statements(), "spGlobal_RegisteredOPD '0','1', ''\n"
                            "spGlobal_RegisteredOPD '1','0', ''\n"
                            "spGlobal_RegisteredOPD '0','1', 'O002001'");
    EXPECT_EQ(search.IdNumber(), "O002001");
}

TEST_F(OutPatientSearch, ATextThatIsNoNumberIsLookedForInTheList) {
    answer("spGlobal_RegisteredOPD", stayColumns);
    EXPECT_FALSE(pick("SANTOS", close));
    EXPECT_EQ(statements(), "spGlobal_RegisteredOPD '0','1', 'SANTOS'\n"
                            "spGlobal_RegisteredOPD '0','0', 'SANTOS'");
    EXPECT_EQ(boxes(), QStringList());
}

TEST_F(OutPatientSearch, SeveralRowsOpenTheListAndThePickIsLoaded) {
    answer("spGlobal_RegisteredOPD '0','1', 'SANTOS'", stayColumns, {stay("O002007"), stay("O002008")});
    answer("spGlobal_RegisteredOPD '0','0', 'SANTOS'", stayColumns, {stay("O002001")});
    answer("spGlobal_RegisteredOPD '0','1', 'O002001'", stayColumns, {stay("O002001")});
    EXPECT_TRUE(pick("SANTOS", takeFirst));
    EXPECT_EQ(statements(), "spGlobal_RegisteredOPD '0','1', 'SANTOS'\n"
                            "spGlobal_RegisteredOPD '0','0', 'SANTOS'\n"
                            "spGlobal_RegisteredOPD '0','1', 'O002001'");
    EXPECT_EQ(search.IdNumber(), "O002001") << "and not the first of several";
}

TEST_F(OutPatientSearch, ThePickOfAPersonalAccountIsRefused) {
    answer("spGlobal_RegisteredOPD '0','1', ''", stayColumns);
    answer("spGlobal_RegisteredOPD", stayColumns, {stay("O002001", "104001 ")});
    EXPECT_FALSE(pick("", takeFirst));
    EXPECT_EQ(boxes(), QStringList{"64|Message|Patient`s with Personal Account is Not Allowed.\n"
                                   "Please Use Cash Assessment Entry Option for this Patient."});
    EXPECT_EQ(search.IdNumber(), "") << "nothing is copied";
}

TEST_F(OutPatientSearch, APersonalAccountIsTakenByItsNumber) {
    answer("spGlobal_RegisteredOPD", stayColumns, {stay("O002001", "104001")});
    EXPECT_TRUE(validate("O002001"));
    EXPECT_EQ(boxes(), QStringList());
    EXPECT_EQ(search.AccountNum(), search.HospitalNumber());
}

TEST_F(OutPatientSearch, AStayThatHasGoneMeanwhileIsNotFound) {
    answer("spGlobal_RegisteredOPD '1'", stayColumns, {stay("O002001")});
    answer("spGlobal_RegisteredOPD", stayColumns);
    EXPECT_FALSE(pick("", takeFirst));
    EXPECT_EQ(boxes(), QStringList());
}

} // namespace
