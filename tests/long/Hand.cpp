#include "tests/long/Hand.h"

#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/Screen.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/long/OnDuty.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ModalWatch.h"
#include "tests/support/workstation/Watchdog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPrintDialog>
#include <QTest>
#include <QTimer>

#include <random>

namespace attacks {

void Hand::play(QWidget& screen) {
    // from here on: whoever drives the screen itself began before
    const tests::ModalWatch::Driver driver;
    m_screen = &screen;
    arm();
    while (!m_over)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

/// Before each key, which may run a loop of its own that the next key falls into.
void Hand::arm() {
    QTimer::singleShot(0, &m_context, [this] { turn(); });
}

void Hand::turn() {
    tests::Watchdog::beat();
    arm();
    const bool gone = !QApplication::activeModalWidget() && (!m_screen || !m_screen->isVisible());
    if (controls::ErrorBoundary::isStopping())
        m_over = true;
    else if (gone || m_next == m_keys.size())
        leave();
    else
        type(m_keys[m_next++]);
}

void Hand::leave() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        return;
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || modal == m_screen) {
        // what the last key opens may come up a little later
        m_over = ++m_quiet > quietTurns;
        return;
    }
    m_quiet = 0;
    if (++m_leaving > mostLeaving)
        fault(QStringLiteral("cannot be left: ") + modal->objectName());
    if (auto* screen = qobject_cast<controls::Screen*>(modal))
        screen->hideScreen();
    else
        modal->close();
}

bool Hand::answersFileDialog(QWidget* modal, const QString& key) {
    auto* dialog = qobject_cast<QDialog*>(modal);
    const bool saves = qobject_cast<QFileDialog*>(modal);
    if (!saves && !qobject_cast<QPrintDialog*>(modal))
        return false;
    if (key == QLatin1String("<Esc>")) {
        dialog->reject();
    } else if (key == QLatin1String("<Enter>")) {
        auto* name = dialog->findChild<QLineEdit*>(saves ? QStringLiteral("fileNameEdit")
                                                         : QStringLiteral("filename"));
        if (name)
            name->setText(
                QDir::current().filePath(saves ? QStringLiteral("saved") : QStringLiteral("printed.pdf")));
        QMetaObject::invokeMethod(dialog, name ? "accept" : "reject");
    }
    return true;
}

void Hand::type(const QString& key) {
    if (answersFileDialog(QApplication::activeModalWidget(), key))
        return;
    if (QWidget* popup = QApplication::activePopupWidget()) {
        const Qt::Key own = key == QLatin1String("<Enter>")  ? Qt::Key_Return
                            : key == QLatin1String("<Down>") ? Qt::Key_Down
                                                             : Qt::Key_Escape;
        QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup, own);
        return;
    }
    QWidget* modal = QApplication::activeModalWidget();
    QWidget& window = modal ? *modal : *m_screen;
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    if (QApplication::activeWindow() != &window)
        QApplication::setActiveWindow(&window);
    QT_WARNING_POP
    if (m_own && m_own(window, key))
        return;
    if (key.startsWith(QLatin1String("<Click ")))
        clickButton(window, key.mid(7).chopped(1).toInt());
    else
        tests::keysToFocus(window, key);
}

void Hand::clickButton(const QWidget& window, int place) {
    QList<QAbstractButton*> buttons;
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->isEnabled())
            buttons += button;
    if (!buttons.isEmpty())
        QTest::mouseClick(buttons[place % buttons.size()], Qt::LeftButton);
}

void answerAtRandom(quint32 seed) {
    controls::setMessageScript(
        [random = std::mt19937(seed)](const QString&, int style, const QString&) mutable {
            tests::Watchdog::beat();
            const bool first = random() % 2 == 0;
            switch (style & 0x0F) {
            case controls::vbOKCancel:
                return first ? controls::vbOK : controls::vbCancel;
            case controls::vbYesNo:
                return first ? controls::vbYes : controls::vbNo;
            default:
                return controls::vbOK;
            }
        });
}

} // namespace attacks
