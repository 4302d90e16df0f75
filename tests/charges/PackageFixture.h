#pragma once

#include "charges/PackageScreen.h"
#include "platform/controls/grid/FlexGrid.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace tests {

/// A package screen on the demo hospital over two grids as a request screen has them, driven by keys.
class PackageFixture : public LoggedOn {
  public:
    PackageFixture();

    template <typename Screen>
    void open() {
        m_screen = std::make_unique<Screen>();
        show();
    }
    charges::PackageScreen& screen() { return *m_screen; }
    controls::FlexGrid& packages() { return child<controls::FlexGrid>(screen(), "mshflexPackage"); }
    controls::FlexGrid& items() { return child<controls::FlexGrid>(screen(), "mshflexPackageItems"); }
    QPushButton& accept() { return child<QPushButton>(screen(), "cmdOption_1"); }
    QString info(const char* name) { return child<QLabel>(screen(), name).text(); }
    void type(const QString& text) { keysToFocus(screen(), text); }

    /// Clicks the package of that code.
    void pick(const QString& code);
    /// Clicks a row of a grid, in the middle of the column.
    void clickRow(controls::FlexGrid& grid, int row, int column);
    /// "checked", "crossed" or "" of the item in that row.
    QString mark(int row) { return items().cellIconName(row, charges::itemMark); }
    static QVariant shown(const controls::FlexGrid& grid, int row, int column, Qt::ItemDataRole role);
    static bool isRed(const controls::FlexGrid& grid, int row, int column);

    /// A line of a grid, its cells parted by "|".
    static QString cells(const controls::FlexGrid& grid, int row, int from, int to);

    controls::FlexGrid lines, unused;
    MessageScript boxes;
    ErrorRecorder errors;

  private:
    void show();

    std::unique_ptr<charges::PackageScreen> m_screen;
};

} // namespace tests
