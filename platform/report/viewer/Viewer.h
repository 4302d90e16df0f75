#pragma once

#include "platform/report/viewer/PageView.h"

#include <QWidget>

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QToolBar;
class QVBoxLayout;

namespace report {

class FindBar;
class GroupTree;
class PageSearch;
class Report;
class RunBar;
class RunDriver;

/// Shows a report: pages, zoom, search, group tree, print, export, copy. Every command has a key, told in its
/// tool tip.
class Viewer : public QWidget {
    Q_OBJECT

  public:
    explicit Viewer(QWidget* parent = nullptr);

    /// Asks for the parameters that are missing, runs the report and shows it: a short one at once, of a long
    /// one the first page while the others are still to come. False, with nothing shown, when the prompt was
    /// given up. Raises what Report::start() raises; what goes wrong later goes to the error boundary. The
    /// report may go afterwards.
    bool showReport(Report& report);
    /// Takes the widget over, to stand above everything of the viewer but those put there before.
    void putOnTop(QWidget* widget);
    void setDocument(std::shared_ptr<const PageDocument> document);
    const PageDocument* document() const { return m_pages->document(); }
    PageView* pages() const { return m_pages; }

    /// Pages are still being added.
    bool isRunning() const;

    /// Shown only if the report has groups.
    void setGroupTreeShown(bool shown);
    bool isGroupTreeShown() const { return m_treeWanted; }

    /// Asks for printer and pages, then prints; of a running report as soon as it is complete.
    void print();
    /// Asks for a path, then exports.
    void askExport();
    /// Pages as .pdf, the rows of the details as .xlsx or .csv; then a note tells where. False, with a box
    /// that tells why, when the file cannot be written.
    bool exportTo(const QString& path);

    /// The command of that name: stop, print, export, copy, first, previous, next, last, goTo, zoomIn,
    /// zoomOut, actualSize, fitWidth, fitPage, tree, find, findNext, findPrevious.
    QAction* command(const QString& name) const;

  private:
    void addCommands();
    void addPageField();
    void addZoomBox();
    void addNote();
    void tellNote(const QString& text);
    void connectPages();
    QAction* addCommand(const char* name, const char* icon, const QString& text,
                        const QList<QKeySequence>& keys, std::function<void()> run);
    void toggleTree();
    void showPage(int page);
    void showZoom();
    void takeZoomText();
    void goToTyped();
    void showDocument(std::shared_ptr<const PageDocument> document, const QString& sentence);
    void enablePageCommands();
    void showRun();
    void showGrowth();
    void showEnd();

    PageView* m_pages;
    GroupTree* m_tree;
    FindBar* m_findBar;
    PageSearch* m_search;
    QVBoxLayout* m_column;
    QToolBar* m_bar;
    QLineEdit* m_pageField;
    QLabel* m_pageCount;
    QComboBox* m_zoomBox;
    QLabel* m_note;
    bool m_treeWanted = false;
    RunDriver* m_driver;
    RunBar* m_runBar;
    bool m_printWanted = false; ///< when the report is complete
};

} // namespace report
