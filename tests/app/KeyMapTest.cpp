// What every screen does with letters, Tab and the function keys, and what its texts say of them.
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/TestDoors.h"
#include "tests/app/KeyCheck.h"
#include "tests/app/RoomCheck.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/ModalWatch.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTabWidget>
#include <QTimer>

#include <ostream>

namespace tests {

static void PrintTo(const ScreenOpener& opener, std::ostream* stream) {
    *stream << opener.screen;
}

} // namespace tests

namespace {

using tests::ScreenOpener;

/// Two captions with one letter, as both of them were told. The letter goes to one, pressed again to the
/// other, and does neither's deed.
struct TwoCaptions {
    const char* screen;
    const char* letter;
    const char* first;
    const char* second;
    const char* reason;
};

constexpr const char* together = "can be used together";
constexpr const char* apart = "one is hidden or disabled wherever the other is used";

constexpr TwoCaptions known[] = {
    {"frmAssessment", "C", "optType_2", "btnClose", together},
    {"frmAssessment", "S", "btnSave", "btnClear", together},
    {"frmPHEntry", "C", "optType_2", "cmdMedOption_1", together},
    {"frmCSEntry", "C", "optType_2", "cmdMedOption_1", together},
    {"frmNuclearChargesBuildFile", "S", "txtSearch", "cmdSave", together},
    {"frmResultEntry", "R", "btnPrint", "btnRevoke", apart},
    {"frmResultEntryMPI", "R", "btnPrint", "btnRevoke", apart},
    {"frmResultEntryGFR", "R", "btnPrint", "btnRevoke", apart},
    {"frmResultRadioImmuno", "R", "btnPrint", "btnRevoke", apart},
};

/// What Tab passes by.
struct PassedBy {
    const char* screen;
    const char* control;
    const char* reason;
};

constexpr PassedBy passedBy[] = {
    {"frmNuclearPackage", "QToolButton imgLegend", "leaves, as Esc and Exit do"},
    {"frmNuclearPackage", "QToolButton imgLegend_1", "leaves, as Esc and Exit do"},
    {"frmReceivableEntry", "QPushButton cmdCancel", "nothing is behind it"},
};

class AllScreens : public tests::LoggedOn {
  protected:
    AllScreens() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~AllScreens() override { session::setProgramFolder({}); }
    static const ScreenOpener& openerOf(std::string_view screen) {
        const auto& all = tests::screenOpeners();
        return *std::find_if(all.begin(), all.end(),
                             [&](const ScreenOpener& one) { return screen == one.screen; });
    }
};

class KeysOf : public AllScreens, public testing::WithParamInterface<ScreenOpener> {};

QStringList clashesOf(std::string_view screen) {
    QStringList clashes;
    for (const TwoCaptions& two : known) {
        if (screen == two.screen)
            clashes << QStringLiteral("Alt+%1: %2, %3")
                           .arg(QLatin1StringView(two.letter), QLatin1StringView(two.first),
                                QLatin1StringView(two.second));
    }
    clashes.sort();
    return clashes;
}

QStringList passedByOn(std::string_view screen) {
    QStringList controls;
    for (const PassedBy& one : passedBy) {
        if (screen == one.screen)
            controls << QString::fromLatin1(one.control);
    }
    return controls;
}

/// Turns to the page of the tabs that the widget lies on.
void turnTo(QWidget& widget) {
    for (QWidget* part = &widget; part && !part->isWindow(); part = part->parentWidget()) {
        for (QWidget* above = part->parentWidget(); above; above = above->parentWidget()) {
            if (auto* tabs = qobject_cast<QTabWidget*>(above); tabs && tabs->indexOf(part) >= 0)
                tabs->setCurrentWidget(part);
        }
    }
    widget.setEnabled(true);
    widget.show();
}

void expectNoDeed(QWidget& window, const TwoCaptions& two) {
    QStringList pressed, reached;
    for (const char* name : {two.first, two.second}) {
        auto& control = tests::child<QWidget>(window, name);
        turnTo(control);
        if (auto* button = qobject_cast<QAbstractButton*>(&control))
            QObject::connect(button, &QAbstractButton::clicked,
                             [&pressed, name] { pressed << QString::fromLatin1(name); });
    }
    QCoreApplication::processEvents();
    for (int press = 0; press < 2; ++press) {
        tests::keysToFocus(window, QStringLiteral("<Alt+%1>").arg(QLatin1StringView(two.letter)));
        reached << (QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString());
    }
    EXPECT_EQ(pressed, QStringList());
    reached.sort();
    QStringList both{QString::fromLatin1(two.first), QString::fromLatin1(two.second)};
    both.sort();
    EXPECT_EQ(reached, both) << "the letter leads to one, then to the other";
}

// ---- function keys

constexpr int functionKeys = 12;

QString nameOf(int number) {
    return QStringLiteral("F%1").arg(number);
}

bool notes(const QWidget& widget, const QString& key) {
    for (const auto& [keys, does] : controls::notedKeys(widget)) {
        if (keys.split(QStringLiteral(", ")).contains(key))
            return true;
    }
    return false;
}

/// It, or a part of the screen around it, says that it answers the key; a list opens with F4 everywhere.
bool isToldToAnswer(const QWidget& widget, const QString& key, const QStringList& shortcuts) {
    if (shortcuts.contains(key) || (qobject_cast<const QComboBox*>(&widget) && key == u"F4"))
        return true;
    for (const QWidget* part = &widget; part; part = part->isWindow() ? nullptr : part->parentWidget()) {
        if (notes(*part, key))
            return true;
    }
    // the editor of a cell does what its grid says
    const auto grids = widget.parentWidget() ? widget.parentWidget()->findChildren<controls::FlexGrid*>()
                                             : QList<controls::FlexGrid*>();
    return std::any_of(grids.begin(), grids.end(), [&](const auto* grid) {
        return grid->geometry().contains(widget.geometry()) && notes(*grid, key);
    });
}

/// The keys of commands, wherever the focus is.
QStringList shortcutsOf(QWidget& window) {
    QStringList keys;
    for (const tests::AnsweredKey& key : tests::answeredKeys(window)) {
        if (key.where.isEmpty())
            keys << key.keys;
    }
    return keys;
}

bool answers(QWidget& widget, int number) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F1 + number - 1, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    return press.isAccepted();
}

/// Closes every modal window that opens while it lives.
class ClosesWhatOpens : private tests::ModalWatch::Driver {
    void modalShown() override {
        QTimer::singleShot(0, qApp, [] {
            if (QWidget* window = QApplication::activeModalWidget())
                window->close();
        });
    }
};

QList<QPointer<QWidget>> fieldsOf(QWidget& window) {
    QList<QPointer<QWidget>> fields{&window};
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->focusPolicy() != Qt::NoFocus &&
            widget->window() == &window && !qobject_cast<QComboBox*>(widget->parentWidget()))
            fields << widget;
    }
    return fields;
}

// ---- what the texts of a screen say

/// "F3", "Alt+O", and what stands bold in a line of help.
QStringList keysNamedIn(const QString& text) {
    static const QRegularExpression named(QStringLiteral(
        "\\b(F1[0-2]|F[1-9]|(?:Alt|Ctrl)\\+\\w+)\\b|<b>(Down|Up|Space|Esc|Home|End|Del|Tab|F\\d+)</b>"));
    QStringList keys;
    auto matches = named.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        keys << (match.captured(1).isEmpty() ? match.captured(2) : match.captured(1));
    }
    return keys;
}

QSet<QString> keysSaidBy(QWidget& window) {
    QSet<QString> keys;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        QString text = widget->toolTip();
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            text += u' ' + label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            text += u' ' + button->text();
        for (const QString& key : keysNamedIn(text))
            keys << key;
    }
    return keys;
}

TEST(HelpLine, NamesOfKeysAreFoundInIt) {
    EXPECT_EQ(keysNamedIn(QStringLiteral("F3 - Delete Line")), QStringList{"F3"});
    EXPECT_EQ(keysNamedIn(QStringLiteral("<b>Alt+O</b> OR# <b>Esc</b> Close")),
              (QStringList{"Alt+O", "Esc"}));
    EXPECT_EQ(keysNamedIn(QStringLiteral("Down the list, F9=Print, AF5")), QStringList{"F9"});
}

void expectNoOtherFunctionKey(QWidget& window) {
    const QStringList shortcuts = shortcutsOf(window);
    constexpr int behindTheGuides = 2; // F1 opens the guide, whatever the screen
    for (int number = behindTheGuides; number <= functionKeys; ++number) {
        for (const QPointer<QWidget>& field : fieldsOf(window)) {
            if (!isToldToAnswer(*field, nameOf(number), shortcuts)) {
                EXPECT_FALSE(answers(*field, number))
                    << field->objectName().toStdString() << " answers " << nameOf(number).toStdString()
                    << " and does not note it";
            }
        }
    }
}

void expectNotedFunctionKeys(QWidget& window) {
    const ClosesWhatOpens closes;
    for (int number = 1; number <= functionKeys; ++number) {
        for (const QPointer<QWidget>& field : fieldsOf(window)) {
            if (field && field->isEnabled() && notes(*field, nameOf(number))) {
                EXPECT_TRUE(answers(*field, number))
                    << field->objectName().toStdString() << " notes " << nameOf(number).toStdString();
            }
        }
    }
}

void expectWhatTheTextsSay(QWidget& window, const std::string& screen) {
    QSet<QString> said = keysSaidBy(window);
    QSet<QString> answered;
    for (const tests::AnsweredKey& key : tests::answeredKeys(window)) {
        for (const QString& one : key.keys.split(QStringLiteral(", ")))
            answered << one;
    }
    const bool saysEscape = said.remove(QStringLiteral("Esc"));
    const QSet<QString> unanswered = said - answered;
    EXPECT_EQ(QStringList(unanswered.begin(), unanswered.end()), QStringList());
    if (!saysEscape)
        return;
    tests::keysToFocus(window, QStringLiteral("<Esc>"));
    const bool isNoted = answered.contains(QStringLiteral("Esc"));
    EXPECT_TRUE(!window.isVisible() || isNoted || screen == "frmBuildFile") // there it gives an exam up first
        << "Esc leaves nothing";
}

TEST_P(KeysOf, AreThoseThatItTells) {
    GetParam().open([&](QWidget& window) {
        EXPECT_EQ(tests::clashingKeys(window), clashesOf(GetParam().screen));
        expectNoOtherFunctionKey(window);
        EXPECT_EQ(tests::notReachedByKeys(window), passedByOn(GetParam().screen));
        expectNotedFunctionKeys(window);
    });
}

TEST_P(KeysOf, NoTextNamesAKeyThatNothingAnswers) {
    GetParam().open([&](QWidget& window) { expectWhatTheTextsSay(window, GetParam().screen); });
}

INSTANTIATE_TEST_SUITE_P(Map, KeysOf, testing::ValuesIn(tests::screenOpeners()),
                         [](const auto& opener) { return std::string(opener.param.screen); });

/// A letter of two captions leads to one, pressed again to the other.
TEST_F(AllScreens, ALetterOfTwoCaptionsDoesNeithersDeed) {
    for (const TwoCaptions& two : known) {
        SCOPED_TRACE(two.screen);
        openerOf(two.screen).open([&](QWidget& window) { expectNoDeed(window, two); });
    }
}

/// Printing, exporting, searching: whatever was begun ends with the viewer.
TEST_F(AllScreens, TheViewerComesUpAgainBehindEachOfItsCommands) {
    QStringList commands;
    openerOf("frmReportViewer").open([&](QWidget& window) {
        for (const QAction* action : tests::child<QWidget>(window, "CRViewer1").actions())
            commands << action->objectName();
    });
    EXPECT_TRUE(commands.contains("print") && commands.contains("export") && commands.contains("findNext"));
    for (const QString& command : commands) {
        SCOPED_TRACE(command.toStdString());
        openerOf("frmReportViewer").open([&](QWidget& window) {
            const ClosesWhatOpens closes;
            tests::child<QAction>(window, command.toLatin1().constData()).trigger();
            expectNotedFunctionKeys(window);
            QCoreApplication::processEvents();
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(QApplication::activeModalWidget(), &window);
        });
    }
}

// ---- the checks themselves

class TwoButtons : public testing::Test {
  protected:
    TwoButtons() {
        for (QPushButton* button : {&save, &select})
            button->resize(80, 30);
        save.setObjectName("cmdSave");
        select.setObjectName("cmdSelect");
        select.move(100, 0);
        window.resize(300, 200);
        window.show();
        QCoreApplication::processEvents();
    }
    QWidget window;
    QPushButton save{"&Save", &window};
    QPushButton select{"S&elect", &window};
};

TEST_F(TwoButtons, OneLetterEachIsNoClash) {
    EXPECT_EQ(tests::clashingKeys(window), QStringList());
    select.setText("&Select");
    EXPECT_EQ(tests::clashingKeys(window), QStringList{"Alt+S: cmdSave, cmdSelect"});
    select.hide();
    EXPECT_EQ(tests::clashingKeys(window), QStringList{"Alt+S: cmdSave, cmdSelect"}) << "in another mode";
}

TEST_F(TwoButtons, AShortcutAndALetterMayClash) {
    select.setShortcut(QKeySequence("Alt+S"));
    EXPECT_EQ(tests::clashingKeys(window), QStringList{"Alt+S: cmdSave, cmdSelect"});
}

TEST_F(TwoButtons, NotOnPagesThatAreNeverSeenTogether) {
    QTabWidget tabs(&window);
    auto* one = new QWidget;
    auto* two = new QWidget;
    tabs.addTab(one, "One");
    tabs.addTab(two, "Two");
    new QPushButton("&Print", one);
    new QPushButton("&Process", two);
    tabs.show();
    EXPECT_EQ(tests::clashingKeys(window), QStringList());
}

TEST_F(TwoButtons, WhatTabPassesBy) {
    save.setFocus();
    EXPECT_EQ(tests::notReachedByKeys(window), QStringList());
    select.setFocusPolicy(Qt::ClickFocus);
    EXPECT_EQ(tests::notReachedByKeys(window), QStringList()) << "its letter leads there";
    select.setText("Select");
    EXPECT_EQ(tests::notReachedByKeys(window), QStringList{"QPushButton cmdSelect"});
}

} // namespace
