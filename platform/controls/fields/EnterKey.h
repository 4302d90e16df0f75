#pragma once

#include <functional>
#include <initializer_list>

class QWidget;

namespace controls {

/// Runs the handler on Enter in the field, in place of what the field does with it. A key that repeats itself
/// while it is held down counts once; Enter with Ctrl or Alt stays the field's.
void onEnter(QWidget* field, std::function<void()> handler);
/// A Tab key typed by the program: the focus goes on from that widget as if the user had pressed it.
void sendTab(QWidget* from);
/// Enter in each of these is a Tab.
void enterMovesOn(std::initializer_list<QWidget*> fields);
/// A key that is still held down from the screen behind does nothing to the widget: it must not answer what
/// nobody has read.
void ignoreHeldKeys(QWidget* widget);

} // namespace controls
