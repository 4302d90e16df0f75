#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/Screen.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/MessageScript.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace controls {

namespace {

/// The answer of a real box that the step works on.
int answerOf(int style, const tests::Step& step, const QString& title = {}) {
    setMessageScript(nullptr);
    int answer = 0;
    tests::runModal([&] { answer = MsgBox(QStringLiteral("Proceed?"), style, title); }, {step});
    setMessageScript(&tests::MessageScript::refuse);
    return answer;
}

tests::Step typing(const char* text) {
    return [text](QWidget& window) { tests::keysToFocus(window, QString::fromLatin1(text)); };
}

QStringList captions(const QWidget& window) {
    QStringList texts;
    for (const QPushButton* button : window.findChildren<QPushButton*>())
        texts << button->text();
    return texts;
}

} // namespace

TEST(MessageBox, ButtonsAndAnswersFollowTheStyle) {
    EXPECT_EQ(answerOf(vbOKOnly, typing("<Enter>")), vbOK);
    EXPECT_EQ(answerOf(vbOKCancel, typing("<Enter>")), vbOK);
    EXPECT_EQ(answerOf(vbYesNo | vbQuestion, typing("<Enter>")), vbYes);
    EXPECT_EQ(answerOf(vbYesNo | vbQuestion | vbDefaultButton2, typing("<Enter>")), vbNo);
    EXPECT_EQ(answerOf(vbOKCancel | vbDefaultButton2, typing("<Enter>")), vbCancel);
}

TEST(MessageBox, EscapeAnswersTheRefusal) {
    EXPECT_EQ(answerOf(vbOKOnly, typing("<Esc>")), vbOK);
    EXPECT_EQ(answerOf(vbOKCancel, typing("<Esc>")), vbCancel);
    EXPECT_EQ(answerOf(vbYesNo, typing("<Esc>")), vbNo);
    EXPECT_EQ(answerOf(vbYesNo, [](QWidget& window) { window.close(); }), vbNo);
}

TEST(MessageBox, ItsFrameHasRoomForItsTitleAndNothingButACross) {
    const QString title =
        QStringLiteral("A title that is longer than the few words of the question below it");
    answerOf(
        vbYesNo,
        [&](QWidget& window) {
            QFont bold = window.font();
            bold.setBold(true);
            EXPECT_GT(window.width(), QFontMetrics(bold).horizontalAdvance(title));
            EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
            EXPECT_TRUE(window.windowFlags().testFlag(Qt::CustomizeWindowHint));
            EXPECT_FALSE(window.windowFlags() & Qt::WindowMinMaxButtonsHint);
            EXPECT_FALSE(window.windowFlags() & Qt::WindowContextHelpButtonHint);
            tests::keysToFocus(window, QStringLiteral("<Enter>"));
        },
        title);
}

TEST(MessageBox, LettersAndArrowsWork) {
    EXPECT_EQ(answerOf(vbYesNo, typing("n")), vbNo);
    EXPECT_EQ(answerOf(vbYesNo | vbDefaultButton2, typing("Y")), vbYes);
    EXPECT_EQ(answerOf(vbYesNo | vbDefaultButton2, typing("<Alt+Y>")), vbYes);
    EXPECT_EQ(answerOf(vbYesNo, typing("<Right><Enter>")), vbNo);
    EXPECT_EQ(answerOf(vbYesNo, typing("<Tab><Space>")), vbNo);
}

TEST(MessageBox, ShowsTitlePromptAndIcon) {
    answerOf(
        vbYesNo | vbQuestion,
        [](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), QStringLiteral("Warning"));
            EXPECT_EQ(tests::child<QLabel>(window, "messageText").text(), QStringLiteral("Proceed?"));
            EXPECT_FALSE(tests::child<QLabel>(window, "messageIcon").pixmap(Qt::ReturnByValue).isNull());
            EXPECT_EQ(captions(window), QStringList({"&Yes", "&No"}));
            tests::keysToFocus(window, QStringLiteral("<Esc>"));
        },
        QStringLiteral("Warning"));
}

TEST(MessageBox, AKeyThatIsHeldDownAnswersNothing) {
    const auto answer = answerOf(vbYesNo, [](QWidget& window) {
        for (const auto& [key, text] : {std::pair{Qt::Key_Return, "\r"},
                                        {Qt::Key_Space, " "},
                                        {Qt::Key_Y, "y"},
                                        {Qt::Key_Escape, ""}}) {
            QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString::fromLatin1(text), true);
            QCoreApplication::sendEvent(window.focusWidget(), &held);
            EXPECT_TRUE(window.isVisible()) << text;
        }
        tests::keysToFocus(window, QStringLiteral("y"));
    });
    EXPECT_EQ(answer, vbYes);
}

TEST(MessageBox, WithoutATitleTheProgramsNameStands) {
    answerOf(vbOKOnly, [](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Visual Kerova - Visual Scintra"));
        EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("messageIcon")), nullptr);
        tests::keysToFocus(window, QStringLiteral("<Esc>"));
    });
}

TEST(MessageBox, TitlesAreNotLengthened) {
    // A display name of its own would stand behind the title of every window.
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationName());
}

TEST(MessageBox, CtrlCCopiesTheText) {
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    answerOf(vbOKOnly, [](QWidget& window) {
        tests::keysToFocus(window, QStringLiteral("<Ctrl+C>"));
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Proceed?"));
        tests::keysToFocus(window, QStringLiteral("<Enter>"));
    });
}

TEST(MessageBox, AnUnknownButtonSetIsRefused) {
    setMessageScript(nullptr);
    EXPECT_THROW(MsgBox(QStringLiteral("?"), 3), base::RunTimeError);
}

TEST(MessageBox, NoCodeBehindABoxRunsOnceTheProgramStops) {
    tests::ErrorRecorder errors;
    setMessageScript(nullptr);
    bool ranOn = false;
    tests::runModal(
        [&] {
            try {
                MsgBox(QStringLiteral("Proceed?"));
                ranOn = true;
            } catch (const ProgramStopped&) {
            }
        },
        {[](QWidget&) {
            ErrorBoundary::guard([] { throw base::RunTimeError(base::errors::typeMismatch); });
        }});
    EXPECT_FALSE(ranOn);
    EXPECT_EQ(errors.take().number(), 13);
}

TEST(MessageScript, AnswersInOrderAndListsWhatCame) {
    bool seen = false;
    tests::MessageScript script({{"Save?", vbYesNo | vbQuestion, "Message", vbNo, [&] { seen = true; }},
                                 {"Saved.", vbInformation, ""}});
    EXPECT_EQ(MsgBox("Save?", vbYesNo | vbQuestion, "Message"), vbNo);
    EXPECT_EQ(MsgBox("Saved.", vbInformation), vbOK);
    EXPECT_TRUE(seen);
    ASSERT_EQ(script.boxes().size(), 2U);
    EXPECT_EQ(script.boxes()[1].prompt, QStringLiteral("Saved."));
}

TEST(MessageScript, AnUnexpectedOrMissingBoxFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(MsgBox("Sure?", vbYesNo), vbNo), "nobody expected");
    EXPECT_NONFATAL_FAILURE(tests::MessageScript({{"Save?"}}), "never came");
    const auto wrongTitle = [] {
        tests::MessageScript script({{"Save?", vbOKCancel, "Message"}});
        EXPECT_EQ(MsgBox("Save?", vbOKCancel, "Message "), vbCancel);
    };
    EXPECT_NONFATAL_FAILURE(wrongTitle(), "title \"Message \"");
}

TEST(ErrorRecorder, AnErrorThatIsNotTakenFailsTheTest) {
    const auto leave = [] {
        tests::ErrorRecorder errors;
        ErrorBoundary::report(base::RunTimeError(base::errors::typeMismatch));
    };
    EXPECT_NONFATAL_FAILURE(leave(), "did not take: 13");
    EXPECT_FALSE(ErrorBoundary::isStopping());
}

TEST(Driver, AMissingChildListsThoseThereAre) {
    QWidget parent;
    auto* field = new QLabel(&parent);
    field->setObjectName(QStringLiteral("lblTitle"));
    EXPECT_EQ(&tests::child<QLabel>(parent, "lblTitle"), field);
    try {
        tests::child<QLabel>(parent, "lblOther");
        FAIL() << "there is no such child";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("lblTitle (QLabel)"), std::string::npos);
    }
}

TEST(Driver, AWindowLeftOpenIsClosedAndFailsTheTest) {
    const auto leave = [] {
        Screen screen;
        screen.setObjectName(QStringLiteral("frmLeft"));
        tests::runModal([&] { screen.ShowModal(); }, {[](QWidget&) {}});
    };
    EXPECT_NONFATAL_FAILURE(leave(), "frmLeft");
}

TEST(Driver, AStepForWhichNothingOpensFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(tests::runModal([] {}, {[](QWidget&) {}}), "1 steps never ran");
}

} // namespace controls
