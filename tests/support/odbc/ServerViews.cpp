#include "tests/support/odbc/ServerViews.h"

#include "platform/base/Conversion.h"

#include <QRegularExpression>

#include <sqlite3.h>

namespace tests {
namespace {

/// Rows of a query on the file itself.
ado::Result fileRows(engine::EmbeddedProvider& provider, const QString& columns, const QString& query) {
    ado::Result result;
    for (const QString& name : columns.split(u','))
        result.rows.columns.edit().push_back({name, ado::DataType::Text, {}, {}});
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(provider.handle(), query.toUtf8().constData(), -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < int(result.rows.columns.size()); ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            result.rows.values.push_back(text ? base::Value(QString::fromUtf8(text)) : base::Value());
        }
    }
    sqlite3_finalize(statement);
    return result;
}

/// The text of a view; without a database, of the present one.
ado::Result viewRows(engine::EmbeddedProvider& provider, const QString& database, const QString& view) {
    return fileRows(
        provider, QStringLiteral("definition"),
        QStringLiteral("SELECT source FROM \"scintra.modules\" WHERE databaseName = '%1' AND name = '%2' "
                       "AND kind = 'V'")
            .arg(database.isEmpty() ? provider.database() : database, view));
}

} // namespace

std::optional<ado::Result> catalogueRows(engine::EmbeddedProvider& provider, const QString& text) {
    static const QRegularExpression key(QStringLiteral(
        R"(FROM (?:\[(\w+)\]\.)?INFORMATION_SCHEMA\.TABLE_CONSTRAINTS.*T\.TABLE_NAME = '(\w+)' OR)"));
    static const QRegularExpression viewText(QStringLiteral(
        R"(^SELECT M\.definition FROM (?:\[(\w+)\]\.)?sys\.sql_modules.*O\.type = 'V' AND O\.name = '(\w+)')"));
    static const QRegularExpression columns(QStringLiteral(R"(FROM \[(\w+)\]\.INFORMATION_SCHEMA\.COLUMNS)"));
    static const QRegularExpression modules(QStringLiteral(R"(FROM \[(\w+)\]\.sys\.sql_modules)"));
    static const QRegularExpression databases(QStringLiteral(R"(FROM sys\.databases WHERE name = '(\w+)')"));
    if (const auto match = databases.match(text); match.hasMatch())
        return fileRows(
            provider, QStringLiteral("name,collation_name,is_read_committed_snapshot_on"),
            QStringLiteral("SELECT '%1', COALESCE((SELECT value FROM \"scintra.settings\" WHERE name "
                           "= '%1 collation'), 'SQL_Latin1_General_CP1_CI_AS'), COALESCE((SELECT value "
                           "FROM \"scintra.settings\" WHERE name = '%1 snapshot'), '1')")
                .arg(match.captured(1)));
    if (const auto match = key.match(text); match.hasMatch()) {
        ado::Result result = fileRows(provider, QStringLiteral("COLUMN_NAME"), {});
        // VIEW_TABLE_USAGE knows the tables of its own database only
        const ado::Result view = viewRows(provider, match.captured(1), match.captured(2));
        if (view.rows.count() == 1 && base::textOf(view.rows.at(0, 0)).contains(QLatin1StringView("..")))
            return result;
        for (const QString& name :
             provider.primaryKey(match.captured(1) + QStringLiteral("..") + match.captured(2)))
            result.rows.values.emplace_back(name);
        return result;
    }
    if (const auto match = viewText.match(text); match.hasMatch())
        return viewRows(provider, match.captured(1), match.captured(2));
    if (const auto match = columns.match(text); match.hasMatch())
        return fileRows(
            provider, QStringLiteral("TABLE_NAME,COLUMN_NAME,DATA_TYPE,CHARACTER_MAXIMUM_LENGTH,IS_NULLABLE"),
            QStringLiteral(
                "SELECT tableName, name, type, CASE WHEN type LIKE '%char' THEN length END, CASE WHEN "
                "nullable AND keyOrdinal = 0 THEN 'YES' ELSE 'NO' END FROM \"scintra.columns\" WHERE "
                "databaseName = '%1'")
                .replace(QStringLiteral("%1"), match.captured(1)));
    if (const auto match = modules.match(text); match.hasMatch())
        return fileRows(
            provider, QStringLiteral("name,definition"),
            QStringLiteral("SELECT name, source FROM \"scintra.modules\" WHERE databaseName = '%1'")
                .arg(match.captured(1)));
    return std::nullopt;
}

} // namespace tests
