// What the tests themselves rest on: a modal screen that nobody drives fails its test and holds nothing up.
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/Screen.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/MessageScript.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace controls {

namespace {

class frmNobody : public Screen {
  public:
    frmNobody() {
        setObjectName(QStringLiteral("frmNobody"));
        setWindowTitle(QStringLiteral("Nobody's"));
    }
};

constexpr const char* named = "A modal screen that nobody drives: frmNobody \"Nobody's\"";

tests::Step leave() {
    return [](QWidget& window) { window.close(); };
}

TEST(UndrivenScreen, FailsTheTestByItsNameAndCloses) {
    EXPECT_NONFATAL_FAILURE(frmNobody().ShowModal(), named);
    EXPECT_TRUE(Screen::openScreens().empty());
    EXPECT_FALSE(ErrorBoundary::isStopping());
}

TEST(UndrivenScreen, CountsAsLeft) {
    static int result;
    result = QDialog::Accepted;
    EXPECT_NONFATAL_FAILURE(
        {
            QDialog dialog;
            result = dialog.exec();
        },
        "nobody drives: QDialog");
    EXPECT_EQ(result, QDialog::Rejected);
}

TEST(UndrivenScreen, ABoxOfTheRealServiceIsOneToo) {
    setMessageScript(nullptr);
    static int answer;
    answer = 0;
    EXPECT_NONFATAL_FAILURE(answer = MsgBox(QStringLiteral("Proceed?"), vbYesNo),
                            "nobody drives: messageBox");
    EXPECT_EQ(answer, vbNo);
    setMessageScript(&tests::MessageScript::refuse);
}

TEST(UndrivenScreen, BehindTheLastStepIsOneToo) {
    EXPECT_NONFATAL_FAILURE(tests::runModal(
                                [] {
                                    frmNobody().ShowModal();
                                    frmNobody().ShowModal();
                                },
                                {leave()}),
                            "Closed frmNobody \"Nobody's\"");
}

TEST(UndrivenScreen, OneThatComesLateIsStillDriven) {
    tests::runModal(
        [] {
            for (int round = 0; round < 500; ++round)
                QCoreApplication::processEvents();
            frmNobody().ShowModal();
        },
        {leave()});
}

TEST(UndrivenScreen, ATimersOneTurnIsEnough) {
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    frmNobody().ShowModal();
}

TEST(UndrivenScreen, ABoxThatTellsTheProgressIsNone) {
    QProgressDialog box;
    box.setWindowModality(Qt::ApplicationModal);
    box.setMinimumDuration(0);
    for (int step = 0; step < 50; ++step) {
        box.setValue(step);
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(box.isVisible());
}

TEST(UndrivenScreen, ATestThatKeepsOpeningThemIsStopped) {
    testing::TestPartResultArray failures;
    tests::ErrorRecorder errors;
    int opened = 0;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        ErrorBoundary::guard([&] {
            for (; opened < 100; ++opened)
                frmNobody().ShowModal();
        });
    }
    EXPECT_EQ(opened, 2) << "behind the third the code is unwound";
    EXPECT_EQ(failures.size(), 3);
    EXPECT_EQ(errors.take().description(), QString::fromLatin1(named));
}

} // namespace

} // namespace controls
