#pragma once

#include "platform/ado/Recordset.h"

#include "platform/controls/grid/FlexGridColumns.h"
#include "platform/controls/grid/FlexGridFit.h"

#include <QTableView>

#include <functional>
#include <vector>

namespace controls {

class FlexGridDelegate;
class FlexGridModel;
struct CellFormat;

/// The grid of the screens. Rows and columns count from 0 with the fixed ones included; one cell is the
/// current one (never a fixed one while there are others). Widths are twips: 15 to a logical pixel. A width
/// of 0 hides a column. They are what columns are given; what is shown moves width to where contents lack it
/// (FlexGridFit). Without cell editing of its own. Raises 9 (Subscript out of range) for a cell that
/// does not exist. Starts with 2 rows and 2 columns, one of each fixed.
class FlexGrid : public QTableView {
    Q_OBJECT

  public:
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    int Rows() const;
    /// New rows are empty; rows beyond are lost. The current cell stays inside.
    void setRows(int rows);
    int Cols() const;
    void setCols(int columns);
    int FixedRows() const;
    void setFixedRows(int rows);
    int FixedCols() const;
    void setFixedCols(int columns);

    /// 0 when there are only fixed rows.
    int Row() const;
    /// A fixed row or column gives the first one that is not.
    void setRow(int row);
    int Col() const;
    void setCol(int column);
    /// The current cell in one step: one leave, one enter.
    void setCurrentCell(int row, int column);

    QString TextMatrix(int row, int column) const;
    void setTextMatrix(int row, int column, const QString& text);
    /// Text of the current cell.
    QString Text() const;
    void setText(const QString& text);

    /// "<Head|^Head|>Head": headers of row 0 with alignment marks; sets the number of columns.
    void setFormatString(const QString& format);
    int ColWidth(int column) const;
    void setColWidth(int column, int twips);
    /// Columns from 0 on; they are laid out once.
    void setColWidths(const std::vector<int>& twips);
    void setColAlignment(int column, Qt::Alignment alignment);
    /// Which column takes the spare width on resize; -1 shares it in proportion to the given widths
    /// (default).
    void setStretchColumn(int column);

    /// One row at the end (or before `index`), cells from column 0 on parted by tabs; cells beyond the last
    /// column are lost.
    void AddItem(const QString& cells, int index = -1);
    /// Raises 30015 (Cannot remove last non-fixed row) on the last row that is not fixed, 9 on a fixed row
    /// and beyond the grid. The current row keeps its number while there is such a row.
    void RemoveItem(int row);
    /// Empties all cells, the headers too; size and widths stay.
    void Clear();
    /// Binds a result: one row for each record behind the fixed rows, its fields from the first column that
    /// is not fixed on. Headers stay when a FormatString was given, else they take the fields' names. With no
    /// record the grid keeps one empty row. The grid takes as many columns as there are fields; with a
    /// FormatString those beyond it are hidden until they are given a width. The current cell goes to the
    /// first one without a RowColChange: nobody moved. The rows are copied: the recordset may be closed.
    void setDataSource(const ado::Recordset& recordset);

    /// Where a cell lies, in coordinates of the grid's parent widget; scrolls it into view first.
    QRect cellRect(int row, int column);
    /// The same as the grid stands, even if that is out of view.
    QRect shownCellRect(int row, int column) const;

    void setCellForeColor(int row, int column, const QColor& color);
    void setCellBackColor(int row, int column, const QColor& color);
    void setCellBold(int row, int column, bool bold);
    void setCellIcon(int row, int column, const QIcon& icon);
    /// Of the line family: "check"; "" where there is none.
    QString cellIconName(int row, int column) const;
    /// Row numbers 1, 2, 3 in column 0 of every row that is not fixed, where the cell itself is empty
    /// (display only).
    void setShowRowNumbers(bool show);
    /// How the current cell shows: its row tinted and the cell framed (default), or only the whole row, for
    /// lists to pick from.
    void setRowSelect(bool wholeRow);
    bool marksRowOnly() const { return m_rowSelect; }
    /// A plain sentence in the middle of a grid without records.
    void setEmptyText(const QString& text);
    bool showsEmptyText() const;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  Q_SIGNALS:
    /// A press of the left button on a cell, once the current cell has moved there.
    void Click();
    void DblClick();
    /// The current cell changed, by key, mouse or code.
    void RowColChange();
    /// Every key, before the grid acts on it; accept() it to keep the grid from acting.
    void KeyDown(QKeyEvent* event);
    /// Return or Enter on the grid. A key that is held down gives it once.
    void EnterPressed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    /// Waits until the grid is seen or a cell's place is asked for: every row and column that a screen sets
    /// before would measure headers and scroll bars again.
    void updateGeometries() override;

  private:
    void requireCell(int row, int column) const;
    void requireColumn(int column) const;
    /// Brings the current cell inside and the view to it; tells when its numbers changed and `quietly` is not
    /// set.
    void placeCurrent(int row, int column, bool quietly = false);
    void layOutColumns();
    void awaitFit();
    void fitToContents();
    void takeColumnWidth(int section, int oldWidth, int newWidth);
    void measure();
    void showHeaders();
    void changeFormat(int row, int column, const std::function<void(CellFormat&)>& change);

    FlexGridModel* m_model;
    FlexGridDelegate* m_delegate;
    FlexGridColumns m_columns;
    FlexGridFit m_fit;
    QStringList m_formatHeaders;
    QString m_emptyText;
    int m_row = 1;
    int m_column = 1;
    bool m_rowSelect = false;
    bool m_placing = false;
    bool m_layingOut = false;
    bool m_awaitsFit = false;
    bool m_awaitsGeometries = false;
};

/// Sets the columns from a list whose cells end in "?": "Code?Description?Status?". Its first one heads the
/// column `first`.
void SetGridHeaders(FlexGrid& grid, int columns, const QString& headers, int first = 0);
/// Sets alignments from marks "<", "^", ">" parted by vertical bars.
void SetGridAlignments(FlexGrid& grid, const QString& alignments, int first = 0);

} // namespace controls
