#include "tests/support/screens/Driver.h"

#include "platform/base/TestDoors.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "tests/support/screens/ModalWatch.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <deque>

namespace tests {

namespace {

/// Makes the window the active one. A platform without windows takes no notice of one that is shown again.
void activate(QWidget& window) {
    QCoreApplication::processEvents();
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    if (QApplication::activeWindow() != &window)
        QApplication::setActiveWindow(&window);
    QT_WARNING_POP
}

/// The steps of one runModal(). A step is started by a timer of no delay: a posted event would still be
/// delivered in a loop that the step before has just ended.
class Run : public QObject, private ModalWatch::Driver {
  public:
    explicit Run(std::vector<Step> steps) : m_steps(steps.begin(), steps.end()) {
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible())
                m_before << widget;
        m_timer.setInterval(0);
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] { next(); });
        m_timer.start();
    }
    ~Run() override {
        if (!m_steps.empty())
            ADD_FAILURE() << m_steps.size() << " steps never ran: nothing modal was open for them.";
    }

  private:
    static constexpr int mostIdleRounds = 200;

    /// It may come after the last step, or later than the rounds that were waited for it.
    void modalShown() override {
        m_idleRounds = 0;
        m_timer.start();
    }

    void next() {
        QWidget* window = QApplication::activeModalWidget();
        if (m_steps.empty()) {
            // A window in which an earlier step still waits for an inner one goes on when that one is done;
            // what a step drives on its own is that step's.
            if (window && isInnermost() && !m_waiting.contains(window))
                closeWhatIsLeft("the steps left it open");
            return;
        }
        if (!window) {
            if (++m_idleRounds < mostIdleRounds)
                m_timer.start();
            return;
        }
        activate(*window);
        run(*window);
    }

    void run(QWidget& window) {
        const Step step = m_steps.front();
        m_steps.pop_front();
        m_waiting << &window;
        m_timer.start(); // before the step: it may block in a window of its own
        try {
            step(window);
        } catch (const controls::ProgramStopped&) {
            // The error is with whoever records it.
        } catch (const std::exception& error) {
            ADD_FAILURE() << "A step raised: " << error.what();
            m_steps.clear();
        }
        m_waiting.removeLast();
        m_timer.start();
    }

    void closeWhatIsLeft(const char* why) {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (!widget->isVisible() || !widget->isModal() || m_before.contains(widget))
                continue;
            ADD_FAILURE() << "Closed " << widget->objectName().toStdString() << " \""
                          << widget->windowTitle().toStdString() << "\": " << why;
            widget->hide();
        }
    }

    std::deque<Step> m_steps;
    QList<const QWidget*> m_before;
    QList<const QWidget*> m_waiting;
    QTimer m_timer;
    int m_idleRounds = 0;
};

struct NamedKey {
    const char* name;
    Qt::Key key;
};

constexpr NamedKey namedKeys[] = {
    {"Enter", Qt::Key_Return}, {"Return", Qt::Key_Return}, {"Tab", Qt::Key_Tab},
    {"Esc", Qt::Key_Escape},   {"Up", Qt::Key_Up},         {"Down", Qt::Key_Down},
    {"Left", Qt::Key_Left},    {"Right", Qt::Key_Right},   {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},      {"PageUp", Qt::Key_PageUp}, {"PageDown", Qt::Key_PageDown},
    {"Del", Qt::Key_Delete},   {"Ins", Qt::Key_Insert},    {"Backspace", Qt::Key_Backspace},
    {"Space", Qt::Key_Space},  {"F1", Qt::Key_F1},         {"F2", Qt::Key_F2},
    {"F3", Qt::Key_F3},        {"F4", Qt::Key_F4},         {"F5", Qt::Key_F5},
    {"F6", Qt::Key_F6},        {"F7", Qt::Key_F7},         {"F8", Qt::Key_F8},
    {"F9", Qt::Key_F9},        {"F10", Qt::Key_F10},       {"F11", Qt::Key_F11},
    {"F12", Qt::Key_F12},      {"lt", Qt::Key_Less},       {"KeypadEnter", Qt::Key_Enter}};

/// Where a key goes by now. Without an active window (nothing but a field is shown) it is the window's own
/// idea.
QWidget* focusFor(QWidget& window) {
    if (QWidget* focus = QApplication::focusWidget())
        return focus;
    return window.window()->focusWidget() ? window.window()->focusWidget() : window.window();
}

void send(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* focus = focusFor(window);
    QTest::keyClick(focus, key, modifiers);
}

void sendCharacter(QWidget& window, QChar character) {
    QWidget* focus = focusFor(window);
    // Other than the ASCII key names, these have no key of their own on the test's keyboard.
    if (character.unicode() < 0x80)
        QTest::keyClick(focus, character.toLatin1());
    else
        QTest::sendKeyEvent(QTest::Click, focus, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

void sendNamed(QWidget& window, const QString& name) {
    Qt::KeyboardModifiers modifiers;
    QStringList parts = name.split(QLatin1Char('+'));
    const QString last = parts.takeLast();
    for (const QString& part : std::as_const(parts)) {
        if (part == QLatin1String("Ctrl"))
            modifiers |= Qt::ControlModifier;
        else if (part == QLatin1String("Shift"))
            modifiers |= Qt::ShiftModifier;
        else if (part == QLatin1String("Alt"))
            modifiers |= Qt::AltModifier;
        else
            throw std::runtime_error("No such modifier: " + part.toStdString());
    }
    for (const NamedKey& named : namedKeys)
        if (last == QLatin1String(named.name))
            return send(window, named.key, modifiers);
    if (last.size() != 1)
        throw std::runtime_error("No such key: " + name.toStdString());
    send(window, Qt::Key(last.at(0).toUpper().unicode()), modifiers);
}

} // namespace

void runModal(const std::function<void()>& open, std::vector<Step> steps) {
    const Run run(std::move(steps));
    open();
}

QString childrenOf(const QWidget& parent) {
    QStringList lines;
    for (const QWidget* widget : parent.findChildren<QWidget*>())
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            lines << QStringLiteral("  %1 (%2)")
                         .arg(widget->objectName(), QString::fromLatin1(widget->metaObject()->className()));
    lines.sort();
    return lines.join(QLatin1Char('\n'));
}

void keysToFocus(QWidget& window, const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype end = text.at(i) == QLatin1Char('<') ? text.indexOf(QLatin1Char('>'), i) : -1;
        if (end < 0) {
            sendCharacter(window, text.at(i));
            continue;
        }
        sendNamed(window, text.mid(i + 1, end - i - 1));
        i = end;
    }
}

void keys(QWidget& widget, const QString& text) {
    widget.setFocus();
    QWidget* taker = widget.focusProxy() ? widget.focusProxy() : &widget;
    if (widget.window()->focusWidget() != taker || !widget.isEnabled()) {
        ADD_FAILURE() << widget.objectName().toStdString() << " cannot take the focus.";
        return;
    }
    QWidget* window = widget.window();
    keysToFocus(*window, text);
}

void click(QWidget& widget) {
    if (!widget.isVisible() || !widget.isEnabled()) {
        ADD_FAILURE() << widget.objectName().toStdString() << " is hidden or disabled: it cannot be clicked.";
        return;
    }
    QTest::mouseClick(&widget, Qt::LeftButton);
}

base::FixedClock fixedClock() {
    return fixedClock(2026, 11, 21, 8, 30);
}

base::FixedClock fixedClock(int year, int month, int day, int hour, int minute, int second) {
    return base::FixedClock(*base::makeDateTime({year, month, day}, {hour, minute, second, 0}));
}

} // namespace tests
