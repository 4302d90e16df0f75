#include "platform/controls/grid/FlexGridDelegate.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QToolTip>

namespace controls {

namespace {

int besideTheText() {
    return look::scaled(6);
}

int firstSeenColumn(const FlexGrid& grid) {
    int column = 0;
    while (column < grid.model()->columnCount() && grid.isColumnHidden(column))
        ++column;
    return column;
}

} // namespace

FlexGridDelegate::FlexGridDelegate(FlexGrid* grid) : QStyledItemDelegate(grid), m_grid(grid) {}

QFont FlexGridDelegate::headerFont() const {
    return m_grid->horizontalHeader()->font();
}

QFont FlexGridDelegate::fontOf(const QModelIndex& index) const {
    QFont font = m_grid->font();
    const bool fixed = !index.flags().testFlag(Qt::ItemIsEnabled);
    if (const QVariant given = index.data(Qt::FontRole); given.isValid() || fixed)
        font.setWeight(QFont::DemiBold);
    return font;
}

int FlexGridDelegate::widthOf(const QModelIndex& index) const {
    constexpr int gridLine = 1;
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty())
        return 0;
    const bool pictured = index.data(Qt::DecorationRole).isValid();
    return QFontMetrics(fontOf(index)).horizontalAdvance(text) + 2 * besideTheText() + gridLine +
           (pictured ? look::scaled(16) + besideTheText() : 0);
}

bool FlexGridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
    const bool cut = event->type() == QEvent::ToolTip && index.isValid() &&
                     widthOf(index) > m_grid->columnWidth(index.column());
    if (!cut)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), index.data(Qt::DisplayRole).toString(), view);
    return true;
}

void FlexGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const bool fixed = !index.flags().testFlag(Qt::ItemIsEnabled);
    const QModelIndex current = m_grid->currentIndex();
    const bool currentRow =
        !fixed && current.isValid() && current.row() == index.row() && !m_grid->showsEmptyText();
    const bool focused = m_grid->hasFocus();

    QColor ground = index.row() % 2 == 1 ? look::stripe : look::card;
    if (const QVariant given = index.data(Qt::BackgroundRole); given.isValid())
        ground = given.value<QColor>();
    else if (fixed)
        ground = look::header;
    else if (currentRow)
        ground = focused && m_grid->marksRowOnly() ? look::accentPressed : look::accentSoft;
    painter->fillRect(option.rect, ground);

    QRect inner = option.rect.adjusted(besideTheText(), 0, -besideTheText(), 0);
    if (const QVariant given = index.data(Qt::DecorationRole); given.isValid()) {
        const int side = qMin(look::scaled(16), option.rect.height() - 2);
        const QString text = index.data(Qt::DisplayRole).toString();
        const Qt::Alignment place = text.isEmpty() ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
        QRect picture(0, 0, side, side);
        picture.moveCenter(inner.center());
        if (!text.isEmpty())
            picture.moveLeft(inner.left());
        given.value<QIcon>().paint(painter, picture, place);
        inner.setLeft(picture.right() + besideTheText());
    }

    const QString text = index.data(Qt::DisplayRole).toString();
    if (!text.isEmpty()) {
        const QFont font = fontOf(index);
        painter->setFont(font);
        const QVariant color = index.data(Qt::ForegroundRole);
        painter->setPen(color.isValid()
                            ? color.value<QColor>()
                            : (option.state.testFlag(QStyle::State_Enabled) ? look::ink : look::muted));
        const auto alignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
        const QFontMetrics metrics(font);
        // Most cells fit; measuring first is cheaper than eliding always.
        const bool fits = metrics.horizontalAdvance(text) <= inner.width();
        const QString shown = fits ? text : metrics.elidedText(text, Qt::ElideRight, inner.width());
        painter->drawText(inner, int(alignment) | Qt::TextSingleLine, shown);
    }

    if (index == current && focused && !m_grid->marksRowOnly()) {
        painter->setPen(QPen(look::accent, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
    }
    // Seen from the search box, too, where the tint alone is easily missed.
    if (currentRow && m_grid->marksRowOnly() && index.column() == firstSeenColumn(*m_grid))
        painter->fillRect(QRect(option.rect.topLeft(), QSize(look::scaled(3), option.rect.height())),
                          look::accent);
}

} // namespace controls
