#include "bench/RawOdbc.h"

#include <array>
#include <stdexcept>

namespace bench {

namespace {

using Text = std::array<SQLWCHAR, 128>;

std::u16string textOf(const Text& text, SQLLEN bytes) {
    if (bytes <= 0)
        return {};
    return std::u16string(text.data(), text.data() + std::size_t(bytes) / sizeof(SQLWCHAR));
}

std::vector<SQLWCHAR> wide(const std::u16string& text) {
    std::vector<SQLWCHAR> units(text.begin(), text.end());
    units.push_back(0);
    return units;
}

} // namespace

void RawOdbc::require(SQLRETURN code, const char* what) {
    if (!SQL_SUCCEEDED(code))
        throw std::runtime_error(std::string("bare ODBC program: ") + what);
}

RawOdbc::RawOdbc(const QString& connection) {
    require(SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &m_environment), "environment");
    require(
        SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
        "version");
    require(SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection), "connection");
    std::vector<SQLWCHAR> text = wide(connection.toStdU16String());
    SQLSMALLINT length = 0;
    require(SQLDriverConnectW(m_connection, nullptr, text.data(), SQL_NTS, nullptr, 0, &length,
                              SQL_DRIVER_NOPROMPT),
            "connect");
    require(SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_statement), "statement");
}

RawOdbc::~RawOdbc() {
    SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

std::vector<RawOdbc::Row> RawOdbc::fetch(const std::u16string& statement) {
    std::vector<SQLWCHAR> text = wide(statement);
    require(SQLExecDirectW(m_statement, text.data(), SQLINTEGER(statement.size())), "execute");
    Row row;
    Text name;
    Text remarks;
    std::array<SQLLEN, columns> lengths{};
    const auto bind = [&](SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER target, std::size_t bytes) {
        require(SQLBindCol(m_statement, column, type, target, SQLLEN(bytes), &lengths[column - 1U]), "bind");
    };
    bind(1, SQL_C_SBIGINT, &row.number, sizeof row.number);
    bind(2, SQL_C_WCHAR, name.data(), sizeof name);
    bind(3, SQL_C_WCHAR, remarks.data(), sizeof remarks);
    bind(4, SQL_C_DOUBLE, &row.amount, sizeof row.amount);
    bind(5, SQL_C_TYPE_TIMESTAMP, &row.made, sizeof row.made);
    bind(6, SQL_C_BIT, &row.done, sizeof row.done);
    std::vector<Row> rows;
    while (SQLFetch(m_statement) == SQL_SUCCESS) {
        row.name = textOf(name, lengths[1]);
        row.remarks = textOf(remarks, lengths[2]);
        rows.push_back(row);
    }
    SQLFreeStmt(m_statement, SQL_UNBIND);
    SQLFreeStmt(m_statement, SQL_CLOSE);
    return rows;
}

} // namespace bench
