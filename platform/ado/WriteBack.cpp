#include "platform/ado/WriteBack.h"

#include "platform/ado/Connection.h"
#include "platform/ado/Quoting.h"
#include "platform/ado/Recordset.h"
#include "platform/base/Format.h"

#include <QRegularExpression>

namespace ado {
namespace {

constexpr int rowNotLocated = -2147217864;

/// The name as it was read, so that the text is the same where a provider does not know the table's own; that
/// one for a column that goes by another name.
const QString& writtenName(const Column& column) {
    const bool same =
        column.baseColumn.isEmpty() || column.baseColumn.compare(column.name, Qt::CaseInsensitive) == 0;
    return same ? column.name : column.baseColumn;
}

} // namespace

void WriteBack::send() {
    const QString target = table();
    const QStringList key =
        target.isEmpty() ? QStringList() : m_recordset.m_connection->provider().primaryKey(target);
    if (key.isEmpty())
        throw base::RunTimeError(base::errors::rowNotUpdatable);
    const Result result = m_recordset.m_connection->send(statement(target, key), StatementKind::WriteBack);
    if (result.affected == 0)
        throw base::RunTimeError(
            rowNotLocated, QStringLiteral("Row cannot be located for updating. Some values may have been "
                                          "changed since it was last read."));
}

QString WriteBack::table() const {
    if (!m_recordset.m_uniqueTable.isEmpty())
        return m_recordset.m_uniqueTable;
    static const QRegularExpression from(
        QStringLiteral(R"(^\s*select\b.*\bfrom\s+([\w.\[\]]+)\s*(?:where\b|$))"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = from.match(m_recordset.m_source);
    if (match.hasMatch())
        return match.captured(1); // the same on every server
    for (const Column& column : m_recordset.m_rows.columns) {
        if (!column.baseTable.isEmpty())
            return column.baseTable;
    }
    return {};
}

Statement WriteBack::statement(const QString& target, const QStringList& key) const {
    QStringList changes;
    QStringList conditions;
    for (qsizetype i = 0; i < qsizetype(m_recordset.m_edits.size()); ++i) {
        const Column& column = m_recordset.m_rows.columns[std::size_t(i)];
        const QString& name = writtenName(column);
        const bool isKey = key.contains(name, Qt::CaseInsensitive);
        if (const auto& edit = m_recordset.m_edits[std::size_t(i)]) {
            changes += bracketed(name) + QStringLiteral(" = ") + literal(*edit);
            conditions += condition(i);
        } else if (isKey || m_recordset.m_foundByAllColumns) {
            conditions += condition(i);
        }
    }
    if (m_recordset.m_foundByAllColumns)
        conditions += QStringLiteral("(SELECT COUNT(*) FROM %1 WHERE %2) = 1")
                          .arg(target, conditions.join(QStringLiteral(" AND ")));
    else
        for (const QString& name : key)
            m_recordset.Fields(name); // a key that was not selected finds no row for certain
    return Statement(
        QStringLiteral("UPDATE %1 SET %2 WHERE %3")
            .arg(target, changes.join(QStringLiteral(", ")), conditions.join(QStringLiteral(" AND "))));
}

QString WriteBack::condition(qsizetype column) const {
    const Column& described = m_recordset.m_rows.columns[std::size_t(column)];
    const QString name = bracketed(writtenName(described));
    const base::Value& last = m_recordset.m_rows.at(m_recordset.m_position, column);
    return last.isNull() ? name + QStringLiteral(" IS NULL") : name + QStringLiteral(" = ") + literal(last);
}

} // namespace ado
