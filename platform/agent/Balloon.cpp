#include "platform/agent/Balloon.h"

#include "platform/controls/look/Look.h"

#include <QAccessible>
#include <QBitmap>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>

namespace agent {

namespace look = controls::look;

namespace {

constexpr int balloonWidth = 236;
constexpr int padding = 12;
constexpr int tail = 12;
const QString quiet = QStringLiteral("Be quiet");

} // namespace

Balloon::Balloon(const Figure& figure)
    // A tool tip's window is the kind that neither takes the focus nor is held back by a modal one.
    : QWidget(nullptr,
              Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus)
    , m_figure(figure)
    , m_frame(&figure.animations.at(QStringLiteral("rest")).front())
    , m_figureSize(look::scaled(figure.size.width()), look::scaled(figure.size.height())) {
    setObjectName(figure.name);
    setAccessibleName(figure.name);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    lay();
}

void Balloon::setPlace(QPoint point) {
    const QRect desk = screen()->availableGeometry();
    m_place.setX(qBound(desk.left(), point.x(), qMax(desk.left(), desk.right() + 1 - m_figureSize.width())));
    m_place.setY(qBound(desk.top(), point.y(), qMax(desk.top(), desk.bottom() + 1 - m_figureSize.height())));
    m_balloonAtRight =
        m_place.x() + m_figureSize.width() + look::scaled(tail + balloonWidth) <= desk.right() + 1;
    lay();
}

/// The balloon's room is kept while nothing is said: the window stays where it is.
void Balloon::lay() {
    const int width = look::scaled(balloonWidth);
    const int gap = look::scaled(tail);
    resize(m_figureSize.width() + gap + width, m_figureSize.height());
    m_balloon = QRect(m_balloonAtRight ? m_figureSize.width() + gap : 0, 0, width, 0);
    const int text = fontMetrics().boundingRect(textArea(), Qt::TextWordWrap, m_sentence).height();
    m_balloon.setHeight(text + fontMetrics().height() + 3 * look::scaled(padding) - look::scaled(4));
    move(m_place - figureArea().topLeft());
    cutOut();
    update();
}

QRect Balloon::figureArea() const {
    return {m_balloonAtRight ? 0 : width() - m_figureSize.width(), 0, m_figureSize.width(),
            m_figureSize.height()};
}

QRect Balloon::textArea() const {
    const int edge = look::scaled(padding);
    return m_balloon.adjusted(edge, edge, -edge, 0).adjusted(0, 0, 0, height());
}

QRect Balloon::quietArea() const {
    if (m_sentence.isEmpty())
        return {};
    const int edge = look::scaled(padding);
    const QSize size(fontMetrics().horizontalAdvance(quiet) + edge, fontMetrics().height() + edge / 2);
    return {m_balloon.right() - size.width() - edge / 2, m_balloon.bottom() - size.height() - edge / 3,
            size.width(), size.height()};
}

void Balloon::setFrame(const Frame* frame) {
    if (m_frame == frame)
        return;
    m_frame = frame;
    cutOut();
    update(figureArea()); // the sentence beside it stands
}

void Balloon::setSentence(const QString& sentence) {
    if (m_sentence == sentence)
        return;
    m_sentence = sentence;
    setAccessibleDescription(sentence);
    if (!sentence.isEmpty()) {
        QAccessibleEvent said(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&said);
    }
    lay();
}

QRegion Balloon::painted() const {
    QImage image(size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter, rect());
    painter.end();
    return QBitmap::fromImage(image.createAlphaMask());
}

/// An X desk without a compositor paints a window's empty places black; the others know of transparency.
void Balloon::cutOut() {
    static const bool isWanted = QGuiApplication::platformName() == QLatin1String("xcb");
    if (isWanted)
        setMask(painted());
}

void Balloon::draw(QPainter& painter, const QRect& part) const {
    painter.setRenderHint(QPainter::Antialiasing);
    if (!m_sentence.isEmpty() && !figureArea().contains(part))
        drawBalloon(painter);
    painter.setClipRect(figureArea());
    painter.translate(figureArea().topLeft());
    painter.scale(double(m_figureSize.width()) / m_figure.size.width(),
                  double(m_figureSize.height()) / m_figure.size.height());
    paint(painter, m_figure, *m_frame);
}

void Balloon::drawBalloon(QPainter& painter) const {
    const QRectF box = QRectF(m_balloon).adjusted(1, 1, -1, -1);
    const double radius = look::scaled(8);
    // inside the box's edge, so that both are one outline
    const double side = m_balloonAtRight ? box.left() + 2 : box.right() - 2;
    const double tip = side + (m_balloonAtRight ? -look::scaled(tail) : look::scaled(tail));
    const double middle = box.top() + look::scaled(40);
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    QPainterPath arrow;
    arrow.addPolygon(
        QPolygonF({QPointF(side, middle - look::scaled(8)), QPointF(tip, middle + look::scaled(4)),
                   QPointF(side, middle + look::scaled(8))}));
    arrow.closeSubpath();
    painter.setPen(QPen(look::accent, 1.5));
    painter.setBrush(look::card);
    painter.drawPath(path.united(arrow));
    painter.setFont(font());
    painter.setPen(look::ink);
    painter.drawText(textArea(), Qt::TextWordWrap, m_sentence);
    painter.setPen(look::muted);
    painter.drawText(quietArea(), Qt::AlignCenter, quiet);
}

void Balloon::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    draw(painter, event->rect());
}

void Balloon::showEvent(QShowEvent* event) {
    windowHandle()->installEventFilter(this);
    QWidget::showEvent(event);
}

/// The window gets its clicks over a modal one; its widget would not.
bool Balloon::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonRelease || watched != windowHandle())
        return QWidget::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton)
        return true;
    if (quietArea().contains(mouse->position().toPoint()))
        Q_EMIT Quiet();
    else
        Q_EMIT Click();
    return true;
}

} // namespace agent
