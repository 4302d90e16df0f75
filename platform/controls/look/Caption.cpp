#include "platform/controls/look/Caption.h"

#include "platform/controls/look/TextSize.h"

namespace controls {

bool Caption::isPlainLine() const {
    const bool isPlain =
        textFormat() == Qt::PlainText || (textFormat() == Qt::AutoText && !Qt::mightBeRichText(text()));
    return isPlain && !text().isEmpty() && !wordWrap() && frameWidth() == 0 && margin() == 0 && indent() <= 0;
}

QSize Caption::sizeHint() const {
    ensurePolished();
    if (!isPlainLine())
        return QLabel::sizeHint();
    const bool hasLetter = buddy() && text().contains(u'&');
    const int flags = Qt::TextExpandTabs | (hasLetter ? Qt::TextShowMnemonic : 0);
    const QSize line = textSize(font(), text(), flags, QWIDGETSIZE_MAX);
    return line.grownBy(contentsMargins()).expandedTo(minimumSize());
}

QSize Caption::minimumSizeHint() const {
    ensurePolished();
    return isPlainLine() ? sizeHint() : QLabel::minimumSizeHint();
}

} // namespace controls
