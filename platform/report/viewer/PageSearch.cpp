#include "platform/report/viewer/PageSearch.h"

#include "platform/controls/screen/Connect.h"
#include "platform/report/viewer/FindBar.h"
#include "platform/report/viewer/PageView.h"

#include <algorithm>

namespace report {
namespace {

// milliseconds
constexpr int firstSlice = 60;
constexpr int slice = 15;
constexpr int betweenHits = 200;

} // namespace

PageSearch::PageSearch(FindBar* bar, PageView* pages, QObject* parent)
    : QObject(parent), m_bar(bar), m_pages(pages) {
    controls::on(&m_timer, &QTimer::timeout, this, [this] { searchFurther(slice); });
    controls::on(bar, &FindBar::textChanged, this, [this](const QString& text) { search(text); });
    controls::on(bar, &FindBar::step, this, [this](int direction) { step(direction); });
    controls::on(bar, &FindBar::closed, this, [this] {
        search({});
        m_pages->setFocus();
    });
}

void PageSearch::begin(bool growing) {
    m_growing = growing;
    search(m_bar->isVisible() ? m_bar->text() : QString());
}

void PageSearch::takeGrowth(bool growing) {
    m_growing = growing;
    if (m_find && !m_timer.isActive())
        m_timer.start(0);
}

void PageSearch::search(const QString& text) {
    m_timer.stop();
    m_currentHit = -1;
    m_pages->setHits({});
    m_find.reset();
    if (m_pages->document() && !text.isEmpty())
        m_find = std::make_unique<TextFind>(m_pages->sharedDocument(), text);
    searchFurther(firstSlice);
}

void PageSearch::searchFurther(int milliseconds) {
    const bool done = !m_find || m_find->work(milliseconds);
    if (done)
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(0);
    if (done || m_currentHit < 0 || m_sinceHits.elapsed() >= betweenHits)
        showHits(!done);
}

void PageSearch::showHits(bool searching) {
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
    m_bar->setCount(m_currentHit, int(hits.size()), searching || m_growing);
}

void PageSearch::step(int direction) {
    const int count = m_find ? int(m_find->hits().size()) : 0;
    if (count == 0) {
        if (!m_bar->isVisible())
            m_bar->begin();
        return;
    }
    m_currentHit = (m_currentHit + direction + count) % count;
    m_pages->setCurrentHit(m_currentHit);
    m_bar->setCount(m_currentHit, count, m_timer.isActive() || m_growing);
}

} // namespace report
