#pragma once

class QString;
class QWidget;

namespace controls {

/// The plain sentence in the middle of a list without lines; to be called while `viewport` is painted.
void paintEmptyText(QWidget& viewport, const QString& text);

} // namespace controls
