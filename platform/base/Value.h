#pragma once

#include "platform/base/DateTime.h"

#include <QString>

#include <variant>

namespace base {

/// What a field of a row holds, and what a report takes as parameter. Null is not "".
/// Money and decimals travel as double.
class Value {
  public:
    Value() = default;
    Value(std::nullptr_t) {}
    Value(bool value) : m_data(value) {}
    Value(int value) : m_data(qint64(value)) {}
    Value(qint64 value) : m_data(value) {}
    Value(double value) : m_data(value) {}
    Value(DateTime value) : m_data(value) {}
    Value(QString value) : m_data(std::move(value)) {}
    Value(const char* latin1) : m_data(QString::fromLatin1(latin1)) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(m_data); }
    const bool* asBool() const { return std::get_if<bool>(&m_data); }
    const qint64* asInteger() const { return std::get_if<qint64>(&m_data); }
    const double* asDouble() const { return std::get_if<double>(&m_data); }
    const DateTime* asDateTime() const { return std::get_if<DateTime>(&m_data); }
    const QString* asText() const { return std::get_if<QString>(&m_data); }

    bool operator==(const Value&) const = default;

  private:
    std::variant<std::monostate, bool, qint64, double, DateTime, QString> m_data;
};

} // namespace base
