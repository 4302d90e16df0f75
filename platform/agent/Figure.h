#pragma once

#include <QByteArray>
#include <QColor>
#include <QPointF>
#include <QSize>
#include <QString>

#include <map>
#include <vector>

class QPainter;

namespace agent {

/// One stroke of the drawing: filled, or a line of a width.
struct Shape {
    enum class Kind { Ellipse, Polygon, Line };
    Kind kind = Kind::Polygon;
    QColor color;
    double width = 0;            ///< of a line, in pixels of the figure
    std::vector<QPointF> points; ///< of an ellipse: its middle, its two radii
};

/// Parts painted one over the other for so long.
struct Frame {
    struct Placed {
        int part = 0; ///< of Figure::parts
        QPointF offset;
    };
    int milliseconds = 0;
    std::vector<Placed> parts;
};

/// What a character looks like: drawn as shapes, so that it is sharp at any scale.
struct Figure {
    QString name;
    QSize size; ///< what the shapes were drawn for
    std::vector<std::vector<Shape>> parts;
    /// "show" and "hide" are played once, "rest" and "speak" again and again. Each has a frame at least.
    std::map<QString, std::vector<Frame>> animations;
};

/// No invalid file format is worse than another: this number, and "line N: what is wrong".
inline constexpr int errorInvalidFile = 321;

/// Reads a character file (docs/character.md). Raises errorInvalidFile; a file of any content is read or
/// refused.
Figure readFigure(const QByteArray& text);

void paint(QPainter& painter, const Figure& figure, const Frame& frame);

} // namespace agent
