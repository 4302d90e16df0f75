// The list of billed patients, and the entry of late charges that it opens.
#include "charges/frmReceivableEntry.h"
#include "charges/frmReceivableSearch.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

using charges::frmReceivableEntry;
using charges::frmReceivableSearch;
using controls::FlexGrid;
using tests::child;

const QString closedText =
    QStringLiteral("Patient`s account has already been closed.\nIf you have charges to make, pls. notify the "
                   "Credit/Collections for further instructions.");

class Receivable : public tests::LoggedOn {
  public:
    /// Billed stays of either kind.
    const QString in = value("SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NOT NULL "
                             "AND LateCharges = 1 AND Age > '1'");
    const QString closedIn =
        value("SELECT MIN(IdNum) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NOT NULL AND "
              "LateCharges = 0");
    const QString closedOut =
        value("SELECT MIN(IdNum) FROM PATIENT_DATA..tbOutPatient WHERE BillingDate IS NOT NULL AND "
              "LateCharges = 0");

    ~Receivable() override { controls::release<frmReceivableEntry>(); }

    QString stay(const QString& column, const QString& id) const {
        return value("SELECT " + column +
                     " FROM PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = "
                     "P.HospNum LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum WHERE "
                     "IdNum = '" +
                     id + "'");
    }
    void show() {
        search.Show();
        search.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&search));
        takeTexts();
    }
    /// Types the text into the search box and searches.
    QStringList find(const QString& text) {
        takeTexts();
        tests::keys(box(), "<Ctrl+A>" + text + "<Enter>");
        return takeTexts();
    }
    /// Takes the only row; `steps` run on the entry screen.
    void take(std::vector<tests::Step> steps) {
        tests::runModal([&] { tests::click(select()); }, std::move(steps));
    }

    QLineEdit& box() { return child<QLineEdit>(search, "txtSearch"); }
    FlexGrid& table() { return child<FlexGrid>(search, "grdTable"); }
    QPushButton& select() { return child<QPushButton>(search, "cmdSelect"); }

    frmReceivableSearch search;
    tests::MessageScript boxes;
    tests::ErrorRecorder errors;
};

void leave(QWidget& entry) {
    tests::click(child<QPushButton>(entry, "cmdClose"));
}

QString shown(QWidget& entry, const char* name) {
    return child<QLineEdit>(entry, name).text();
}

TEST_F(Receivable, WithoutACaptionTheSearchBeginsAtTheLeft) {
    show();
    EXPECT_EQ(child<QLabel>(search, "lblLabel").text(), "    ");
    EXPECT_FALSE(child<QLabel>(search, "lblLabel").isVisible());
    const auto labels = search.findChildren<QLabel*>();
    const auto first = std::ranges::find_if(labels, [](const QLabel* label) { return label->buddy(); });
    ASSERT_NE(first, labels.end()); // the search box's own, with its letter
    EXPECT_EQ((*first)->mapTo(&search, QPoint()).x(),
              child<QWidget>(search, "fraPatients").mapTo(&search, QPoint()).x());
}

TEST_F(Receivable, TheListOpensAsItsCallerSaid) {
    search.ListCaption = "Billed Patients";
    search.PatientRecord = "SAN";
    show();
    EXPECT_EQ(child<QLabel>(search, "lblLabel").text(), "    Billed Patients");
    EXPECT_TRUE(child<QLabel>(search, "lblLabel").isVisible());
    EXPECT_FALSE(child<QCheckBox>(search, "chkCurrent").isVisible());
    auto& choice = child<QComboBox>(search, "cmbSearch");
    ASSERT_EQ(choice.count(), 2);
    EXPECT_EQ(choice.itemText(0), "Last Name");
    EXPECT_EQ(choice.itemText(1), "Admission #");
    EXPECT_EQ(choice.currentIndex(), 0);
    EXPECT_EQ(box().text(), "SAN");
    EXPECT_TRUE(box().hasFocus());
    EXPECT_EQ(select().text(), "&Select");
    EXPECT_EQ(child<QPushButton>(search, "cmdClose").text(), "&Close");
    EXPECT_EQ(child<QGroupBox>(search, "fraPatients").title(), "Patient List");
    EXPECT_FALSE(select().isEnabled());
    EXPECT_EQ(table().Cols(), 20);
    const int widths[] = {200, 900, 1000, 1800, 1800, 1500, 800, 2000, 2000, 0};
    QStringList heads;
    for (int column = 0; column < 10; ++column) {
        EXPECT_EQ(table().ColWidth(column), widths[column]) << column;
        heads += table().TextMatrix(0, column);
    }
    EXPECT_EQ(heads.join(u'|'),
              "|Hosp. #|Adm. #|Last Name|First Name|Middle Name|Room #|Adm. Date|Dcr. Date|");
}

TEST_F(Receivable, ACurrentCaptionShowsTheBoxThatChangesNothing) {
    search.CurrentCaption = "Only those in the house";
    show();
    auto& current = child<QCheckBox>(search, "chkCurrent");
    EXPECT_TRUE(current.isVisible());
    EXPECT_EQ(current.text(), "Only those in the house");
    const QStringList plain = find("sa");
    EXPECT_EQ(plain, QStringList{"RADIOLOGY..spGlobal_BilledPatients 'SA'"}) << "upper-cased as it is typed";
    current.setChecked(true);
    child<QComboBox>(search, "cmbSearch").setCurrentIndex(1);
    EXPECT_EQ(find("sa"), plain);
}

TEST_F(Receivable, ASearchForNobodyLeavesTheCommandAsItWas) {
    show();
    find("QQQ");
    EXPECT_FALSE(select().isEnabled());
    EXPECT_EQ(table().Rows(), 2);
    find(in);
    EXPECT_TRUE(select().isEnabled());
    find("QQQ");
    EXPECT_TRUE(select().isEnabled()) << "it was";
    EXPECT_EQ(table().Rows(), 2);
    EXPECT_EQ(table().Cols(), 20);
    EXPECT_EQ(table().TextMatrix(0, 1), "Hosp. #");
    EXPECT_EQ(table().TextMatrix(1, 2), "") << "a blank row";
    tests::click(select()); // which is nobody
    EXPECT_TRUE(takeTexts().isEmpty());
}

TEST_F(Receivable, DownGoesToTheListAndEnterTakesItsRow) {
    show();
    find(closedIn);
    boxes.expect({closedText, controls::vbInformation, "Message"});
    tests::keysToFocus(search, "<Down>");
    EXPECT_TRUE(table().hasFocus());
    EXPECT_EQ(table().Row(), 1);
    tests::keysToFocus(search, "<Enter>");
}

TEST_F(Receivable, AnAccountThatIsNotOpenedAgainIsRefused) {
    show();
    find(closedIn);
    boxes.expect({closedText, controls::vbInformation, "Message"});
    tests::click(select());
    EXPECT_EQ(takeTexts(), QStringList{"Select Latecharges from Patient_data..tbPatient where idnum = '" +
                                       closedIn + "'"});
}

TEST_F(Receivable, AnIdThatIsNoNumberIsAskedForAmongTheOutPatients) {
    show();
    find(closedOut);
    boxes.expect({closedText, controls::vbInformation, "Message"});
    tests::click(select());
    EXPECT_EQ(takeTexts(), QStringList{"Select Latecharges from Patient_data..tboutPatient where idnum = '" +
                                       closedOut + "'"});
    hospital.run("UPDATE PATIENT_DATA..tbOutPatient SET LateCharges = 1 WHERE IdNum = '" + closedOut + "'");
    take({[&](QWidget& entry) {
        EXPECT_EQ(shown(entry, "txtIdNum"), closedOut);
        EXPECT_EQ(shown(entry, "txtRoom"), "OPD");
        leave(entry);
    }});
}

TEST_F(Receivable, AStayThatIsGoneMeanwhileCountsAsClosed) {
    show();
    find(in);
    hospital.run("DELETE FROM PATIENT_DATA..tbPatient WHERE IdNum = '" + in + "'");
    boxes.expect({closedText, controls::vbInformation, "Message"});
    tests::click(select());
}

TEST_F(Receivable, TheEntryTakesItsHeaderFromTheRowAndNothingElse) {
    show();
    find(in);
    take({[&](QWidget& entry) {
        EXPECT_EQ(entry.windowTitle(), "Receivable");
        EXPECT_EQ(shown(entry, "txtHospNum"), stay("P.HospNum", in));
        EXPECT_EQ(shown(entry, "txtIdNum"), in);
        EXPECT_EQ(shown(entry, "txtLname"), stay("M.LastName", in));
        EXPECT_EQ(shown(entry, "txtFname"), stay("M.FirstName", in));
        EXPECT_EQ(shown(entry, "txtMname"), stay("M.MiddleName", in));
        EXPECT_EQ(shown(entry, "txtRoom"), stay("P.RoomID", in));
        EXPECT_EQ(shown(entry, "txtAge"), stay("P.Age", in));
        EXPECT_EQ(tests::toTestDays(shown(entry, "txtBDate")),
                  stay("CONVERT(varchar(10), M.BirthDate, 101)", in));
        EXPECT_EQ(shown(entry, "txtCompany"), stay("C.Company", in));
        for (const char* empty : {"txtDoctorID", "txtDoctor", "txtSex", "txtAdmDate", "txtBloodType"})
            EXPECT_EQ(shown(entry, empty), "") << empty;
        auto& screen = dynamic_cast<frmReceivableEntry&>(entry);
        EXPECT_EQ(screen.entry.PatientType, "");
        EXPECT_EQ(screen.entry.PatIdNum, "");
        leave(entry);
    }});
    EXPECT_EQ(takeTexts(),
              (QStringList{"Select Latecharges from Patient_data..tbPatient where idnum = '" + in + "'",
                           "Select * From Build_file..tbcoRoom where roomid = ''"}));
    EXPECT_EQ(table().Rows(), 2) << "the list stays on its search";
    EXPECT_TRUE(search.isVisible());
    EXPECT_EQ(search.focusWidget(), &box());
}

TEST_F(Receivable, TheBlanksOfWideColumnsStayInTheList) {
    show();
    find(in);
    const std::pair<int, const char*> fields[] = {{1, "txtHospNum"}, {2, "txtIdNum"}, {3, "txtLname"},
                                                  {4, "txtFname"},   {5, "txtMname"}, {6, "txtRoom"},
                                                  {12, "txtBDate"},  {13, "txtAge"},  {18, "txtCompany"}};
    QStringList expected;
    for (const auto& [column, name] : fields) {
        expected += table().TextMatrix(1, column).trimmed();
        table().setTextMatrix(1, column, ' ' + expected.last() + ' ');
    }
    takeTexts();
    take({[&](QWidget& entry) {
        EXPECT_EQ(takeTexts().value(0),
                  "Select Latecharges from Patient_data..tbPatient where idnum = '" + in + "'");
        QStringList texts;
        for (const auto& [column, name] : fields)
            texts += shown(entry, name);
        EXPECT_EQ(texts, expected);
        leave(entry);
    }});
}

TEST_F(Receivable, AnAgeOfNoughtIsAskedFor) {
    hospital.run("UPDATE PATIENT_DATA..tbPatient SET Age = '0' WHERE IdNum = '" + in + "'");
    hospital.run("UPDATE PATIENT_DATA..tbMaster SET BirthDate = '01/05/1990' WHERE HospNum = '" +
                 stay("P.HospNum", in) + "'");
    show();
    find(in);
    const QString born = table().TextMatrix(1, 12);
    take({[&](QWidget& entry) {
        EXPECT_EQ(shown(entry, "txtAge"), hospital.value("LABORATORY..Lab_GetAge '01/05/1990'"));
        leave(entry);
    }});
    EXPECT_EQ(takeTexts().last(), "Laboratory..Lab_GetAge '" + tests::toTestDays(born) + "'");
}

TEST_F(Receivable, AnAgeThatNobodyKnowsStaysEmpty) {
    hospital.run("UPDATE PATIENT_DATA..tbPatient SET Age = '0' WHERE IdNum = '" + in + "'");
    hospital.run("UPDATE PATIENT_DATA..tbMaster SET BirthDate = NULL WHERE HospNum = '" +
                 stay("P.HospNum", in) + "'");
    show();
    find(in);
    take({[&](QWidget& entry) {
        EXPECT_EQ(shown(entry, "txtAge"), "");
        leave(entry);
    }});
    EXPECT_EQ(takeTexts().last(), "Laboratory..Lab_GetAge ''");
}

/// The entry screen over a patient who may be charged.
class ReceivableEntry : public Receivable {
  public:
    void onEntry(const tests::Step& step) {
        show();
        find(in);
        take({[&](QWidget& entry) {
            QCoreApplication::processEvents();
            takeTexts();
            step(entry);
        }});
    }
};

TEST_F(ReceivableEntry, HasItsOwnCommandsAndLegend) {
    onEntry([](QWidget& entry) {
        EXPECT_EQ(child<QLabel>(entry, "Label8").text(), "Dept. Codes :");
        EXPECT_EQ(child<QLabel>(entry, "lblCaption").text(), "MD/FN - Professional Fee / Readers Fee ");
        EXPECT_EQ(child<QLabel>(entry, "lblCaption_1").text(), "NU - Nuclear Medicine");
        for (const char* absent : {"cmdNucCharges", "Check1", "Label4"})
            EXPECT_EQ(entry.findChild<QWidget*>(absent), nullptr) << absent;
        EXPECT_EQ(child<QPushButton>(entry, "cmdCancel").text(), "Cancel Charges");
        EXPECT_EQ(child<QPushButton>(entry, "cmdListCharges").text(), "View List Of Charges");
        EXPECT_FALSE(child<QWidget>(entry, "Frame3").isVisible());
        EXPECT_FALSE(child<QPushButton>(entry, "cmdSave").isEnabled());
        leave(entry);
    });
}

TEST_F(ReceivableEntry, CancelChargesDoesNothing) {
    onEntry([this](QWidget& entry) {
        tests::click(child<QPushButton>(entry, "cmdCancel"));
        EXPECT_TRUE(takeTexts().isEmpty());
        EXPECT_TRUE(entry.isVisible());
        leave(entry);
    });
}

TEST_F(ReceivableEntry, ASaveSaysThatItSucceededAndPostsNothing) {
    const int slip = value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip").toInt();
    for (const bool afterPackage : {false, true}) {
        onEntry([&](QWidget& entry) {
            tests::keysToFocus(entry, "NU<Enter>1001<Enter>R<Enter>2<Enter>");
            EXPECT_EQ(child<FlexGrid>(entry, "grdPackage").TextMatrix(1, 2), "1001");
            session::gInventoryEntry = afterPackage;
            takeTexts();
            boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
            tests::keysToFocus(entry, "<Alt+S>");
        });
        session::gInventoryEntry = false;
        EXPECT_EQ(takeTexts(), (QStringList{"BEGIN", "COMMIT"})) << "not even the clock";
        search.hideScreen();
    }
    EXPECT_EQ(value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip").toInt(), slip);
}

TEST_F(ReceivableEntry, ASupplyWouldReachTheStockCardAndNothingElse) {
    onEntry([&](QWidget& entry) {
        dynamic_cast<frmReceivableEntry&>(entry).entry.PatientType = "I"; // as nobody sets it
        auto& lines = child<FlexGrid>(entry, "grdPackage");
        lines.setTextMatrix(1, 1, "UR");
        lines.setTextMatrix(1, 2, "40001");
        lines.setTextMatrix(1, 6, "1");
        lines.setTextMatrix(1, 7, "12");
        child<QPushButton>(entry, "cmdSave").setEnabled(true);
        boxes.expect({"Data Successfully Saved!", controls::vbOKOnly, "Message"});
        takeTexts();
        tests::click(child<QPushButton>(entry, "cmdSave"));
    });
    const QStringList sent = takeTexts();
    EXPECT_EQ(sent.filter("sp_AppendStockCard").size(), 1);
    EXPECT_TRUE(sent.filter("sp_Nuclear_AddRequest").isEmpty());
}

TEST_F(ReceivableEntry, HandsItsGridsToThePackageScreen) {
    onEntry([this](QWidget& entry) {
        tests::click(child<QPushButton>(entry, "cmdPackage"));
        ASSERT_EQ(screens.packages.size(), 1u);
        EXPECT_EQ(screens.packages[0].SourceGrid, &child<FlexGrid>(entry, "grdPackage"));
        EXPECT_EQ(screens.packages[0].PackageGrid, &child<FlexGrid>(entry, "mshflexPackageItems"));
        EXPECT_TRUE(screens.nucCharges.empty());
        leave(entry);
    });
}

TEST_F(ReceivableEntry, ShowsWhatWasChargedBefore) {
    for (const char* code : {"1001", "1005"})
        hospital.run(QStringLiteral("sp_addnurselogbook '%1','%2', '%3','EXAM','200', '1001','1001', "
                                    "'C77J','NU','I','9','2'")
                         .arg(stay("P.HospNum", in), in, QLatin1String(code)));
    onEntry([this](QWidget& entry) {
        tests::click(child<QPushButton>(entry, "cmdListCharges"));
        EXPECT_EQ(takeTexts(), QStringList{"Nuclear..spGetNuclearCharges '" + in + "'"});
        auto& list = child<FlexGrid>(entry, "grdPrevious");
        EXPECT_TRUE(list.isVisible());
        EXPECT_EQ(child<QGroupBox>(entry, "Frame3").title(), "List Of Previous Charges");
        EXPECT_TRUE(list.isEnabled());
        EXPECT_EQ(list.Row(), 1);
        EXPECT_TRUE(list.hasFocus());
        const int widths[] = {20, 800, 950, 950, 4000, 500, 1000, 2500, 2500};
        QStringList heads;
        for (int column = 0; column < 9; ++column)
            EXPECT_EQ(list.ColWidth(column), widths[column]) << column;
        for (int column = 0; column < list.Cols(); ++column)
            heads += list.TextMatrix(0, column);
        EXPECT_EQ(heads.join(u'|'), " | Department | Code | ChargeSlip #| Particular | Price | Quantity | "
                                    "Amount | Transdate | UserName ");
        const int last = list.Rows() - 1;
        ASSERT_GE(last, 2);
        QStringList cells;
        for (int column = 1; column <= 7; ++column)
            cells += list.TextMatrix(last, column);
        EXPECT_EQ(cells.join(u'|'), "NU|1005|C77J|EXAM|100|2|200");
        tests::click(*list.viewport());
        EXPECT_TRUE(takeTexts().isEmpty()) << "a click there does nothing";
        leave(entry);
    });
}

TEST_F(ReceivableEntry, WithoutChargesTheListIsOutOfUse) {
    hospital.run("DELETE FROM STATION..tbNurseLogBook WHERE IdNum = '" + in + "'");
    onEntry([](QWidget& entry) {
        tests::click(child<QPushButton>(entry, "cmdListCharges"));
        auto& list = child<FlexGrid>(entry, "grdPrevious");
        EXPECT_FALSE(list.isEnabled());
        EXPECT_EQ(list.Rows(), 1);
        EXPECT_TRUE(list.isVisible());
        leave(entry);
    });
}

} // namespace
