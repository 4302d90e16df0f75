#pragma once

#include <QObject>

#include <span>

class QComboBox;
class QKeyEvent;
class QLineEdit;
class QWidget;

namespace controls {

class FlexGrid;

/// How the editors of a grid behave. The keys must live as long as the program.
struct CellEditing {
    /// Scrolling and a press on the header end the edit; else the editor stays over its cell, and ends only
    /// with the cell out of sight.
    bool closesWhenMoved = false;
    /// The editor goes when the focus does, unless another window or its own menu has it for a while.
    bool hidesOnFocusOut = false;
    /// What is typed stands in the cell at once; else the screen takes it when it wants.
    bool writesEachChange = true;
    /// Logical pixels that the editor leaves free on each side of its cell.
    int inset = 0;
    /// Keys of an open editor that are its own, whatever the window has on them.
    std::span<const int> ownKeys = {};
};

/// Floats a text box or a list of the screen over the current cell of a grid, which has no editor of its own:
/// there while the cell is edited, hidden else. It follows its cell when the grid or a column is resized and
/// goes when the grid is disabled. What the keys do is the screen's: KeyDown tells them first. One editor is
/// open at a time. The grid and the editors belong to the screen and have the same parent.
class CellEditor : public QObject {
    Q_OBJECT

  public:
    CellEditor(FlexGrid& grid, const CellEditing& rules, QObject* parent);

    /// Once for each editor; hides it.
    void add(QLineEdit& box);
    /// A turn of the wheel does not change what the list holds, and nothing of it is written to the cell.
    void add(QComboBox& list);

    /// Over the current cell, with this text, which the cell takes as well (if each change is written). The
    /// focus stays where it is.
    void place(QLineEdit& box, const QString& text);
    /// The same, with the focus and all of the text selected.
    void open(QLineEdit& box, const QString& text);
    void open(QComboBox& list);
    /// A key that was typed on the grid goes to the open editor as if it had been typed there.
    void type(const QKeyEvent& event);
    /// Hides what is open; a focus in it goes where Qt sends it.
    void hide();
    /// Hides what is open; the focus goes to the grid.
    void close();
    /// The same, but a focus elsewhere stays there.
    void leave();

    bool isOpen() const;
    /// What is open; null for nothing.
    const QWidget* editor() const { return isOpen() ? m_open : nullptr; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// Every key in the open editor, before it acts; accept() it to keep the editor from acting.
    void KeyDown(QKeyEvent* event);
    /// The editor is gone, whatever hid it.
    void Closed();

  private:
    void watch(QWidget& editor);
    void show(QWidget& editor);
    QString cellName() const;
    void write(const QString& text);
    void follow();
    void cellMoved();
    bool editorEvent(QWidget& editor, QEvent& event);
    bool tellKey(QKeyEvent& event);

    FlexGrid& m_grid;
    const QObject* m_header; ///< of the grid; compared only, it goes with the grid
    CellEditing m_rules;
    QWidget* m_open = nullptr;
    bool m_placing = false; ///< it is the editor itself that moves the grid
};

} // namespace controls
