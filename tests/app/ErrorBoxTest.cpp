#include "app/ErrorBox.h"
#include "platform/controls/ErrorBoundary.h"
#include "platform/controls/Screen.h"

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

class ErrorBoxTest : public testing::Test {
  protected:
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

class InstalledBoundary : public testing::Test {
  protected:
    InstalledBoundary() { app::installBoundary(); }
    ~InstalledBoundary() override {
        controls::ErrorBoundary::setHandler({});
        controls::ErrorBoundary::reset();
    }
    /// Presses a button of the error box once it is up; says what the box was.
    void answerBox(const char* button) {
        QMetaObject::invokeMethod(
            qApp,
            [this, button] {
                QWidget* window = QApplication::activeModalWidget();
                ASSERT_NE(window, nullptr);
                shown = window->objectName();
                QTest::keyClick(window->findChild<QPushButton*>(button), Qt::Key_Space);
            },
            Qt::QueuedConnection);
    }
    QString shown;
};

TEST_F(InstalledBoundary, ShowsTheBoxAndStopsTheProgram) {
    answerBox("cmdEnd");
    controls::ErrorBoundary::report(serverError);
    EXPECT_EQ(shown, "ErrorBox");
    EXPECT_TRUE(controls::ErrorBoundary::isStopping());
}

TEST_F(InstalledBoundary, NoCodeBehindAModalCallRunsOn) {
    bool wentOn = false;
    controls::ErrorBoundary::guard([&] {
        OneField screen;
        QMetaObject::invokeMethod(
            &screen,
            [this] {
                answerBox("cmdEnd"); // its turn comes in the box's own loop
                controls::ErrorBoundary::guard([] { throw base::RunTimeError(91); });
            },
            Qt::QueuedConnection);
        screen.ShowModal();
        wentOn = true;
    });
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(controls::ErrorBoundary::isStopping());
}

} // namespace
