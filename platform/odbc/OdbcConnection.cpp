#include "platform/odbc/OdbcConnection.h"

#include "platform/odbc/DataSources.h"
#include "platform/odbc/Diagnostics.h"

#include <algorithm>
#include <cstdint>

namespace odbc {
namespace {

SQLPOINTER attribute(int value) {
    return reinterpret_cast<SQLPOINTER>(std::uintptr_t(value));
}

} // namespace

OdbcConnection::OdbcConnection(const QString& text, const Options& options)
    : m_connection(SQL_HANDLE_DBC, SQL_HANDLE_ENV, m_environment.get()) {
    // a driver without such a time-out says so with an error, which changes nothing
    SQLSetConnectAttrW(m_connection.get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(options.connectSeconds), 0);
    const QString full = completed(text, options.statementSeconds);
    m_text.assign(full);
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLDriverConnectW(m_connection.get(), nullptr, m_text.data(),
                                         SQLSMALLINT(m_text.size()), nullptr, 0, &length,
                                         SQL_DRIVER_NOPROMPT)))
        throw logOnError(full);
    m_connected = true;
    m_isSqlServer = info(SQL_DBMS_NAME).contains(QLatin1StringView("SQL Server"), Qt::CaseInsensitive);
    m_statement = Handle(SQL_HANDLE_STMT, SQL_HANDLE_DBC, m_connection.get());
    SQLSetStmtAttrW(m_statement.get(), SQL_ATTR_QUERY_TIMEOUT, attribute(options.statementSeconds), 0);
    m_reader = std::make_unique<ResultReader>(m_statement.get());
}

/// Without a login FreeTDS asks for a Kerberos ticket, and says of its lack no more than that it failed.
base::RunTimeError OdbcConnection::logOnError(const QString& text) const {
    const base::RunTimeError error = errorOf(SQL_HANDLE_DBC, m_connection.get());
    if (error.number() != errors::notAgreed || hasLogin(text))
        return error;
    return base::RunTimeError(errors::loginFailed,
                              QStringLiteral("The data source names no login, and there is no ticket."),
                              QStringLiteral("28000"), {});
}

OdbcConnection::~OdbcConnection() {
    m_reader.reset();
    m_statement.reset();
    if (!m_connected)
        return;
    if (!m_autocommit)
        SQLEndTran(SQL_HANDLE_DBC, m_connection.get(), SQL_ROLLBACK);
    SQLDisconnect(m_connection.get());
}

qint64 OdbcConnection::run(const QString& text, const TakeResult& take) {
    struct Finish {
        ResultReader& reader;
        ~Finish() { reader.finish(); }
    };
    m_text.assign(text);
    const Finish finish{*m_reader};
    qint64 affected = -1;
    SQLRETURN code = SQLExecDirectW(m_statement.get(), m_text.data(), m_text.size());
    if (code == SQL_NO_DATA) { // an UPDATE or DELETE that found no row
        affected = 0;
        code = SQLMoreResults(m_statement.get());
    }
    for (; code != SQL_NO_DATA; code = SQLMoreResults(m_statement.get())) {
        if (!SQL_SUCCEEDED(code))
            throw errorOf(SQL_HANDLE_STMT, m_statement.get(), text);
        std::vector<ado::Column> columns = m_reader->columns();
        if (!columns.empty()) {
            if (!take(*m_reader, std::move(columns)))
                return affected;
            m_reader->unbind();
            continue;
        }
        SQLLEN count = -1;
        if (SQL_SUCCEEDED(SQLRowCount(m_statement.get(), &count)) && count >= 0)
            affected = count;
    }
    return affected;
}

ado::Result OdbcConnection::fetch(const QString& text) {
    ado::Result result;
    result.affected = run(text, [&result](ResultReader& rows, std::vector<ado::Column>&& columns) {
        result.rows.columns = std::move(columns);
        result.rows.values.clear();
        while (rows.next(result.rows.values)) {
        }
        return true;
    });
    return result;
}

ado::Streamed OdbcConnection::stream(const QString& text, ado::RowSink& sink) {
    ado::Streamed end;
    end.affected = run(text, [&](ResultReader& rows, std::vector<ado::Column>&& columns) {
        end.rows = 0;
        sink.begin(columns);
        std::vector<base::Value> block;
        std::vector<base::Value> row(columns.size());
        for (; sink.isWanted() && rows.next(block); block.clear()) {
            for (auto value = block.begin(); value != block.end();) {
                for (base::Value& cell : row)
                    cell = std::move(*value++);
                ++end.rows;
                if (!sink.row(row)) {
                    end.stopped = true;
                    return false;
                }
            }
        }
        end.stopped = !sink.isWanted();
        return !end.stopped;
    });
    return end;
}

void OdbcConnection::setAutocommit(bool on) {
    if (!SQL_SUCCEEDED(SQLSetConnectAttrW(m_connection.get(), SQL_ATTR_AUTOCOMMIT,
                                          attribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                                          SQL_IS_UINTEGER)))
        throw errorOf(SQL_HANDLE_DBC, m_connection.get());
    m_autocommit = on;
}

void OdbcConnection::endTransaction(SQLSMALLINT how) {
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, m_connection.get(), how)))
        throw errorOf(SQL_HANDLE_DBC, m_connection.get());
}

bool OdbcConnection::lineIsDead() const {
    SQLUINTEGER state = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(m_connection.get(), SQL_ATTR_CONNECTION_DEAD, &state,
                                            SQL_IS_UINTEGER, nullptr)) &&
           state == SQL_CD_TRUE;
}

QString OdbcConnection::info(SQLUSMALLINT what) const {
    std::vector<SQLWCHAR> text(256);
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(m_connection.get(), what, text.data(),
                                   SQLSMALLINT(text.size() * sizeof(SQLWCHAR)), &bytes)))
        return {};
    const auto units = std::size_t(bytes) / sizeof(SQLWCHAR);
    return fromWide(text.data(), qsizetype(std::min(units, text.size() - 1)));
}

} // namespace odbc
