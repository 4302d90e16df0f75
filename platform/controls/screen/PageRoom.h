#pragma once

class QBoxLayout;
class QLayout;
class QWidget;

namespace controls {

// How a screen's page is laid out where its desktop has little room.

/// The column that all of a page stands in: the screen's own layout, or what lies last in it; null when
/// neither is one.
QBoxLayout* columnOf(QLayout& page);

/// The room of a group that holds one list and nothing else is the list's.
void widenLists(const QWidget& screen);

/// A screen that needs more than the desktop keeps less room around and between what it holds.
void tighten(QWidget& screen);

/// Rows that are wider than `room` pixels lie one below the other instead; commands stay side by side. Who
/// lays out otherwise below than beside is sent a LayoutRequest before the screen is measured.
void stackRows(QWidget& screen, int room);

/// The last row of the page, if it is the commands: taken out, in a widget of `screen`. Else null.
QWidget* takeCommands(QLayout& page, QWidget* screen);

} // namespace controls
