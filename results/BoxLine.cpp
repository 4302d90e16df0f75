#include "results/BoxLine.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace results {

QWidget* addBoxLine(QGridLayout& grid, int row, const QString& caption, const QString& firstBox,
                    const QString& secondBox, QWidget* before) {
    auto* label = new QLabel(caption);
    label->setTextFormat(Qt::PlainText);
    grid.addWidget(label, row, 0);
    int column = 1;
    for (const QString& name : {firstBox, secondBox}) {
        auto* box = new QLineEdit;
        box->setObjectName(name);
        const auto* heading = qobject_cast<const QLabel*>(grid.itemAtPosition(0, column)->widget());
        box->setAccessibleName(caption.trimmed() + u' ' + heading->text());
        grid.addWidget(box, row, column++);
        QWidget::setTabOrder(before, box);
        before = box;
    }
    return before;
}

namespace {

int widestCaption(const QGridLayout& grid) {
    int width = 0;
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (const QLayoutItem* caption = grid.itemAtPosition(row, 0))
            width = std::max(width, caption->sizeHint().width());
    }
    return width;
}

} // namespace

void alignCaptions(QGridLayout& one, QGridLayout& other) {
    const int width = std::max(widestCaption(one), widestCaption(other));
    one.setColumnMinimumWidth(0, width);
    other.setColumnMinimumWidth(0, width);
}

} // namespace results
