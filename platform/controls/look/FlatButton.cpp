#include "platform/controls/look/FlatButton.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/Look.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

namespace controls {

namespace {

struct CardColors {
    QColor fill;
    QColor frame;
    int frameWidth;
};

CardColors colorsOf(const QAbstractButton& button, bool hovered) {
    if (!button.isEnabled())
        return {look::page, look::line, 1};
    if (button.isDown())
        return {look::accentPressed, look::accent, 2};
    const int frameWidth = button.hasFocus() ? 2 : 1;
    if (button.isChecked())
        return {look::accentSoft, look::accent, frameWidth};
    if (button.hasFocus())
        return {hovered ? look::hover : look::card, look::accent, frameWidth};
    return {hovered ? look::hover : look::card, hovered ? look::fieldLine : look::line, 1};
}

QFont semibold(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace

FlatButton::FlatButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void FlatButton::setShape(Shape shape) {
    m_shape = shape;
    updateGeometry();
    update();
}

void FlatButton::setSecondLine(const QString& text) {
    m_secondLine = text;
    setAccessibleDescription(text);
    updateGeometry();
    update();
}

QSize FlatButton::sizeHint() const {
    const QFontMetrics bold(semibold(font()));
    const QString caption = QString(text()).remove(QLatin1Char('&'));
    const int pad = look::scaled(18);
    if (m_shape == Shape::Tile)
        return QSize(bold.horizontalAdvance(caption) + 2 * pad, look::scaled(88));
    const int words = qMax(bold.horizontalAdvance(caption), fontMetrics().horizontalAdvance(m_secondLine));
    return QSize(words + 2 * pad + look::scaled(38), look::scaled(74));
}

void FlatButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const CardColors colors = colorsOf(*this, underMouse());
    const qreal inset = colors.frameWidth / 2.0;
    painter.setPen(QPen(colors.frame, colors.frameWidth));
    painter.setBrush(colors.fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), look::scaled(8),
                            look::scaled(8));
    painter.setPen(isEnabled() ? look::ink : look::muted);
    if (m_shape == Shape::Tile)
        paintTile(painter);
    else
        paintRow(painter);
}

void FlatButton::paintTile(QPainter& painter) {
    const int side = look::scaled(28);
    const int gap = look::scaled(8);
    painter.setFont(semibold(font()));
    const int words = painter.fontMetrics().height();
    const int top = (height() - side - gap - words) / 2;
    icon().paint(&painter, QRect((width() - side) / 2, top, side, side), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (isEnabled() && isChecked())
        painter.setPen(look::accentDark);
    painter.drawText(QRect(0, top + side + gap, width(), words), Qt::AlignCenter | Qt::TextShowMnemonic,
                     text());
}

void FlatButton::paintRow(QPainter& painter) {
    const int side = look::scaled(24);
    const int pad = look::scaled(18);
    icon().paint(&painter, QRect(pad, (height() - side) / 2, side, side), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const int left = pad + side + look::scaled(14);
    const QRect words(left, 0, width() - left - pad, height());
    painter.setFont(semibold(font()));
    const int lineHeight = painter.fontMetrics().height();
    const int top = m_secondLine.isEmpty() ? (height() - lineHeight) / 2 : height() / 2 - lineHeight;
    painter.drawText(QRect(left, top, words.width(), lineHeight),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
    if (m_secondLine.isEmpty())
        return;
    painter.setFont(font());
    painter.setPen(isDown() ? look::ink : look::muted);
    const QString second = fontMetrics().elidedText(m_secondLine, Qt::ElideRight, words.width());
    painter.drawText(QRect(left, height() / 2 + look::scaled(2), words.width(), lineHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, second);
}

void FlatButton::keyPressEvent(QKeyEvent* event) {
    if (isEnter(*event) && !event->isAutoRepeat()) {
        event->accept();
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void FlatButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void FlatButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace controls
