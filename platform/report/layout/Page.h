#pragma once

#include "platform/report/definition/Length.h"

#include <QColor>
#include <QImage>
#include <QString>

#include <variant>
#include <vector>

namespace report {

/// The face of a text run: enough to make the same font on every device.
struct Face {
    QString family; ///< empty: the house's font for paper
    Length size;    ///< of the em square
    bool bold = false;
    bool italic = false;

    bool operator==(const Face&) const = default;
};

/// One line of text, placed. The frame is as wide as the text and as high as its line.
struct TextRun {
    Frame frame;
    Length baseline; ///< from the page's top
    QString text;
    Face face;
    QColor colour;
    double degrees = 0;       ///< turned about the frame's middle, clockwise
    bool rightToLeft = false; ///< the direction of the paragraph that the line belongs to
};

struct Stroke {
    Length x1, y1, x2, y2, thickness;
    QColor colour;
};

struct Rectangle {
    Frame frame;
    Length thickness; ///< 0: no border
    Length radius;
    QColor colour;
    QColor fill; ///< invalid: none
};

struct Picture {
    Frame frame;
    QImage image;
};

using Item = std::variant<Rectangle, Stroke, Picture, TextRun>;

/// What stands on one sheet, in painting order. Coordinates count from the paper's top left corner.
struct Page {
    int number = 1; ///< from 1
    std::vector<Item> items;
};

/// The page's text, line by line from the top; runs of one line are set apart by a tab.
QString textOf(const Page& page);

} // namespace report
