#pragma once

#include "platform/report/PageView.h"

#include <QWidget>

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QToolBar;
class QTreeWidget;

namespace report {

class FindBar;
class Report;

/// Shows a report: pages, zoom, search, group tree, print, export, copy. Every command has a key, told in its
/// tool tip.
class Viewer : public QWidget {
    Q_OBJECT

  public:
    explicit Viewer(QWidget* parent = nullptr);

    /// Asks for the parameters that are missing, runs the report and shows it. False, with nothing shown,
    /// when the prompt was given up. Raises what Report::run() raises. The report may go afterwards.
    bool showReport(Report& report);
    void setDocument(std::shared_ptr<const PageDocument> document);
    const PageDocument* document() const { return m_pages->document(); }
    PageView* pages() const { return m_pages; }

    /// Shown only if the report has groups.
    void setGroupTreeShown(bool shown);
    bool isGroupTreeShown() const { return m_treeWanted; }

    /// Asks for printer and pages, then prints.
    void print();
    /// Asks for a path, then exports.
    void askExport();
    /// Pages as .pdf, the rows of the details as .xlsx or .csv; then a note tells where. False, with a box
    /// that tells why, when the file cannot be written.
    bool exportTo(const QString& path);

    /// The command of that name: print, export, copy, first, previous, next, last, goTo, zoomIn, zoomOut,
    /// actualSize, fitWidth, fitPage, tree, find, findNext, findPrevious.
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
    void fillTree();
    void toggleTree();
    void showPage(int page);
    void showZoom();
    void takeZoomText();
    void goToTyped();
    void find(const QString& text);
    void findStep(int direction);
    void printOn(QPrinter& printer);

    PageView* m_pages;
    QTreeWidget* m_tree;
    FindBar* m_findBar;
    QToolBar* m_bar;
    QLineEdit* m_pageField;
    QLabel* m_pageCount;
    QComboBox* m_zoomBox;
    QLabel* m_note;
    bool m_treeWanted = false;
    std::vector<Hit> m_hits;
    int m_currentHit = -1;
};

} // namespace report
