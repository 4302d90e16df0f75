#include "platform/odbc/Handle.h"

#include "platform/odbc/Diagnostics.h"

#include <cstdint>

namespace odbc {

Handle::Handle(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent) : m_kind(kind) {
    if (SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &m_handle)))
        return;
    m_handle = nullptr;
    if (parent == SQL_NULL_HANDLE)
        throw base::RunTimeError(7, QStringLiteral("Out of memory"));
    throw errorOf(parentKind, parent);
}

Handle makeEnvironment() {
    Handle environment(SQL_HANDLE_ENV, 0, SQL_NULL_HANDLE);
    const auto version = reinterpret_cast<SQLPOINTER>(std::uintptr_t(SQL_OV_ODBC3));
    if (!SQL_SUCCEEDED(SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, version, 0)))
        throw errorOf(SQL_HANDLE_ENV, environment.get());
    return environment;
}

} // namespace odbc
