#pragma once

#include "bench/RawStatement.h"

#include <memory>
#include <string>
#include <vector>

namespace bench {

/// What a kind of save writes, and how its numbers look.
struct OrderKind {
    std::vector<std::pair<std::string, std::string>> tables; ///< name, column of the reference
    std::string numbersTable, referenceColumn, lineColumn;   ///< the row of the last numbers
    std::string referenceBegin, referenceEnd, lineBegin;     ///< around the numbers
    bool takesStock = false;
};
extern const OrderKind requestOrder;
extern const OrderKind assessmentOrder;

/// The rows that one saved order left behind, and the least that writes such rows again: one transaction,
/// prepared statements, every value bound.
class RawOrder {
  public:
    /// Reads the rows of the reference out of the file. The handle is not owned.
    RawOrder(const OrderKind& kind, sqlite3* handle, const std::string& reference);

    /// Writes the order once more, under numbers of its own.
    void write();
    /// "8 tbNucMaster, 10 tbNurseLogBook, ..."
    const std::string& description() const { return m_description; }

  private:
    enum class Cell { Kept, RowId, RequestNum, ChargeSlip };
    struct Value {
        std::string text;
        double number = 0;
        int type = SQLITE_NULL;
    };
    struct Table {
        std::vector<Cell> cells;
        std::vector<std::vector<Value>> rows;
        std::unique_ptr<RawStatement> insert;
    };

    void readTable(const std::string& name, const std::string& slipColumn, const std::string& chargeSlip);
    void writeTable(Table& table, sqlite3_int64 chargeSlip, sqlite3_int64 requestNum);

    const OrderKind& m_kind;
    sqlite3* m_handle;
    std::vector<Table> m_tables;
    std::vector<std::pair<std::string, double>> m_stock; ///< item and quantity
    std::unique_ptr<RawStatement> m_begin, m_commit, m_numbers, m_advance, m_lowerStock;
    std::string m_description;
    sqlite3_int64 m_lines = 0;
};

} // namespace bench
