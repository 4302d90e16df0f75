#include "platform/controls/look/LineDrawing.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPen>
#include <QXmlStreamReader>
#include <QtMath>

#include <array>
#include <charconv>
#include <vector>

namespace controls {

namespace {

class PathReader {
  public:
    explicit PathReader(QByteArrayView data) : m_next(data.begin()), m_end(data.end()) {}

    QPainterPath read() {
        while (skipBlanks() && (isLetter(*m_next) ? begin(*m_next++) : m_command != 0 && repeat()))
            ;
        return m_next == m_end ? m_path : QPainterPath();
    }

  private:
    static bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

    /// False at the end.
    bool skipBlanks() {
        while (m_next != m_end && (*m_next == ' ' || *m_next == ',' || *m_next == '\n'))
            ++m_next;
        return m_next != m_end;
    }

    bool readNumbers(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (!skipBlanks())
                return false;
            const auto [after, error] =
                std::from_chars(m_next, m_end, m_numbers[i], std::chars_format::fixed);
            if (error != std::errc())
                return false;
            m_next = after;
        }
        return true;
    }

    /// Where the pen is to go: the two numbers from `first` on, counted from where it is for a small letter.
    QPointF point(std::size_t first) const {
        const QPointF given(m_numbers[first], m_numbers[first + 1]);
        return m_isRelative ? m_path.currentPosition() + given : given;
    }

    bool begin(char letter) {
        m_isRelative = letter >= 'a';
        m_command = m_isRelative ? char(letter - 'a' + 'A') : letter;
        if (m_command == 'Z') {
            m_path.closeSubpath();
            return true;
        }
        if (m_command == 'M') {
            if (!readNumbers(2))
                return false;
            m_path.moveTo(point(0));
            m_command = 'L'; // pairs that follow are lines
            return true;
        }
        return repeat();
    }

    bool repeat() {
        const QPointF at = m_path.currentPosition();
        const QPointF lastControl = m_control;
        m_control = {};
        switch (m_command) {
        case 'L':
            return readNumbers(2) && (m_path.lineTo(point(0)), true);
        case 'H':
            return readNumbers(1) &&
                   (m_path.lineTo(m_numbers[0] + (m_isRelative ? at.x() : 0), at.y()), true);
        case 'V':
            return readNumbers(1) &&
                   (m_path.lineTo(at.x(), m_numbers[0] + (m_isRelative ? at.y() : 0)), true);
        case 'C':
            return readNumbers(6) && curve(point(0), point(2), point(4));
        case 'S':
            return readNumbers(4) && curve(at + lastControl, point(0), point(2));
        case 'A':
            return readNumbers(7) && m_numbers[2] == 0 && arc(point(5));
        default:
            return false;
        }
    }

    static QPointF onCircle(double angle) { return {qCos(angle), qSin(angle)}; }
    static QPointF scaled(const QPointF& point, const QPointF& by) {
        return {point.x() * by.x(), point.y() * by.y()};
    }

    bool curve(const QPointF& first, const QPointF& second, const QPointF& end) {
        m_path.cubicTo(first, second, end);
        m_control = end - second;
        return true;
    }

    /// In units of the radii, where the ellipse is a circle of radius 1: its centre stands at a right angle
    /// to the middle of the chord.
    bool arc(const QPointF& end) {
        const QPointF start = m_path.currentPosition();
        QPointF radii(m_numbers[0], m_numbers[1]);
        const bool isLarge = m_numbers[3] != 0;
        const bool isClockwise = m_numbers[4] != 0;
        if (radii.x() <= 0 || radii.y() <= 0 || start == end)
            return false;
        QPointF half((start.x() - end.x()) / 2 / radii.x(), (start.y() - end.y()) / 2 / radii.y());
        const double tooShort = qSqrt(QPointF::dotProduct(half, half));
        if (tooShort > 1) { // radii that do not reach grow until they do
            radii *= tooShort;
            half /= tooShort;
        }
        const double square = QPointF::dotProduct(half, half);
        const double away = qSqrt(qMax(0.0, 1 - square) / square) * (isLarge == isClockwise ? -1 : 1);
        const QPointF centre(away * half.y(), -away * half.x());
        const QPointF from = half - centre;
        const QPointF to = -half - centre;
        const double angle = qAtan2(from.y(), from.x());
        double turn = qAtan2(to.y(), to.x()) - angle;
        if (isClockwise && turn < 0)
            turn += 2 * M_PI;
        if (!isClockwise && turn > 0)
            turn -= 2 * M_PI;
        const QPointF middle = (start + end) / 2 + scaled(centre, radii);
        const int parts = qCeil(qAbs(turn) / M_PI_2);
        const double step = turn / parts;
        const double reach = 4.0 / 3.0 * qTan(step / 4); // of the control points of a quarter or less
        for (int part = 0; part < parts; ++part) {
            const QPointF first = onCircle(angle + part * step);
            const QPointF last = onCircle(angle + (part + 1) * step);
            m_path.cubicTo(middle + scaled(first + reach * QPointF(-first.y(), first.x()), radii),
                           middle + scaled(last - reach * QPointF(-last.y(), last.x()), radii),
                           part + 1 == parts ? end : middle + scaled(last, radii));
        }
        return true;
    }

    const char* m_next;
    const char* m_end;
    QPainterPath m_path;
    std::array<double, 7> m_numbers{};
    QPointF m_control; ///< from the curve's last control point to its end
    char m_command = 0;
    bool m_isRelative = false;
};

/// How a shape is filled and stroked; what is inside a group begins with the group's.
struct Ink {
    QBrush fill = Qt::black;
    QBrush stroke = Qt::NoBrush;
    double width = 1;
    Qt::PenCapStyle cap = Qt::FlatCap;
    Qt::PenJoinStyle join = Qt::SvgMiterJoin;
};

class Drawer {
  public:
    Drawer(QPainter& painter, const QByteArray& drawing, const QColor& color)
        : m_painter(painter), m_reader(drawing), m_color(color) {}

    bool draw(const QRectF& rect) {
        bool isKnown = true;
        while (!m_reader.atEnd()) {
            const QXmlStreamReader::TokenType token = m_reader.readNext();
            if (token == QXmlStreamReader::EndElement)
                m_inks.pop_back();
            if (token != QXmlStreamReader::StartElement)
                continue;
            m_attributes = m_reader.attributes();
            m_inks.push_back(ink());
            if (m_reader.name() == u"svg")
                fit(rect);
            else
                isKnown = element(m_reader.name()) && isKnown;
        }
        return isKnown && !m_reader.hasError();
    }

  private:
    double number(const char* name) const { return m_attributes.value(QLatin1StringView(name)).toDouble(); }

    QBrush brush(QStringView value) const {
        if (value == u"none")
            return Qt::NoBrush;
        if (value == u"currentColor")
            return m_color;
        if (value.startsWith(u"url("))
            return m_gradient;
        return QColor(value);
    }

    Ink ink() const {
        Ink ink = m_inks.empty() ? Ink() : m_inks.back();
        for (const QXmlStreamAttribute& attribute : m_attributes) {
            if (attribute.name() == u"fill")
                ink.fill = brush(attribute.value());
            else if (attribute.name() == u"stroke")
                ink.stroke = brush(attribute.value());
            else if (attribute.name() == u"stroke-width")
                ink.width = attribute.value().toDouble();
            else if (attribute.value() == u"round" && attribute.name() == u"stroke-linecap")
                ink.cap = Qt::RoundCap;
            else if (attribute.value() == u"round" && attribute.name() == u"stroke-linejoin")
                ink.join = Qt::RoundJoin;
        }
        return ink;
    }

    void fit(const QRectF& rect) {
        const QList<QStringView> box = m_attributes.value(QLatin1StringView("viewBox")).split(u' ');
        if (box.size() != 4 || box[2].toDouble() <= 0 || box[3].toDouble() <= 0)
            return;
        m_painter.translate(rect.topLeft());
        m_painter.scale(rect.width() / box[2].toDouble(), rect.height() / box[3].toDouble());
        m_painter.translate(-box[0].toDouble(), -box[1].toDouble());
    }

    bool element(QStringView name) {
        QPainterPath path;
        if (name == u"path")
            path = pathOf(m_attributes.value(QLatin1StringView("d")).toLatin1());
        else if (name == u"rect")
            path.addRoundedRect(QRectF(number("x"), number("y"), number("width"), number("height")),
                                number("rx"), number("rx"));
        else if (name == u"circle")
            path.addEllipse(QPointF(number("cx"), number("cy")), number("r"), number("r"));
        else if (name == u"ellipse")
            path.addEllipse(QPointF(number("cx"), number("cy")), number("rx"), number("ry"));
        else if (name == u"stop")
            m_gradient.setColorAt(number("offset"),
                                  QColor(m_attributes.value(QLatin1StringView("stop-color"))));
        else if (name == u"linearGradient")
            startGradient();
        else
            return name == u"g" || name == u"defs";
        return path.isEmpty() ? name == u"stop" || name == u"linearGradient" : paint(path);
    }

    void startGradient() {
        m_gradient = QLinearGradient(number("x1"), number("y1"), number("x2"), number("y2"));
        m_gradient.setCoordinateMode(QGradient::ObjectMode);
    }

    /// transform="rotate(-45 12 12)"
    bool paint(const QPainterPath& path) {
        const Ink& ink = m_inks.back();
        m_painter.setBrush(ink.fill);
        m_painter.setPen(ink.stroke == QBrush(Qt::NoBrush)
                             ? QPen(Qt::NoPen)
                             : QPen(ink.stroke, ink.width, Qt::SolidLine, ink.cap, ink.join));
        const QStringView turn = m_attributes.value(QLatin1StringView("transform"));
        if (turn.isEmpty()) {
            m_painter.drawPath(path);
            return true;
        }
        const qsizetype open = turn.indexOf(u'(');
        const QList<QStringView> numbers = turn.mid(open + 1).chopped(1).split(u' ');
        if (turn.left(open) != u"rotate" || numbers.size() != 3)
            return false;
        const QPointF centre(numbers[1].toDouble(), numbers[2].toDouble());
        m_painter.drawPath(QTransform()
                               .translate(centre.x(), centre.y())
                               .rotate(numbers[0].toDouble())
                               .translate(-centre.x(), -centre.y())
                               .map(path));
        return true;
    }

    QPainter& m_painter;
    QXmlStreamReader m_reader;
    QColor m_color;
    QXmlStreamAttributes m_attributes;
    std::vector<Ink> m_inks;
    QLinearGradient m_gradient;
};

} // namespace

QPainterPath pathOf(QByteArrayView data) {
    return PathReader(data).read();
}

bool paintDrawing(QPainter& painter, const QRectF& rect, const QByteArray& drawing, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isKnown = Drawer(painter, drawing, color).draw(rect);
    painter.restore();
    return isKnown;
}

} // namespace controls
