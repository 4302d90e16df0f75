#include "platform/controls/fields/ShownText.h"

#include "platform/controls/look/TextSize.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>

namespace controls {

QRect ShownText::textRoom() const {
    constexpr int besideTheText = 2; // the toolkit's own margin
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &frame, this)
        .marginsRemoved(textMargins())
        .adjusted(besideTheText, 0, -besideTheText, 0);
}

bool ShownText::isShortened() const {
    return isReadOnly() && !hasSelectedText() && textWidth(font(), displayText()) > textRoom().width();
}

void ShownText::setRoomFor(const QString& text) {
    m_roomFor = text;
    updateGeometry();
}

QSize ShownText::minimumSizeHint() const {
    const QString least = m_roomFor.isEmpty() ? QStringLiteral("0000000") : m_roomFor;
    const QSize plain = QLineEdit::minimumSizeHint();
    const int frame = plain.width() - fontMetrics().maxWidth();
    return {textWidth(font(), least) + qMax(0, frame), plain.height()};
}

void ShownText::paintEvent(QPaintEvent* event) {
    if (!isShortened()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
    const QRect room = textRoom();
    painter.setPen(palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, QPalette::Text));
    painter.drawText(room, int(Qt::AlignLeft | Qt::AlignVCenter),
                     fontMetrics().elidedText(displayText(), Qt::ElideRight, room.width()));
}

bool ShownText::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && isShortened() && toolTip().isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), displayText(), this);
        return true;
    }
    return QLineEdit::event(event);
}

} // namespace controls
