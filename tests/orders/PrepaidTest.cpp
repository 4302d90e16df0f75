// Prepaid requests: the list, the form's screen, the printed form and its mark.
#include "orders/frmPrepaidRequest.h"
#include "orders/frmRequestForm.h"
#include "platform/controls/screen/TestDoors.h"
#include "platform/report/output/Print.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"
#include "tests/orders/SavingFixture.h"

#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

using controls::FlexGrid;
using controls::SharedScreen;
using tests::child;
using tests::keys;
using tests::listed;
using tests::Step;

const Step leave = [](QWidget& window) { dynamic_cast<controls::Screen&>(window).Unload(); };

const QString allDone = QStringLiteral("All requests have been processed.");
const QString searched = QStringLiteral("NUCLEAR..sp_Nuclear_PrepaidSearchRequest 'NU'");

class Prepaid : public tests::RequestFixture {
  public:
    Prepaid() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~Prepaid() override {
        session::setProgramFolder({});
        controls::release<orders::frmPrepaidRequest>();
        controls::release<orders::frmRequestForm>();
    }
    void openList(std::vector<Step> steps) {
        auto& list = SharedScreen<orders::frmPrepaidRequest>::fresh();
        tests::runModal([&] { list.ShowModal(); }, std::move(steps));
    }
    static FlexGrid& listOf(QWidget& window) { return child<FlexGrid>(window, "grdPendingList"); }
    /// The first request of the list.
    QString of(const char* column) const {
        return value(
            QStringLiteral("SELECT TOP 1 %1 FROM NUCLEAR..tbNucPrepaid WHERE PrintStatus = '' ORDER BY "
                           "TransDate")
                .arg(QLatin1String(column)));
    }
    const QString number = of("RefNum"), id = of("IdNum");
    const QString info = "NUCLEAR..sp_Nuclear_GetPrepaidPatientInfo '" + number + "'";
    const QString lines = "NUCLEAR..sp_Nuclear_RequestFormInfo '" + number + "', '" + id + "'";
};

TEST_F(Prepaid, APickedRequestFillsItsForm) {
    const QString master = " FROM PATIENT_DATA..tbMaster WHERE HospNum = '" + of("HospNum") + "'";
    const QString doctor = of("DoctorID");
    openList(
        {[&](QWidget& list) {
             EXPECT_EQ(list.windowTitle(), "Requests From Prepaid");
             EXPECT_EQ(listed(takeTexts()), listed({searched}));
             EXPECT_EQ(listOf(list).Rows(), 4);
             EXPECT_EQ(listOf(list).TextMatrix(1, 7), number);
             EXPECT_TRUE(listOf(list).hasFocus());
             keys(listOf(list), "<Enter>");
             EXPECT_EQ(listed(takeTexts()), listed({searched})) << "active again, it reads again";
             EXPECT_EQ(listOf(list).Rows(), 4);
             leave(list);
         },
         [&](QWidget& form) {
             EXPECT_EQ(form.windowTitle(), "Print Request Form for Prepaid Requests");
             EXPECT_EQ(listed(takeTexts()), listed({info, lines}));
             const auto text = [&](const char* name) { return child<QLineEdit>(form, name).text(); };
             EXPECT_EQ(text("txtCSNum"), number);
             EXPECT_EQ(text("txtIdNum"), id);
             EXPECT_EQ(text("txtHospNum"), of("HospNum"));
             EXPECT_EQ(text("txtPName"),
                       value("SELECT LastName + ', ' + FirstName + ' ' + MiddleName" + master));
             EXPECT_EQ(text("txtSex"), value("SELECT Sex" + master));
             EXPECT_EQ(text("txtRoom"), "OPD");
             EXPECT_EQ(text("txtRoomClassID"), "A");
             EXPECT_EQ(text("txtHouseStreet"), value("SELECT HouseStreet" + master));
             EXPECT_EQ(text("txtBarangay"), value("SELECT Barangay" + master));
             EXPECT_EQ(text("txtZipCode"), value("SELECT ZipCode" + master));
             EXPECT_EQ(text("txtProvince"),
                       value("SELECT Province FROM BUILD_FILE..tbCoAddress WHERE ZipCode = '" +
                             text("txtZipCode") + "'"));
             EXPECT_NE(text("txtProvince"), "");
             EXPECT_EQ(text("txtDoctor"), value("SELECT LastName + ', ' + FirstName + ' ' + MiddleName FROM "
                                                "BUILD_FILE..tbcoDoctor WHERE DoctorID = '" +
                                                doctor + "'"));
             EXPECT_EQ(text("txtAge"),
                       value("SELECT Age FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '" + id + "'"));
             EXPECT_EQ(child<FlexGrid>(form, "grdRequests").TextMatrix(1, 8), number);
             EXPECT_EQ(text("txtTown"), "");
             tests::click(child<QPushButton>(form, "cmdTown"));
             EXPECT_EQ(text("txtTown"), value("SELECT Town FROM BUILD_FILE..tbCoAddress WHERE ZipCode = '" +
                                              text("txtZipCode") + "'"));
             takeTexts();
             leave(form);
         }});
}

TEST_F(Prepaid, ThePrintIsMarkedBehindIt) {
    takeTexts();
    // a desk without a printer gets the form in the viewer
    openList({[&](QWidget& list) {
                  keys(listOf(list), "<Enter>");
                  EXPECT_EQ(listOf(list).Rows(), 3) << "the form was printed";
                  leave(list);
              },
              [&](QWidget& form) {
                  takeTexts();
                  tests::keysToFocus(form, "<Alt+P>");
                  QStringList sent = takeTexts();
                  EXPECT_EQ(sent.value(sent.size() - 1),
                            "NUCLEAR..sp_Nuclear_PrepaidUpdatePrintStatus '" + number + "'");
                  EXPECT_EQ(sent.filter("PrepaidUpdatePrintStatus").size(), 1);
                  leave(form);
              },
              [&](QWidget& viewer) {
                  EXPECT_EQ(viewer.windowTitle(), "Charge Slip Printing");
                  EXPECT_EQ(takeTexts().filter("PrepaidUpdatePrintStatus"), QStringList());
                  leave(viewer);
              }});
    EXPECT_EQ(value("SELECT PrintStatus FROM NUCLEAR..tbNucPrepaid WHERE RefNum = '" + number + "'"), "P");
}

TEST_F(Prepaid, TheFormGoesToThePrinterAtOnce) {
    const QTemporaryDir folder;
    const QString target = folder.filePath("form.pdf");
    report::setPrintTarget(target);
    openList({[&](QWidget& list) {
                  keys(listOf(list), "<Enter>");
                  leave(list);
              },
              [&](QWidget& form) {
                  tests::keysToFocus(form, "<Alt+P>");
                  EXPECT_TRUE(QFile::exists(target)) << "and no viewer opened";
                  leave(form);
              }});
    report::setPrintTarget(QString());
}

TEST_F(Prepaid, TheBlanksOfAWideColumnAreNoPartOfTheNumber) {
    openList({[&](QWidget& list) {
        listOf(list).setTextMatrix(1, 7, ' ' + number + ' ');
        hospital.run("DELETE FROM NUCLEAR..tbNucPrepaid WHERE RefNum = '" + number + "'");
        takeTexts();
        boxes.expect({"Request Form not found!", controls::vbInformation, "No Request Form"});
        keys(listOf(list), "<Enter>");
        EXPECT_EQ(takeTexts(), QStringList{info});
        leave(list);
    }});
}

TEST_F(Prepaid, TheFormIsMarkedByItsNumberWithoutBlanks) {
    openList({[&](QWidget& list) {
                  keys(listOf(list), "<Enter>");
                  leave(list);
              },
              [&](QWidget& form) {
                  child<QLineEdit>(form, "txtCSNum").setText(' ' + number + ' ');
                  takeTexts();
                  tests::keysToFocus(form, "<Alt+P>");
                  EXPECT_EQ(takeTexts().filter("PrepaidUpdatePrintStatus"),
                            QStringList{"NUCLEAR..sp_Nuclear_PrepaidUpdatePrintStatus '" + number + "'"});
                  leave(form);
              },
              leave});
}

TEST_F(Prepaid, AnEmptyListIsSaidOnceItIsActive) {
    hospital.run("UPDATE NUCLEAR..tbNucPrepaid SET PrintStatus = 'P'");
    boxes.expect({allDone, controls::vbInformation, "Prepaid Requests"});
    boxes.expect({"Request not valid for printing.", controls::vbInformation, "Message"});
    openList({[&](QWidget& list) {
        EXPECT_FALSE(child<QPushButton>(list, "cmdPending").isEnabled());
        takeTexts();
        keys(listOf(list), "<Enter>");
        QTest::mouseDClick(listOf(list).viewport(), Qt::LeftButton, {}, QPoint(60, 10));
        EXPECT_EQ(takeTexts(), QStringList()) << "a blank cell";
        leave(list);
    }});
}

TEST_F(Prepaid, ARequestThatIsGoneHasNoForm) {
    boxes.expect({"Request Form not found!", controls::vbInformation, "No Request Form"});
    openList({[&](QWidget& list) {
        hospital.run("DELETE FROM NUCLEAR..tbNucPrepaid WHERE RefNum = '" + number + "'");
        takeTexts();
        keys(listOf(list), "<Enter>");
        EXPECT_EQ(takeTexts(), QStringList{info});
        leave(list);
    }});
}

TEST_F(Prepaid, ARequestWithAResultIsNotPrinted) {
    hospital.run("INSERT INTO NUCLEAR..tbNucMaster (RequestNum, HospNum, IdNum, ItemID, RevenueID, RefNum, "
                 "TransDate, RequestStatus) VALUES ('990001','1','" +
                 id + "','" + of("ItemID") + "','NU','" + number + "',GETDATE(),'W')");
    boxes.expect({"Sorry, but you cannot print requests with result.", controls::vbInformation,
                  "Request with Result cannot be printed"});
    openList({[&](QWidget& list) {
        takeTexts();
        keys(listOf(list), "<Enter>");
        EXPECT_EQ(listed(takeTexts()), listed({info, lines}));
        EXPECT_EQ(listOf(list).Rows(), 4);
        leave(list);
    }});
}

} // namespace
