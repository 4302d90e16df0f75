#include "bench/HospitalFile.h"
#include "bench/LogOn.h"
#include "bench/Measure.h"
#include "bench/Measures.h"

#include "app/AppScreens.h"
#include "menu/TestDoors.h"
#include "menu/frmMainMenu.h"
#include "session/Screens.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <algorithm>

namespace bench {

namespace {

/// From the moment that a key is pressed, whatever the program does then, until what it changed is painted.
qint64 keyToPaint(QWidget& window, Qt::Key key) {
    constexpr qint64 restBetweenKeys = 10'000'000; // ns
    QElapsedTimer clock;
    clock.start();
    while (clock.nsecsElapsed() < restBetweenKeys)
        QApplication::processEvents();
    QWidget* focus = window.focusWidget() ? window.focusWidget() : &window;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(focus, &press);
    QCoreApplication::sendPostedEvents(&window, QEvent::UpdateRequest);
    return clock.nsecsElapsed() - restBetweenKeys;
}

/// The median of a row of keys on a menu of its own.
Run keysOn(const menu::MonitorMaker& maker) {
    return [maker](int) {
        constexpr int keys = 100;
        menu::setMonitorMaker(maker);
        menu::frmMainMenu menu;
        menu.Show();
        QApplication::processEvents();
        std::vector<qint64> times;
        for (int key = 0; key < keys; ++key)
            times.push_back(keyToPaint(menu, key % 2 ? Qt::Key_Left : Qt::Key_Right));
        menu.Unload();
        menu::setMonitorMaker({});
        std::ranges::nth_element(times, times.begin() + keys / 2);
        return times[keys / 2];
    };
}

} // namespace

bool menuKeys(const QString& folder) {
    app::AppScreens screens;
    session::setScreens(&screens);
    logOnTo(hospitalFile(folder, 0));
    const bool met = Report::line(QStringLiteral("key to paint, watched / unwatched"),
                                  interleave(21, 1, keysOn({}), keysOn(menu::noMonitors)), 1.1);
    session::setScreens(nullptr);
    return met;
}

} // namespace bench
