#include "platform/controls/screen/PageRoom.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <memory>

namespace controls {

namespace {

bool holdsButtons(const QLayout& row) {
    for (int i = 0; i < row.count(); ++i) {
        if (qobject_cast<QPushButton*>(row.itemAt(i)->widget()))
            return true;
    }
    return false;
}

void keepLessAround(QLayout& inside, const QMargins& most) {
    const QMargins around = inside.contentsMargins();
    inside.setContentsMargins(qMin(around.left(), most.left()), qMin(around.top(), most.top()),
                              qMin(around.right(), most.right()), qMin(around.bottom(), most.bottom()));
}

} // namespace

QBoxLayout* columnOf(QLayout& page) {
    QLayoutItem* last = page.count() > 0 ? page.itemAt(page.count() - 1) : nullptr;
    QLayout* inner = nullptr;
    if (last)
        inner = last->widget() ? last->widget()->layout() : last->layout();
    auto* column = qobject_cast<QVBoxLayout*>(inner);
    return column ? column : qobject_cast<QVBoxLayout*>(&page);
}

void stackRows(QWidget& screen, int room) {
    QBoxLayout* column = columnOf(*screen.layout());
    if (!column)
        return;
    const int most = room - column->contentsMargins().left() - column->contentsMargins().right();
    for (int i = 0; i < column->count(); ++i) {
        QLayoutItem* item = column->itemAt(i);
        auto* row = qobject_cast<QHBoxLayout*>(item->widget() ? item->widget()->layout() : item->layout());
        if (!row || holdsButtons(*row) || item->minimumSize().width() <= most)
            continue;
        row->setDirection(QBoxLayout::TopToBottom);
        for (int part = 0; part < row->count(); ++part) {
            if (QSpacerItem* spacer = row->itemAt(part)->spacerItem())
                spacer->changeSize(0, 0);
        }
        row->invalidate();
        QEvent request(QEvent::LayoutRequest);
        QCoreApplication::sendEvent(row->parentWidget(), &request);
        for (QWidget* around = row->parentWidget(); around && around != &screen;
             around = around->parentWidget())
            around->updateGeometry();
    }
    screen.layout()->activate();
}

void widenLists(const QWidget& screen) {
    for (const QGroupBox* group : screen.findChildren<QGroupBox*>()) {
        QLayout* inside = group->layout();
        if (inside && inside->count() == 1 && qobject_cast<QAbstractItemView*>(inside->itemAt(0)->widget()))
            keepLessAround(*inside, {0, 4, 0, 0});
    }
}

void tighten(QWidget& screen) {
    if (QBoxLayout* column = columnOf(*screen.layout())) {
        keepLessAround(*column, {14, 8, 14, 8});
        column->setSpacing(qMin(column->spacing(), 4));
    }
    for (const QTabWidget* tabs : screen.findChildren<QTabWidget*>()) {
        for (int page = 0; page < tabs->count(); ++page) {
            if (QLayout* inside = tabs->widget(page)->layout())
                keepLessAround(*inside, {8, 8, 8, 8});
        }
    }
    for (QGroupBox* group : screen.findChildren<QGroupBox*>()) {
        if (!group->layout())
            continue;
        keepLessAround(*group->layout(), {4, 4, 4, 0});
        if (auto* grid = qobject_cast<QGridLayout*>(group->layout()))
            grid->setVerticalSpacing(qMin(grid->verticalSpacing(), 5));
        for (QWidget* around = group; around && around != &screen; around = around->parentWidget())
            around->updateGeometry();
    }
    screen.layout()->activate();
}

QWidget* takeCommands(QLayout& page, QWidget* screen) {
    QBoxLayout* column = columnOf(page);
    QLayoutItem* last = column && column->count() > 0 ? column->itemAt(column->count() - 1) : nullptr;
    auto* row = last ? qobject_cast<QHBoxLayout*>(last->widget() ? last->widget()->layout() : last->layout())
                     : nullptr;
    if (!row || !holdsButtons(*row))
        return nullptr;
    const QMargins around = column->contentsMargins();
    const std::unique_ptr<QLayoutItem> taken(last->widget() ? column->takeAt(column->count() - 1) : nullptr);
    auto* commands = new QWidget(screen);
    auto* place = new QVBoxLayout(commands);
    place->setContentsMargins(around.left(), column->spacing(), around.right(), around.bottom());
    if (taken) {
        place->addWidget(taken->widget());
    } else {
        column->takeAt(column->count() - 1);
        place->addLayout(row);
    }
    column->setContentsMargins(around.left(), around.top(), around.right(), 0);
    return commands;
}

} // namespace controls
