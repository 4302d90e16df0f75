#include "platform/controls/screen/ScreenContents.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>

namespace controls {

namespace {

/// A list of a hundred thousand patients is not what a clerk needs back.
constexpr int mostGridRows = 200;

QString textOfField(const QWidget* widget) {
    if (auto* line = qobject_cast<const QLineEdit*>(widget)) {
        const QWidget* owner = line->parentWidget();
        const bool part =
            qobject_cast<const QComboBox*>(owner) || qobject_cast<const QAbstractSpinBox*>(owner);
        if (part || line->echoMode() != QLineEdit::Normal)
            return {};
        const bool masked = !line->inputMask().isEmpty();
        return masked && line->text().count(QLatin1Char('/')) == line->text().size() ? QString()
                                                                                     : line->text();
    }
    if (auto* plain = qobject_cast<const QPlainTextEdit*>(widget))
        return plain->toPlainText();
    if (auto* rich = qobject_cast<const QTextEdit*>(widget))
        return rich->toPlainText();
    if (auto* combo = qobject_cast<const QComboBox*>(widget))
        return combo->currentText();
    if (auto* spin = qobject_cast<const QAbstractSpinBox*>(widget))
        return spin->text();
    if (auto* check = qobject_cast<const QCheckBox*>(widget))
        return check->isChecked() ? QStringLiteral("1") : QString();
    if (auto* radio = qobject_cast<const QRadioButton*>(widget))
        return radio->isChecked() ? QStringLiteral("1") : QString();
    return {};
}

void appendGrid(QStringList& lines, const FlexGrid& grid, const QString& caption) {
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (row - grid.FixedRows() == mostGridRows) {
            lines << QStringLiteral("%1: ... %2 rows").arg(caption).arg(grid.Rows() - grid.FixedRows());
            return;
        }
        QStringList cells;
        for (int column = 0; column < grid.Cols(); ++column)
            if (const QString text = grid.TextMatrix(row, column); !text.isEmpty())
                cells << text;
        if (!cells.isEmpty())
            lines << caption + QStringLiteral(": ") + cells.join(QStringLiteral(" | "));
    }
}

void appendCells(QList<HeldText>& held, const FlexGrid& grid) {
    const int rows = qMin(grid.Rows(), grid.FixedRows() + mostGridRows);
    for (int row = grid.FixedRows(); row < rows; ++row) {
        for (int column = grid.FixedCols(); column < grid.Cols(); ++column) {
            const QString header = grid.FixedRows() > 0 ? grid.TextMatrix(0, column) : QString();
            if (const QString text = grid.TextMatrix(row, column); !text.isEmpty())
                held.append(
                    {QStringLiteral("%1 in line %2").arg(header).arg(row - grid.FixedRows() + 1), text});
        }
    }
}

void appendList(QStringList& lines, const ListView& list) {
    for (int index = 1; index <= list.Count(); ++index) {
        if (index > mostGridRows) {
            lines << QStringLiteral("%1: ... %2 rows").arg(list.objectName()).arg(list.Count());
            return;
        }
        QStringList cells(list.Item(index).Text());
        for (int column = 1; column < list.columnCount(); ++column)
            cells << list.Item(index).SubItem(column);
        cells.removeAll(QString());
        lines << list.objectName() + QStringLiteral(": ") + cells.join(QStringLiteral(" | "));
    }
}

bool isNamed(const QWidget& widget) {
    return !widget.objectName().isEmpty() && !widget.objectName().startsWith(QLatin1String("qt_"));
}

QString captionOf(const QWidget& screen, const QWidget& field) {
    for (const QLabel* label : screen.findChildren<QLabel*>()) {
        if (label->buddy() == &field)
            return label->text().remove(u'&').trimmed();
    }
    return field.accessibleName().isEmpty() ? field.objectName() : field.accessibleName();
}

/// Shown fields and those on other pages, but nothing that is only looked at.
bool takesTyping(const QWidget& field) {
    const bool readOnly = field.property("readOnly").toBool();
    return !field.isHidden() && !readOnly && field.focusPolicy() != Qt::NoFocus;
}

/// All widgets below the screen, those that Tab reaches in its order.
QList<const QWidget*> inTabOrder(const QWidget& screen) {
    QList<const QWidget*> widgets;
    for (const QWidget* widget = screen.nextInFocusChain(); widget && widget != &screen;
         widget = widget->nextInFocusChain())
        widgets << widget;
    return widgets;
}

} // namespace

QString contentsAsText(const QWidget& screen) {
    QStringList lines;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        if (!isNamed(*widget))
            continue;
        if (auto* grid = qobject_cast<const FlexGrid*>(widget))
            appendGrid(lines, *grid, grid->objectName());
        else if (auto* list = qobject_cast<const ListView*>(widget))
            appendList(lines, *list);
        else if (const QString text = textOfField(widget); !text.isEmpty())
            lines << widget->objectName() + QStringLiteral(": ") + text;
    }
    return lines.join(QLatin1Char('\n'));
}

QString typedAsText(const QWidget& screen) {
    QStringList lines;
    for (const QWidget* widget : inTabOrder(screen)) {
        if (!isNamed(*widget) || !takesTyping(*widget))
            continue;
        const QString caption = captionOf(screen, *widget);
        if (auto* grid = qobject_cast<const FlexGrid*>(widget)) {
            if (!grid->marksRowOnly()) // a list to pick from holds nothing that was typed
                appendGrid(lines, *grid, caption);
        } else if (const QString text = textOfField(widget); !text.isEmpty()) {
            lines << caption + (text.contains(u'\n') ? QStringLiteral(":\n") : QStringLiteral(": ")) + text;
        }
    }
    return lines.join(QLatin1Char('\n'));
}

QList<HeldText> heldTexts(const QWidget& screen) {
    QList<HeldText> held;
    for (const QWidget* widget : inTabOrder(screen)) {
        if (!isNamed(*widget) || !takesTyping(*widget))
            continue;
        if (auto* grid = qobject_cast<const FlexGrid*>(widget)) {
            if (!grid->marksRowOnly())
                appendCells(held, *grid);
        } else if (const QString text = textOfField(widget); !text.isEmpty()) {
            held.append({captionOf(screen, *widget), text});
        }
    }
    return held;
}

} // namespace controls
