#pragma once

#include <QObject>

#include <functional>

class QKeyEvent;
class QLineEdit;

namespace controls {

class FlexGrid;
class ListView;

/// The keys that all lists share. Down in the search box goes to the first row, Up on the first row goes
/// back, and what is typed in the list lands in the search box in place of its text. An Enter key that
/// repeats itself while it is held down counts once. A grid shows its current row, not a cell.
class ListKeys : public QObject {
    Q_OBJECT

  public:
    /// `search` is null for a list without a search box. Nothing is owned; both must outlive this.
    ListKeys(QLineEdit* search, FlexGrid& grid);
    ListKeys(QLineEdit* search, ListView& view);

    /// Rows that the list holds: without one it takes no focus from the search box.
    void setHits(int hits) { m_hits = hits; }
    int hits() const { return m_hits; }
    /// The focus to the search box, with all of its text selected; to the list where there is none.
    void backToSearch();
    /// The focus to the list, on the row it stands on.
    void toList();

  Q_SIGNALS:
    /// Enter in the search box.
    void searchEntered();
    /// Enter on the list, whether or not it holds rows.
    void rowEntered();
    /// The same by a double click.
    void rowDoubleClicked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    template <typename List>
    void watch(List& list);
    bool searchKey(const QKeyEvent& event);
    void listKey(QKeyEvent& event);

    QLineEdit* m_search;
    QWidget& m_list;
    std::function<bool()> m_isOnFirstRow;
    std::function<void()> m_goToFirstRow;
    int m_hits = 0;
};

} // namespace controls
