#include "platform/controls/fields/EnterKey.h"

#include "platform/base/Error.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class EnterKey : public testing::Test {
  protected:
    EnterKey() {
        auto* column = new QVBoxLayout(&window);
        for (QLineEdit* field : {&first, &second, &third})
            column->addWidget(field);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        first.setFocus();
    }
    void held(QWidget& field) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&field, &key);
    }

    QWidget window;
    QLineEdit first, second, third;
};

TEST_F(EnterKey, MovesOnAsATabWould) {
    controls::enterMovesOn({&first, &second});
    second.setText(QStringLiteral("ANA"));
    tests::keysToFocus(window, "<Enter>");
    EXPECT_TRUE(second.hasFocus());
    EXPECT_EQ(second.selectedText(), QStringLiteral("ANA")) << "selected, as by the Tab key";
    tests::keysToFocus(window, "<KeypadEnter>");
    EXPECT_TRUE(third.hasFocus());
    tests::keysToFocus(window, "<Enter>");
    EXPECT_TRUE(third.hasFocus()) << "not one of them";
}

TEST_F(EnterKey, AKeyThatIsHeldDownMovesOnce) {
    controls::enterMovesOn({&first, &second});
    tests::keysToFocus(window, "<Enter>");
    held(second);
    held(second);
    EXPECT_TRUE(second.hasFocus());
}

TEST_F(EnterKey, RunsAHandlerInPlaceOfTheField) {
    int entered = 0;
    int returned = 0;
    controls::onEnter(&first, [&] { ++entered; });
    QObject::connect(&first, &QLineEdit::returnPressed, &first, [&] { ++returned; });
    tests::keysToFocus(window, "A<Enter><Ctrl+Enter>B");
    EXPECT_EQ(entered, 1);
    EXPECT_EQ(returned, 1) << "with Ctrl it is the field's own";
    EXPECT_EQ(first.text(), QStringLiteral("AB"));
}

TEST_F(EnterKey, AnErrorInAHandlerReachesTheBoundary) {
    tests::ErrorRecorder errors;
    controls::onEnter(&first, [] { throw base::RunTimeError(base::errors::typeMismatch); });
    tests::keysToFocus(window, "<Enter>");
    EXPECT_EQ(errors.take().number(), base::errors::typeMismatch);
}

} // namespace
