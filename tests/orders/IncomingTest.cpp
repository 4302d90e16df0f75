// What comes in from outside: the wards' requests and the cashier's receipts, up to the saved request.
#include "orders/frmListCashComm.h"
#include "orders/frmNurseCommunication.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/orders/SavingFixture.h"

#include <QLabel>

namespace {

using controls::FlexGrid;
using controls::SharedScreen;
using tests::child;
using tests::keys;
using tests::listed;
using tests::Step;

const Step leave = [](QWidget& window) { dynamic_cast<controls::Screen&>(window).Unload(); };

class Incoming : public tests::SavingFixture {
  public:
    ~Incoming() override {
        controls::release<orders::frmNurseCommunication>();
        controls::release<orders::frmListCashComm>();
    }

    /// What the screens themselves send: the services' own looks into the patients' files are left out.
    QStringList takeOwn() {
        QStringList own;
        for (const QString& text : takeTexts())
            if (!text.startsWith("SELECT P.IdNum, P.HospNum") && !text.startsWith("SELECT M.HospNum") &&
                !text.startsWith("SELECT TOP 200 P.IdNum"))
                own += text;
        return own;
    }

    /// A ward's request of one line, older than all others.
    void fileAtWard(const QString& type, const QString& idNum, const QString& number, const QString& item,
                    const QString& amount) const {
        const QString hospNum =
            value("SELECT HospNum FROM PATIENT_DATA.." +
                  QString(type == u"I" ? "tbPatient" : "tbOutPatient") + " WHERE IdNum = '" + idNum + "'");
        hospital.run(
            "INSERT INTO STATION..tbNurseCommunicationFile (HospNum, IdNum, RequestNum, PatientType, "
            "RevenueID, ItemID, Quantity, Amount, Classification, RequestDate, UserID, Remarks) "
            "VALUES ('" +
            hospNum + "','" + idNum + "','" + number + "','" + type + "','NU','" + item + "',1," + amount +
            ",'K','2020-01-01','2101','ON NPO')");
        hospital.run("INSERT INTO STATION..tbNurseLogBook (HospNum, IdNum, RequestNum, PatientType, "
                     "RevenueID, ItemID, Quantity, Amount, RequestDate, UserID) VALUES ('" +
                     hospNum + "','" + idNum + "','" + number + "','" + type + "','NU','" + item + "',1," +
                     amount + ",'2020-01-01','2101')");
    }
    void pay(const QString& hospNum, const QString& idNum, const QString& name,
             const QString& receipt) const {
        hospital.run("INSERT INTO BILLING..tbCashAssessment (HospNum, IdNum, PatientName, TransDate, "
                     "RequestNum, ItemID, Amount, UserID, RefNum, RevenueID, DoctorID, Quantity, ORNumber, "
                     "RecordStatus) VALUES ('" +
                     hospNum + "','" + idNum + "','" + name +
                     "','2030-01-01','NU1','1002',4100,'1002','NU1',"
                     "'NU','201',1,'" +
                     receipt + "','1')");
    }
    QString status(const char* table, const char* number) const {
        return value(QStringLiteral("SELECT RecordStatus + ' ' + ISNULL(ReferenceNum, '') FROM STATION..%1 "
                                    "WHERE RequestNum = '%2'")
                         .arg(QLatin1String(table), QLatin1String(number)));
    }
    /// "[referencenum] = ..." and so on: the row of a ward's file, written back.
    QString stamp(const char* table, const char* key, const char* number, const QString& rest) const {
        return QStringLiteral("UPDATE: UPDATE STATION..%1 SET [referencenum] = '{slip}', [RecordStatus] = "
                              "'X'%2 WHERE [%3] = %4 AND [referencenum] IS NULL AND [RecordStatus] = 'N'%5")
            .arg(QLatin1String(table), rest.isEmpty() ? QString() : rest, QLatin1String(key),
                 value(QStringLiteral("SELECT %1 FROM STATION..%2 WHERE RequestNum = '%3'")
                           .arg(QLatin1String(key), QLatin1String(table), QLatin1String(number))),
                 rest.isEmpty() ? QString() : " AND [processby] IS NULL AND [processdate] IS NULL");
    }
    QStringList stamps(const char* type, const QString& id, const char* item, const char* number) const {
        return {
            QStringLiteral("sp_checknursecommunicationfile '0','%1','NU','%2','%3','%4'")
                .arg(type, item, id, number),
            stamp("tbNurseCommunicationFile", "CommunicationID", number, {}),
            QStringLiteral("sp_checknurselogbook '0','%1','%2','NU','%3','%4'").arg(type, id, item, number),
            stamp("tbNurseLogBook", "LogBookID", number,
                  ", [processby] = '1001', [processdate] = '2026-11-21T08:30:00.000'")};
    }
    void openInTray(std::vector<Step> steps) {
        auto& list = SharedScreen<orders::frmNurseCommunication>::fresh();
        tests::runModal([&] { list.ShowModal(); }, std::move(steps));
    }
    void openReceipts(std::vector<Step> steps) {
        auto& list = SharedScreen<orders::frmListCashComm>::fresh();
        tests::runModal([&] { list.ShowModal(); }, std::move(steps));
    }
    static FlexGrid& tableOf(QWidget& list) { return child<FlexGrid>(list, "grdTable"); }
    static QString textOf(QWidget& window, const char* name) { return child<QLineEdit>(window, name).text(); }

    const QString out = value("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL AND "
                              "AccountNum <> HospNum AND IdNum NOT IN (SELECT IdNum FROM "
                              "STATION..tbNurseCommunicationFile) ORDER BY IdNum");
};

TEST_F(Incoming, TheInTrayHasItsThirteenColumns) {
    fileAtWard("I", admitted, "7900001", "1001", "5620");
    takeTexts();
    openInTray({[&](QWidget& list) {
        EXPECT_EQ(list.windowTitle(), "Nurse Communication File");
        EXPECT_EQ(listed(takeTexts()), "sp_Nuclear_NurseCommunication");
        FlexGrid& grid = tableOf(list);
        ASSERT_EQ(grid.Cols(), 13);
        QStringList headers, first;
        for (int column = 1; column < 13; ++column) {
            headers += grid.TextMatrix(0, column).trimmed();
            first += grid.TextMatrix(1, column);
        }
        EXPECT_EQ(headers.join(u'|'), "RequestDate|Adm.No.|Patient Name|Room ID|ExamCode|Exam Description|"
                                      "Remarks|UserID|PatientType|RequestNum|HospNum|Classification");
        EXPECT_EQ(first.mid(1, 1) + first.mid(3),
                  (QStringList{admitted, "205", "1001", "BONE SCAN, WHOLE BODY", "ON NPO", "2101", "I",
                               "7900001", "104078", "K"}));
        EXPECT_TRUE(grid.hasFocus());
        EXPECT_EQ(child<QPushButton>(list, "btnCancel").property("kind").toString(), "danger");
        const int widths[] = {100, 1100, 900, 2000, 800, 800, 2000, 1200, 900, 800};
        for (int column = 0; column < 10; ++column)
            EXPECT_EQ(grid.ColWidth(column), widths[column]) << column;
        leave(list);
    }});
}

TEST_F(Incoming, TwoLinesOfAWardAreTakenForAnAdmittedPatient) {
    fileAtWard("I", admitted, "7900001", "1001", "5620");
    fileAtWard("I", admitted, "7900002", "1002", "4100");
    const int slip = nextSlip(), request = nextRequest();
    const QString doctor = value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '26004078'");
    QStringList save{"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
                     "sp_Nuclear_IncRefNum"};
    const auto line = [&](const char* number, const char* item, const char* amount, const char* r) {
        save += {"SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum"};
        save += QStringLiteral("sp_Nuclear_AddRequest '104078','26004078','%1', '%2','%3','%4','I', "
                               "'{slip}','1001','%5','','1', '','NU'")
                    .arg(r, item, amount, doctor, number);
        save += stamps("I", admitted, item, number);
        save += QStringLiteral("sp_addbill 'I','26004078','11/21/2026 08:30:00 AM','{slip}', '%1','%2','NU',"
                               "'1001','1','','', '104078'")
                    .arg(item, amount);
    };
    line("7900001", "1001", "5620", "{r1}");
    line("7900002", "1002", "4100", "{r2}");
    save += "COMMIT";
    openInTray({[&](QWidget& list) {
                    const int waiting = tableOf(list).Rows();
                    takeOwn();
                    keys(tableOf(list), "<Enter>");
                    EXPECT_EQ(takeOwn(), QStringList{"sp_Nuclear_NurseCommunication"}) << "read again";
                    EXPECT_EQ(tableOf(list).Rows(), waiting - 2);
                    EXPECT_NE(tableOf(list).TextMatrix(1, 2), admitted);
                    leave(list);
                },
                [&](QWidget& request_) {
                    auto& screen = dynamic_cast<entry::RequestScreen&>(request_);
                    EXPECT_EQ(listed(takeOwn()),
                              listed({"Select * From Build_file..tbcoRoom where roomid = '205'",
                                      "Nuclear..sp_Nuclear_commsearchexam '26004078','K'"}));
                    EXPECT_EQ(screen.objectName(), "frmRequest");
                    EXPECT_EQ(screen.entry.PatientType, "I");
                    EXPECT_FALSE(screen.entry.CashBasis);
                    EXPECT_EQ(screen.entry.RequestingNurse, "2101");
                    EXPECT_EQ(screen.entry.NursingRemarks, "ON NPO");
                    EXPECT_EQ(screen.entry.Classification, "K");
                    expectSaved(slipText(slip));
                    tests::keysToFocus(screen, "<Alt+S>");
                    EXPECT_EQ(listed(takeTexts()), listed(atServerTime(expected(save, slip, request), slip)));
                }});
    for (const char* number : {"7900001", "7900002"})
        for (const char* table : {"tbNurseCommunicationFile", "tbNurseLogBook"})
            EXPECT_EQ(status(table, number), "X " + slipText(slip)) << table << number;
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", "RefNum = '" + slipText(slip) + "'"), 2);
    EXPECT_EQ(count("BILLING..tbDailyBill", "RefNum = '" + slipText(slip) + "'"), 2);
}

TEST_F(Incoming, TwoLinesOfAWardAreTakenForAnOutPatient) {
    fileAtWard("O", out, "7900003", "1001", "5100");
    fileAtWard("O", out, "7900004", "1002", "4100");
    const QString stay = " FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '" + out + "'";
    const QString hospNum = value("SELECT HospNum" + stay), doctor = value("SELECT DoctorID1" + stay);
    const int slip = nextSlip(), request = nextRequest();
    QStringList save{"BEGIN", "select getdate() as [server date]", "SELECT chargeslip FROM tbNucSlip",
                     "sp_Nuclear_IncRefNum"};
    const auto line = [&](const char* number, const char* item, const char* amount, const char* r) {
        save += {"SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum"};
        save += QStringLiteral("sp_Nuclear_AddRequest '%1','%2','%3', '%4','%5','%6','I', '{slip}','1001',"
                               "'%7','','1', '','NU'")
                    .arg(hospNum, out, r, item, amount, doctor, number);
        save += stamps("O", out, item, number);
        save += QStringLiteral("sp_addbill 'O','%1','11/21/2026 08:30:00 AM','{slip}', '%2','%3','NU','1001',"
                               "'1','','', '%4'")
                    .arg(out, item, amount, hospNum);
    };
    line("7900003", "1001", "5100", "{r1}");
    line("7900004", "1002", "4100", "{r2}");
    save += "COMMIT";
    openInTray({[&](QWidget& list) {
                    takeOwn();
                    keys(tableOf(list), "<Enter>");
                    EXPECT_EQ(takeOwn(), QStringList{"sp_Nuclear_NurseCommunication"});
                    leave(list);
                },
                [&](QWidget& request_) {
                    auto& screen = dynamic_cast<entry::RequestScreen&>(request_);
                    EXPECT_EQ(listed(takeOwn()), listed({"spNuclearsearchoutpatient '" + out + "'",
                                                         "sp_Nuclear_searchoutpatient '" + out + "'",
                                                         "spNuclearcommsearchexam '" + out + "'"}));
                    EXPECT_EQ(screen.objectName(), "frmOutRequest");
                    EXPECT_FALSE(screen.entry.CashBasis);
                    EXPECT_TRUE(screen.entry.NurseCommnunication);
                    EXPECT_EQ(screen.entry.RequestingNurse, "2101");
                    EXPECT_EQ(screen.entry.NursingRemarks, "ON NPO");
                    boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
                    tests::keysToFocus(screen, "<Alt+S>");
                    EXPECT_EQ(listed(takeTexts()), listed(atServerTime(expected(save, slip, request), slip)));
                }});
    for (const char* number : {"7900003", "7900004"})
        for (const char* table : {"tbNurseCommunicationFile", "tbNurseLogBook"})
            EXPECT_EQ(status(table, number), "X " + slipText(slip)) << table << number;
}

TEST_F(Incoming, ARequestIsRevokedInTheTray) {
    fileAtWard("I", admitted, "7900001", "1001", "5620");
    boxes.expect({"Requested procedure successfully revoked.", controls::vbInformation, "Message"});
    openInTray({[&](QWidget& list) {
        const int waiting = tableOf(list).Rows();
        takeTexts();
        keys(tableOf(list), "<Alt+R>");
        EXPECT_EQ(listed(takeTexts()), listed({"sp_Nuclear_CancelNurseRequest '26004078','7900001'",
                                               "sp_Nuclear_NurseCommunication"}));
        EXPECT_EQ(tableOf(list).Rows(), waiting - 1);
        EXPECT_TRUE(tableOf(list).hasFocus());
        leave(list);
    }});
    EXPECT_EQ(status("tbNurseCommunicationFile", "7900001"), "R ");
    EXPECT_EQ(status("tbNurseLogBook", "7900001"), "R ");
}

TEST_F(Incoming, TheNumbersOfARevokedRequestAreSentWithoutTheirBlanks) {
    fileAtWard("I", admitted, "7900001", "1001", "5620");
    boxes.expect({"Requested procedure successfully revoked.", controls::vbInformation, "Message"});
    openInTray({[&](QWidget& list) {
        tableOf(list).setTextMatrix(1, 2, " 26004078 ");
        tableOf(list).setTextMatrix(1, 10, " 7900001 ");
        takeTexts();
        keys(tableOf(list), "<Alt+R>");
        EXPECT_EQ(takeTexts().value(0), "sp_Nuclear_CancelNurseRequest '26004078','7900001'");
        leave(list);
    }});
}

TEST_F(Incoming, TheSearchOfReceiptsIsInCapitalsAndTakesNoQuote) {
    openReceipts({[](QWidget& list) {
        keys(child<QLineEdit>(list, "txtSearch"), "<Ctrl+A>o'b");
        EXPECT_EQ(textOf(list, "txtSearch"), "O`B");
        leave(list);
    }});
}

TEST_F(Incoming, AnEmptyTrayHasItsHeaderAndNothingToDo) {
    hospital.run("UPDATE STATION..tbNurseCommunicationFile SET RecordStatus = 'X'");
    openInTray({[&](QWidget& list) {
        FlexGrid& grid = tableOf(list);
        EXPECT_EQ(grid.Rows(), 2) << "one empty row";
        EXPECT_EQ(grid.TextMatrix(0, 2).trimmed(), "Adm.No.");
        EXPECT_EQ(grid.TextMatrix(1, 2), "");
        EXPECT_TRUE(grid.showsEmptyText());
        EXPECT_FALSE(child<QPushButton>(list, "btnProcess").isEnabled());
        EXPECT_FALSE(child<QPushButton>(list, "btnCancel").isEnabled());
        takeTexts();
        keys(grid, "<Enter>");
        EXPECT_EQ(takeTexts(), QStringList()) << "nothing is opened, nothing revoked";
        keys(grid, "<F5>");
        EXPECT_EQ(takeTexts(), QStringList{"sp_Nuclear_NurseCommunication"});
        leave(list);
    }});
}

TEST_F(Incoming, ARowOfNoKnownTypeOrStayOpensNothing) {
    fileAtWard("I", admitted, "7900001", "1001", "5620");
    hospital.run(
        "UPDATE STATION..tbNurseCommunicationFile SET PatientType = 'W' WHERE RequestNum = '7900001'");
    openInTray({[&](QWidget& list) {
        takeTexts();
        keys(tableOf(list), "<Enter>");
        EXPECT_EQ(takeTexts(), QStringList());
        for (const char* type : {"I", "O"}) {
            hospital.run(
                QStringLiteral("UPDATE STATION..tbNurseCommunicationFile SET PatientType = '%1', IdNum "
                               "= 'NOBODY' WHERE RequestNum = '7900001'")
                    .arg(QLatin1String(type)));
            keys(tableOf(list), "<F5>");
            takeTexts();
            keys(tableOf(list), "<Enter>");
            EXPECT_EQ(takeTexts().size(), 1) << "the stay was looked for, and no more";
        }
        leave(list);
    }});
}

/// The desk beside has taken the request while this one had it open.
TEST_F(Incoming, TheSecondOfTwoDesksPostsNothing) {
    fileAtWard("I", admitted, "7900001", "1001", "5620");
    const int slip = nextSlip();
    open({.PatIdNum = admitted, .PatientType = "I", .NurseCommnunication = true, .Classification = "K"});
    hospital.run(
        "UPDATE STATION..tbNurseCommunicationFile SET RecordStatus = 'X', ReferenceNum = 'C9J' WHERE "
        "RequestNum = '7900001'");
    type("<Alt+S>");
    EXPECT_EQ(errors.take().number(), 50004);
    EXPECT_EQ(nextSlip(), slip);
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", "NurseRequestNum = '7900001'"), 0);
    EXPECT_EQ(status("tbNurseCommunicationFile", "7900001"), "X C9J");
}

// ---- receipts

TEST_F(Incoming, AReceiptOfAWalkInIsTakenFromTheListOfCashPatients) {
    const QString code = value("SELECT TOP 1 HospNum FROM PATIENT_DATA..tbCashPatient WHERE BirthDate IS NOT "
                               "NULL ORDER BY HospNum");
    const QString row = " FROM PATIENT_DATA..tbCashPatient WHERE HospNum = '" + code + "'";
    const QString last = value("SELECT LastName" + row), first = value("SELECT FirstName" + row);
    pay(code, {}, last + ", " + first + ", JR", "OR900");
    const int request = nextRequest();
    openReceipts(
        {[&](QWidget& list) {
             EXPECT_EQ(list.windowTitle(), "List of Cash Patients with ORNumber");
             EXPECT_EQ(takeOwn(), QStringList{"sp_Nuclear_CashLink ''"});
             EXPECT_EQ(tableOf(list).TextMatrix(1, 1), "OR900") << "the latest first";
             keys(child<QLineEdit>(list, "txtSearch"), "OR900<Enter>");
             EXPECT_EQ(takeOwn(), QStringList{"sp_Nuclear_CashLink 'OR900'"});
             keys(child<QLineEdit>(list, "txtSearch"), "<Down>");
             tests::keysToFocus(list, "<Enter>");
             EXPECT_EQ(takeOwn(), QStringList{"sp_Nuclear_CashLink 'OR900'"}) << "read again";
             EXPECT_EQ(tableOf(list).TextMatrix(1, 1), "") << "it was taken";
             leave(list);
         },
         [&](QWidget& picker) {
             EXPECT_EQ(takeOwn(), (QStringList{"spGlobal_CashPatient '0', '" + last + "'",
                                               "spGlobal_CashPatient '0','" + last + "'"}));
             FlexGrid& grid = tableOf(picker);
             for (int at = 1; at < grid.Rows() && grid.TextMatrix(grid.Row(), 1) != code; ++at)
                 keys(grid, at == 1 ? "<Home>" : "<Down>");
             keys(grid, "<Enter>");
         },
         [&](QWidget& screen) {
             EXPECT_EQ(screen.objectName(), "frmOutRequest");
             EXPECT_EQ(takeOwn(),
                       (QStringList{"spGlobal_CashPatient '1', '" + code + "'",
                                    "sp_Nuclear_searchoutpatient ''", "sp_Nuclear_getcashexam 'OR900'"}));
             EXPECT_EQ(textOf(screen, "txtHospNum"), code);
             EXPECT_EQ(textOf(screen, "txtLname"), last);
             EXPECT_EQ(textOf(screen, "txtFname"), first);
             EXPECT_EQ(textOf(screen, "txtSex"), value("SELECT Sex" + row));
             EXPECT_EQ(textOf(screen, "txtAge"), value("SELECT Age" + row));
             EXPECT_NE(textOf(screen, "txtAge"), "");
             EXPECT_EQ(textOf(screen, "txtRoom"), "OPD");
             EXPECT_EQ(textOf(screen, "txtOrNo"), "OR900");
             EXPECT_EQ(textOf(screen, "txtAmount"), "4,100.00");
             boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
             keys(child<FlexGrid>(screen, "grdPackage"), "NU<Enter>1002<Enter>R<Enter>1<Enter>");
             takeOwn();
             tests::keysToFocus(screen, "<Alt+S>");
             EXPECT_EQ(
                 listed(takeTexts()),
                 listed(expected(
                     {"BEGIN", "select getdate() as [server date]", "SELECT requestnum FROM tbNucSlip",
                      "sp_Nuclear_IncRequestNum",
                      "sp_Nuclear_AddRequest '" + code + "','','{r1}', '1002','" +
                          QString::number(value("SELECT RateA FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = "
                                                "'1002'")
                                              .toDouble()) +
                          "','','I', 'OR900','1001','','','1','','NU'",
                      "sp_addnurselogbook '" + code + "','', '1002','" +
                          value("SELECT NucExam FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1002'") +
                          "','" +
                          QString::number(value("SELECT RateA FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = "
                                                "'1002'")
                                              .toDouble()) +
                          "', '1001','1001', '','NU','I','{r1}','1'",
                      "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                      "sp_Nuclear_AddRequest '" + code +
                          "','','{r2}', '','0','','I', 'OR900','1001','','','0','',''",
                      "sp_addnurselogbook '" + code + "','', '','','0', '1001','1001', '','','I','{r2}','0'",
                      "COMMIT"},
                     0, request)));
         }});
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", "RefNum = 'OR900' AND ItemID = '1002'"), 1);
}

TEST_F(Incoming, AReceiptOfARegularPatientIsTakenWithoutAListWhereThereIsOne) {
    const QString code = value("SELECT TOP 1 HospNum FROM PATIENT_DATA..tbMaster WHERE BirthDate IS NOT NULL "
                               "ORDER BY HospNum");
    const QString row = " FROM PATIENT_DATA..tbMaster WHERE HospNum = '" + code + "'";
    // the search takes a hospital number in full, whatever stands before the comma
    pay(code, "T" + code + "C", code + ", NAMED BY NUMBER", "OR901");
    openReceipts({[&](QWidget& list) {
                      takeOwn();
                      child<QComboBox>(list, "cmbSearch").setCurrentIndex(1);
                      keys(tableOf(list), "<Enter>");
                      EXPECT_EQ(takeOwn(), QStringList{"sp_Nuclear_CashLink ''"});
                      EXPECT_EQ(tableOf(list).TextMatrix(1, 1), "OR901") << "it was not saved";
                      leave(list);
                  },
                  [&](QWidget& screen) {
                      EXPECT_EQ(screen.objectName(), "frmOutRequest");
                      EXPECT_EQ(takeOwn(), (QStringList{"spGlobal_RegularPatients '','1', '" + code + "'",
                                                        "sp_Nuclear_searchoutpatient ''",
                                                        "sp_Nuclear_getcashexam 'OR901'"}));
                      const auto& request = dynamic_cast<entry::RequestScreen&>(screen);
                      EXPECT_TRUE(request.entry.CashBasis);
                      EXPECT_FALSE(request.entry.NurseCommnunication);
                      EXPECT_EQ(request.entry.CashOrNum, "OR901");
                      EXPECT_EQ(request.entry.PatIdNum, "");
                      EXPECT_EQ(textOf(screen, "txtHospNum"), code);
                      EXPECT_EQ(textOf(screen, "txtLname"), value("SELECT LastName" + row));
                      EXPECT_EQ(textOf(screen, "txtMname"), value("SELECT MiddleName" + row));
                      EXPECT_EQ(tests::toTestDays(textOf(screen, "txtBDate")),
                                value("SELECT CONVERT(varchar(10), BirthDate, 101)" + row));
                      EXPECT_EQ(textOf(screen, "txtRoom"), "OPD");
                      leave(screen);
                  }});
}

TEST_F(Incoming, AReceiptOfAnAdmittedPatientBringsTheHeaderOfTheListing) {
    pay("104078", admitted, QString(admitted) + ", NAMED BY NUMBER, AND MORE", "OR902");
    const int request = nextRequest();
    const QString doctor = value("SELECT DoctorID1 FROM PATIENT_DATA..tbPatient WHERE IdNum = '26004078'");
    openReceipts(
        {[&](QWidget& list) {
             takeOwn();
             child<QComboBox>(list, "cmbSearch").setCurrentIndex(2);
             keys(tableOf(list), "<Enter>");
             EXPECT_EQ(takeOwn(), QStringList{"sp_Nuclear_CashLink ''"});
             EXPECT_NE(tableOf(list).TextMatrix(1, 1), "OR902");
             leave(list);
         },
         [&](QWidget& screen) {
             EXPECT_EQ(screen.objectName(), "frmRequest");
             EXPECT_EQ(takeOwn(), (QStringList{"Select * From Build_file..tbcoRoom where roomid = '205'",
                                               "sp_Nuclear_getcashexam 'OR902'"}));
             const auto& entry = dynamic_cast<entry::RequestScreen&>(screen).entry;
             EXPECT_EQ(entry.PatIdNum, admitted);
             EXPECT_EQ(entry.PatientType, "I");
             EXPECT_TRUE(entry.CashBasis);
             EXPECT_EQ(entry.CashOrNum, "OR902");
             EXPECT_EQ(entry.PatientClass, "B");
             EXPECT_EQ(textOf(screen, "txtLname"), "AGUILAR");
             EXPECT_EQ(textOf(screen, "txtHospNum"), "104078");
             EXPECT_EQ(textOf(screen, "txtIdNum"), admitted);
             EXPECT_EQ(textOf(screen, "txtRoom"), "205");
             for (const char* unlisted : {"txtBloodType", "txtHeight", "txtWeight"})
                 EXPECT_EQ(textOf(screen, unlisted), "") << unlisted;
             EXPECT_NE(textOf(screen, "txtDoctor"), "") << "what the listing does not tell stays";
             expectSaved({});
             tests::keysToFocus(screen, "<Alt+S>");
             EXPECT_EQ(listed(takeTexts()),
                       listed(expected({"BEGIN", "select getdate() as [server date]",
                                        "SELECT requestnum FROM tbNucSlip", "sp_Nuclear_IncRequestNum",
                                        "sp_Nuclear_AddRequest '104078','26004078','{r1}', '','0','" +
                                            doctor + "','I', 'OR902','1001','','','0','',''",
                                        "sp_addnurselogbook '104078','26004078', '','','0', '1001','1001', "
                                        "'','','I','{r1}','0'",
                                        "COMMIT"},
                                       0, request)));
         }});
}

TEST_F(Incoming, AReceiptWhosePatientIsNotChosenStays) {
    pay("104078", admitted, "ZZNOBODY", "OR903");
    openReceipts({[&](QWidget& list) {
                      child<QComboBox>(list, "cmbSearch").setCurrentIndex(2);
                      takeOwn();
                      keys(tableOf(list), "<Enter>");
                      EXPECT_EQ(takeOwn().filter("sp_Nuclear_CashLink"), QStringList());
                      leave(list);
                  },
                  leave});
}

TEST_F(Incoming, AReceiptIsNotTakenTwice) {
    pay("104078", admitted, "AGUILAR", "OR904");
    const QString add = "sp_Nuclear_AddRequest '104078','26004078','%1', '1002','4100','','I', "
                        "'OR904','1001','','','1','','NU'";
    hospital.run(add.arg(990001));
    EXPECT_THROW(hospital.run(add.arg(990002)), base::RunTimeError);
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", "RefNum = 'OR904'"), 1);
    hospital.run("UPDATE NUCLEAR..tbNucMaster SET RequestStatus = 'R' WHERE RefNum = 'OR904'");
    hospital.run(add.arg(990002));
    EXPECT_EQ(count("NUCLEAR..tbNucMaster", "RefNum = 'OR904'"), 2) << "the first one was cancelled";
}

TEST_F(Incoming, WhatWasProcessedIsNotRevokedInAnotherTray) {
    fileAtWard("I", admitted, "7900001", "1001", "5620");
    const QString cancel = "sp_Nuclear_CancelNurseRequest '26004078','7900001'";
    hospital.run(
        "UPDATE STATION..tbNurseCommunicationFile SET RecordStatus = 'X' WHERE RequestNum = '7900001'");
    EXPECT_THROW(hospital.run(cancel), base::RunTimeError);
    EXPECT_EQ(status("tbNurseLogBook", "7900001"), "N ");
}

} // namespace
