#pragma once

#include <QString>

#include <vector>

namespace odbc {

struct DataSource {
    QString name;
    QString driver; ///< the driver's description
};

/// The user's and the machine's data sources, by name. Empty when there is none, or no driver manager that
/// answers.
std::vector<DataSource> dataSources();

/// A connection string as the driver manager reads it, value by value.
class ConnectionText {
  public:
    /// Puts a value that holds more than letters and digits in braces.
    ConnectionText& add(const char* keyword, const QString& value);
    const QString& text() const { return m_text; }

  private:
    QString m_text;
};

} // namespace odbc
