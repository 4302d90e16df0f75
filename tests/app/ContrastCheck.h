#pragma once

#include <QColor>
#include <QStringList>

class QWidget;

namespace tests {

/// What a text needs against its ground to be read by everybody.
constexpr double leastContrast = 4.5;

/// From 1 (the same) to 21 (black on white), by the luminances.
double contrast(const QColor& text, const QColor& ground);

/// The shown texts of a window that stand out less: a line each, "QLabel lblHint: 3.9". The text's colour is
/// that of the widget's palette or of the cell, the ground what is painted there.
QStringList faintTexts(QWidget& window);

/// What takes keys, is looked at or pressed on the open page and has no name for a screen reader.
QStringList withoutAName(QWidget& window);

} // namespace tests
