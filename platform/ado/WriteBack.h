#pragma once

#include "platform/ado/Statement.h"

namespace ado {

class Recordset;

/// The UPDATE that an edited row makes: its set fields, found by primary key and by the values last read.
class WriteBack {
  public:
    explicit WriteBack(Recordset& recordset) : m_recordset(recordset) {}
    /// Raises as Recordset::Update tells.
    void send();

  private:
    QString table() const;
    Statement statement(const QString& table, const QStringList& key) const;
    void addCondition(QString& conditions, qsizetype column) const;

    Recordset& m_recordset;
};

} // namespace ado
