#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/Screen.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/MessageScript.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace controls {

namespace {

class Window : public Screen {
  public:
    Window() {
        setObjectName(QStringLiteral("Window"));
        field = new QLineEdit(this);
        field->setObjectName(QStringLiteral("field"));
    }
    QLineEdit* field;
    std::function<void()> whenLoaded;

  protected:
    void Form_Load() override {
        if (whenLoaded)
            whenLoaded();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_F9)
            throw base::RunTimeError(base::errors::overflow);
        Screen::keyPressEvent(event);
    }
};

[[noreturn]] void fail() {
    throw base::RunTimeError(base::errors::typeMismatch);
}

} // namespace

TEST(ErrorBoundary, AnErrorIsReportedOnceAndNothingRunsAnyMore) {
    tests::ErrorRecorder errors;
    ErrorBoundary::guard([] { fail(); });
    EXPECT_TRUE(ErrorBoundary::isStopping());
    bool ran = false;
    ErrorBoundary::guard([&] { ran = true; });
    ErrorBoundary::report(base::RunTimeError(base::errors::overflow));
    EXPECT_FALSE(ran);
    EXPECT_THROW(ErrorBoundary::throwIfStopping(), ProgramStopped);
    EXPECT_EQ(errors.take().number(), 13);
    EXPECT_TRUE(errors.isEmpty());
    EXPECT_FALSE(ErrorBoundary::isStopping());
}

TEST(ErrorBoundary, InsideGuardedCodeAnErrorUnwindsToTheCaller) {
    tests::ErrorRecorder errors;
    Window window;
    on(window.field, &QLineEdit::textChanged, &window, [] { fail(); });
    bool caught = false;
    bool ranOn = false;
    ErrorBoundary::guard([&] {
        try {
            window.field->setText(QStringLiteral("x"));
            ranOn = true;
        } catch (const base::RunTimeError& error) {
            caught = error.number() == base::errors::typeMismatch;
        }
    });
    EXPECT_TRUE(caught);
    EXPECT_FALSE(ranOn);
    EXPECT_TRUE(errors.isEmpty());
}

TEST(ErrorBoundary, AHandlerTakesLeadingArgumentsOrNone) {
    Window window;
    QString taken;
    int calls = 0;
    on(window.field, &QLineEdit::textChanged, &window, [&](const QString& text) { taken = text; });
    on(window.field, &QLineEdit::textChanged, &window, [&] { ++calls; });
    window.field->setText(QStringLiteral("abc"));
    EXPECT_EQ(taken, QStringLiteral("abc"));
    EXPECT_EQ(calls, 1);
}

TEST(ErrorBoundary, AnyOtherExceptionIsAnInternalError) {
    tests::ErrorRecorder errors;
    ErrorBoundary::guard([] { throw std::runtime_error("no such child"); });
    const base::RunTimeError error = errors.take();
    EXPECT_EQ(error.number(), 51);
    EXPECT_EQ(error.description(), QStringLiteral("Internal error: no such child"));
    ErrorBoundary::guard([] { throw 7; });
    EXPECT_EQ(errors.take().description(), QStringLiteral("Internal error"));
}

TEST(ErrorBoundary, AnErrorWhileTheErrorIsShownIsDropped) {
    tests::ErrorRecorder recorder;
    std::vector<int> shown;
    ErrorBoundary::setHandler([&](const base::RunTimeError& error) {
        shown.push_back(error.number());
        ErrorBoundary::guard([] { fail(); });
        EXPECT_FALSE(ErrorBoundary::isStopping());
    });
    ErrorBoundary::guard([] { throw base::RunTimeError(base::errors::noCurrentRecord); });
    EXPECT_EQ(shown, std::vector{3021});
    EXPECT_TRUE(ErrorBoundary::isStopping());
}

TEST(ErrorBoundary, AnErrorInAnInnerWindowEndsEveryLoopAndNoCodeBehindRunsOn) {
    tests::ErrorRecorder errors;
    Window outer;
    Window inner;
    inner.setObjectName(QStringLiteral("Inner"));
    bool ranOn = false;
    on(outer.field, &QLineEdit::returnPressed, &outer, [&] {
        inner.ShowModal();
        ranOn = true;
    });
    on(inner.field, &QLineEdit::returnPressed, &inner, [] { fail(); });
    bool stopped = false;
    tests::runModal(
        [&] {
            try {
                outer.ShowModal();
                ranOn = true;
            } catch (const ProgramStopped&) {
                stopped = true;
            }
        },
        {[&](QWidget&) { tests::keys(*outer.field, QStringLiteral("<Enter>")); },
         [&](QWidget&) { tests::keys(*inner.field, QStringLiteral("<Enter>")); }});
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(ranOn);
    EXPECT_FALSE(outer.isVisible());
    EXPECT_FALSE(inner.isVisible());
    EXPECT_TRUE(Screen::openScreens().empty());
    EXPECT_EQ(errors.take().number(), 13);
}

TEST(ErrorBoundary, AfterAResetWindowsOpenAgain) {
    {
        tests::ErrorRecorder errors;
        Window window;
        on(window.field, &QLineEdit::returnPressed, &window, [] { fail(); });
        tests::runModal([&] { EXPECT_THROW(window.ShowModal(), ProgramStopped); },
                        {[&](QWidget&) { tests::keys(*window.field, QStringLiteral("<Enter>")); }});
        errors.take();
    }
    Window again;
    bool wasOpen = false;
    tests::runModal([&] { again.ShowModal(); }, {[&](QWidget&) {
                        wasOpen = true;
                        again.Unload();
                    }});
    EXPECT_TRUE(wasOpen);
}

TEST(ErrorBoundary, AnErrorInAnEventHandlerOfAWindowIsTakenToo) {
    tests::ErrorRecorder errors;
    Window window;
    tests::runModal([&] { EXPECT_THROW(window.ShowModal(), ProgramStopped); },
                    {[&](QWidget&) { tests::keys(*window.field, QStringLiteral("<F9>")); }});
    EXPECT_EQ(errors.take().number(), 6);
}

TEST(ErrorBoundary, AHandlerInsideAModalLoopIsGuardedOnItsOwn) {
    tests::ErrorRecorder errors;
    EXPECT_FALSE(ErrorBoundary::isGuarded());
    ErrorBoundary::guard([] {
        EXPECT_TRUE(ErrorBoundary::isGuarded());
        {
            const ModalLevel level;
            EXPECT_FALSE(ErrorBoundary::isGuarded());
            EXPECT_NO_THROW(ErrorBoundary::guard([] { fail(); }));
        }
        EXPECT_TRUE(ErrorBoundary::isGuarded());
    });
    EXPECT_EQ(errors.take().number(), 13);
}

} // namespace controls
