#pragma once

class QKeyEvent;
class QPlainTextEdit;
class QTabWidget;
class QWheelEvent;
class QWidget;

namespace results {

/// Tab behind the last field of a tab page goes on to the next page, Shift+Tab before the first one back to
/// the former page. False when the focus stays on its page, or leaves the last one: the usual order is taken
/// then.
bool stepOverPages(QWidget& window, bool next);
/// Ctrl+Tab, Ctrl+PageDown and their opposites turn the pages wherever the focus is; PageDown and PageUp
/// scroll a memo that is disabled, so that it can be read. False for every other key.
bool pageKey(QWidget& window, const QKeyEvent& event);
/// Gives the focus to the first field of the page that is shown, unless it is on that page; false when the
/// page has no field that takes it.
bool focusPage(QWidget& window, QTabWidget& tabs);
/// Where a page is turned that has the focus, and the one that comes has no field for it, `otherwise` takes
/// it.
void keepFocusOnPages(QWidget& window, QTabWidget& tabs, QWidget& otherwise);
/// The wheel scrolls a memo that is disabled.
void scrollDisabled(QPlainTextEdit& memo, const QWheelEvent& event);
/// Shows the page (and the page around it) on which a field lies, and gives it the focus.
void focusOnItsPage(QWidget& field);

} // namespace results
