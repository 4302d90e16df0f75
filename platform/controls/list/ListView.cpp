#include "platform/controls/list/ListView.h"

#include "platform/base/Error.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/Look.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

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
    return *item;
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
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QTreeWidget::keyPressEvent(event);
        event->accept();
        return;
    default:
        // No search by typing: what the list does not know is the screen's.
        if (event->matches(QKeySequence::Copy))
            QTreeWidget::keyPressEvent(event);
        return;
    }
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

void ListView::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (Count() > 0 || m_emptyText.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(look::muted);
    painter.drawText(viewport()->rect().adjusted(8, 0, -8, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     m_emptyText);
}

} // namespace controls
