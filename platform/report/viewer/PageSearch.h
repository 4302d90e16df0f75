#pragma once

#include "platform/report/viewer/TextFind.h"

#include <QElapsedTimer>
#include <QTimer>

namespace report {

class FindBar;
class PageView;

/// The search of a find bar through the pages of a view: marks what it finds, and goes from hit to hit. A
/// long report is searched between the events. Uses both, owns neither.
class PageSearch : public QObject {
    Q_OBJECT

  public:
    PageSearch(FindBar* bar, PageView* pages, QObject* parent);

    /// Begins anew, with the bar's text; without one where the bar is closed. More pages may be on their way
    /// as long as `growing` says so.
    void begin(bool growing);
    /// The view has more pages, or all of them.
    void takeGrowth(bool growing);
    /// The next hit (1) or the one before (-1); opens the bar where nothing was found.
    void step(int direction);

  private:
    void search(const QString& text);
    void searchFurther(int milliseconds);
    void showHits(bool searching);

    FindBar* m_bar;
    PageView* m_pages;
    std::unique_ptr<TextFind> m_find;
    QTimer m_timer;
    QElapsedTimer m_sinceHits;
    int m_currentHit = -1;
    bool m_growing = false;
};

} // namespace report
