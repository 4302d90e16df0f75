#include "app/ErrorBox.h"
#include "platform/base/TestDoors.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/Screen.h"
#include "platform/controls/screen/TestDoors.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryMPI.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace {

const base::RunTimeError plainError(3021,
                                    "Either BOF or EOF is True, or the current record has been deleted.");
const base::RunTimeError serverError(208, "Invalid object name 'tbNothing'.", "42S02",
                                     "SELECT * FROM tbNothing");

class OneField : public controls::Screen {
  public:
    OneField() {
        setWindowTitle("Request");
        auto* field = new QLineEdit(this);
        field->setObjectName("txtIdNum");
        field->setText("26-000123");
        auto* secret = new QLineEdit(this);
        secret->setObjectName("txtPassword");
        secret->setEchoMode(QLineEdit::Password);
        secret->setText("open sesame");
    }
};

/// A labelled field, one that is only looked at, and a password.
class TwoFields : public controls::Screen {
  public:
    TwoFields() {
        setWindowTitle("Two");
        auto* first = new QLineEdit("ANA", this);
        first->setObjectName("txtFirst");
        auto* label = new QLabel("&First name ", this);
        label->setBuddy(first);
        auto* shown = new QLineEdit("104078", this);
        shown->setObjectName("txtHospNum");
        shown->setReadOnly(true);
        auto* secret = new QLineEdit("open sesame", this);
        secret->setObjectName("txtPassword");
        secret->setEchoMode(QLineEdit::Password);
    }
};

class ErrorBoxTest : public testing::Test {
  protected:
    base::FixedClock clock = tests::fixedClock();
    template <typename T>
    T* child(app::ErrorBox& box, const char* name) {
        T* found = box.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void press(app::ErrorBox& box, const char* name) {
        QTest::mouseClick(child<QPushButton>(box, name), Qt::LeftButton);
    }
};

TEST_F(ErrorBoxTest, SaysNumberAndSentence) {
    EXPECT_EQ(app::ErrorBox::textOf(plainError),
              "Run-time error '3021':\n\nEither BOF or EOF is True, or the current record has been deleted.");
    app::ErrorBox box(plainError);
    EXPECT_EQ(child<QLabel>(box, "lblError")->text(), "Run-time error '3021':");
    EXPECT_EQ(child<QLabel>(box, "lblDescription")->text(), plainError.description());
}

TEST_F(ErrorBoxTest, KeepsTheStatementInTheDetails) {
    app::ErrorBox box(serverError);
    box.show();
    auto* details = child<QPlainTextEdit>(box, "txtDetails");
    EXPECT_FALSE(details->isVisible());
    press(box, "cmdDetails");
    EXPECT_TRUE(details->isVisible());
    EXPECT_EQ(details->toPlainText(), "SQLSTATE 42S02\nSELECT * FROM tbNothing");
    press(box, "cmdDetails");
    EXPECT_FALSE(details->isVisible());
}

TEST_F(ErrorBoxTest, AnEnterThatIsHeldDownDoesNotEndTheProgram) {
    app::ErrorBox box(plainError);
    box.show();
    auto* end = child<QPushButton>(box, "cmdEnd");
    EXPECT_EQ(box.focusWidget(), end);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(end, &held);
    EXPECT_TRUE(box.isVisible());
    QTest::keyClick(end, Qt::Key_Return);
    EXPECT_FALSE(box.isVisible());
}

TEST_F(ErrorBoxTest, TheFirstEnterTakesWhatWasTypedAlong) {
    TwoFields screen;
    screen.Show();
    app::ErrorBox box(plainError);
    box.show();
    auto* copy = child<QPushButton>(box, "cmdCopyTyped");
    ASSERT_EQ(box.focusWidget(), copy);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(copy, &held);
    EXPECT_EQ(box.focusWidget(), copy);
    QTest::keyClick(copy, Qt::Key_Return);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), box.typed());
    EXPECT_TRUE(box.isVisible());
    QTest::keyClick(box.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(box.isVisible());
    screen.Unload();
}

TEST_F(ErrorBoxTest, HasNoDetailsWithoutAStatement) {
    app::ErrorBox box(plainError);
    box.show();
    EXPECT_FALSE(child<QPushButton>(box, "cmdDetails")->isVisible());
}

TEST_F(ErrorBoxTest, CopiesTheErrorAndWhatTheScreensHold) {
    OneField screen;
    screen.Show();
    app::ErrorBox box(serverError);
    box.show();
    press(box, "cmdCopy");
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith("Run-time error '208':\n\nInvalid object name 'tbNothing'.\n\n"
                                  "SQLSTATE 42S02\nSELECT * FROM tbNothing\n\n[Request]\n"))
        << copied.toStdString();
    EXPECT_TRUE(copied.contains("txtIdNum: 26-000123")) << copied.toStdString();
    EXPECT_FALSE(copied.contains("open sesame"));
    EXPECT_TRUE(box.isVisible());
    screen.Unload();
}

TEST_F(ErrorBoxTest, HasNothingToTakeAlongWithoutAScreen) {
    app::ErrorBox box(plainError);
    box.show();
    EXPECT_FALSE(child<QPushButton>(box, "cmdCopyTyped")->isVisible());
    EXPECT_EQ(box.typed(), "");
}

TEST_F(ErrorBoxTest, CopiesWhatWasTypedUnderItsCaptions) {
    TwoFields outer;
    outer.Show();
    results::frmResultEntry screen;
    screen.load();
    screen.setText("txtPName", "AGUILAR, ROSARIO CRUZ");
    screen.setText("lblProcedure", "1001 BONE SCAN, WHOLE BODY");
    screen.setText("txtHospNum", "104078");
    screen.Show();
    tests::keys(*screen.findChild<QLineEdit*>("txtHeight"), "5'2");
    tests::keys(*screen.findChild<QLineEdit*>("txtDose"), "25");
    tests::keys(*screen.findChild<QPlainTextEdit*>("txtConsultation"), "Uptake<Enter>is normal");
    screen.setText("txtRemarks", "on a page that is not shown");
    app::ErrorBox box(serverError);
    box.show();
    press(box, "cmdCopyTyped");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "[Two]\nFirst name: ANA\n\n"
              "[Result Entry] AGUILAR, ROSARIO CRUZ   ·   1001 BONE SCAN, WHOLE BODY\n"
              "Height: 5'2\nNM No.: 26-\nResult Date: 11/21/2026\nDose: 25 mCi\n"
              "Consultation Report:\nUptake\nis normal\nInterpretation: on a page that is not shown\n");
    EXPECT_TRUE(box.isVisible());
    screen.Unload();
    outer.Unload();
}

TEST_F(ErrorBoxTest, TakesTheFunctionalParametersAlongAndLeavesTheRestOfTheGrid) {
    results::frmResultEntryMPI screen;
    screen.load();
    screen.setParameter(1, "60|65");
    screen.Show();
    const app::ErrorBox box(plainError);
    EXPECT_TRUE(box.typed().contains("Functional Parameters:   Ejection Fraction | 60 | 65\n"))
        << box.typed().toStdString();
    screen.Unload();
}

TEST_F(ErrorBoxTest, NamesTheFieldWhoseQuoteTheServerRefused) {
    TwoFields outer;
    outer.Show();
    results::frmResultEntry screen;
    screen.load();
    screen.Show();
    tests::keys(*screen.findChild<QLineEdit*>("txtHeight"), "5'2");
    const auto sentence = [&](const base::RunTimeError& error) {
        app::ErrorBox box(error);
        box.show();
        const auto* label = child<QLabel>(box, "lblQuote");
        EXPECT_EQ(label->isVisible(), !label->text().isEmpty());
        return label->text();
    };
    const base::RunTimeError syntax(102, "Incorrect syntax near '2'.", "42000", "sp_AddResult '5'2','25'");
    EXPECT_EQ(sentence(syntax), "A quote (') stands in \"Height\": the server refuses a text with one.");
    const base::RunTimeError unclosed(105, "Unclosed quotation mark.");
    EXPECT_EQ(sentence(unclosed), sentence(syntax)) << "whatever the statement was";
    EXPECT_EQ(sentence(serverError), "") << "which has nothing to do with it";
    outer.findChild<QLineEdit*>("txtFirst")->setText("D'ANA");
    EXPECT_EQ(sentence(syntax), "A quote (') stands in \"Height\": the server refuses a text with one.")
        << "the other one was not sent";
    EXPECT_TRUE(sentence(unclosed).contains("\"First name\", \"Height\":"))
        << sentence(unclosed).toStdString();
    tests::keys(*screen.findChild<QLineEdit*>("txtHeight"), "<Ctrl+A>5");
    outer.findChild<QLineEdit*>("txtFirst")->setText("ANA");
    EXPECT_EQ(sentence(syntax), "");
    screen.Unload();
    outer.Unload();
}

TEST_F(ErrorBoxTest, NamesTheCellOfAnEntryGrid) {
    results::frmResultEntryMPI screen;
    screen.load();
    screen.setParameter(1, "6'0|65");
    screen.Show();
    app::ErrorBox box(base::RunTimeError(102, "Incorrect syntax near '0'."));
    EXPECT_TRUE(child<QLabel>(box, "lblQuote")->text().contains(" in line 1\":"))
        << child<QLabel>(box, "lblQuote")->text().toStdString();
    screen.Unload();
}

class InstalledBoundary : public tests::LoggedOn {
  protected:
    InstalledBoundary() { app::installBoundary(); }
    ~InstalledBoundary() override { controls::goOn(); }

    static void end(QWidget& window) {
        EXPECT_EQ(window.objectName(), "ErrorBox");
        tests::keysToFocus(window, "<Alt+E>");
    }
};

TEST_F(InstalledBoundary, ShowsTheBoxAndStopsTheProgram) {
    tests::runModal([] { controls::ErrorBoundary::report(serverError); }, {end});
    EXPECT_TRUE(controls::ErrorBoundary::isStopping());
    EXPECT_EQ(session::gUser->sqlconnection().State(), ado::Connection::adStateClosed);
}

TEST_F(InstalledBoundary, NoCodeBehindAModalCallRunsOn) {
    bool wentOn = false;
    const auto open = [&] {
        controls::ErrorBoundary::guard([&] {
            OneField screen;
            screen.ShowModal();
            wentOn = true;
        });
    };
    tests::runModal(
        open, {[](QWidget&) { controls::ErrorBoundary::guard([] { throw base::RunTimeError(91); }); }, end});
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(controls::ErrorBoundary::isStopping());
}

TEST_F(InstalledBoundary, AnOpenTransactionIsGoneBeforeTheBoxIsAnswered) {
    const auto locationOf = [](ado::Connection& connection) {
        ado::Recordset rows =
            connection.Execute(ado::sql("SELECT OPDPassword FROM PATIENT_DATA..tbHospitalInfo"));
        return rows.Fields("OPDPassword").text();
    };
    const QString before = locationOf(session::gUser->sqlconnection());
    const auto fail = [] {
        controls::ErrorBoundary::guard([] {
            session::gUser->sqlconnection().BeginTrans();
            session::Run(ado::sql("UPDATE PATIENT_DATA..tbHospitalInfo SET OPDPassword = 'lost'"));
            session::Run(ado::sql("SELECT * FROM NUCLEAR..tbNothing"));
            ADD_FAILURE() << "the statement did not fail";
        });
    };
    tests::runModal(fail, {[&](QWidget& window) {
                        session::clsCurrentUser neighbour;
                        EXPECT_EQ(neighbour.logOnTo(server(), "1002", "scintra"), session::LogOnResult::Good);
                        EXPECT_EQ(locationOf(neighbour.sqlconnection()), before);
                        neighbour.sqlconnection().BeginTrans(); // nobody holds the file
                        neighbour.sqlconnection().RollbackTrans();
                        const QString details =
                            tests::child<QPlainTextEdit>(window, "txtDetails").toPlainText();
                        EXPECT_TRUE(details.endsWith("SELECT * FROM NUCLEAR..tbNothing"));
                        end(window);
                    }});
}

} // namespace
