#include "results/BoxLine.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace results {

void addBoxLine(QGridLayout& grid, int row, const QString& caption, const QString& firstBox,
                const QString& secondBox) {
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
    }
}

} // namespace results
