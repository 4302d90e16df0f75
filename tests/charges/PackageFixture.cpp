#include "tests/charges/PackageFixture.h"

#include "entry/RequestColumns.h"
#include "platform/controls/look/Look.h"

#include <QCoreApplication>

namespace tests {

using controls::FlexGrid;

PackageFixture::PackageFixture() {
    lines.setRows(2);
    lines.setCols(entry::requestColumnCount);
    unused.setRows(2);
    unused.setCols(8);
}

void PackageFixture::show() {
    m_screen->SourceGrid = &lines;
    m_screen->PackageGrid = &unused;
    m_screen->Show();
    m_screen->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_screen.get()));
    QCoreApplication::processEvents();
}

void PackageFixture::clickRow(FlexGrid& grid, int row, int column) {
    const QRect cell = grid.cellRect(row, column).translated(-grid.pos()).translated(-grid.viewport()->pos());
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
}

void PackageFixture::pick(const QString& code) {
    for (int row = 1; row < packages().Rows(); ++row) {
        if (packages().TextMatrix(row, 1) == code) {
            clickRow(packages(), row, 2);
            return;
        }
    }
    ADD_FAILURE() << "no package " << code.toStdString();
}

QVariant PackageFixture::shown(const FlexGrid& grid, int row, int column, Qt::ItemDataRole role) {
    return grid.model()->data(grid.model()->index(row - 1, column), role);
}

bool PackageFixture::isRed(const FlexGrid& grid, int row, int column) {
    return shown(grid, row, column, Qt::ForegroundRole).value<QColor>() == controls::look::danger;
}

QString PackageFixture::cells(const FlexGrid& grid, int row, int from, int to) {
    QStringList texts;
    for (int column = from; column <= to; ++column)
        texts += grid.TextMatrix(row, column);
    return texts.join(u'|');
}

} // namespace tests
