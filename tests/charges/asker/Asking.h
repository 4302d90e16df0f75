#pragma once

#include "charges/ItemRequestScreen.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/workstation/Workstation.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace tests {

/// Asks a store for two items of AGUILAR. It is the save that is cut, not what comes before.
template <typename Entry>
void askForTwo(Workstation& workstation, const char* firstItem, const char* secondItem) {
    auto& screen = controls::SharedScreen<Entry>::fresh();
    screen.Show();
    screen.template findChild<QRadioButton*>(QStringLiteral("optType_2"))->setChecked(true);
    auto* name = screen.template findChild<QLineEdit*>(QStringLiteral("txtPName"));
    name->setText(QStringLiteral("26004078"));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QCoreApplication::sendEvent(name, &enter);
    auto* grid = screen.template findChild<controls::FlexGrid*>(QStringLiteral("mshflexEntry"));
    grid->setRows(4);
    const char* const lines[2][7] = {{"1", firstItem, "FIRST", "PRN", "1", "12", ""},
                                     {"2", secondItem, "SECOND", "BID", "2", "24", "NOTE"}};
    for (int row = 1; row <= 2; ++row) {
        for (int column = 0; column < 7; ++column)
            grid->setTextMatrix(row, column, QString::fromLatin1(lines[row - 1][column]));
    }
    auto* save = screen.template findChild<QPushButton*>(QStringLiteral("cmdMedOption"));
    workstation.save([&] { save->click(); });
    controls::release<Entry>();
}

} // namespace tests
