#include "tests/support/screens/ModalWatch.h"

#include "platform/controls/screen/ErrorBoundary.h"

#include <QApplication>
#include <QThread>
#include <QWidget>

#include <gtest/gtest.h>

namespace tests {

namespace {

ModalWatch::Driver*& innermost() {
    static ModalWatch::Driver* driver = nullptr;
    return driver;
}

} // namespace

ModalWatch::Driver::Driver() : m_outer(innermost()) {
    innermost() = this;
}

ModalWatch::Driver::~Driver() {
    innermost() = m_outer;
}

bool ModalWatch::Driver::isInnermost() const {
    return innermost() == this;
}

ModalWatch::ModalWatch() {
    m_rounds.setInterval(0);
    QObject::connect(&m_rounds, &QTimer::timeout, this, [this] { look(); });
    qApp->installEventFilter(this);
}

bool ModalWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show || event->spontaneous() || !watched->isWidgetType())
        return false;
    auto& window = static_cast<QWidget&>(*watched);
    if (!window.isWindow() || !window.isModal())
        return false;
    if (innermost()) {
        innermost()->modalShown();
        return false;
    }
    m_window = &window;
    m_levelBefore = QThread::currentThread()->loopLevel();
    m_round = 0;
    m_rounds.start();
    return false;
}

void ModalWatch::look() {
    if (!m_window || !m_window->isVisible()) {
        m_rounds.stop();
        return;
    }
    // Modal without a loop of its own is a box that tells how far something is.
    if (QThread::currentThread()->loopLevel() <= m_levelBefore || ++m_round < roundsToWait)
        return;
    m_rounds.stop();
    close(*m_window);
}

void ModalWatch::close(QWidget& window) {
    const QString name = window.objectName().isEmpty() ? QString::fromLatin1(window.metaObject()->className())
                                                       : window.objectName();
    const QString what =
        QStringLiteral("A modal screen that nobody drives: %1 \"%2\"").arg(name, window.windowTitle());
    ADD_FAILURE() << what.toStdString();
    window.hide();
    if (++m_undriven >= mostUndriven)
        controls::ErrorBoundary::report(base::RunTimeError(51, what));
}

} // namespace tests
