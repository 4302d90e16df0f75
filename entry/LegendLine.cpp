#include "entry/LegendLine.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace entry {

LegendLine::LegendLine(const QString& text, QWidget* parent) : QLabel(parent), m_shown(text.simplified()) {
    setTextFormat(Qt::PlainText);
    setText(text);
    setProperty("kind", "help");
    setWordWrap(true);
    QSizePolicy narrowed(QSizePolicy::Ignored, QSizePolicy::Preferred);
    narrowed.setHeightForWidth(true);
    setSizePolicy(narrowed);
}

QSize LegendLine::sizeHint() const {
    ensurePolished();
    const int width = fontMetrics().averageCharWidth() * 80;
    return {width, heightForWidth(width)};
}

QSize LegendLine::minimumSizeHint() const {
    ensurePolished();
    return {0, fontMetrics().height()}; // of one line: its row asks for more where it is narrow
}

int LegendLine::heightForWidth(int width) const {
    for (Measured* each : {&m_usual, &m_asked}) {
        if (each->width == width)
            return each->height;
    }
    std::swap(m_usual, m_asked);
    const QRect room(0, 0, width, QWIDGETSIZE_MAX);
    m_asked = {width, fontMetrics().boundingRect(room, Qt::TextWordWrap, m_shown).height()};
    return m_asked.height;
}

void LegendLine::changeEvent(QEvent* event) {
    m_usual = m_asked = {};
    QLabel::changeEvent(event);
}

void LegendLine::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), flags, palette(), isEnabled(), m_shown, foregroundRole());
}

} // namespace entry
