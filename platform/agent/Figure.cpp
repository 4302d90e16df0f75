#include "platform/agent/Figure.h"

#include "platform/base/Error.h"

#include <QPainter>
#include <QPolygonF>
#include <QStringList>

#include <cmath>

namespace agent {

namespace {

constexpr qsizetype mostBytes = 256 * 1024;
constexpr std::size_t mostParts = 64;
constexpr std::size_t mostShapes = 256; ///< of a part
constexpr qsizetype mostPoints = 128;
constexpr std::size_t mostFrames = 256; ///< of an animation
constexpr double farthest = 1024;
constexpr const char* animationNames[] = {"show", "rest", "speak", "hide"};

class Reader {
  public:
    Figure read(const QByteArray& text) {
        if (text.size() > mostBytes)
            refuse("the file is too long");
        const QStringList lines = QString::fromUtf8(text).split(u'\n');
        for (const QString& line : lines) {
            ++m_line;
            const QStringList words = line.simplified().split(u' ', Qt::SkipEmptyParts);
            if (m_line == 1)
                readHeading(words);
            else if (!words.isEmpty() && !words.front().startsWith(u';'))
                readLine(words);
        }
        for (const char* name : animationNames) {
            if (m_figure.animations[QLatin1String(name)].empty())
                refuse(QStringLiteral("there is no frame of \"%1\"").arg(QLatin1String(name)));
        }
        if (m_figure.name.isEmpty() || m_figure.size.isEmpty())
            refuse("name or size is missing");
        return std::move(m_figure);
    }

  private:
    [[noreturn]] void refuse(const QString& what) const {
        throw base::RunTimeError(errorInvalidFile,
                                 QStringLiteral("Character file, line %1: %2.").arg(m_line).arg(what));
    }
    [[noreturn]] void refuse(const char* what) const { refuse(QLatin1String(what)); }

    double number(const QString& word, double least, double most) const {
        bool good = false;
        const double value = word.toDouble(&good);
        if (!good || !std::isfinite(value) || value < least || value > most)
            refuse(
                QStringLiteral("\"%1\" is no number from %2 to %3").arg(word.left(40)).arg(least).arg(most));
        return value;
    }

    QPointF point(const QString& word) const {
        const QStringList both = word.split(u',');
        if (both.size() != 2)
            refuse("a point is two numbers with a comma between them");
        return {number(both[0], -farthest, farthest), number(both[1], -farthest, farthest)};
    }

    QColor color(const QString& word) const {
        const QColor read(word);
        if (!word.startsWith(u'#') || !read.isValid())
            refuse("a colour is #RRGGBB or #AARRGGBB");
        return read;
    }

    void expect(const QStringList& words, qsizetype least, qsizetype most) const {
        if (words.size() < least || words.size() > most)
            refuse(QStringLiteral("\"%1\" has too few words or too many").arg(words.front().left(40)));
    }

    void readHeading(const QStringList& words) const {
        if (words != QStringList{QStringLiteral("scintra-character"), QStringLiteral("1")})
            refuse("this is no character file of version 1");
    }

    void readLine(const QStringList& words) {
        const QString& first = words.front();
        if (first == QLatin1String("name")) {
            expect(words, 2, 2);
            m_figure.name = words[1].left(40);
        } else if (first == QLatin1String("size")) {
            expect(words, 3, 3);
            m_figure.size = QSize(int(number(words[1], 16, 512)), int(number(words[2], 16, 512)));
        } else if (first == QLatin1String("part")) {
            readPart(words);
        } else if (first == QLatin1String("animation")) {
            readAnimation(words);
        } else if (first == QLatin1String("frame")) {
            readFrame(words);
        } else {
            readShape(words);
        }
    }

    void readPart(const QStringList& words) {
        expect(words, 2, 2);
        if (m_figure.parts.size() == mostParts || words[1].contains(u'@') ||
            !m_partNames.try_emplace(words[1], int(m_figure.parts.size())).second)
            refuse("too many parts, or one of that name");
        m_figure.parts.emplace_back();
    }

    void readShape(const QStringList& words) {
        Shape shape;
        qsizetype firstPoint = 2;
        if (words.front() == QLatin1String("ellipse")) {
            expect(words, 4, 4);
            shape.kind = Shape::Kind::Ellipse;
        } else if (words.front() == QLatin1String("polygon")) {
            expect(words, 5, 2 + mostPoints);
        } else if (words.front() == QLatin1String("line")) {
            expect(words, 5, 3 + mostPoints);
            shape.kind = Shape::Kind::Line;
            shape.width = number(words[2], 0.1, 64);
            firstPoint = 3;
        } else {
            refuse(QStringLiteral("\"%1\" is not known").arg(words.front().left(40)));
        }
        if (m_figure.parts.empty() || m_figure.parts.back().size() == mostShapes)
            refuse("a shape without a part, or one too many");
        shape.color = color(words[1]);
        for (const QString& word : words.mid(firstPoint))
            shape.points.push_back(point(word));
        m_figure.parts.back().push_back(std::move(shape));
    }

    void readAnimation(const QStringList& words) {
        expect(words, 2, 2);
        for (const char* name : animationNames) {
            if (words[1] == QLatin1String(name)) {
                m_animation = &m_figure.animations[words[1]];
                return;
            }
        }
        refuse("an animation is show, rest, speak or hide");
    }

    void readFrame(const QStringList& words) {
        expect(words, 3, 2 + qsizetype(mostParts));
        if (!m_animation || m_animation->size() == mostFrames)
            refuse("a frame without an animation, or one too many");
        Frame frame;
        frame.milliseconds = int(number(words[1], 20, 10'000));
        for (const QString& word : words.mid(2)) {
            const qsizetype at = word.indexOf(u'@');
            const auto part = m_partNames.find(at < 0 ? word : word.left(at));
            if (part == m_partNames.end())
                refuse("a frame of a part that does not stand above it");
            frame.parts.push_back({part->second, at < 0 ? QPointF() : point(word.mid(at + 1))});
        }
        m_animation->push_back(std::move(frame));
    }

    Figure m_figure;
    std::map<QString, int> m_partNames;
    std::vector<Frame>* m_animation = nullptr;
    int m_line = 0;
};

void paintShape(QPainter& painter, const Shape& shape) {
    const auto count = int(shape.points.size());
    switch (shape.kind) {
    case Shape::Kind::Ellipse:
        painter.setPen(Qt::NoPen);
        painter.setBrush(shape.color);
        return painter.drawEllipse(shape.points[0], shape.points[1].x(), shape.points[1].y());
    case Shape::Kind::Polygon:
        painter.setPen(Qt::NoPen);
        painter.setBrush(shape.color);
        return painter.drawPolygon(shape.points.data(), count);
    case Shape::Kind::Line:
        painter.setPen(QPen(shape.color, shape.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        return painter.drawPolyline(shape.points.data(), count);
    }
}

} // namespace

Figure readFigure(const QByteArray& text) {
    return Reader().read(text);
}

void paint(QPainter& painter, const Figure& figure, const Frame& frame) {
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Frame::Placed& placed : frame.parts) {
        painter.save();
        painter.translate(placed.offset);
        for (const Shape& shape : figure.parts[std::size_t(placed.part)])
            paintShape(painter, shape);
        painter.restore();
    }
}

} // namespace agent
