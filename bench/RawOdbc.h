#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <QString>

#include <string>
#include <vector>

namespace bench {

/// A program that uses ODBC and nothing else: knows the columns of its statement, fetches each row into the
/// same variables. The floor.
class RawOdbc {
  public:
    static constexpr int columns = 6;
    /// A row of the measured table.
    struct Row {
        SQLBIGINT number = 0;
        std::u16string name;
        std::u16string remarks;
        double amount = 0;
        SQL_TIMESTAMP_STRUCT made{};
        unsigned char done = 0;
    };

    explicit RawOdbc(const QString& connection);
    ~RawOdbc();
    RawOdbc(const RawOdbc&) = delete;
    RawOdbc& operator=(const RawOdbc&) = delete;

    std::vector<Row> fetch(const std::u16string& text);

  private:
    static void require(SQLRETURN code, const char* what);

    SQLHENV m_environment = nullptr;
    SQLHDBC m_connection = nullptr;
    SQLHSTMT m_statement = nullptr;
};

} // namespace bench
