#include "platform/ado/Recordset.h"

#include "platform/ado/Connection.h"
#include "platform/ado/WriteBack.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"

namespace ado {

const base::Value& Field::Value() const {
    m_recordset->requireRow();
    const auto& edit = m_recordset->m_edits;
    if (!edit.empty() && edit[std::size_t(m_column)])
        return *edit[std::size_t(m_column)];
    return m_recordset->m_rows.at(m_recordset->m_position, m_column);
}

QString Field::text() const {
    return base::textOf(Value());
}

void Field::setValue(base::Value value) {
    m_recordset->requireRow();
    if (!m_recordset->m_writable)
        throw base::RunTimeError(base::errors::rowNotUpdatable);
    m_recordset->m_edits.resize(m_recordset->m_rows.columns.size());
    m_recordset->m_edits[std::size_t(m_column)] = std::move(value);
}

const QString& Field::Name() const {
    return m_recordset->m_rows.columns[std::size_t(m_column)].name;
}

void Recordset::Open(const Statement& source, Connection& connection, CursorType, LockType lockType, int) {
    if (m_open)
        throw base::RunTimeError(base::errors::objectOpen);
    take(connection, source, lockType);
}

void Recordset::take(Connection& connection, const Statement& statement, LockType lockType) {
    m_rows = connection.send(statement, StatementKind::Text).rows;
    m_connection = &connection;
    m_source = statement.text();
    m_position = 0;
    m_open = !m_rows.columns.empty();
    m_writable = lockType != LockType::ReadOnly;
    m_edits.clear();
}

void Recordset::Close() {
    requireOpen();
    m_open = false;
    m_rows = {};
    m_edits.clear();
}

bool Recordset::Eof() const {
    requireOpen();
    return m_position >= m_rows.count();
}

bool Recordset::Bof() const {
    requireOpen();
    return m_rows.count() == 0;
}

int Recordset::RecordCount() const {
    requireOpen();
    return int(m_rows.count());
}

void Recordset::MoveFirst() {
    requireOpen();
    if (m_rows.count() == 0)
        throw base::RunTimeError(base::errors::noCurrentRecord);
    m_position = 0;
    m_edits.clear();
}

void Recordset::MoveNext() {
    requireRow();
    ++m_position;
    m_edits.clear();
}

Field Recordset::Fields(const QString& name) {
    requireOpen();
    for (std::size_t i = 0; i < m_rows.columns.size(); ++i) {
        if (sameName(m_rows.columns[i].name, name))
            return Field(*this, qsizetype(i));
    }
    throw base::RunTimeError(base::errors::itemNotFound);
}

Field Recordset::Fields(int ordinal) {
    requireOpen();
    if (ordinal < 0 || ordinal >= fieldCount())
        throw base::RunTimeError(base::errors::itemNotFound);
    return Field(*this, ordinal);
}

void Recordset::Update() {
    requireRow();
    if (m_edits.empty())
        return;
    WriteBack(*this).send();
    for (std::size_t i = 0; i < m_edits.size(); ++i) {
        if (m_edits[i])
            m_rows.values[std::size_t(m_position) * m_rows.columns.size() + i] = *m_edits[i];
    }
    m_edits.clear();
}

void Recordset::requireOpen() const {
    if (!m_open)
        throw base::RunTimeError(base::errors::objectClosed);
}

void Recordset::requireRow() const {
    requireOpen();
    if (m_position >= m_rows.count())
        throw base::RunTimeError(base::errors::noCurrentRecord);
}

} // namespace ado
