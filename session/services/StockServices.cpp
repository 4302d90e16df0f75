#include "session/services/Services.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "session/services/PickListing.h"

namespace session {
namespace {

/// A service that cannot read its table says so instead of stopping the program.
bool canRead(ado::Connection& connection, const ado::Statement& statement) {
    try {
        connection.Execute(statement);
        return true;
    } catch (const base::RunTimeError&) {
        return false;
    }
}

QString codeOf(const QString& text) {
    return base::BackQuoted(base::Trim(text));
}

/// A bit, or a text that says one.
bool isSet(const base::Value& value) {
    if (const bool* bit = value.asBool())
        return *bit;
    const QString word = base::Trim(base::textOf(value));
    return word == u"True" || base::Val(word) != 0;
}

double priceOf(ado::Recordset& row, const char* field) {
    const base::Value& price = row.Fields(field).Value();
    return price.isNull() ? 0 : base::CDbl(price);
}

} // namespace

bool clsFormulist::InitConnection(ado::Connection& connection) {
    m_connection = &connection;
    return canRead(connection, ado::sql("SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster"));
}

QString clsFormulist::ShowList(QString& searchText, bool showList, QString& stockLocation) {
    const PickListing& listing = DrugsORCSR ? medicineListing : supplyListing;
    Pick chosen = pick(m_connection, listing, {{}, stockLocation}, searchText, showList);
    if (!chosen.row)
        return {};
    const QString code = base::Trim(chosen.row->Fields("ItemID").text());
    if (base::Trim(stockLocation).isEmpty())
        stockLocation = base::Trim(chosen.row->Fields("LocationID").text());
    searchText = code;
    return code;
}

QString clsFormulist::ShowList(const QString& searchText, const QString& store) {
    PickListing listing = store == QLatin1String(centralSupply) ? supplyListing : medicineListing;
    const QByteArray title = ListTitle.toLatin1();
    if (!title.isEmpty())
        listing.title = title.constData();
    Pick chosen = pick(m_connection, listing, {{}, store}, searchText, true);
    return chosen.row ? base::Trim(chosen.row->Fields("ItemID").text()) : QString();
}

bool clsDispense::InitConnect(ado::Connection& connection) {
    Drug.m_connection = &connection;
    return canRead(connection, ado::sql("SELECT TOP 1 ItemID FROM INVENTORY..tbInvStock"));
}

bool clsDrug::SearchDrug(const QString& code, const StockLocation& at) {
    if (!m_connection)
        throw base::RunTimeError(base::errors::connectionInvalid);
    DrugCode.clear();
    DrugName.clear();
    Status = false;
    Invent = {};
    const QString location = codeOf(at.text);
    ado::Recordset row;
    row.Open(
        ado::sql("SELECT TOP 1 I.ItemID, I.ItemName, I.SellingPriceIn, I.SellingPriceOut, I.Inactive FROM "
                 "INVENTORY..tbInvMaster I LEFT JOIN INVENTORY..tbInvStock S ON S.ItemID = I.ItemID WHERE "
                 "I.ItemID = '{}' AND ('{}' = '' OR "
                 "S.LocationID = '{}')",
                 codeOf(code), location, location),
        *m_connection);
    if (row.State() != ado::Recordset::adStateOpen || row.Eof())
        return false;
    DrugCode = base::Trim(row.Fields("ItemID").text());
    DrugName = base::Trim(row.Fields("ItemName").text());
    Status = isSet(row.Fields("Inactive").Value());
    Invent = {priceOf(row, "SellingPriceIn"), priceOf(row, "SellingPriceOut")};
    row.Close();
    return true;
}

void clsDrug::AppendStockCard(const StockCardEntry& entry) {
    if (!m_connection)
        throw base::RunTimeError(base::errors::connectionInvalid);
    m_connection->Execute(ado::sql(
        "INVENTORY..sp_AppendStockCard '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
        "'{}','{}','{}','{}','{}',NULL,NULL,NULL,'{}'",
        entry.hospitalNumber, entry.admissionNumber, entry.itemCode, entry.dateTime, entry.chargeSlip,
        entry.quantity, entry.argument7, entry.amount, entry.employeeCode, entry.dispensing, entry.room,
        entry.stockDepartment, entry.argument13, entry.extra, entry.argument15, entry.stockClass16,
        entry.stockClass17, entry.argument18, entry.argument22));
}

} // namespace session
