#pragma once

#include "platform/ado/Provider.h"
#include "platform/ado/Statement.h"
#include "platform/base/Value.h"

#include <QString>

#include <optional>
#include <vector>

namespace ado {

class Connection;
class Recordset;

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };

/// One field of the current row. Valid as long as its recordset.
class Field {
  public:
    /// Raises 3021 when there is no current row.
    const base::Value& Value() const;
    /// Null reads as "".
    QString text() const;
    /// Kept until Recordset::Update. Raises 3251 on a read-only recordset, 3021 with no current row.
    void setValue(base::Value value);
    const QString& Name() const;

  private:
    friend class Recordset;
    Field(Recordset& recordset, qsizetype column) : m_recordset(&recordset), m_column(column) {}
    Recordset* m_recordset;
    qsizetype m_column;
};

/// A result, fetched whole into the client. Cursor types and options are taken as they are given and change
/// nothing; the lock type decides whether rows can be written back.
class Recordset {
  public:
    static constexpr int adStateClosed = 0;
    static constexpr int adStateOpen = 1;

    /// Raises 3705 when open, and what the statement raises. A statement without columns leaves it closed.
    void Open(const Statement& source, Connection& connection, CursorType cursorType = CursorType::Dynamic,
              LockType lockType = LockType::ReadOnly, int options = -1);
    /// Raises 3704 when closed.
    void Close();
    int State() const { return m_open ? adStateOpen : adStateClosed; }
    bool Eof() const;
    bool Bof() const;
    int RecordCount() const;
    void MoveFirst();
    /// Raises 3021 at the end.
    void MoveNext();
    /// By name, in either case. Raises 3265 when there is no such column.
    Field Fields(const QString& name);
    Field Fields(const char* name) { return Fields(QString::fromLatin1(name)); }
    Field Fields(int ordinal);
    int fieldCount() const { return int(m_rows.columns.size()); }

    /// The table that Update() writes to, for rows that came out of a procedure: "DATABASE..table".
    void setUniqueTable(const QString& table) { m_uniqueTable = table; }
    /// Update() then finds the row by all that was read instead of by the primary key; it must be the only
    /// one like that. For a table whose key the text does not select.
    void setFoundByAllColumns(bool byAll) { m_foundByAllColumns = byAll; }
    /// Sends an UPDATE of the fields that were set, found by the primary key and the values last read.
    /// Nothing set, nothing sent. Raises 3251 when there is no table or key, -2147217864 when the row is not
    /// there any more.
    void Update();

    /// The whole result, for binding to a grid.
    const Rows& rows() const { return m_rows; }

  private:
    friend class Connection;
    friend class Field;
    friend class WriteBack;
    void take(Connection& connection, const Statement& statement, LockType lockType);
    void requireOpen() const;
    void requireRow() const;

    Connection* m_connection = nullptr;
    QString m_source;
    QString m_uniqueTable;
    bool m_foundByAllColumns = false;
    Rows m_rows;
    qsizetype m_position = 0;
    bool m_open = false;
    bool m_writable = false;
    std::vector<std::optional<base::Value>> m_edits;
};

} // namespace ado
