#pragma once

#include <QPointer>
#include <QWidget>

class QLineEdit;

namespace controls {

class GuideBrowser;

/// A window in which a guide is read beside the program's work. It holds up no screen, and is read over a
/// modal one as well: it stands above whichever window is modal at the moment. Alt+Left goes back, Ctrl+F
/// searches, Escape closes it and gives the focus back to the field that had it.
class GuideReader : public QWidget {
    Q_OBJECT

  public:
    /// `folder` holds the pages, a resource such as ":/docs/guide".
    GuideReader(const QString& folder, const QString& title);

    /// Shows a page, "results.md" or "results.md#print-a-result", and takes the focus.
    void open(const QString& page);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void place();
    void standOverModal();
    void find();
    void takeFirstFound();

    QLineEdit* m_search;
    GuideBrowser* m_browser;
    QPointer<QWidget> m_before; ///< the window that was active before
};

} // namespace controls
