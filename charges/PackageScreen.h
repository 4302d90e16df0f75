#pragma once

#include "platform/ado/Recordset.h"
#include "platform/controls/screen/Screen.h"

#include <memory>

class QLabel;

namespace controls {
class FlexGrid;
}
namespace Ui {
class PackageScreen;
}

namespace charges {

/// Columns of an item, as both statements give them.
enum PackageItemColumn {
    itemMark = 1, ///< a picture
    itemCode = 2,
    itemRevenue = 3,
    itemDescription = 4,
    itemQuantity = 5,
    itemAmount = 6, ///< of the whole quantity
    itemLocation = 7,
    itemStatus = 8, ///< "1" selected, "2" un-used
    itemColumnCount = 9
};

/// Where the package screens differ, besides their two statements.
struct PackageVariant {
    const char* screen; ///< name of the screen
    const char* title;
    int descriptionInfo;            ///< the lblInfo with the description; the gross amount is in the next one
    PackageItemColumn unusedColumn; ///< where accepting looks for the "2" of an un-used item
    bool marksPicked;               ///< picking a package marks its column 0
    bool hasLegend;                 ///< there are a legend and a guideline
};

/// Unfolds a package into lines of a request screen: all of its items on SourceGrid, those that the patient
/// will not use on PackageGrid as well. Both grids belong to the caller and are set before the screen is
/// shown. Writes nothing to a database. Accepting an item with a quantity of 0 raises 11.
class PackageScreen : public controls::Screen {
    Q_OBJECT

  public:
    ~PackageScreen() override;

    controls::FlexGrid* SourceGrid = nullptr;
    controls::FlexGrid* PackageGrid = nullptr;

  protected:
    PackageScreen(const PackageVariant& variant, QWidget* parent);

    void Form_Load() override;
    /// Escape is Exit.
    void reject() override;

    virtual ado::Recordset readPackages() const = 0;
    virtual ado::Recordset readItems(const QString& code) const = 0;

  private:
    void connectControls();
    void layOutPackages();
    void layOutItems();
    void clearInfo();

    void mshflexPackage_Click();
    void mshflexPackage_Enter();
    void mshflexPackageItems_Click();
    void cmdAccept_Click();
    void cmdExit_Click();

    void LoadPackageItems(const QString& code);
    void markPicked();
    void showPicked();
    bool AllItemsUnused() const;
    bool isUnused(int row) const;
    void unfold();
    void addSourceLine(int row, const QString& unitPrice);
    void addUnusedLine(int row, const QString& unitPrice);
    QString item(int row, int column) const;
    QString packageCode() const;

    const PackageVariant& m_variant;
    std::unique_ptr<Ui::PackageScreen> m_ui;
    QLabel* m_description = nullptr;
    QLabel* m_gross = nullptr;
    int SelectedPackageRow = 0; ///< 0 while none was picked
};

} // namespace charges
