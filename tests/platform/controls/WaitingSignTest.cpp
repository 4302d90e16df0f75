#include "platform/controls/screen/WaitingSign.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <thread>

TEST(WaitingSign, IsSeenWhileTheProgramStandsAndGoesWhenItGoesOn) {
    QWidget window;
    window.resize(600, 400);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    std::thread(controls::showWaiting, 1).join();
    EXPECT_EQ(window.findChild<QLabel*>(), nullptr) << "a report's rows are read on a thread of their own";

    controls::showWaiting(1);
    const auto* sign = window.findChild<QLabel*>(QStringLiteral("lblWaiting"));
    ASSERT_NE(sign, nullptr);
    EXPECT_EQ(sign->text(), QStringLiteral("Another desk is saving. Waiting for 1 s …"));
    const QImage before = window.grab().toImage();
    controls::showWaiting(12);
    EXPECT_EQ(window.findChildren<QLabel*>().size(), 1);
    EXPECT_NE(window.grab().toImage(), before);
    EXPECT_TRUE(window.rect().contains(sign->geometry()));
    QTRY_COMPARE_WITH_TIMEOUT(window.findChildren<QLabel*>().size(), 0, 5000);
}
