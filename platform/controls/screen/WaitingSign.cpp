#include "platform/controls/screen/WaitingSign.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QThread>
#include <QTimer>

namespace controls {

void showWaiting(int seconds) {
    static QPointer<QLabel> sign;
    QWidget* window =
        qApp && QThread::currentThread() == qApp->thread() ? QApplication::activeWindow() : nullptr;
    if (!window)
        return;
    if (!sign || sign->parentWidget() != window) {
        delete sign;
        sign = new QLabel(window);
        sign->setObjectName(QStringLiteral("lblWaiting"));
        sign->setProperty("kind", QStringLiteral("warn"));
        sign->setAutoFillBackground(true);
        sign->setMargin(sign->fontMetrics().height() / 2);
        QTimer::singleShot(0, sign, &QObject::deleteLater);
    }
    sign->setText(QStringLiteral("Another desk is saving. Waiting for %1 s …").arg(seconds));
    sign->adjustSize();
    sign->move((window->width() - sign->width()) / 2, (window->height() - sign->height()) / 2);
    sign->show();
    QAccessibleEvent told(sign, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
    sign->repaint();
}

} // namespace controls
