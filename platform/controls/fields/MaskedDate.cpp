#include "platform/controls/fields/MaskedDate.h"

#include "platform/base/Format.h"

#include <QMouseEvent>

namespace controls {

MaskedDate::MaskedDate(QWidget* parent) : QLineEdit(parent) {
    setInputMask(QStringLiteral("99/99/9999;_"));
    setPlaceholderText(QString());
}

base::DateTime MaskedDate::earliest() {
    return *base::makeDateTime({1753, 1, 1});
}

base::DateTime MaskedDate::latest() {
    return *base::makeDateTime({9999, 12, 30});
}

bool MaskedDate::isEmpty() const {
    return displayText() == emptyText;
}

std::optional<base::DateTime> MaskedDate::date() const {
    const QString shown = displayText();
    if (shown.contains(QLatin1Char('_')))
        return std::nullopt;
    const auto made = base::makeDateTime(
        {shown.mid(6, 4).toInt(), QStringView(shown).left(2).toInt(), QStringView(shown).mid(3, 2).toInt()});
    return made && *made >= earliest() && *made <= latest() ? made : std::nullopt;
}

void MaskedDate::setDate(base::DateTime date) {
    setText(base::Format(date, QStringLiteral("mm/dd/yyyy")));
}

QSize MaskedDate::sizeHint() const {
    const QSize hint = QLineEdit::sizeHint();
    return QSize(fontMetrics().horizontalAdvance(QStringLiteral("00/00/00000")) + 2 * fontMetrics().height(),
                 hint.height());
}

void MaskedDate::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool resumes = m_resumes && event->reason() == Qt::ActiveWindowFocusReason;
    m_resumes = false;
    if (event->reason() == Qt::MouseFocusReason || resumes)
        return;
    if (isEmpty())
        setCursorPosition(0);
    else
        selectAll();
}

void MaskedDate::focusOutEvent(QFocusEvent* event) {
    m_resumes = event->reason() == Qt::ActiveWindowFocusReason;
    QLineEdit::focusOutEvent(event);
}

void MaskedDate::showEvent(QShowEvent* event) {
    m_resumes = false;
    QLineEdit::showEvent(event);
}

void MaskedDate::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    // A click anywhere in the empty mask types from its start.
    if (event->button() == Qt::LeftButton && isEmpty())
        setCursorPosition(0);
}

} // namespace controls
