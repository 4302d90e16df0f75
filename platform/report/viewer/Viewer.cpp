#include "platform/report/viewer/Viewer.h"

#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"
#include "platform/report/Report.h"
#include "platform/report/RunDriver.h"
#include "platform/report/viewer/FindBar.h"
#include "platform/report/viewer/ParameterPrompt.h"
#include "platform/report/viewer/RunBar.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSplitter>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace report {
namespace {

constexpr std::array zoomSteps{25, 50, 75, 100, 125, 150, 200, 300, 400};

enum TreeRole { PageRole = Qt::UserRole, HeightRole };

} // namespace

Viewer::Viewer(QWidget* parent) : QWidget(parent) {
    m_bar = new QToolBar(this);
    m_bar->setIconSize(QSize(20, 20));
    m_pages = new PageView(this);
    m_pages->setObjectName(QStringLiteral("pages"));
    m_tree = new QTreeWidget(this);
    m_tree->setObjectName(QStringLiteral("groupTree"));
    m_tree->setHeaderHidden(true);
    m_tree->setAccessibleName(tr("Groups of the report"));
    m_tree->setMinimumWidth(controls::look::scaled(200));
    m_tree->hide();
    m_findBar = new FindBar(this);
    m_findBar->hide();
    m_driver = new RunDriver(this);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_pages);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_bar);
    addCommands();
    m_runBar = new RunBar(command(QStringLiteral("stop")), this);
    m_runBar->hide();
    column->addWidget(m_runBar);
    column->addWidget(m_findBar);
    column->addWidget(splitter, 1);
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
    addCommand("findNext", nullptr, tr("Next hit"), {Qt::Key_F3}, [this] { findStep(1); });
    addCommand("findPrevious", nullptr, tr("Previous hit"), {Qt::SHIFT | Qt::Key_F3},
               [this] { findStep(-1); });
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

void Viewer::addZoomBox() {
    m_zoomBox = new QComboBox(this);
    m_zoomBox->setObjectName(QStringLiteral("zoomBox"));
    m_zoomBox->setEditable(true);
    m_zoomBox->setInsertPolicy(QComboBox::NoInsert);
    m_zoomBox->setMinimumContentsLength(6);
    m_zoomBox->setToolTip(tr("Zoom (Ctrl+0 for 100 %)"));
    m_zoomBox->setAccessibleName(tr("Zoom"));
    for (const int step : zoomSteps)
        m_zoomBox->addItem(tr("%1 %").arg(step));
    m_bar->addWidget(m_zoomBox);
    controls::on(m_zoomBox, &QComboBox::activated, this, [this] { takeZoomText(); });
    controls::on(m_zoomBox->lineEdit(), &QLineEdit::returnPressed, this, [this] { takeZoomText(); });
}

void Viewer::connectPages() {
    controls::on(m_pages, &PageView::pageChanged, this, [this](int page) { showPage(page); });
    controls::on(m_pages, &PageView::zoomChanged, this, [this] { showZoom(); });
    controls::on(
        m_tree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item, QTreeWidgetItem*) {
            if (item)
                m_pages->goTo(item->data(0, PageRole).toInt(), Length{item->data(0, HeightRole).toInt()});
        });
    controls::on(m_driver, &RunDriver::grew, this, [this] { showGrowth(); });
    controls::on(m_driver, &RunDriver::ended, this, [this] { showEnd(); });
    controls::on(&m_findTimer, &QTimer::timeout, this, [this] { findFurther(findSlice); });
    controls::on(m_findBar, &FindBar::textChanged, this, [this](const QString& text) { find(text); });
    controls::on(m_findBar, &FindBar::step, this, [this](int direction) { findStep(direction); });
    controls::on(m_findBar, &FindBar::closed, this, [this] {
        find({});
        m_pages->setFocus();
    });
}

QAction* Viewer::command(const QString& name) const {
    return findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
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
    find(m_findBar->isVisible() ? m_findBar->text() : QString());
    m_tree->clear();
    m_treePath.clear();
    m_treeFilled = 0;
    showPage(m_pages->currentPage());
    showZoom();
    showRun();
}

/// Adds the groups that have come since the last time.
void Viewer::fillTree() {
    if (!document())
        return;
    const QSignalBlocker blocker(m_tree);
    std::vector<QTreeWidgetItem*>& path = m_treePath;
    QList<QTreeWidgetItem*> top;
    const std::vector<TreeEntry>& entries = document()->groupTree();
    if (m_treeFilled > entries.size()) { // a run that began anew
        m_tree->clear();
        path.clear();
        m_treeFilled = 0;
    }
    for (; m_treeFilled < entries.size(); ++m_treeFilled) {
        const TreeEntry& entry = entries[m_treeFilled];
        auto* item = new QTreeWidgetItem({entry.text.isEmpty() ? tr("(blank)") : entry.text});
        item->setData(0, PageRole, entry.page);
        item->setData(0, HeightRole, entry.y.hundredths);
        path.resize(std::min(path.size(), std::size_t(entry.level)));
        if (path.empty())
            top << item;
        else
            path.back()->addChild(item);
        path.push_back(item);
    }
    m_tree->addTopLevelItems(top);
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
    const QSignalBlocker blocker(m_tree);
    m_tree->setCurrentItem(m_tree->topLevelItem(0));
    for (QTreeWidgetItemIterator item(m_tree); *item; ++item) {
        if ((*item)->data(0, PageRole).toInt() <= m_pages->currentPage())
            m_tree->setCurrentItem(*item);
    }
    m_tree->setFocus(Qt::ShortcutFocusReason);
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

} // namespace report
