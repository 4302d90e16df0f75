#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include "bench/Measure.h"

#include <cstdio>
#include <cstdlib>

namespace bench {

/// Ends the process as soon as its first window has painted, and tells the peak memory until then in bytes.
class FirstPaint : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            static_cast<QWidget*>(watched)->isWindow() && !m_seen) {
            m_seen = true;
            // Behind the paint event: what the window shows is then on its way to the screen.
            QTimer::singleShot(0, [] {
                std::printf("%lld\n", static_cast<long long>(peakMemory()));
                std::fflush(stdout);
                std::_Exit(0);
            });
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    bool m_seen = false;
};

} // namespace bench
