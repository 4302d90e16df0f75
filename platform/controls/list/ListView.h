#pragma once

#include <QHash>
#include <QTreeWidget>

#include <span>

namespace controls {

/// One column of a list view: its header, its width in twips (15 to a logical pixel), the side its texts
/// keep to.
struct ListColumn {
    const char* header;
    int twips;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// One line of a list view: a text in the first column, sub-items from 1 on in those behind it. Belongs to
/// its list. Raises 9 (Subscript out of range) for a sub-item without a column.
class ListItem : public QTreeWidgetItem {
  public:
    const QString& key() const { return m_key; }
    QString Text() const { return text(0); }
    QString SubItem(int index) const;
    void setSubItem(int index, const QString& text);
    /// "paid", "pending", "revoke", "clear", "open", or "" for none. Each has a drawing, a colour and a word
    /// of its own; the word is said where the pointer rests on it, and to those who do not see it.
    const QString& Icon() const { return m_icon; }
    void setIcon(const QString& name);

  private:
    friend class ListView;
    ListItem(const QString& key, const QString& text);
    void requireColumn(int index) const;

    QString m_key;
    QString m_icon;
};

/// A list in report style: columns with headers, lines that can be looked up by a key, one of which may be
/// selected. It is only looked at and chosen from. Items and sub-items count from 1. Nothing is selected
/// until somebody chooses; Tab into the list chooses the first item, and so does Down while none is chosen. A
/// text that is cut stands whole in the tool tip; what is right-aligned, an amount, is never cut.
class ListView : public QTreeWidget {
    Q_OBJECT

  public:
    explicit ListView(QWidget* parent = nullptr);

    /// Empties the list and lays its columns out; the last one takes the spare width.
    void setColumns(std::span<const ListColumn> columns);

    /// At the end. Raises 35602 for a key that another item has; items without one ("") may be many.
    ListItem& AddItem(const QString& key, const QString& text, const QString& icon = {});
    void Clear();
    void clear() = delete; // it would leave the keys behind
    int Count() const { return topLevelItemCount(); }
    /// From 1 on; raises 9 beyond.
    ListItem& Item(int index) const;
    /// Null when no item has the key.
    ListItem* find(const QString& key) const;
    /// Null when none is selected.
    ListItem* SelectedItem() const;
    void select(ListItem& item);

    /// A plain sentence in the middle of a list without items.
    void setEmptyText(const QString& text);
    bool showsEmptyText() const { return Count() == 0 && !m_emptyText.isEmpty(); }

  Q_SIGNALS:
    /// A double click of the left button on an item.
    void DblClick();
    /// Every key, before the list acts on it; accept() it to keep the list from acting.
    void KeyDown(QKeyEvent* event);
    /// Return or Enter on the list. A key that is held down gives it once.
    void EnterPressed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

  private:
    friend class ListItem;
    int widthOf(const QString& text) const;
    void makeRoomFor(const QString& text, int column);

    QHash<QString, ListItem*> m_keys;
    QString m_emptyText;
};

} // namespace controls
