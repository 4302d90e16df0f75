#pragma once

#include <QFont>
#include <QSize>
#include <QString>

// The room of texts, remembered: the same captions come with every screen, and to place their letters takes
// longer than all else in laying one out. Pixels of the desk's resolution.
namespace controls {

/// As QFontMetrics::horizontalAdvance().
int textWidth(const QFont& font, const QString& text);

/// Of what QFontMetrics::boundingRect() lays out in a room of that width; `flags` are of Qt::TextFlag.
QSize textSize(const QFont& font, const QString& text, int flags, int width);

} // namespace controls
