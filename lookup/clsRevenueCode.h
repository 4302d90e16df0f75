#pragma once

#include "platform/ado/Recordset.h"

#include <QString>

namespace lookup {

/// The revenue code of a request line: what is charged, and how its item is looked up. The properties are
/// those of the last code validated; a code that fails leaves them as they were. One shared instance:
/// revenueCode().
class clsRevenueCode {
  public:
    /// True when a code is loaded: the code itself, or the one picked from the list of like ones. Shows
    /// "Item does not exists." when there is nothing like it.
    bool ValidateRevenue(const QString& code);

    const QString& RevenueID() const { return m_revenueId; }
    const QString& Revenue() const { return m_revenue; }
    /// Whether items are chosen under the code, as the file holds it.
    const QString& WithItems() const { return m_withItems; }
    /// Whether the items come from the drug and supply lists.
    bool SearchInventory() const { return m_searchInventory; }
    /// Stock location; "" without one.
    const QString& LocationID() const { return m_locationId; }
    /// "" without one.
    const QString& InventoryCode() const { return m_inventoryCode; }

  private:
    void copy(ado::Recordset& rows);

    QString m_revenueId;
    QString m_revenue;
    QString m_withItems;
    bool m_searchInventory = false;
    QString m_locationId;
    QString m_inventoryCode;
};

clsRevenueCode& revenueCode();

} // namespace lookup
