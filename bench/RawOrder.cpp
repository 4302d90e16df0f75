#include "bench/RawOrder.h"

#include <algorithm>

namespace bench {

namespace {

std::string quoted(const std::string& name) {
    return '"' + name + '"';
}

bool sameName(const std::string& one, const char* other) {
    return sqlite3_stricmp(one.c_str(), other) == 0;
}

} // namespace

const OrderKind requestOrder{.tables = {{"NUCLEAR.tbNucMaster", "RefNum"},
                                        {"STATION.tbNurseLogBook", "ReferenceNum"},
                                        {"BILLING.tbDailyBill", "RefNum"},
                                        {"INVENTORY.tbInvStockCard", "RefNum"}},
                             .numbersTable = "NUCLEAR.tbNucSlipRow",
                             .referenceColumn = "ChargeSlip",
                             .lineColumn = "RequestNum",
                             .referenceBegin = "C",
                             .referenceEnd = "J",
                             .lineBegin = "",
                             .takesStock = true};
const OrderKind assessmentOrder{.tables = {{"BILLING.tbCashAssessment", "RefNum"}},
                                .numbersTable = "BILLING.tbAssessmentNumRow",
                                .referenceColumn = "assessmentnum",
                                .lineColumn = "RequestNum",
                                .referenceBegin = "NU",
                                .referenceEnd = "",
                                .lineBegin = "NU"};

RawOrder::RawOrder(const OrderKind& kind, sqlite3* handle, const std::string& reference)
    : m_kind(kind), m_handle(handle) {
    for (const auto& [table, column] : kind.tables) {
        readTable(table, column, reference);
        m_lines = std::max(m_lines, sqlite3_int64(m_tables.back().rows.size()));
    }
    if (kind.takesStock) {
        RawStatement movements(handle,
                               "SELECT ItemID, Quantity FROM \"INVENTORY.tbInvStockCard\" WHERE RefNum = ?1");
        movements.bind(1, reference);
        while (movements.step())
            m_stock.emplace_back(movements.text(0), sqlite3_column_double(movements.get(), 1));
    }
    const auto prepare = [&](const std::string& text) {
        return std::make_unique<RawStatement>(handle, text);
    };
    const std::string numbers = quoted(kind.numbersTable);
    m_begin = prepare("BEGIN IMMEDIATE");
    m_commit = prepare("COMMIT");
    m_numbers = prepare("SELECT " + kind.referenceColumn + ", " + kind.lineColumn + " FROM " + numbers);
    m_advance = prepare("UPDATE " + numbers + " SET " + kind.referenceColumn + " = " + kind.referenceColumn +
                        " + 1, " + kind.lineColumn + " = " + kind.lineColumn + " + ?1");
    m_lowerStock = prepare("UPDATE \"INVENTORY.tbInvStock\" SET OnHand = OnHand - ?1 WHERE ItemID = ?2 "
                           "AND LocationID = '224'");
}

void RawOrder::readTable(const std::string& name, const std::string& slipColumn,
                         const std::string& chargeSlip) {
    Table table;
    RawStatement rows(m_handle, "SELECT * FROM " + quoted(name) + " WHERE " + quoted(slipColumn) + " = ?1");
    rows.bind(1, chargeSlip);
    const int columns = sqlite3_column_count(rows.get());
    std::string places;
    for (int column = 0; column < columns; ++column) {
        const std::string columnName = sqlite3_column_name(rows.get(), column);
        Cell cell = Cell::Kept;
        if (sameName(columnName, slipColumn.c_str()))
            cell = Cell::ChargeSlip;
        else if (sameName(columnName, "RequestNum"))
            cell = Cell::RequestNum;
        else if (sameName(columnName, "LogBookID") || sameName(columnName, "BillID") ||
                 sameName(columnName, "StockCardID") || sameName(columnName, "AssessID"))
            cell = Cell::RowId;
        table.cells.push_back(cell);
        places += column == 0 ? "?" : ", ?";
    }
    while (rows.step()) {
        auto& row = table.rows.emplace_back(std::size_t(columns));
        for (int column = 0; column < columns; ++column) {
            Value& value = row[std::size_t(column)];
            value.type = sqlite3_column_type(rows.get(), column);
            if (value.type == SQLITE_TEXT)
                value.text = rows.text(column);
            else if (value.type != SQLITE_NULL)
                value.number = sqlite3_column_double(rows.get(), column);
        }
    }
    if (table.rows.empty())
        throw std::runtime_error("The order left nothing in " + name + ".");
    table.insert =
        std::make_unique<RawStatement>(m_handle, "INSERT INTO " + quoted(name) + " VALUES (" + places + ")");
    m_description += (m_description.empty() ? "" : ", ") + std::to_string(table.rows.size()) + ' ' +
                     name.substr(name.find('.') + 1);
    m_tables.push_back(std::move(table));
}

void RawOrder::write() {
    m_begin->run();
    m_numbers->step();
    const sqlite3_int64 chargeSlip = sqlite3_column_int64(m_numbers->get(), 0);
    const sqlite3_int64 requestNum = sqlite3_column_int64(m_numbers->get(), 1);
    m_numbers->reset();
    m_advance->bind(1, m_lines);
    m_advance->run();
    for (Table& table : m_tables)
        writeTable(table, chargeSlip, requestNum);
    for (const auto& [item, quantity] : m_stock) {
        m_lowerStock->bind(1, quantity);
        m_lowerStock->bind(2, item);
        m_lowerStock->run();
    }
    m_commit->run();
}

void RawOrder::writeTable(Table& table, sqlite3_int64 chargeSlip, sqlite3_int64 requestNum) {
    const std::string slip = m_kind.referenceBegin + std::to_string(chargeSlip) + m_kind.referenceEnd;
    for (const auto& row : table.rows) {
        const std::string number = m_kind.lineBegin + std::to_string(requestNum++);
        for (std::size_t column = 0; column < row.size(); ++column) {
            const int place = int(column) + 1;
            const Value& value = row[column];
            switch (table.cells[column]) {
            case Cell::RowId:
                sqlite3_bind_null(table.insert->get(), place);
                break;
            case Cell::ChargeSlip:
                table.insert->bind(place, slip);
                break;
            case Cell::RequestNum:
                table.insert->bind(place, number);
                break;
            case Cell::Kept:
                if (value.type == SQLITE_TEXT)
                    table.insert->bind(place, value.text);
                else if (value.type == SQLITE_NULL)
                    sqlite3_bind_null(table.insert->get(), place);
                else
                    table.insert->bind(place, value.number);
            }
        }
        table.insert->run();
    }
}

} // namespace bench
