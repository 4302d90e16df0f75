#pragma once

#include "bench/RawStatement.h"

#include <memory>
#include <string>
#include <vector>

namespace bench {

/// The rows that one saved order left behind, and the least that writes such rows again: one transaction,
/// prepared statements, every value bound.
class RawOrder {
  public:
    /// Reads the rows of the slip `chargeSlip` out of the file. The handle is not owned.
    RawOrder(sqlite3* handle, const std::string& chargeSlip);

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

    sqlite3* m_handle;
    std::vector<Table> m_tables;
    std::vector<std::pair<std::string, double>> m_stock; ///< item and quantity
    std::unique_ptr<RawStatement> m_begin, m_commit, m_numbers, m_advance, m_lowerStock;
    std::string m_description;
    sqlite3_int64 m_lines = 0;
};

} // namespace bench
