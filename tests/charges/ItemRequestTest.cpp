// The screens that ask pharmacy and central supply: whose items they take, and the save.
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "session/services/Services.h"
#include "tests/charges/ItemFixture.h"

#include <QGroupBox>

namespace {

using tests::child;
using tests::Store;

class ItemRequest : public tests::ItemFixture, public testing::WithParamInterface<Store> {
  protected:
    QString outPatient(const char* condition = "DcrDate IS NULL AND BillingDate IS NULL") const {
        return value("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE " +
                     QString::fromLatin1(condition) + " AND AccountNum <> HospNum ORDER BY IdNum");
    }
    void expectOutOfUse() {
        EXPECT_FALSE(grid().isEnabled());
        EXPECT_FALSE(box().isEnabled());
        EXPECT_FALSE(save().isEnabled());
        EXPECT_FALSE(child<QPushButton>(screen(), "cmdMedOption_2").isEnabled());
        EXPECT_TRUE(child<QPushButton>(screen(), "cmdMedOption_1").isEnabled());
    }
};

INSTANTIATE_TEST_SUITE_P(Stores, ItemRequest, testing::Values(tests::pharmacy, tests::centralSupply),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(ItemRequest, OpensWithThePatientAlone) {
    open(GetParam());
    expectOutOfUse();
    EXPECT_EQ(screen().windowTitle(),
              GetParam().isSupply ? "Central Supply Request Entry" : "Pharmacy Request Entry");
    EXPECT_EQ(message(), "Type Item Code or first 4 letters of Item Name then Press <Enter>....");
    EXPECT_EQ(grid().Cols(), 9);
    EXPECT_EQ(line(0).remove(u' '), "#|Code|ItemDescription|Freq.|Quantity|Amount|Remarks||");
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(line(1), "1||||||||");
    EXPECT_EQ(grid().ColWidth(7), 1);
    EXPECT_EQ(grid().ColWidth(8), 1);
    EXPECT_EQ(screen().findChild<QGroupBox*>("fmeItemList") != nullptr, GetParam().isSupply);
    boxes.expect({"Please select Patient Classification.", controls::vbOKOnly, "Message"});
    tests::keys(field("txtPName"), "AGUILAR<Enter>");
    EXPECT_EQ(takeTexts(), QStringList());
}

TEST_P(ItemRequest, TakesAConfinedPatient) {
    open(GetParam());
    pickConfined(admitted);
    EXPECT_EQ(field("txtHospNum").text(), "104078");
    EXPECT_EQ(field("txtIdNum").text(), admitted);
    EXPECT_EQ(field("txtPName").text(),
              "AGUILAR, " + value("SELECT FirstName + MiddleName FROM PATIENT_DATA..tbMaster WHERE HospNum = "
                                  "'104078'"));
    EXPECT_EQ(field("txtRoomNo").text(), "B");
    EXPECT_TRUE(box().hasFocus());
    EXPECT_TRUE(save().isEnabled());
    QStringList own = takeTexts();
    own.removeIf([](const QString& text) {
        return text.startsWith("SELECT P.IdNum") || text.startsWith("SELECT M.HospNum");
    });
    EXPECT_EQ(own, GetParam().isSupply
                       ? QStringList{"SELECT * FROM PATIENT_DATA..tbPatient2 WHERE IdNum = '26004078'"}
                       : QStringList());
}

TEST_P(ItemRequest, TakesAnOutPatient) {
    const QString id = outPatient();
    const QString name = " FROM PATIENT_DATA..tbOutPatient O INNER JOIN PATIENT_DATA..tbMaster M ON "
                         "M.HospNum = O.HospNum WHERE O.IdNum = '" +
                         id + "'";
    open(GetParam());
    pickOutPatient(id);
    EXPECT_EQ(field("txtIdNum").text(), id);
    EXPECT_EQ(field("txtHospNum").text(), value("SELECT O.HospNum" + name));
    EXPECT_EQ(field("txtPName").text(),
              value("SELECT M.LastName + ' , ' + M.FirstName + ' ' + M.MiddleName" + name));
    EXPECT_EQ(field("txtRoomNo").text(), "OPD");
    EXPECT_TRUE(box().hasFocus());
    QStringList expected{"spGlobal_RegisteredOPD '0','1', '" + id + "'"};
    if (GetParam().isSupply)
        expected += "SELECT AskCashbasis FROM PATIENT_DATA..tbPatient2 WHERE IdNum = '" + id + "'";
    expected += "SELECT OPDStatus FROM PATIENT_DATA..tbOutPatient WHERE IDNum = '" + id + "'";
    QStringList own = takeTexts();
    own.removeIf([](const QString& text) {
        return text.startsWith("SELECT P.IdNum") || text.startsWith("SELECT M.HospNum");
    });
    EXPECT_EQ(own, expected);
}

TEST_P(ItemRequest, RefusesAClosedBill) {
    const QString id = outPatient();
    const QString bill = "UPDATE PATIENT_DATA..tbOutPatient SET BillingDate = '2026-11-20', LateCharges = %1 "
                         "WHERE IdNum = '" +
                         id + "'";
    hospital.run(bill.arg(0));
    open(GetParam());
    boxes.expect({"Cannot post charges because the patient's account has already been closed. \n"
                  "Please contact BILLING DEPARTMENT for further instructions.",
                  controls::vbExclamation, "Closed Bill"});
    pickOutPatient(id);
    expectOutOfUse();
    EXPECT_EQ(field("txtIdNum").text(), "");
    hospital.run(bill.arg(1));
    pickOutPatient(id);
    EXPECT_TRUE(grid().isEnabled()) << "open for late charges";
}

TEST_P(ItemRequest, RefusesARevokedRegistration) {
    const QString id = outPatient();
    hospital.run("UPDATE PATIENT_DATA..tbOutPatient SET OPDStatus = 'R' WHERE IdNum = '" + id + "'");
    openForAdmitted(GetParam());
    boxes.expect({"Patient's Registration is Revoked.", controls::vbInformation, "Message"});
    pickOutPatient(id);
    expectOutOfUse();
}

TEST_P(ItemRequest, CentralSupplyAloneAsksForTheMarksOfAnAdmission) {
    const QString marks = "UPDATE PATIENT_DATA..tbPatient2 SET AskCashBasis = %1, OkeyPH = %2 WHERE IdNum = "
                          "'26004078'";
    open(GetParam());
    const struct {
        int cashBasis, closed;
        const char* says;
    } cases[] = {{1, 1, "Patient's account has been placed under cash basis."},
                 {0, 1, "Patient's account has already been closed."}};
    for (const auto& each : cases) {
        hospital.run(marks.arg(each.cashBasis).arg(each.closed));
        if (GetParam().isSupply)
            boxes.expect({QString::fromLatin1(each.says), controls::vbInformation, "Message"});
        pickConfined(admitted);
        EXPECT_EQ(grid().isEnabled(), !GetParam().isSupply);
        EXPECT_EQ(field("txtPName").hasFocus(), GetParam().isSupply);
        EXPECT_EQ(field("txtIdNum").text(), admitted) << "the fields stand by then";
    }
}

TEST_P(ItemRequest, CentralSupplyAloneAsksForTheMarksOfAnOutPatient) {
    const QString id = outPatient();
    hospital.run("DELETE FROM PATIENT_DATA..tbPatient2 WHERE IdNum = '" + id + "'");
    hospital.run("INSERT INTO PATIENT_DATA..tbPatient2 (IdNum, AskCashBasis) VALUES ('" + id + "', 1)");
    open(GetParam());
    if (GetParam().isSupply)
        boxes.expect({"Cannot post charges because the patient's account has been made under cash basis. ",
                      controls::vbOKOnly, "Message"});
    pickOutPatient(id);
    EXPECT_EQ(grid().isEnabled(), !GetParam().isSupply);
}

TEST_P(ItemRequest, SavesEachCompleteLineInOneTransaction) {
    openForAdmitted(GetParam());
    const char* first = GetParam().items[0];
    const char* second = GetParam().items[1];
    type(QStringLiteral("%1<Enter><Enter>bid<Enter>3<Enter>after meals<Enter>").arg(first));
    type(QStringLiteral("%1<Enter>").arg(second));
    grid().setTextMatrix(2, 7, " R7 ");
    ASSERT_EQ(grid().Rows(), 4) << "and an empty line behind them";
    const QString doctor = value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '26004078'");
    const QString begin = "STATION..Nurse_AppendNurseLogBook '104078','26004078','I','%1','%2','%3','%4','" +
                          QString::fromLatin1(GetParam().type) + "','{now}','" +
                          QString::fromLatin1(GetParam().type) + "','" + doctor +
                          "','','1001','%5','%6','NU','N','%7','0','0','0',0";
    takeTexts();
    type("<Alt+S>");
    QStringList expected{"BEGIN", "select GETDATE() AS Tdate",
                         begin.arg(first, QString::number(unitPrice(first).toDouble() * 3), "3", "BID",
                                   "AFTER MEALS", itemName(first).left(35), ""),
                         begin.arg(second, price(second), "1", "PRN", "", itemName(second), "R7"), "COMMIT"};
    const ado::Rows rows = hospital.run("SELECT RequestDate, RequestNum, Amount, Quantity, RecordStatus, "
                                        "ProcessDate, DoctorID FROM STATION..tbNurseLogBook WHERE IdNum = "
                                        "'26004078' AND RequestType = '" +
                                        QString::fromLatin1(GetParam().type) +
                                        "' AND UserID = '1001' AND "
                                        "RecordStatus = 'N' ORDER BY LogBookID DESC");
    ASSERT_GE(rows.count(), 2);
    const base::DateTime asked = *rows.at(0, 0).asDateTime();
    EXPECT_TRUE(tests::isServerNow(asked));
    expected.replaceInStrings(
        "{now}", tests::toTestDays(base::Format(asked, QStringLiteral("mm/dd/yyyy hh:mm:ss AM/PM"))));
    EXPECT_EQ(takeTexts().join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    EXPECT_TRUE(screen().isUnloaded());
    ASSERT_EQ(session::workDone().size(), 1U);
    EXPECT_EQ(session::workDone().front().work,
              GetParam().isSupply ? session::Work::SupplyRequest : session::Work::PharmacyRequest);
    EXPECT_EQ(session::workDone().front().IdNum, "26004078");
    EXPECT_EQ(base::textOf(rows.at(0, 1)).toInt(), base::textOf(rows.at(1, 1)).toInt() + 1)
        << "of the wards' numbers";
}

TEST_P(ItemRequest, AnOutPatientsLinesAreOfTypeOAndHaveNoDoctor) {
    const QString id = outPatient();
    ASSERT_TRUE(session::gAdmission->OpenAdmission(admitted)) << "another screen looked at it last";
    open(GetParam());
    pickOutPatient(id);
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
    takeTexts();
    type("<Alt+S>");
    const QStringList sent = takeTexts().filter("Nurse_AppendNurseLogBook");
    ASSERT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent[0].contains("','" + id + "','O','" + GetParam().items[0] + "','"))
        << sent[0].toStdString();
    EXPECT_TRUE(sent[0].contains(QStringLiteral("','%1','','','1001','").arg(GetParam().type)))
        << sent[0].toStdString();
}

TEST_P(ItemRequest, WithoutACompleteLineAnEmptyTransactionIsCommitted) {
    openForAdmitted(GetParam());
    type("00<Enter>NOTHING<Enter>");
    takeTexts();
    type("<Alt+S>");
    EXPECT_EQ(takeTexts(), (QStringList{"BEGIN", "select GETDATE() AS Tdate", "COMMIT"}));
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_P(ItemRequest, AFailedSaveTakesItsLinesBackAndStays) {
    openForAdmitted(GetParam());
    const int before = count("STATION..tbNurseLogBook", "IdNum = '26004078'");
    type(QStringLiteral("%1<Enter><Down><Home>%2<Enter>").arg(GetParam().items[0], GetParam().items[1]));
    grid().setTextMatrix(2, 4, "1/2"); // no number for the server
    takeTexts();
    boxes.expect({"Error While Saving Pharmacy Requests  Error converting data type varchar to float."});
    type("<Alt+S>");
    const QStringList sent = takeTexts();
    EXPECT_EQ(sent.filter("Nurse_AppendNurseLogBook").size(), 2);
    EXPECT_EQ(sent.last(), "ROLLBACK");
    EXPECT_FALSE(screen().isUnloaded());
    EXPECT_EQ(count("STATION..tbNurseLogBook", "IdNum = '26004078'"), before);
    EXPECT_EQ(line(1), picked(1, GetParam().items[0])) << "nothing is lost";
    grid().setTextMatrix(2, 4, "2");
    type("<Alt+S>");
    EXPECT_TRUE(screen().isUnloaded());
    EXPECT_EQ(count("STATION..tbNurseLogBook", "IdNum = '26004078'"), before + 2);
}

TEST_P(ItemRequest, ASaveTakesWhatStandsInTheBoxOrSaysWhyNot) {
    openForAdmitted(GetParam());
    type(QStringLiteral("%1<Enter><End><End>").arg(GetParam().items[0]));
    tests::keys(box(), "<Ctrl+A>0");
    takeTexts();
    boxes.expect({"Quantity should be greater than zero!"});
    type("<Alt+S>");
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_TRUE(box().hasFocus());
    tests::keys(box(), "<Ctrl+A>4<Alt+S>");
    EXPECT_TRUE(takeTexts().filter("Nurse_AppendNurseLogBook").value(0).contains("','4','PRN','"));
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_P(ItemRequest, CancelLeavesWithoutAWord) {
    openForAdmitted(GetParam());
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
    takeTexts();
    tests::click(child<QPushButton>(screen(), "cmdMedOption_1"));
    EXPECT_TRUE(screen().isUnloaded());
    EXPECT_EQ(takeTexts(), QStringList());
}

} // namespace
