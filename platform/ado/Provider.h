#pragma once

#include "platform/ado/Statement.h"
#include "platform/base/Value.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace ado {

enum class DataType { Text, Integer, Double, Money, Bit, DateTime };

struct Column {
    QString name;
    DataType type = DataType::Text;
    /// "DATABASE..table" and the column's name in it, where the provider knows them; else empty.
    QString baseTable;
    QString baseColumn;
};

/// Equal but for case, as names of columns are.
inline bool sameName(const QString& name, const QString& other) {
    return name.size() == other.size() && (name == other || name.compare(other, Qt::CaseInsensitive) == 0);
}

/// The columns of a result, shared by all who were told of them.
class Columns {
  public:
    Columns() = default;
    Columns(std::vector<Column> columns)
        : m_columns(std::make_shared<const std::vector<Column>>(std::move(columns))) {}

    operator const std::vector<Column>&() const { return all(); }
    std::size_t size() const { return all().size(); }
    bool empty() const { return all().empty(); }
    const Column& operator[](std::size_t place) const { return all()[place]; }
    auto begin() const { return all().begin(); }
    auto end() const { return all().end(); }
    /// To be changed; the others keep what they were told.
    std::vector<Column>& edit() {
        auto own = std::make_shared<std::vector<Column>>(all());
        m_columns = own;
        return *own;
    }

  private:
    const std::vector<Column>& all() const {
        static const std::vector<Column> none;
        return m_columns ? *m_columns : none;
    }

    std::shared_ptr<const std::vector<Column>> m_columns;
};

/// All rows of one result, row after row in one vector.
struct Rows {
    Columns columns;
    std::vector<base::Value> values;

    qsizetype count() const { return columns.empty() ? 0 : qsizetype(values.size() / columns.size()); }
    const base::Value& at(qsizetype row, qsizetype column) const {
        return values[std::size_t(row) * columns.size() + std::size_t(column)];
    }
};

struct Result {
    /// The last result of the batch that had columns; no columns when there was none.
    Rows rows;
    /// Rows written, -1 when the server does not say (SET NOCOUNT ON).
    qint64 affected = -1;
};

/// Takes the rows of a statement as they come. What it raises ends the statement and is raised by stream().
class RowSink {
  public:
    virtual ~RowSink() = default;
    /// A result with columns begins. A batch may send several; the last one counts, so rows told before are
    /// to be dropped.
    virtual void begin(const std::vector<Column>& columns) = 0;
    /// The next row, one value a column; may be moved from. False when no more rows are wanted.
    virtual bool row(std::vector<base::Value>& values) = 0;
    /// Asked now and then while the server works on a row: false ends the statement. May be asked from the
    /// reading thread while another one changes the answer.
    virtual bool isWanted() const { return true; }
};

/// How a streamed statement ended.
struct Streamed {
    qint64 rows = 0;      ///< of the last result, handed over
    qint64 affected = -1; ///< as in Result
    bool stopped = false; ///< the sink wanted no more; a batch of its own transaction was rolled back
};

/// One way to a server. One provider is one session there: one statement at a time, on one thread.
/// Every member raises base::RunTimeError with the server's number, words and SQLSTATE.
class Provider {
  public:
    virtual ~Provider() = default;
    /// Runs the statement and fetches all of its result.
    Result execute(const Statement& statement) { return execute(statement.text()); }
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
    virtual bool inTransaction() const = 0;
    /// The database that names without a prefix belong to. Raises 911 when there is none of that name.
    virtual void useDatabase(const QString& name) = 0;
    /// Columns of the primary key of "DATABASE..table"; empty when it has none or is unknown.
    virtual QStringList primaryKey(const QString& table) = 0;

  protected:
    friend class Connection;
    friend Result runBatch(Provider& provider, const QString& text);
    friend Streamed runBatch(Provider& provider, const QString& text, RowSink& sink);

    /// Runs the text as it is and fetches all of its result. Not for everyone: a text that was joined by hand
    /// shall not compile.
    virtual Result execute(const QString& text) = 0;
    /// Runs the text and hands its rows over one by one, holding none. Here for a provider that cannot: it
    /// fetches all of the result first.
    virtual Streamed stream(const QString& text, RowSink& sink);
};

} // namespace ado
