#include "platform/report/viewer/Viewer.h"

#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/report/Report.h"
#include "platform/report/RunDriver.h"
#include "platform/report/output/Print.h"
#include "platform/report/output/PrintSystem.h"
#include "platform/report/output/RowExport.h"
#include "platform/report/viewer/FindBar.h"
#include "platform/report/viewer/GroupTree.h"
#include "platform/report/viewer/PageSearch.h"
#include "platform/report/viewer/ParameterPrompt.h"
#include "platform/report/viewer/ProgressBox.h"
#include "platform/report/viewer/RunBar.h"
#include "platform/report/viewer/SaveDialog.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

#include <array>

namespace report {
namespace {

constexpr std::array zoomSteps{25, 50, 75, 100, 125, 150, 200, 300, 400};

} // namespace

Viewer::Viewer(QWidget* parent) : QWidget(parent) {
    m_bar = new QToolBar(this);
    m_bar->setIconSize(QSize(20, 20));
    m_pages = new PageView(this);
    m_pages->setObjectName(QStringLiteral("pages"));
    m_tree = new GroupTree(this);
    m_tree->setObjectName(QStringLiteral("groupTree"));
    m_tree->hide();
    m_findBar = new FindBar(this);
    m_findBar->hide();
    m_search = new PageSearch(m_findBar, m_pages, this);
    m_driver = new RunDriver(this);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_pages);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    m_column = new QVBoxLayout(this);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_column->addWidget(m_bar);
    addCommands();
    m_runBar = new RunBar(command(QStringLiteral("stop")), this);
    m_runBar->hide();
    m_column->addWidget(m_runBar);
    m_column->addWidget(m_findBar);
    m_column->addWidget(splitter, 1);
    connectPages();
    setFocusProxy(m_pages);
    setDocument(nullptr);
}

void Viewer::addCommands() {
    const auto page = [this] { return m_pages->currentPage(); };
    addCommand("print", "print", tr("Print"), {Qt::CTRL | Qt::Key_P}, [this] { print(); });
    addCommand("export", "export", tr("Export to PDF, Excel or CSV"), {Qt::CTRL | Qt::Key_E},
               [this] { askExport(); });
    addCommand("copy", "copy", tr("Copy text"), {Qt::CTRL | Qt::Key_C},
               [this] { QApplication::clipboard()->setText(m_pages->textToCopy()); });
    m_bar->addSeparator();
    addCommand("first", "first", tr("First page"), {Qt::CTRL | Qt::Key_Home}, [this] { m_pages->goTo(0); });
    addCommand("previous", "previous", tr("Previous page"), {Qt::CTRL | Qt::Key_PageUp},
               [this, page] { m_pages->goTo(page() - 1); });
    addPageField();
    addCommand("next", "next", tr("Next page"), {Qt::CTRL | Qt::Key_PageDown},
               [this, page] { m_pages->goTo(page() + 1); });
    addCommand("last", "last", tr("Last page"), {Qt::CTRL | Qt::Key_End},
               [this] { m_pages->goTo(m_pages->document() ? m_pages->document()->pageCount() - 1 : 0); });
    m_bar->addSeparator();
    addCommand("zoomOut", "zoom-out", tr("Zoom out"), {Qt::CTRL | Qt::Key_Minus},
               [this] { m_pages->setZoom(m_pages->zoom() / 1.25); });
    addZoomBox();
    addCommand("zoomIn", "zoom-in", tr("Zoom in"), {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
               [this] { m_pages->setZoom(m_pages->zoom() * 1.25); });
    addCommand("fitWidth", "fit-width", tr("Fit width"), {Qt::CTRL | Qt::Key_1},
               [this] { m_pages->setFit(PageView::Fit::Width); });
    addCommand("fitPage", "fit-page", tr("Fit page"), {Qt::CTRL | Qt::Key_2},
               [this] { m_pages->setFit(PageView::Fit::Page); });
    m_bar->addSeparator();
    addCommand("find", "search", tr("Find"), {Qt::CTRL | Qt::Key_F}, [this] { m_findBar->begin(); });
    QAction* tree =
        addCommand("tree", "tree", tr("Group tree"), {Qt::CTRL | Qt::Key_T}, [this] { toggleTree(); });
    tree->setCheckable(true);
    addNote();
    addCommand("findNext", nullptr, tr("Next hit"), {Qt::Key_F3}, [this] { m_search->step(1); });
    addCommand("findPrevious", nullptr, tr("Previous hit"), {Qt::SHIFT | Qt::Key_F3},
               [this] { m_search->step(-1); });
    addCommand("actualSize", nullptr, tr("Natural size"), {Qt::CTRL | Qt::Key_0},
               [this] { m_pages->setZoom(1.0); });
    addCommand("stop", nullptr, tr("Stop"), {Qt::Key_Escape}, [this] { m_driver->stop(); });
    addCommand("goTo", nullptr, tr("Go to page"), {Qt::CTRL | Qt::Key_G}, [this] {
        m_pageField->setFocus(Qt::ShortcutFocusReason);
        m_pageField->selectAll();
    });
}

/// A command without an icon has its key only.
QAction* Viewer::addCommand(const char* name, const char* icon, const QString& text,
                            const QList<QKeySequence>& keys, std::function<void()> run) {
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1StringView(name));
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys.front().toString(QKeySequence::NativeText)));
    controls::on(action, &QAction::triggered, this, std::move(run));
    addAction(action);
    if (icon) {
        action->setIcon(controls::look::icon(QLatin1StringView(icon)));
        m_bar->addAction(action);
    }
    return action;
}

void Viewer::addPageField() {
    m_pageField = new QLineEdit(this);
    m_pageField->setObjectName(QStringLiteral("pageField"));
    m_pageField->setAlignment(Qt::AlignRight);
    m_pageField->setFixedWidth(m_pageField->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 16);
    m_pageField->setValidator(new QIntValidator(1, 9999999, m_pageField));
    m_pageField->setToolTip(tr("Page number, then Enter (Ctrl+G)"));
    m_pageField->setAccessibleName(tr("Page number"));
    m_pageCount = new QLabel(this);
    m_pageCount->setObjectName(QStringLiteral("pageCount"));
    m_pageCount->setProperty("kind", QStringLiteral("help"));
    m_pageCount->setContentsMargins(4, 0, 4, 0);
    m_bar->addWidget(m_pageField);
    m_bar->addWidget(m_pageCount);
    controls::on(m_pageField, &QLineEdit::returnPressed, this, [this] { goToTyped(); });
}

/// Tells what became of a command, at the bar's end.
void Viewer::addNote() {
    auto* spacer = new QWidget(this);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_bar->addWidget(spacer);
    m_note = new QLabel(this);
    m_note->setObjectName(QStringLiteral("note"));
    m_note->setProperty("kind", QStringLiteral("help"));
    m_note->setContentsMargins(8, 0, 12, 0);
    m_bar->addWidget(m_note);
}

void Viewer::addZoomBox() {
    m_zoomBox = new QComboBox(this);
    m_zoomBox->setObjectName(QStringLiteral("zoomBox"));
    m_zoomBox->setEditable(true);
    m_zoomBox->setInsertPolicy(QComboBox::NoInsert);
    m_zoomBox->setMinimumContentsLength(6);
    m_zoomBox->setToolTip(tr("Zoom (Ctrl+0 for 100 %)"));
    m_zoomBox->setAccessibleName(tr("Zoom"));
    m_zoomBox->lineEdit()->setAccessibleName(tr("Zoom"));
    for (const int step : zoomSteps)
        m_zoomBox->addItem(tr("%1 %").arg(step));
    m_bar->addWidget(m_zoomBox);
    controls::on(m_zoomBox, &QComboBox::activated, this, [this] { takeZoomText(); });
    controls::on(m_zoomBox->lineEdit(), &QLineEdit::returnPressed, this, [this] { takeZoomText(); });
}

void Viewer::connectPages() {
    controls::on(m_pages, &PageView::pageChanged, this, [this](int page) { showPage(page); });
    controls::on(m_pages, &PageView::zoomChanged, this, [this] { showZoom(); });
    controls::on(m_tree, &GroupTree::picked, this, [this](int page, Length y) { m_pages->goTo(page, y); });
    controls::on(m_driver, &RunDriver::grew, this, [this] { showGrowth(); });
    controls::on(m_driver, &RunDriver::ended, this, [this] { showEnd(); });
}

QAction* Viewer::command(const QString& name) const {
    return findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

void Viewer::putOnTop(QWidget* widget) {
    m_column->insertWidget(m_column->indexOf(m_bar), widget);
}

bool Viewer::showReport(Report& report) {
    setDocument(nullptr);
    if (!promptForParameters(report, this))
        return false;
    {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto done = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        m_driver->start(report.start());
    }
    showDocument(m_driver->run()->document(), tr("The first page is on its way."));
    return true;
}

bool Viewer::isRunning() const {
    return m_driver->isRunning();
}

void Viewer::setDocument(std::shared_ptr<const PageDocument> document) {
    m_driver->clear();
    showDocument(std::move(document), tr("The report was not run."));
}

void Viewer::showDocument(std::shared_ptr<const PageDocument> document, const QString& sentence) {
    const bool given = document != nullptr;
    m_printWanted = false;
    m_pages->setDocument(std::move(document), sentence);
    for (QAction* action : actions())
        action->setEnabled(given);
    m_pageField->setEnabled(given);
    m_zoomBox->setEnabled(given);
    m_note->clear();
    m_search->begin(isRunning());
    m_tree->empty();
    showPage(m_pages->currentPage());
    showZoom();
    showRun();
}

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
    if (shown)
        m_tree->fill(shown->groupTree());
    setGroupTreeShown(m_treeWanted);
    enablePageCommands();
}

void Viewer::showGrowth() {
    m_pages->takeGrowth();
    m_search->takeGrowth(isRunning());
    showRun();
}

void Viewer::showEnd() {
    showGrowth();
    m_search->begin(isRunning());
    if (std::exchange(m_printWanted, false) && document()->isComplete())
        print();
}

void Viewer::setGroupTreeShown(bool shown) {
    m_treeWanted = shown;
    const bool hasGroups = m_tree->topLevelItemCount() > 0;
    m_tree->setVisible(shown && hasGroups);
    command(QStringLiteral("tree"))->setEnabled(hasGroups);
    command(QStringLiteral("tree"))->setChecked(shown && hasGroups);
}

/// By its key the tree takes the keyboard, standing at the group in sight, and gives it back.
void Viewer::toggleTree() {
    setGroupTreeShown(!m_treeWanted);
    if (!m_tree->isVisibleTo(this)) {
        m_pages->setFocus();
        return;
    }
    m_tree->begin(m_pages->currentPage());
}

void Viewer::showPage(int page) {
    m_pageField->setText(page < 0 ? QString() : QString::number(page + 1));
    enablePageCommands();
}

void Viewer::enablePageCommands() {
    const int page = m_pages->currentPage();
    const int pages = document() ? document()->pageCount() : 0;
    for (const char* name : {"first", "previous"})
        command(QLatin1StringView(name))->setEnabled(page > 0);
    const bool further = page >= 0 && page + 1 < pages;
    command(QStringLiteral("next"))->setEnabled(further);
    command(QStringLiteral("last"))->setEnabled(further && !isRunning());
}

void Viewer::showZoom() {
    m_zoomBox->setEditText(tr("%1 %").arg(qRound(m_pages->zoom() * 100)));
    for (const auto& [name, fit] :
         {std::pair("fitWidth", PageView::Fit::Width), {"fitPage", PageView::Fit::Page}}) {
        command(QLatin1StringView(name))->setCheckable(true);
        command(QLatin1StringView(name))->setChecked(m_pages->fit() == fit);
    }
}

void Viewer::takeZoomText() {
    bool valid = false;
    const double percent = m_zoomBox->currentText().remove(u'%').trimmed().toDouble(&valid);
    if (valid)
        m_pages->setZoom(percent / 100.0);
    showZoom();
    m_pages->setFocus();
}

void Viewer::goToTyped() {
    m_pages->goTo(m_pageField->text().toInt() - 1);
    showPage(m_pages->currentPage());
    m_pages->setFocus();
}

void Viewer::print() {
    m_printWanted = isRunning();
    if (!document() || !document()->isComplete())
        return;
    const controls::ModalLevel level;
    try {
        const PrintChoice choice =
            printSystem().ask(this, document()->title(), document()->pageCount(), m_pages->currentPage() + 1);
        controls::ErrorBoundary::throwIfStopping();
        if (!choice.printer)
            return;
        ProgressBox box(this, tr("Print"));
        printPages(*document(), *choice.printer, choice.from, choice.to, box.call());
    } catch (const base::RunTimeError& error) {
        controls::MsgBox(error.description(), controls::vbExclamation, tr("Print"));
    }
}

void Viewer::askExport() {
    if (!document() || !document()->isComplete())
        return;
    QList<SaveKind> kinds{{tr("PDF documents"), QStringLiteral("pdf")}};
    if (document()->rows())
        kinds << SaveKind{tr("Excel workbooks of the rows"), QStringLiteral("xlsx")}
              << SaveKind{tr("Comma separated rows"), QStringLiteral("csv")};
    const QString path = askSavePath(this, tr("Export"), document()->title(), kinds);
    if (!path.isEmpty())
        exportTo(path);
}

bool Viewer::exportTo(const QString& path) {
    if (!document() || !document()->isComplete())
        return false;
    m_note->clear();
    QString failure;
    bool written = false;
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto done = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        ProgressBox box(this, tr("Export"));
        if (fileKindOf(path) == FileKind::Pdf)
            written = exportPdf(*document(), path, box.call());
        else if (document()->rows())
            written = exportRows(*document()->rows(), document()->rowsHeading(), path, box.call());
        else
            failure = tr("The report has no rows to export.");
    } catch (const base::RunTimeError& error) {
        failure = error.description();
    }
    if (!failure.isEmpty())
        controls::MsgBox(failure, controls::vbExclamation, tr("Export"));
    else
        tellNote(written ? tr("Saved as %1").arg(QDir::toNativeSeparators(path)) : tr("Nothing was saved"));
    return written;
}

/// The end of a path says more than its beginning.
void Viewer::tellNote(const QString& text) {
    m_note->setText(m_note->fontMetrics().elidedText(text, Qt::ElideMiddle, controls::look::scaled(420)));
    m_note->setToolTip(text);
    m_note->setAccessibleName(text);
    QAccessibleEvent event(m_note, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace report
