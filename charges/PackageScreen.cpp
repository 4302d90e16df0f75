#include "charges/PackageScreen.h"

#include "entry/RequestColumns.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "session/Screens.h"
#include "session/Session.h"
#include "ui_PackageScreen.h"

#include <QKeyEvent>

namespace charges {

using base::Trim;
using base::Val;
using namespace controls;

namespace {

enum PackageColumn { packageMark = 0, packageCodeColumn = 1, packageDescription = 2, packageGross = 3 };

/// Columns of the un-used items that a request screen records; column 0 is not written.
enum UnusedColumn {
    unusedCode = 1,
    unusedRevenue,
    unusedDescription,
    unusedQuantity,
    unusedPrice,
    unusedLocation,
    unusedPackage
};

const QString selected = QStringLiteral("1");
const QString unused = QStringLiteral("2");

const QString checkedPicture = QStringLiteral("checked");
const QString crossedPicture = QStringLiteral("crossed");

/// The pictures of a mark; an item that is neither selected nor un-used has none.
QIcon picture(const QString& name) {
    return look::icon(name, name == crossedPicture ? look::danger : look::accent);
}

QColor colorOf(const QString& status) {
    return status == selected ? QColor() : look::danger;
}

void paintRow(FlexGrid& grid, int row, const QColor& color) {
    for (int column = 0; column < grid.Cols(); ++column)
        grid.setCellForeColor(row, column, color);
}

/// Row 1 while it is empty, else a new one at the end.
int lineFor(FlexGrid& grid) {
    if (Trim(grid.TextMatrix(1, 1)).isEmpty())
        return 1;
    grid.setRows(grid.Rows() + 1);
    return grid.Rows() - 1;
}

} // namespace

PackageScreen::PackageScreen(const PackageVariant& variant, QWidget* parent)
    : Screen(parent), m_variant(variant), m_ui(std::make_unique<Ui::PackageScreen>()) {
    m_ui->setupUi(this);
    setObjectName(QString::fromLatin1(variant.screen));
    setWindowTitle(QString::fromLatin1(variant.title));
    m_ui->band->setTitle(windowTitle());
    m_description = m_ui->lblDescription;
    m_gross = m_ui->lblGross;
    m_description->setObjectName(QStringLiteral("lblInfo_%1").arg(variant.descriptionInfo));
    m_gross->setObjectName(QStringLiteral("lblInfo_%1").arg(variant.descriptionInfo + 1));
    m_ui->imgLegend->setIcon(picture(checkedPicture));
    m_ui->imgLegend_1->setIcon(picture(crossedPicture));
    if (!variant.hasLegend)
        delete m_ui->legend;
    m_ui->mshflexPackage->setRowSelect(true);
    m_ui->mshflexPackageItems->setRowSelect(true);
    m_ui->mshflexPackage->setEmptyText(QStringLiteral("There are no packages."));
    look::setPrimary(m_ui->cmdOption_1);
    setEscapeCloses(true);
    connectControls();
}

PackageScreen::~PackageScreen() = default;

void PackageScreen::connectControls() {
    FlexGrid* packages = m_ui->mshflexPackage;
    FlexGrid* items = m_ui->mshflexPackageItems;
    on(packages, &FlexGrid::Click, this, [this] { mshflexPackage_Click(); });
    on(packages, &FlexGrid::EnterPressed, this, [this] { mshflexPackage_Enter(); });
    on(items, &FlexGrid::Click, this, [this] { mshflexPackageItems_Click(); });
    on(items, &FlexGrid::EnterPressed, this, [this] { cmdAccept_Click(); });
    noteKeys(packages, {{"Enter", "To the items of the package"}, {"Space", "Picks the package"}});
    noteKeys(items, {{"Enter", "Accepts the package"}, {"Space", "Selected or un-used"}});
    // A blank is the click of a hand that stays on the keys; held down it does no more.
    const auto clickByBlank = [this](FlexGrid* grid, void (PackageScreen::*click)()) {
        on(grid, &FlexGrid::KeyDown, this, [this, click](QKeyEvent* event) {
            if (event->key() != Qt::Key_Space)
                return;
            event->accept();
            if (!event->isAutoRepeat())
                (this->*click)();
        });
    };
    clickByBlank(packages, &PackageScreen::mshflexPackage_Click);
    clickByBlank(items, &PackageScreen::mshflexPackageItems_Click);
    on(m_ui->cmdOption_1, &QPushButton::clicked, this, [this] { cmdAccept_Click(); });
    on(m_ui->cmdOption, &QPushButton::clicked, this, [this] { cmdExit_Click(); });
    if (m_variant.hasLegend)
        for (QToolButton* image : {m_ui->imgLegend, m_ui->imgLegend_1})
            on(image, &QToolButton::clicked, this, [this] { Unload(); });
}

// ---- opening

void PackageScreen::Form_Load() {
    clearInfo();
    layOutPackages();
    layOutItems();
    m_ui->cmdOption_1->setEnabled(false);
    ado::Recordset packages = readPackages();
    const bool found = !packages.Eof();
    if (found)
        m_ui->mshflexPackage->setDataSource(packages);
    packages.Close();
    m_ui->mshflexPackage->setEnabled(found);
    m_ui->mshflexPackage->setCurrentCell(1, packageCodeColumn);
    (found ? static_cast<QWidget*>(m_ui->mshflexPackage) : m_ui->cmdOption)->setFocus();
}

void PackageScreen::layOutPackages() {
    FlexGrid& grid = *m_ui->mshflexPackage;
    grid.Clear();
    grid.setFixedCols(0);
    grid.setRows(2);
    grid.setFormatString(QStringLiteral("|Code|Description|"));
    grid.setColWidths({0, 550, 3500, 0});
}

void PackageScreen::layOutItems() {
    FlexGrid& grid = *m_ui->mshflexPackageItems;
    grid.Clear();
    grid.setFixedCols(0);
    grid.setRows(2);
    grid.setFormatString(QStringLiteral("||Code|Revenue|Description|>Qty|>Amt|Location|"));
    grid.setColWidths({0, 350, 600, 800, 3500, 400, 800, 0, 0});
    grid.setEnabled(false);
}

void PackageScreen::clearInfo() {
    m_description->clear();
    m_gross->clear();
}

// ---- picking a package

void PackageScreen::mshflexPackage_Click() {
    FlexGrid& grid = *m_ui->mshflexPackage;
    clearInfo();
    m_ui->cmdOption_1->setEnabled(true);
    if (m_variant.marksPicked)
        markPicked();
    LoadPackageItems(Trim(grid.TextMatrix(grid.Row(), packageCodeColumn)));
    SelectedPackageRow = grid.Row();
    m_description->setText(grid.TextMatrix(SelectedPackageRow, packageDescription));
    m_gross->setText(QStringLiteral("Gross: ") + Trim(grid.TextMatrix(SelectedPackageRow, packageGross)));
    showPicked();
}

/// Enter goes on: from a package that is picked to its items, with the marks that they have.
void PackageScreen::mshflexPackage_Enter() {
    if (m_ui->mshflexPackage->Row() != SelectedPackageRow)
        mshflexPackage_Click();
    if (m_ui->mshflexPackageItems->isEnabled())
        m_ui->mshflexPackageItems->setFocus();
}

void PackageScreen::markPicked() {
    FlexGrid& grid = *m_ui->mshflexPackage;
    const bool again = grid.cellIconName(grid.Row(), packageMark) == checkedPicture;
    grid.setCellIcon(grid.Row(), packageMark, picture(again ? crossedPicture : checkedPicture));
}

void PackageScreen::showPicked() {
    FlexGrid& grid = *m_ui->mshflexPackage;
    for (int row = 0; row < grid.Rows(); ++row) {
        const bool picked = row == SelectedPackageRow;
        paintRow(grid, row, picked ? look::danger : QColor());
        for (int column = 0; column < grid.Cols(); ++column)
            grid.setCellBold(row, column, picked);
    }
}

void PackageScreen::LoadPackageItems(const QString& code) {
    FlexGrid& grid = *m_ui->mshflexPackageItems;
    layOutItems();
    ado::Recordset items = readItems(code);
    const bool found = !items.Eof();
    if (found)
        grid.setDataSource(items);
    items.Close();
    grid.setEnabled(found);
    m_ui->cmdOption_1->setEnabled(found);
    grid.setEmptyText(found ? QString() : QStringLiteral("This package has no items."));
    for (int row = 1; found && row < grid.Rows(); ++row) {
        const QString status = grid.TextMatrix(row, grid.Cols() - 1);
        if (status == selected)
            grid.setCellIcon(row, itemMark, picture(checkedPicture));
        else if (status == unused)
            grid.setCellIcon(row, itemMark, picture(crossedPicture));
        paintRow(grid, row, status == unused ? look::danger : QColor());
    }
    grid.setCurrentCell(1, itemMark);
}

// ---- marking the items

void PackageScreen::mshflexPackageItems_Click() {
    FlexGrid& grid = *m_ui->mshflexPackageItems;
    const int row = grid.Row();
    const QString status = grid.TextMatrix(row, itemStatus) == selected ? unused : selected;
    grid.setCellIcon(row, itemMark, picture(status == unused ? crossedPicture : checkedPicture));
    grid.setTextMatrix(row, itemStatus, status);
    paintRow(grid, row, colorOf(status));
}

// ---- accepting

void PackageScreen::cmdAccept_Click() {
    if (isUnloaded() || !m_ui->cmdOption_1->isEnabled())
        return;
    if (AllItemsUnused()) {
        MsgBox(QStringLiteral("Please select Package Items!"), vbCritical, QStringLiteral("Message"));
        return;
    }
    unfold();
    cmdExit_Click();
}

/// A package that is closed by a command leaves its caller ready to save, lines or not.
void PackageScreen::cmdExit_Click() {
    session::screens().enableRequestSaves();
    session::gInventoryEntry = true;
    Unload();
}

void PackageScreen::reject() {
    ErrorBoundary::guard([this] { cmdExit_Click(); });
}

bool PackageScreen::isUnused(int row) const {
    return m_ui->mshflexPackageItems->TextMatrix(row, m_variant.unusedColumn) == unused;
}

bool PackageScreen::AllItemsUnused() const {
    const int rows = m_ui->mshflexPackageItems->Rows();
    for (int row = 1; row < rows; ++row)
        if (!isUnused(row))
            return false;
    return true;
}

void PackageScreen::unfold() {
    for (int row = 1; row < m_ui->mshflexPackageItems->Rows(); ++row) {
        const double quantity = Val(item(row, itemQuantity));
        if (quantity == 0)
            throw base::RunTimeError(base::errors::divisionByZero);
        const QString unitPrice = Trim(base::CStr(Val(item(row, itemAmount)) / quantity));
        addSourceLine(row, unitPrice);
        if (isUnused(row))
            addUnusedLine(row, unitPrice);
    }
}

void PackageScreen::addSourceLine(int row, const QString& unitPrice) {
    FlexGrid& grid = *SourceGrid;
    const int line = lineFor(grid);
    const std::pair<int, QString> cells[] = {{entry::colLineNumber, QString::number(grid.Rows() - 1)},
                                             {entry::colDepartment, item(row, itemRevenue)},
                                             {entry::colCode, item(row, itemCode)},
                                             {entry::colParticular, item(row, itemDescription)},
                                             {entry::colType, {}},
                                             {entry::colPrice, unitPrice},
                                             {entry::colQuantity, item(row, itemQuantity)},
                                             {entry::colAmount, item(row, itemAmount)},
                                             {entry::colWithItems, {}},
                                             {entry::colAmountEditable, {}},
                                             {entry::colSearchInventory, unitPrice},
                                             {entry::colLink, {}},
                                             {entry::colInventoryCode, {}},
                                             {entry::colRoutinePrice, {}},
                                             {entry::colNothing, {}},
                                             {entry::colPackageCode, packageCode()}};
    for (const auto& [column, text] : cells)
        grid.setTextMatrix(line, column, text);
}

void PackageScreen::addUnusedLine(int row, const QString& unitPrice) {
    FlexGrid& grid = *PackageGrid;
    const int line = lineFor(grid);
    const std::pair<int, QString> cells[] = {{unusedCode, item(row, itemCode)},
                                             {unusedRevenue, item(row, itemRevenue)},
                                             {unusedDescription, item(row, itemDescription)},
                                             {unusedQuantity, item(row, itemQuantity)},
                                             {unusedPrice, unitPrice},
                                             {unusedLocation, item(row, itemLocation)},
                                             {unusedPackage, packageCode()}};
    for (const auto& [column, text] : cells)
        grid.setTextMatrix(line, column, text);
}

QString PackageScreen::item(int row, int column) const {
    return Trim(m_ui->mshflexPackageItems->TextMatrix(row, column));
}

QString PackageScreen::packageCode() const {
    return Trim(m_ui->mshflexPackage->TextMatrix(SelectedPackageRow, packageCodeColumn));
}

} // namespace charges
