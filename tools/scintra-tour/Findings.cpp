#include "tools/scintra-tour/Findings.h"

#include "platform/ado/Connection.h"
#include "platform/base/Conversion.h"
#include "server/engine/EmbeddedProvider.h"

namespace tour {

namespace {

/// One kind of row that the order must have left, and how many.
struct Expected {
    const char* what;
    int rows;
};

void note(Findings& findings, const Expected& expected, ado::Recordset rows) {
    const QString what = QString::fromLatin1(expected.what);
    findings.lines += QStringLiteral("%1: %2").arg(what).arg(rows.RecordCount());
    if (rows.RecordCount() != expected.rows)
        findings.faults +=
            QStringLiteral("%1: %2 rows instead of %3").arg(what).arg(rows.RecordCount()).arg(expected.rows);
    for (; !rows.Eof(); rows.MoveNext()) {
        QStringList cells;
        for (int field = 0; field < rows.fieldCount(); ++field)
            cells += base::textOf(rows.Fields(field).Value());
        findings.lines += QStringLiteral("    ") + cells.join(QStringLiteral(" | "));
    }
}

/// Reads over a connection of its own.
class Reader {
  public:
    explicit Reader(const QString& hospitalFile) {
        m_connection.Open(engine::EmbeddedProvider::open(hospitalFile, {}), QStringLiteral("tour-findings"));
        m_connection.setDefaultDatabase(QStringLiteral("NUCLEAR"));
    }
    ado::Recordset operator()(const ado::Statement& statement) {
        ado::Recordset rows;
        rows.Open(statement, m_connection);
        return rows;
    }

  private:
    ado::Connection m_connection;
};

} // namespace

Findings findPackage(const QString& hospitalFile, const QString& chargeSlip) {
    using ado::sql;
    Reader read(hospitalFile);
    Findings findings;
    note(findings, {"package's log book (STATION..tbNurseLogBook)", 3},
         read(sql("SELECT RevenueID, ItemID, Description, Amount FROM STATION..tbNurseLogBook WHERE "
                  "ReferenceNum = '{}' ORDER BY LogBookID",
                  chargeSlip)));
    note(findings, {"un-used items (STATION..tbPackageItemsUnused)", 1},
         read(sql("SELECT PackageID, ItemID, RevenueID, Quantity, Price, LocationID FROM "
                  "STATION..tbPackageItemsUnused WHERE ReferenceNum = '{}'",
                  chargeSlip)));
    return findings;
}

Findings findOrder(const QString& hospitalFile, const QString& chargeSlip) {
    using ado::sql;
    Reader read(hospitalFile);
    Findings findings;
    note(findings, {"requests (NUCLEAR..tbNucMaster)", 2},
         read(sql("SELECT RequestNum, RevenueID, ItemID, Quantity, Amount FROM NUCLEAR..tbNucMaster "
                  "WHERE RefNum = '{}' ORDER BY RequestNum",
                  chargeSlip)));
    note(findings, {"log book (STATION..tbNurseLogBook)", 3},
         read(sql("SELECT RequestNum, RevenueID, ItemID, Description, Amount FROM STATION..tbNurseLogBook "
                  "WHERE ReferenceNum = '{}' ORDER BY LogBookID",
                  chargeSlip)));
    note(findings, {"bill (BILLING..tbDailyBill)", 2},
         read(sql("SELECT RevenueID, ItemID, Quantity, Amount FROM BILLING..tbDailyBill "
                  "WHERE RefNum = '{}' ORDER BY BillID",
                  chargeSlip)));
    note(findings, {"stock card (INVENTORY..tbInvStockCard)", 1},
         read(sql("SELECT ItemID, Quantity, Amount, StockClass FROM INVENTORY..tbInvStockCard "
                  "WHERE RefNum = '{}' ORDER BY StockCardID",
                  chargeSlip)));
    note(
        findings, {"slip lines (NUCLEAR..tbNucChargeSlip)", 3},
        read(sql(
            "SELECT RevenueID, ItemID, Description, Quantity, Price, Amount FROM NUCLEAR..tbNucChargeSlip")));
    return findings;
}

} // namespace tour
