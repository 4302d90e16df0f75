// An ODBC driver for tests: speaks as much of the driver's side of ODBC 3 as the program uses, and asks the
// test that loaded it for every answer.
#include "tests/support/odbc/driver/Values.h"

#include <cstdint>

#ifdef _WIN32
#define DRIVER_CALL extern "C" __declspec(dllexport)
#else
#define DRIVER_CALL extern "C" __attribute__((visibility("default")))
#endif

using namespace fakeodbc;

FakeDriver& fakeodbc::script() {
    static FakeDriver driver;
    return driver;
}

namespace {

const FakeError& cutLine() {
    static const FakeError error{0, QStringLiteral("08S01"),
                                 QStringLiteral("[Test][Driver]Communication link failure"), true};
    return error;
}

SQLRETURN step(Connection& connection, FakeStep what, const char* name) {
    script().steps += QString::number(connection.number) + u' ' + QLatin1StringView(name);
    if (connection.dead && what != FakeStep::Disconnect)
        return connection.fail(cutLine());
    const auto error = script().step ? script().step(connection.number, what) : std::nullopt;
    if (!error)
        return connection.good();
    connection.dead = connection.dead || error->cut;
    return connection.fail(*error);
}

/// Stands on the result `current`, or on the error behind the last one.
SQLRETURN stand(Statement& statement) {
    statement.rewind();
    if (statement.result()) {
        const ado::Result& result = *statement.result();
        return result.rows.columns.empty() && result.affected == 0 && statement.current == 0 ? SQL_NO_DATA
                                                                                             : SQL_SUCCESS;
    }
    if (statement.error) {
        const FakeError error = *statement.error;
        statement.error.reset();
        statement.connection->dead = statement.connection->dead || error.cut;
        return statement.fail(error);
    }
    return SQL_NO_DATA;
}

} // namespace

DRIVER_CALL FakeDriver* scintraFakeDriver() {
    return &script();
}

DRIVER_CALL SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* handle) {
    if (kind == SQL_HANDLE_ENV) {
        *handle = new Object;
    } else if (kind == SQL_HANDLE_DBC) {
        *handle = new Connection;
    } else if (kind == SQL_HANDLE_STMT) {
        auto* statement = new Statement;
        statement->connection = connectionOf(parent);
        *handle = statement;
    } else {
        return SQL_ERROR;
    }
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle) {
    if (kind == SQL_HANDLE_DBC)
        delete connectionOf(handle);
    else if (kind == SQL_HANDLE_STMT)
        delete statementOf(handle);
    else
        delete static_cast<Object*>(handle);
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
    return SQL_SUCCESS;
}

// The driver manager takes a driver that has this for one of wide texts.
DRIVER_CALL SQLRETURN SQL_API SQLConnectW(SQLHDBC handle, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT,
                                          SQLWCHAR*, SQLSMALLINT) {
    return connectionOf(handle)->fail({0, QStringLiteral("HYC00"), QStringLiteral("Not here"), false});
}

DRIVER_CALL SQLRETURN SQL_API SQLDriverConnectW(SQLHDBC handle, SQLHWND, SQLWCHAR* text, SQLSMALLINT length,
                                                SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*, SQLUSMALLINT) {
    Connection& connection = *connectionOf(handle);
    script().connectionTexts += textOf(text, length);
    connection.number = int(script().connectionTexts.size());
    connection.dead = false;
    return step(connection, FakeStep::Connect, "connect");
}

DRIVER_CALL SQLRETURN SQL_API SQLDisconnect(SQLHDBC handle) {
    return step(*connectionOf(handle), FakeStep::Disconnect, "disconnect");
}

DRIVER_CALL SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT number,
                                             SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* words,
                                             SQLSMALLINT units, SQLSMALLINT* length) {
    const auto& records = static_cast<Object*>(handle)->diagnostics;
    if (number < 1 || std::size_t(number) > records.size())
        return SQL_NO_DATA;
    const FakeError& record = records[std::size_t(number) - 1];
    if (state)
        giveText<SQLSMALLINT>(record.state, state, 6, nullptr);
    if (native)
        *native = record.native;
    return giveText(record.words, words, units, length);
}

// The driver manager reads records only from a driver that has this as well.
DRIVER_CALL SQLRETURN SQL_API SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT, SQLSMALLINT what,
                                               SQLPOINTER value, SQLSMALLINT, SQLSMALLINT*) {
    if (what != SQL_DIAG_NUMBER)
        return SQL_NO_DATA;
    put(value, SQLINTEGER(static_cast<Object*>(handle)->diagnostics.size()));
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLGetInfoW(SQLHDBC, SQLUSMALLINT what, SQLPOINTER value, SQLSMALLINT bytes,
                                          SQLSMALLINT* length) {
    const auto text = [&](const QString& answer) {
        const SQLRETURN code =
            giveText(answer, static_cast<SQLWCHAR*>(value), bytes / qsizetype(sizeof(SQLWCHAR)), length);
        if (length)
            *length = SQLSMALLINT(*length * SQLSMALLINT(sizeof(SQLWCHAR)));
        return code;
    };
    switch (what) {
    case SQL_DBMS_NAME:
        return text(script().product);
    case SQL_DBMS_VER:
        return text(QStringLiteral("13.00.5026"));
    case SQL_SERVER_NAME:
        return text(QStringLiteral("TESTSERVER"));
    case SQL_DRIVER_ODBC_VER:
        return text(QStringLiteral("03.51"));
    case SQL_GETDATA_EXTENSIONS:
        put(value, SQLUINTEGER(SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BLOCK | SQL_GD_BOUND));
        return SQL_SUCCESS;
    default:
        put(value, SQLUSMALLINT(0));
        return SQL_SUCCESS;
    }
}

DRIVER_CALL SQLRETURN SQL_API SQLSetConnectAttrW(SQLHDBC handle, SQLINTEGER what, SQLPOINTER value,
                                                 SQLINTEGER) {
    Connection& connection = *connectionOf(handle);
    const auto number = reinterpret_cast<std::uintptr_t>(value);
    if (what == SQL_ATTR_LOGIN_TIMEOUT) {
        script().loginSeconds = int(number);
        return SQL_SUCCESS;
    }
    if (what != SQL_ATTR_AUTOCOMMIT)
        return SQL_SUCCESS;
    const bool on = number == SQL_AUTOCOMMIT_ON;
    const bool begins = connection.autocommit && !on;
    if (on && script().step) {
        if (const auto error = script().step(connection.number, FakeStep::Autocommit))
            return connection.fail(*error);
    }
    connection.autocommit = on;
    return begins ? step(connection, FakeStep::Begin, "begin") : connection.good();
}

DRIVER_CALL SQLRETURN SQL_API SQLGetConnectAttrW(SQLHDBC handle, SQLINTEGER what, SQLPOINTER value,
                                                 SQLINTEGER, SQLINTEGER*) {
    const Connection& connection = *connectionOf(handle);
    SQLUINTEGER number = 0;
    if (what == SQL_ATTR_CONNECTION_DEAD)
        number = connection.dead ? SQL_CD_TRUE : SQL_CD_FALSE;
    else if (what == SQL_ATTR_AUTOCOMMIT)
        number = connection.autocommit ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    put(value, number);
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLEndTran(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT how) {
    if (kind != SQL_HANDLE_DBC)
        return SQL_ERROR;
    const bool keep = how == SQL_COMMIT;
    return step(*connectionOf(handle), keep ? FakeStep::Commit : FakeStep::Rollback,
                keep ? "commit" : "rollback");
}

DRIVER_CALL SQLRETURN SQL_API SQLSetStmtAttrW(SQLHSTMT handle, SQLINTEGER what, SQLPOINTER value,
                                              SQLINTEGER) {
    Statement& statement = *statementOf(handle);
    const auto number = reinterpret_cast<std::uintptr_t>(value);
    switch (what) {
    case SQL_ATTR_QUERY_TIMEOUT:
        script().statementSeconds = int(number);
        break;
    case SQL_ATTR_ROW_ARRAY_SIZE:
        statement.block = number;
        break;
    case SQL_ATTR_ROWS_FETCHED_PTR:
        statement.fetched = static_cast<SQLULEN*>(value);
        break;
    case SQL_ATTR_ROW_STATUS_PTR:
        statement.status = static_cast<SQLUSMALLINT*>(value);
        break;
    default:
        script().oddCalls += QStringLiteral("statement attribute %1").arg(what);
    }
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLGetStmtAttrW(SQLHSTMT handle, SQLINTEGER, SQLPOINTER value, SQLINTEGER,
                                              SQLINTEGER*) {
    // the implicit descriptors, of which nobody reads anything
    put(value, handle);
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER length) {
    Statement& statement = *statementOf(handle);
    Connection& connection = *statement.connection;
    statement.good();
    const QString sent = textOf(text, length);
    if (connection.dead)
        return statement.fail(cutLine());
    script().texts += sent;
    FakeAnswer answer = script().answer ? script().answer(connection.number, sent) : FakeAnswer();
    statement.results = std::move(answer.results);
    statement.error = std::move(answer.error);
    statement.current = 0;
    if (statement.results.empty() && !statement.error)
        statement.results.emplace_back();
    return stand(statement);
}

DRIVER_CALL SQLRETURN SQL_API SQLPrepareW(SQLHSTMT handle, SQLWCHAR*, SQLINTEGER) {
    script().oddCalls += QStringLiteral("prepare");
    return statementOf(handle)->fail({0, QStringLiteral("HYC00"), QStringLiteral("Not here"), false});
}

DRIVER_CALL SQLRETURN SQL_API SQLMoreResults(SQLHSTMT handle) {
    Statement& statement = *statementOf(handle);
    statement.good();
    if (statement.current < statement.results.size())
        ++statement.current;
    return stand(statement);
}

DRIVER_CALL SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count) {
    const ado::Result* result = statementOf(handle)->result();
    *count = result ? SQLSMALLINT(result->rows.columns.size()) : SQLSMALLINT(0);
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLRowCount(SQLHSTMT handle, SQLLEN* count) {
    const ado::Result* result = statementOf(handle)->result();
    *count = result && result->rows.columns.empty() ? SQLLEN(result->affected) : -1;
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLDescribeColW(SQLHSTMT handle, SQLUSMALLINT number, SQLWCHAR* name,
                                              SQLSMALLINT units, SQLSMALLINT* length, SQLSMALLINT* type,
                                              SQLULEN* size, SQLSMALLINT* digits, SQLSMALLINT* nullable) {
    const ado::Column& column = statementOf(handle)->result()->rows.columns[std::size_t(number) - 1];
    *type = sqlTypeOf(column.type);
    *size = *type == SQL_VARCHAR ? SQLULEN(script().textSize) : *type == SQL_DECIMAL ? 19 : 23;
    *digits = *type == SQL_DECIMAL ? 4 : 3;
    if (nullable)
        *nullable = SQL_NULLABLE_UNKNOWN;
    return giveText(column.name, name, units, length);
}

DRIVER_CALL SQLRETURN SQL_API SQLBindCol(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT target,
                                         SQLPOINTER data, SQLLEN width, SQLLEN* lengths) {
    statementOf(handle)->bindings[number] = {target, static_cast<char*>(data), width, lengths};
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLFetch(SQLHSTMT handle) {
    Statement& statement = *statementOf(handle);
    statement.good();
    if (statement.connection->dead)
        return statement.fail(cutLine());
    const ado::Rows& rows = statement.result()->rows;
    statement.row = statement.row < 0 ? 0 : statement.row + qsizetype(statement.block);
    statement.blockRow = 0;
    statement.given.clear();
    if (statement.row >= rows.count()) {
        if (statement.fetched)
            *statement.fetched = 0;
        return SQL_NO_DATA;
    }
    const qsizetype count = std::min<qsizetype>(qsizetype(statement.block), rows.count() - statement.row);
    SQLRETURN code = SQL_SUCCESS;
    for (qsizetype i = 0; i < count; ++i) {
        if (statement.status)
            statement.status[i] = SQL_ROW_SUCCESS;
        for (const auto& [number, binding] : statement.bindings) {
            qsizetype given = 0;
            if (give(rows.at(statement.row + i, number - 1), binding.target, binding.data + i * binding.width,
                     binding.width, binding.lengths + i, given) == SQL_SUCCESS_WITH_INFO)
                code = SQL_SUCCESS_WITH_INFO;
        }
        if (statement.row + i == script().brokenRow) {
            if (!statement.status)
                return SQL_ERROR;
            statement.status[i] = SQL_ROW_ERROR;
            statement.fail({8115, QStringLiteral("22003"),
                            QStringLiteral("[Test][Driver]Numeric value out of range"), false});
            code = SQL_SUCCESS_WITH_INFO;
        }
    }
    if (statement.fetched)
        *statement.fetched = SQLULEN(count);
    return code;
}

DRIVER_CALL SQLRETURN SQL_API SQLSetPos(SQLHSTMT handle, SQLSETPOSIROW row, SQLUSMALLINT operation,
                                        SQLUSMALLINT) {
    Statement& statement = *statementOf(handle);
    if (!script().rereads || operation != SQL_POSITION)
        return statement.fail({0, QStringLiteral("HYC00"), QStringLiteral("Not here"), false});
    statement.blockRow = qsizetype(row) - 1;
    statement.given.clear();
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLGetData(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT target,
                                         SQLPOINTER data, SQLLEN bytes, SQLLEN* length) {
    Statement& statement = *statementOf(handle);
    const base::Value& value =
        statement.result()->rows.at(statement.row + statement.blockRow, qsizetype(number) - 1);
    return give(value, target, data, bytes, length, statement.given[number]);
}

DRIVER_CALL SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT what) {
    Statement& statement = *statementOf(handle);
    if (what == SQL_UNBIND)
        statement.bindings.clear();
    else
        statement.drop();
    return SQL_SUCCESS;
}

DRIVER_CALL SQLRETURN SQL_API SQLCloseCursor(SQLHSTMT handle) {
    statementOf(handle)->drop();
    return SQL_SUCCESS;
}
