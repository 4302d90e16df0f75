// Hostile values through every field of every screen.

#include "tests/long/Hostile.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/long/Hand.h"
#include "tests/long/OnDuty.h"
#include "tests/long/Outgoing.h"
#include "tests/support/screens/Driver.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>

namespace attacks {

namespace {

/// Each begins with the marker, but for blanks; what would do harm outside of a literal names DROPZ.
const QStringList& values() {
    static const QStringList all = [] {
        QStringList list{
            marker + "' DROPZ TABLE x --",
            marker + "'; DROPZ TABLE x;--",
            marker + "'' OR ''1''=''1",
            marker + "''",
            marker + "\\",
            marker + "\\'; DROPZ",
            marker + "%_[a-z]^%",
            marker + "]; DROPZ [",
            marker + "\"; DROPZ \"",
            marker + "/* DROPZ */",
            marker + "## #1 {} {0} %1 %s %n |1|2",
            "   " + marker + "   ",
            marker + "\t\r\nDROPZ\nGO\n",
            marker + "\\\nDROPZ",
            marker + QString::fromUtf8("\u202E\u05D0\u05D1 \u0627\u0644 abc"),
            marker + QString::fromUtf8("\U0001F480\U0001F468\u200D\U0001F469\u200D\U0001F467 \u2265 \u00D1"),
            marker + QString::fromUtf8("\u2019; DROPZ \u02BC; DROPZ \uFF07; DROPZ --"),
            marker + "12,50.00e9",
            marker + QString(20'000, u'W'),
        };
        list += marker + QChar(0) + "DROPZ";
        list += marker + QChar(0xD800) + "DROPZ";
        list += marker + QChar(0xDC00) + "DROPZ" + QChar(0xD83D);
        list += QString(QChar(0xFEFF)) + marker;
        return list;
    }();
    return all;
}

QList<QWidget*> fieldsOf(const QWidget& window) {
    QList<QWidget*> fields;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool takesText = qobject_cast<QLineEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget) ||
                               qobject_cast<QTextEdit*>(widget) || qobject_cast<controls::FlexGrid*>(widget);
        if (takesText && widget->isEnabled())
            fields += widget;
    }
    return fields;
}

/// Turns to the tabs that the field lies on.
void turnTo(QWidget& field) {
    for (QWidget* page = &field; page->parentWidget(); page = page->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
        if (tabs && tabs->indexOf(page) >= 0)
            tabs->setCurrentWidget(page);
    }
}

/// Over what stands in the field, as a user pastes.
void paste(QWidget& field) {
    turnTo(field);
    if (!field.isVisible())
        return;
    field.setFocus();
    if (qobject_cast<controls::FlexGrid*>(&field))
        tests::keysToFocus(field, QStringLiteral("1")); // opens the cell
    if (QApplication::focusWidget())
        tests::keysToFocus(field, QStringLiteral("<Ctrl+A><Ctrl+V>"));
}

/// What a user does once it stands there.
const QStringList& commands() {
    static const QStringList all{"<Enter>",   "<Enter>",   "<Tab>",     "<Alt+S>",
                                 "<F3>",      "<F5>",      "<Click 0>", "<Click 1>",
                                 "<Click 2>", "<Click 3>", "<Click 4>", "<Click 5>"};
    return all;
}

/// Opens the screen, fills the fields from `from` to before `to`, and tries the commands. Returns how many
/// fields there are.
qsizetype once(OnDuty& duty, const tests::ScreenOpener& opener, qsizetype from, qsizetype to,
               const QString& value) {
    qsizetype fields = 0;
    duty.recorder->texts.clear();
    const auto put = [&](QWidget& window, const QString& key) {
        if (key != QLatin1String("<Paste>"))
            return false;
        const QList<QWidget*> all = fieldsOf(window);
        QGuiApplication::clipboard()->setText(value);
        for (qsizetype place = from; place < std::min(to, all.size()); ++place)
            paste(*all[place]);
        return true;
    };
    try {
        opener.open([&](QWidget& screen) {
            fields = fieldsOf(screen).size();
            Hand(QStringList{QStringLiteral("<Paste>")} + commands(), put).play(screen);
        });
    } catch (const controls::ProgramStopped&) {
        // told by the boundary
    }
    const bool stopped = controls::ErrorBoundary::isStopping();
    controls::goOn();
    // the program would have ended there, and its connection with it
    if (stopped && session::gConnection->inTransaction())
        session::gConnection->RollbackTrans();
    for (const QString& text : std::as_const(duty.recorder->texts)) {
        if (const QString wrong = wrongIn(text, value); !wrong.isEmpty())
            fault(QStringLiteral("field %1: %2\n%3").arg(from).arg(wrong, text));
    }
    std::printf("statements %d\n", int(duty.recorder->texts.size()));
    return fields;
}

} // namespace

namespace {

void tryValue(Course& course, const char* screenName, int value) {
    const QString screen = QString::fromLatin1(screenName);
    const QString place = QString::number(value);
    const Ended ended = runPart("hostile", {screen, place}, 300);
    for (const QString& line : ended.said.split(u'\n')) {
        if (line.startsWith(QLatin1String("error ")))
            course.count(screen + QStringLiteral(" refused with ") + line.section(u' ', 1, 1));
        else if (line.startsWith(QLatin1String("statements ")))
            course.count(QStringLiteral("statements"), line.section(u' ', 1).toInt());
        course.count(QStringLiteral("fillings"), line.startsWith(QLatin1String("statements ")));
    }
    if (!ended.good)
        course.fail(QStringLiteral("%1, value %2: %3\n%4").arg(screen, place, ended.how, ended.said));
}

} // namespace

void hostile(Course& course) {
    const auto& openers = tests::screenOpeners();
    const auto pairs = openers.size() * std::size_t(values().size());
    // a stride that shares no divisor with their number comes to all of them
    const std::size_t first = std::size_t(course.number(int(pairs)));
    while (course.goesOn()) {
        const std::size_t pair = (first + std::size_t(course.rounds()) * 101) % pairs;
        tryValue(course, openers[pair % openers.size()].screen, int(pair / openers.size()));
    }
}

void allHostile(Course& course) {
    for (const tests::ScreenOpener& opener : tests::screenOpeners()) {
        course.count(QStringLiteral("screens"));
        for (int value = 0; value < values().size() && course.goesOn(); ++value)
            tryValue(course, opener.screen, value);
    }
}

int hostilePart(const QStringList& words) {
    answerAtRandom(1);
    const QString value = values().value(words.value(1).toInt());
    return onScreens([&](OnDuty& duty) {
        for (const tests::ScreenOpener& opener : tests::screenOpeners()) {
            if (words.value(0) != QLatin1String(opener.screen))
                continue;
            const qsizetype fields = once(duty, opener, 0, 1000, value);
            for (qsizetype field = 0; field < fields; ++field)
                once(duty, opener, field, field + 1, value);
        }
    });
}

} // namespace attacks
