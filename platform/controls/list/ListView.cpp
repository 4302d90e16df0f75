#include "platform/controls/list/ListView.h"

#include "platform/base/Error.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/EmptyText.h"
#include "platform/controls/look/Look.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>

namespace controls {

namespace {

constexpr int twipsPerPixel = 15;
constexpr int keyIsNotUnique = 35602;

struct StatusIcon {
    const char* name;
    const QColor& color;
    const char* word;
};

const StatusIcon statusIcons[] = {{"paid", look::ok, "Paid"},
                                  {"pending", look::warn, "Pending"},
                                  {"revoke", look::danger, "Revoked"},
                                  {"clear", look::ok, "Cleared"},
                                  {"open", look::warn, "Not Cleared"}};

} // namespace

// ---- items

ListItem::ListItem(const QString& key, const QString& text)
    : QTreeWidgetItem(QStringList(text), UserType), m_key(key) {
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren);
}

void ListItem::requireColumn(int index) const {
    if (index < 1 || index >= treeWidget()->columnCount())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
}

QString ListItem::SubItem(int index) const {
    requireColumn(index);
    return text(index);
}

void ListItem::setSubItem(int index, const QString& text) {
    requireColumn(index);
    setText(index, text);
    static_cast<ListView*>(treeWidget())->makeRoomFor(text, index);
}

void ListItem::setIcon(const QString& name) {
    m_icon = name;
    QTreeWidgetItem::setIcon(0, {});
    setToolTip(0, {});
    setData(0, Qt::AccessibleDescriptionRole, {});
    for (const StatusIcon& status : statusIcons) {
        if (name != QLatin1StringView(status.name))
            continue;
        QTreeWidgetItem::setIcon(0, look::icon(name, status.color));
        setToolTip(0, QString::fromLatin1(status.word));
        setData(0, Qt::AccessibleDescriptionRole, QString::fromLatin1(status.word));
    }
}

// ---- the list

ListView::ListView(QWidget* parent) : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setColumnCount(1);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(false);
    header()->setHighlightSections(false);
    header()->setStretchLastSection(true);
}

void ListView::setColumns(std::span<const ListColumn> columns) {
    ensurePolished(); // else a list that is filled before it is seen keeps the rows of a plain one
    Clear();
    setColumnCount(int(columns.size()));
    for (int index = 0; index < int(columns.size()); ++index) {
        const ListColumn& column = columns[std::size_t(index)];
        headerItem()->setText(index, QString::fromLatin1(column.header));
        headerItem()->setTextAlignment(index, column.alignment | Qt::AlignVCenter);
        setColumnWidth(index, (column.twips + twipsPerPixel / 2) / twipsPerPixel);
    }
}

ListItem& ListView::AddItem(const QString& key, const QString& text, const QString& icon) {
    if (!key.isEmpty() && m_keys.contains(key))
        throw base::RunTimeError(keyIsNotUnique, QStringLiteral("Key is not unique in collection"));
    auto* item = new ListItem(key, text);
    for (int column = 0; column < columnCount(); ++column)
        item->setTextAlignment(column, Qt::Alignment(headerItem()->textAlignment(column)));
    addTopLevelItem(item);
    if (!key.isEmpty())
        m_keys.insert(key, item);
    item->setIcon(icon);
    makeRoomFor(text, 0);
    return *item;
}

int ListView::widthOf(const QString& text) const {
    return fontMetrics().horizontalAdvance(text) + look::scaled(16);
}

/// An amount without its last digits is another amount.
void ListView::makeRoomFor(const QString& text, int column) {
    if (headerItem()->textAlignment(column) & Qt::AlignRight)
        setColumnWidth(column, qMax(columnWidth(column), widthOf(text)));
}

void ListView::Clear() {
    QTreeWidget::clear();
    m_keys.clear();
}

ListItem& ListView::Item(int index) const {
    if (index < 1 || index > Count())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    return static_cast<ListItem&>(*topLevelItem(index - 1));
}

ListItem* ListView::find(const QString& key) const {
    return m_keys.value(key);
}

ListItem* ListView::SelectedItem() const {
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? nullptr : static_cast<ListItem*>(selected.front());
}

void ListView::select(ListItem& item) {
    setCurrentItem(&item);
    scrollToItem(&item);
}

void ListView::setEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

// ---- events

void ListView::keyPressEvent(QKeyEvent* event) {
    const QPointer<ListView> self(this);
    event->ignore();
    Q_EMIT KeyDown(event);
    if (event->isAccepted() || !self)
        return;
    if (isEnter(*event)) {
        event->accept();
        if (!event->isAutoRepeat())
            Q_EMIT EnterPressed();
        return;
    }
    if (event->key() == Qt::Key_Down && Count() > 0 && !SelectedItem()) {
        select(Item(1));
        event->accept();
        return;
    }
    if (movesInTable(event->key())) {
        QTreeWidget::keyPressEvent(event);
        event->accept();
        return;
    }
    // No search by typing: what the list does not know is the screen's.
    if (event->matches(QKeySequence::Copy))
        QTreeWidget::keyPressEvent(event);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPointer<ListView> self(this);
    const bool onItem = event->button() == Qt::LeftButton && itemAt(event->position().toPoint());
    QTreeWidget::mouseDoubleClickEvent(event);
    if (self && onItem)
        Q_EMIT DblClick();
}

void ListView::focusInEvent(QFocusEvent* event) {
    QTreeWidget::focusInEvent(event);
    const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    // A window that comes up says Tab as well, before anything in it has the focus: nobody chose yet.
    if (SelectedItem() || Count() == 0)
        return;
    if (byTab && hasFocus())
        select(Item(1));
    else
        selectionModel()->clearCurrentIndex(); // it would look like a choice
}

bool ListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QModelIndex cell = indexAt(help.pos());
    const QString text = cell.data().toString();
    const bool pictured = cell.isValid() && !cell.data(Qt::DecorationRole).isNull();
    const int needed = widthOf(text) + (pictured ? iconSize().width() + look::scaled(6) : 0);
    if (!cell.isValid() || needed <= columnWidth(cell.column()))
        return QTreeWidget::viewportEvent(event);
    const QString meaning = cell.data(Qt::ToolTipRole).toString();
    QToolTip::showText(help.globalPos(), meaning.isEmpty() ? text : text + u'\n' + meaning, this);
    return true;
}

/// The item that is chosen is seen from the search box, too, where its tint alone is easily missed.
void ListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    QTreeWidget::drawRow(painter, option, index);
    if (selectionModel()->isRowSelected(index.row(), index.parent()))
        painter->fillRect(QRect(option.rect.topLeft(), QSize(look::scaled(3), option.rect.height())),
                          look::accent);
}

void ListView::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (showsEmptyText())
        paintEmptyText(*viewport(), m_emptyText);
}

} // namespace controls
