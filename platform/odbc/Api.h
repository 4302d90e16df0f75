#pragma once

// The ODBC headers in the one order that every system takes.
#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <QString>

#include <vector>

// What of the driver manager is used; every name is one of its functions.
#define SCINTRA_ODBC_FUNCTIONS(X)                                                                            \
    X(SQLAllocHandle)                                                                                        \
    X(SQLFreeHandle)                                                                                         \
    X(SQLSetEnvAttr)                                                                                         \
    X(SQLDataSourcesW)                                                                                       \
    X(SQLDriverConnectW)                                                                                     \
    X(SQLDisconnect)                                                                                         \
    X(SQLGetInfoW)                                                                                           \
    X(SQLSetConnectAttrW)                                                                                    \
    X(SQLGetConnectAttrW)                                                                                    \
    X(SQLEndTran)                                                                                            \
    X(SQLSetStmtAttrW)                                                                                       \
    X(SQLFreeStmt)                                                                                           \
    X(SQLExecDirectW)                                                                                        \
    X(SQLMoreResults)                                                                                        \
    X(SQLRowCount)                                                                                           \
    X(SQLNumResultCols)                                                                                      \
    X(SQLDescribeColW)                                                                                       \
    X(SQLBindCol)                                                                                            \
    X(SQLFetch)                                                                                              \
    X(SQLSetPos)                                                                                             \
    X(SQLGetData)                                                                                            \
    X(SQLGetDiagRecW)

namespace odbc {

/// The driver manager, loaded with its first use and kept: a desk that works on its own has no use for it.
struct Api {
    /// Raises 48 when there is no library of that name and version, or none that has all of the functions.
    Api(const QString& name, int version);

#define SCINTRA_DECLARE(function) decltype(&::function) function = nullptr;
    SCINTRA_ODBC_FUNCTIONS(SCINTRA_DECLARE)
#undef SCINTRA_DECLARE
};

/// Raises as the constructor does, as long as the library is missing.
const Api& api();

// Each under its own name: what is called in this namespace goes through the table.
#define SCINTRA_CALL(function)                                                                               \
    template <typename... Arguments>                                                                         \
    SQLRETURN function(Arguments... arguments) {                                                             \
        return api().function(arguments...);                                                                 \
    }
SCINTRA_ODBC_FUNCTIONS(SCINTRA_CALL)
#undef SCINTRA_CALL

/// A text as the wide functions take it; reused, so that a statement costs no allocation of its own.
class WideText {
  public:
    WideText() = default;
    explicit WideText(QStringView text) { assign(text); }
    void assign(QStringView text) {
        m_units.resize(std::size_t(text.size()) + 1);
        for (qsizetype i = 0; i < text.size(); ++i)
            m_units[std::size_t(i)] = SQLWCHAR(text[i].unicode());
        m_units.back() = 0;
    }
    SQLWCHAR* data() { return m_units.data(); }
    /// In units, without the closing nought.
    SQLINTEGER size() const { return SQLINTEGER(m_units.size()) - 1; }

  private:
    std::vector<SQLWCHAR> m_units{0};
};

inline QString fromWide(const SQLWCHAR* text, qsizetype units) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text), units);
}

} // namespace odbc
