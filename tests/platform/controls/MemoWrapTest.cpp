#include "platform/controls/fields/MemoWrap.h"
#include "platform/controls/screen/Screen.h"
#include "tests/support/screens/Driver.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

namespace controls {

namespace {

/// Processor time that it takes to paste one word of so many signs into a memo and to show it; the least of
/// three.
std::clock_t pasting(int signs) {
    std::clock_t least = std::numeric_limits<std::clock_t>::max();
    for (int round = 0; round < 3; ++round) {
        QPlainTextEdit memo;
        wrapEndlessWords(&memo);
        memo.resize(400, 300);
        memo.show();
        QApplication::processEvents();
        QGuiApplication::clipboard()->setText(QString(signs, u'x'));
        const std::clock_t start = std::clock();
        QTest::keyClick(&memo, Qt::Key_V, Qt::ControlModifier);
        QApplication::processEvents();
        least = std::min(least, std::clock() - start);
        EXPECT_EQ(memo.toPlainText().size(), signs);
    }
    return least;
}

} // namespace

TEST(MemoWrap, AWordFourTimesAsLongTakesNoSixteenTimesAsLong) {
    const std::clock_t once = pasting(15'000);
    EXPECT_LT(double(pasting(60'000)), 8.0 * double(once));
}

TEST(MemoWrap, AMemoWrapsAtWordsAgainOnceItsEndlessWordIsGone) {
    QPlainTextEdit memo;
    wrapEndlessWords(&memo);
    const QTextOption::WrapMode usual = memo.wordWrapMode();
    ASSERT_NE(usual, QTextOption::WrapAnywhere);
    memo.setPlainText(QString(1000, u'x') + u' ' + QString(1000, u'y'));
    EXPECT_EQ(memo.wordWrapMode(), usual);
    memo.moveCursor(QTextCursor::End);
    tests::keys(memo, QStringLiteral("z"));
    EXPECT_EQ(memo.wordWrapMode(), QTextOption::WrapAnywhere);
    tests::keys(memo, QStringLiteral("<Backspace>"));
    EXPECT_EQ(memo.wordWrapMode(), usual);
    memo.setPlainText(QStringLiteral("first\n") + QString(2000, u'x'));
    EXPECT_EQ(memo.wordWrapMode(), QTextOption::WrapAnywhere) << "also where code sets the text";
    memo.setPlainText(QStringLiteral("first"));
    EXPECT_EQ(memo.wordWrapMode(), usual);
}

TEST(MemoWrap, OfEveryMemoOfAScreen) {
    Screen screen;
    auto* memo = new QPlainTextEdit(&screen);
    screen.load();
    memo->setPlainText(QString(2000, u'x'));
    EXPECT_EQ(memo->wordWrapMode(), QTextOption::WrapAnywhere);
}

} // namespace controls
