#include "tests/support/odbc/driver/Values.h"

#include "platform/base/Conversion.h"

namespace fakeodbc {
namespace {

SQL_TIMESTAMP_STRUCT stampOf(const base::DateTime& moment) {
    const base::CalendarDate day = base::calendarDate(moment);
    const base::ClockTime time = base::clockTime(moment);
    SQL_TIMESTAMP_STRUCT stamp{};
    stamp.year = SQLSMALLINT(day.year);
    stamp.month = SQLUSMALLINT(day.month);
    stamp.day = SQLUSMALLINT(day.day);
    stamp.hour = SQLUSMALLINT(time.hour);
    stamp.minute = SQLUSMALLINT(time.minute);
    stamp.second = SQLUSMALLINT(time.second);
    stamp.fraction = script().wholeSeconds ? 0 : SQLUINTEGER(time.ms) * 1'000'000;
    return stamp;
}

SQLRETURN givePiece(const QString& text, qsizetype& given, SQLWCHAR* target, SQLLEN bytes, SQLLEN* length) {
    constexpr SQLLEN unit = sizeof(SQLWCHAR);
    if (given > 0 && given >= text.size())
        return SQL_NO_DATA;
    const QString rest = text.mid(given);
    const SQLRETURN code = giveText<SQLLEN>(rest, target, bytes / unit, nullptr);
    if (length)
        *length = rest.size() * unit;
    given += std::min<qsizetype>(rest.size(), bytes / unit - 1);
    if (given == 0)
        given = 1; // an empty text was read
    return code;
}

} // namespace

QString textOf(const SQLWCHAR* text, SQLINTEGER length) {
    const auto* units = reinterpret_cast<const char16_t*>(text);
    return length == SQL_NTS ? QString::fromUtf16(units) : QString::fromUtf16(units, length);
}

SQLRETURN give(const base::Value& value, SQLSMALLINT target, void* data, SQLLEN bytes, SQLLEN* length,
               qsizetype& given) {
    if (value.isNull()) {
        if (length)
            *length = SQL_NULL_DATA;
        return SQL_SUCCESS;
    }
    const auto number = [&] {
        if (const qint64* whole = value.asInteger())
            return double(*whole);
        if (const double* real = value.asDouble())
            return *real;
        if (const bool* flag = value.asBool())
            return *flag ? 1.0 : 0.0;
        return value.asText() ? value.asText()->toDouble() : 0.0;
    };
    SQLLEN told = 0;
    switch (target) {
    case SQL_C_BIT:
        put(data, static_cast<unsigned char>(number() != 0));
        told = 1;
        break;
    case SQL_C_SBIGINT:
        put(data, value.asInteger() ? SQLBIGINT(*value.asInteger()) : SQLBIGINT(number()));
        told = sizeof(SQLBIGINT);
        break;
    case SQL_C_DOUBLE:
        put(data, number());
        told = sizeof(double);
        break;
    case SQL_C_TYPE_TIMESTAMP:
        put(data, stampOf(value.asDateTime() ? *value.asDateTime() : base::DateTime()));
        told = sizeof(SQL_TIMESTAMP_STRUCT);
        break;
    default:
        return givePiece(base::textOf(value), given, static_cast<SQLWCHAR*>(data), bytes, length);
    }
    if (length)
        *length = told;
    return SQL_SUCCESS;
}

SQLSMALLINT sqlTypeOf(ado::DataType type) {
    switch (type) {
    case ado::DataType::Integer:
        return SQL_INTEGER;
    case ado::DataType::Double:
        return SQL_FLOAT;
    case ado::DataType::Money:
        return SQL_DECIMAL;
    case ado::DataType::Bit:
        return SQL_BIT;
    case ado::DataType::DateTime:
        return SQL_TYPE_TIMESTAMP;
    case ado::DataType::Text:
        break;
    }
    return SQL_VARCHAR;
}

} // namespace fakeodbc
