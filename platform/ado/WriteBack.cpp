#include "platform/ado/WriteBack.h"

#include "platform/ado/Connection.h"
#include "platform/ado/Quoting.h"
#include "platform/ado/Recordset.h"
#include "platform/base/Format.h"

#include <QRegularExpression>
#include <QStringBuilder>

#include <algorithm>
#include <array>

namespace ado {
namespace {

constexpr int rowNotLocated = -2147217864;

/// The name as it was read, so that the text is the same where a provider does not know the table's own; that
/// one for a column that goes by another name.
const QString& writtenName(const Column& column) {
    return column.baseColumn.isEmpty() || sameName(column.baseColumn, column.name) ? column.name
                                                                                   : column.baseColumn;
}

/// The table that a plain SELECT reads; empty for any other text.
QString tableOf(const QString& source) {
    static const QRegularExpression from(
        QStringLiteral(R"(^\s*select\b.*\bfrom\s+([\w.\[\]]+)\s*(?:where\b|$))"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    // A save writes through the same few texts again and again.
    struct Known {
        QString source;
        QString table;
    };
    thread_local std::array<Known, 4> known;
    thread_local std::size_t oldest = 0;
    for (const Known& one : known) {
        if (one.source == source)
            return one.table;
    }
    oldest = (oldest + 1) % known.size();
    known[oldest] = {source, from.match(source).captured(1)};
    return known[oldest].table;
}

bool isOneOf(const QStringList& names, const QString& name) {
    return std::any_of(names.begin(), names.end(), [&](const QString& one) { return sameName(one, name); });
}

constexpr qsizetype usualLength = 120;

QString emptyList() {
    QString list;
    list.reserve(usualLength);
    return list;
}

/// The sign, ", " or " AND ", stands between what is in the list.
void addName(QString& list, QLatin1StringView sign, const QString& name) {
    if (!list.isEmpty())
        list += sign;
    addBracketed(list, name);
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
    const QString named = tableOf(m_recordset.m_source);
    if (!named.isEmpty())
        return named; // the same on every server
    for (const Column& column : m_recordset.m_rows.columns) {
        if (!column.baseTable.isEmpty())
            return column.baseTable;
    }
    return {};
}

Statement WriteBack::statement(const QString& target, const QStringList& key) const {
    QString changes = emptyList();
    QString conditions = emptyList();
    for (qsizetype i = 0; i < qsizetype(m_recordset.m_edits.size()); ++i) {
        const QString& name = writtenName(m_recordset.m_rows.columns[std::size_t(i)]);
        const auto& edit = m_recordset.m_edits[std::size_t(i)];
        if (edit) {
            addName(changes, QLatin1StringView(", "), name);
            changes += u" = " % literal(*edit);
        }
        if (edit || m_recordset.m_foundByAllColumns || isOneOf(key, name))
            addCondition(conditions, i);
    }
    if (m_recordset.m_foundByAllColumns)
        conditions += QStringLiteral(" AND (SELECT COUNT(*) FROM %1 WHERE %2) = 1").arg(target, conditions);
    else
        for (const QString& name : key)
            m_recordset.Fields(name); // a key that was not selected finds no row for certain
    return Statement(u"UPDATE " % target % u" SET " % changes % u" WHERE " % conditions);
}

void WriteBack::addCondition(QString& conditions, qsizetype column) const {
    addName(conditions, QLatin1StringView(" AND "),
            writtenName(m_recordset.m_rows.columns[std::size_t(column)]));
    const base::Value& last = m_recordset.m_rows.at(m_recordset.m_position, column);
    if (last.isNull())
        conditions += u" IS NULL";
    else
        conditions += u" = " % literal(last);
}

} // namespace ado
