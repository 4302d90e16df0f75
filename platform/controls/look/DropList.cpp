#include "platform/controls/look/DropList.h"

#include "platform/controls/look/Look.h"

#include <QStylePainter>

namespace controls {

void DropList::paintEvent(QPaintEvent*) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect button =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    option.subControls &= ~QStyle::SC_ComboBoxArrow;
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    const QSize drawn(look::scaled(14), look::scaled(14)); // as the sheet has it
    look::icon(QStringLiteral("sheet-chevron"))
        .paint(&painter, QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, drawn, button));
}

} // namespace controls
