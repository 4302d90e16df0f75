#pragma once

#include <QStyledItemDelegate>

namespace controls {

class FlexGrid;

/// Paints the cells of a FlexGrid: the current row tinted, the current cell framed while the grid has the
/// focus. Straight to the painter, for grids that are scrolled through by the page.
class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit FlexGridDelegate(FlexGrid* grid);
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    FlexGrid* m_grid;
};

} // namespace controls
