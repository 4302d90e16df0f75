#pragma once

#include <QObject>
#include <QStringList>

class QKeyEvent;
class QLabel;
class QLineEdit;

namespace controls {
class FlexGrid;
}

namespace lookup {

/// The keys that all pickers share. Down in the search box goes to the first row, Up on the first row goes
/// back, and what is typed in the grid lands in the search box in place of its text. An Enter key that
/// repeats itself while it is held down counts once. The grid shows its current row, not a cell.
class PickerKeys : public QObject {
    Q_OBJECT

  public:
    /// Neither is owned; both must outlive this.
    PickerKeys(QLineEdit& search, controls::FlexGrid& grid);

    /// Rows that the last search found: without one the grid takes no focus and no choice.
    void setHits(int hits) { m_hits = hits; }
    int hits() const { return m_hits; }
    /// "No patient found.", "1 patient", "57 patients".
    static QString hitsText(int hits, const QString& one, const QString& many);
    /// Says how many patients were found, or that the list ends before they do.
    static void showPatientHits(QLabel& line, int hits);
    /// The cells of the grid's current row, the empty leading one included.
    QStringList currentCells() const;
    /// The focus to the search box, with all of its text selected.
    void backToSearch();

  Q_SIGNALS:
    /// Enter in the search box.
    void searchEntered();
    /// Enter or a double click on a row that was found.
    void rowEntered();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool searchKey(const QKeyEvent& event);
    void gridKey(QKeyEvent& event);

    QLineEdit& m_search;
    controls::FlexGrid& m_grid;
    int m_hits = 0;
};

} // namespace lookup
