#pragma once

#include <QByteArray>
#include <QColor>
#include <QPainterPath>
#include <QRectF>

class QPainter;

namespace controls {

/// Paints one of the house's drawings so that its view box fills `rect`; "currentColor" in it is `color`.
/// Drawings are SVG of few words: paths, rectangles, circles, ellipses and groups, filled with a colour or a
/// linear gradient from corner to corner. False when there is a word that is not known here (it is left out).
bool paintDrawing(QPainter& painter, const QRectF& rect, const QByteArray& drawing, const QColor& color);

/// The data of an SVG path: M L H V C S A Z and their small letters, arcs that stand upright. Empty when
/// there is anything else in it.
QPainterPath pathOf(QByteArrayView data);

} // namespace controls
