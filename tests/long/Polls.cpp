// Weeks of a menu that watches, in a minute.

#include "tests/long/Polls.h"

#include "menu/ServerMonitors.h"
#include "menu/TestDoors.h"
#include "menu/frmMainMenu.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/long/OnDuty.h"
#include "tests/support/workstation/Watchdog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <limits>

namespace attacks {

namespace {

constexpr int pollsOfARound = 3;
constexpr int pollsAtOnce = 3000;
/// What the C library keeps back more or less of; a leak of 30 bytes a poll is more in 100,000.
constexpr qint64 mostGrown = 3 * 1024; // KB

qint64 memory() {
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * 4 : 0;
}

qsizetype handles() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System).size();
}

void fire(QTimer* timer) {
    if (!timer->isActive())
        return;
    if (timer->isSingleShot())
        timer->stop();
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
}

void expectTexts(QStringList texts, int rounds) {
    for (const char* poll : {"sp_Nuclear_NurseCommunication", "NUCLEAR..sp_Nuclear_PrepaidCheckRequest 'NU'",
                             "Nuclear..spNuclear_LoadDischargeNoticeCount"}) {
        const qsizetype sent = texts.removeAll(QLatin1String(poll));
        if (sent != rounds)
            fault(QStringLiteral("%1 of %2 times: %3").arg(sent).arg(rounds).arg(QLatin1String(poll)));
    }
    if (!texts.isEmpty())
        fault(QStringLiteral("sent besides: ") + texts.front());
}

void watch(OnDuty& duty, int polls) {
    menu::ServerMonitors* monitors = nullptr;
    menu::setMonitorMaker([&monitors](const menu::Indicators& indicators) {
        auto made = std::make_unique<menu::ServerMonitors>(indicators);
        monitors = made.get();
        return made;
    });
    controls::SharedScreen<menu::frmMainMenu>::fresh().Show();
    // none of itself: those that are fired are counted
    for (QTimer* timer : monitors->findChildren<QTimer*>())
        timer->setInterval(std::numeric_limits<int>::max());
    duty.takeTexts();
    qint64 memoryBefore = 0;
    qsizetype handlesBefore = 0;
    for (int done = 0; done < polls; done += pollsAtOnce) {
        for (int round = 0; round < pollsAtOnce / pollsOfARound; ++round) {
            tests::Watchdog::beat();
            for (QTimer* timer : monitors->findChildren<QTimer*>())
                fire(timer);
            for (QTimer* timer : monitors->merlin().figure().findChildren<QTimer*>())
                fire(timer);
            QCoreApplication::processEvents();
        }
        expectTexts(duty.takeTexts(), pollsAtOnce / pollsOfARound);
        if (done <= polls / 10) {
            memoryBefore = memory();
            handlesBefore = handles();
        }
    }
    if (memory() - memoryBefore > mostGrown)
        fault(QStringLiteral("memory grew from %1 to %2 KB").arg(memoryBefore).arg(memory()));
    if (handles() > handlesBefore)
        fault(QStringLiteral("handles went from %1 to %2").arg(handlesBefore).arg(handles()));
    std::printf("memory %lld KB, then %lld KB; handles %lld\n", memoryBefore, memory(), qint64(handles()));
    controls::release<menu::frmMainMenu>();
    menu::setMonitorMaker({});
}

} // namespace

void polls(Course& course) {
    constexpr int ofARound = 10 * pollsAtOnce;
    while (course.goesOn()) {
        const Ended ended = runPart("polls", {QString::number(ofARound)});
        course.count(QStringLiteral("polls"), ofARound);
        if (!ended.good)
            course.fail(ended.how + u'\n' + ended.said);
    }
}

int pollsPart(const QStringList& words) {
    const int times = words.value(0).toInt();
    return times < 1 ? 2 : onScreens([times](OnDuty& duty) { watch(duty, times); });
}

} // namespace attacks
