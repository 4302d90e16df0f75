// The viewer while pages come, and its search through them.
#include "platform/report/RunDriver.h"
#include "platform/report/viewer/FindBar.h"
#include "platform/report/viewer/RunBar.h"
#include "platform/report/viewer/Viewer.h"

#include <QAction>
#include <QLabel>

#include <algorithm>

namespace report {
namespace {

// milliseconds
constexpr int firstFindSlice = 60;
constexpr int betweenHits = 200;

} // namespace

/// What hangs on whether more pages are to come.
void Viewer::showRun() {
    const PageDocument* shown = document();
    const bool running = isRunning();
    const bool stopped = shown && !running && !shown->isComplete();
    m_runBar->setVisible(running || stopped);
    if (running)
        m_runBar->showRunning(m_driver->run()->progress());
    else if (stopped)
        m_runBar->showStopped();
    command(QStringLiteral("stop"))->setEnabled(running);
    for (const char* name : {"print", "export"})
        command(QLatin1StringView(name))->setEnabled(shown && shown->isComplete());
    m_pageCount->setText(shown ? tr("of %1").arg(shown->pageCount()) +
                                     (running ? QStringLiteral("\u2026") : QString())
                               : QString());
    fillTree();
    setGroupTreeShown(m_treeWanted);
    enablePageCommands();
}

void Viewer::showGrowth() {
    m_pages->takeGrowth();
    if (m_find && !m_findTimer.isActive())
        m_findTimer.start(0);
    showRun();
}

void Viewer::showEnd() {
    showGrowth();
    find(m_findBar->isVisible() ? m_findBar->text() : QString());
    if (std::exchange(m_printWanted, false) && document()->isComplete())
        print();
}

void Viewer::find(const QString& text) {
    m_findTimer.stop();
    m_currentHit = -1;
    m_pages->setHits({});
    m_find.reset();
    if (document() && !text.isEmpty())
        m_find = std::make_unique<TextFind>(m_pages->sharedDocument(), text);
    findFurther(firstFindSlice);
}

/// Searches on; a long report is searched between the events.
void Viewer::findFurther(int milliseconds) {
    const bool done = !m_find || m_find->work(milliseconds);
    if (done)
        m_findTimer.stop();
    else if (!m_findTimer.isActive())
        m_findTimer.start(0);
    if (done || m_currentHit < 0 || m_sinceHits.elapsed() >= betweenHits)
        showHits(!done);
}

void Viewer::showHits(bool searching) {
    m_sinceHits.start();
    const std::vector<Hit> hits = m_find ? m_find->hits() : std::vector<Hit>();
    m_pages->extendHits(hits);
    if (m_currentHit < 0 && !hits.empty()) {
        const int page = m_pages->currentPage();
        const auto first =
            std::find_if(hits.begin(), hits.end(), [page](const Hit& hit) { return hit.page >= page; });
        if (first != hits.end() || !searching) {
            m_currentHit = first == hits.end() ? 0 : int(first - hits.begin());
            m_pages->setCurrentHit(m_currentHit);
        }
    }
    m_findBar->setCount(m_currentHit, int(hits.size()), searching || isRunning());
}

void Viewer::findStep(int direction) {
    const int count = m_find ? int(m_find->hits().size()) : 0;
    if (count == 0) {
        if (!m_findBar->isVisible())
            m_findBar->begin();
        return;
    }
    m_currentHit = (m_currentHit + direction + count) % count;
    m_pages->setCurrentHit(m_currentHit);
    m_findBar->setCount(m_currentHit, count, m_findTimer.isActive() || isRunning());
}

} // namespace report
