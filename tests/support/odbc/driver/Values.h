#pragma once

#include "tests/support/odbc/driver/Objects.h"

#include <algorithm>
#include <cstring>

namespace fakeodbc {

QString textOf(const SQLWCHAR* text, SQLINTEGER length);

/// Copies a text with a closing nought; gives SQL_SUCCESS_WITH_INFO when it was cut.
template <typename Length>
SQLRETURN giveText(const QString& text, SQLWCHAR* target, qsizetype units, Length* length) {
    if (length)
        *length = Length(text.size());
    if (!target || units == 0)
        return SQL_SUCCESS;
    const qsizetype fits = std::min(text.size(), units - 1);
    for (qsizetype i = 0; i < fits; ++i)
        target[i] = text[i].unicode();
    target[fits] = 0;
    return fits < text.size() ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

template <typename T>
void put(void* target, const T& value) {
    std::memcpy(target, &value, sizeof value);
}

/// One value into a buffer of the program's. `given` counts what was read of a text before.
SQLRETURN give(const base::Value& value, SQLSMALLINT target, void* data, SQLLEN bytes, SQLLEN* length,
               qsizetype& given);

SQLSMALLINT sqlTypeOf(ado::DataType type);

} // namespace fakeodbc
