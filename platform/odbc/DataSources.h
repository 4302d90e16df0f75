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
    /// Puts a value that holds more than letters and digits in braces, unless it can go without and has a
    /// brace itself: FreeTDS 1.3 does not know doubled ones.
    ConnectionText& add(const char* keyword, const QString& value);
    const QString& text() const { return m_text; }

  private:
    QString m_text;
};

/// The text with what FreeTDS 1.3 lacks: the login that its data source names (UID, PWD), where the text has
/// none, since it does not look for one there; and the time that a begin or a commit may take, which it takes
/// from nothing else. A data source with a "Timeout" of its own keeps it.
QString completed(const QString& connection, int statementSeconds);
/// Whether the text itself names a login.
bool hasLogin(const QString& connection);

} // namespace odbc
