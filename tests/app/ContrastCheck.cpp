#include "tests/app/ContrastCheck.h"

#include "platform/controls/look/FlatButton.h"
#include "platform/controls/look/Look.h"
#include "tests/app/KeyCheck.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <cmath>

namespace tests {

namespace {

double luminance(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

/// The colours that most of it is painted in: one, or the shades of a band.
QList<QColor> groundsOf(const QImage& picture, const QRect& place) {
    QHash<QRgb, int> counts;
    const QRect inside = place.adjusted(3, 3, -3, -3) & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QList<QColor> grounds;
    const int all = inside.width() * inside.height();
    QRgb most = 0;
    int mostCount = 0;
    for (auto [color, count] : counts.asKeyValueRange()) {
        if (count > mostCount) {
            most = color;
            mostCount = count;
        }
    }
    if (mostCount * 4 > all)
        return {QColor(most)};
    // a band of shades: those at its corners, beside the text
    const QRect around = place.adjusted(-2, -2, 2, 2) & picture.rect();
    for (const QPoint& corner :
         {around.topLeft(), around.topRight(), around.bottomLeft(), around.bottomRight()})
        grounds << QColor(picture.pixel(corner));
    return grounds;
}

QString textOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        return field->displayText();
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(&widget))
        return memo->toPlainText();
    if (const auto* list = qobject_cast<const QComboBox*>(&widget))
        return list->currentText();
    return {};
}

QColor colorOf(const QWidget& widget) {
    if (qobject_cast<const controls::FlatButton*>(&widget))
        return widget.isEnabled() ? controls::look::ink : controls::look::muted; // it paints itself
    if (qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget))
        return widget.palette().color(QPalette::ButtonText);
    if (qobject_cast<const QLabel*>(&widget))
        return widget.palette().color(QPalette::WindowText);
    return widget.palette().color(QPalette::Text);
}

QString nameOf(const QWidget& widget) {
    return QString::fromLatin1(widget.metaObject()->className()) + u' ' + widget.objectName();
}

void appendIfFaint(QStringList& lines, const QString& name, const QColor& text,
                   const QList<QColor>& grounds) {
    for (const QColor& ground : grounds) {
        const double found = contrast(text, ground);
        if (found < leastContrast) {
            lines << QStringLiteral("%1: %2 (%3 on %4)")
                         .arg(name, QString::number(found, 'f', 1), text.name(), ground.name());
            return;
        }
    }
}

void appendFaintCells(QStringList& lines, const QAbstractItemView& view) {
    using namespace controls::look;
    const QAbstractItemModel* cells = view.model();
    for (int row = 0; cells && row < cells->rowCount(); ++row) {
        for (int column = 0; column < cells->columnCount(); ++column) {
            const QModelIndex cell = cells->index(row, column);
            const QVariant color = cell.data(Qt::ForegroundRole);
            const QVariant own = cell.data(Qt::BackgroundRole);
            const QColor text = color.canConvert<QColor>() ? color.value<QColor>() : ink;
            const QList<QColor> grounds = own.canConvert<QColor>()
                                              ? QList<QColor>{own.value<QColor>()}
                                              : QList<QColor>{card, stripe, accentSoft, accentPressed};
            appendIfFaint(lines, QStringLiteral("%1 (%2, %3)").arg(nameOf(view)).arg(row).arg(column), text,
                          grounds);
        }
    }
}

} // namespace

double contrast(const QColor& text, const QColor& ground) {
    const double one = luminance(text) + 0.05;
    const double other = luminance(ground) + 0.05;
    return qMax(one, other) / qMin(one, other);
}

QStringList faintTexts(QWidget& window) {
    const QPixmap shot = window.grab();
    const QImage picture = shot.toImage().scaled(window.size());
    QStringList lines;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window)
            continue;
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
            appendFaintCells(lines, *view);
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        if (textOf(*widget).trimmed().isEmpty() || place.height() < 8 || !picture.rect().contains(place))
            continue;
        appendIfFaint(lines, nameOf(*widget), colorOf(*widget), groundsOf(picture, place));
    }
    return lines;
}

QStringList withoutAName(QWidget& window) {
    QStringList lines;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isUsed = widget->focusPolicy() != Qt::NoFocus || qobject_cast<QLineEdit*>(widget) ||
                            qobject_cast<QAbstractButton*>(widget) ||
                            qobject_cast<QAbstractItemView*>(widget);
        if (!isUsed || !widget->isVisible() || widget->window() != &window || isInnerPart(*widget))
            continue;
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
        const QString name = face ? face->text(QAccessible::Name) : QString();
        if (std::none_of(name.begin(), name.end(), [](QChar letter) { return letter.isLetterOrNumber(); }))
            lines << nameOf(*widget);
    }
    return lines;
}

} // namespace tests
