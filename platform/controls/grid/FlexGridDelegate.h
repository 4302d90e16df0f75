#pragma once

#include <QStyledItemDelegate>

namespace controls {

class FlexGrid;

/// Paints the cells of a FlexGrid: the current row tinted, the current cell framed while the grid has the
/// focus; of a list to pick from, the whole row, with a bar at its beginning. What a cell has no room for
/// ends in an ellipsis and stands whole in the tool tip. Straight to the painter, for grids that are scrolled
/// through by the page.
class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit FlexGridDelegate(FlexGrid* grid);
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// Pixels of a column in which the cell is seen whole; 0 for an empty one.
    int widthOf(const QModelIndex& index) const;
    /// The font of the captions, before it is made semibold.
    QFont headerFont() const;

  private:
    QFont fontOf(const QModelIndex& index) const;
    FlexGrid* m_grid;
};

} // namespace controls
