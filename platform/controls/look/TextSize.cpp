#include "platform/controls/look/TextSize.h"

#include <QCache>
#include <QFontMetrics>
#include <QWidget>

namespace controls {

namespace {

constexpr int onOneLine = -1;

struct Asked {
    QFont font;
    QString text;
    int flags;
    int width;
    bool operator==(const Asked&) const = default;
};

size_t qHash(const Asked& asked, size_t seed = 0) {
    return qHashMulti(seed, asked.font, asked.text, asked.flags, asked.width);
}

QSize measured(const Asked& asked) {
    const QFontMetrics metrics(asked.font);
    if (asked.width == onOneLine)
        return {metrics.horizontalAdvance(asked.text), 0};
    return metrics.boundingRect(QRect(0, 0, asked.width, QWIDGETSIZE_MAX), asked.flags, asked.text).size();
}

QSize remembered(const Asked& asked) {
    static QCache<Asked, QSize> sizes(2000);
    if (const QSize* known = sizes.object(asked))
        return *known;
    const QSize size = measured(asked);
    sizes.insert(asked, new QSize(size));
    return size;
}

} // namespace

int textWidth(const QFont& font, const QString& text) {
    return remembered({font, text, 0, onOneLine}).width();
}

QSize textSize(const QFont& font, const QString& text, int flags, int width) {
    return remembered({font, text, flags, width});
}

} // namespace controls
