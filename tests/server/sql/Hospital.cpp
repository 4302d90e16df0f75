#include "tests/server/sql/Hospital.h"

#include "platform/base/Conversion.h"

namespace tests {

namespace {

QString told(const base::Value& value) {
    return value.isNull() ? QStringLiteral("<Null>") : toTestDays(base::textOf(value));
}

} // namespace

Hospital::Hospital(Way way)
    : m_hospital(way), m_clock(demoMoment()), m_provider(workstation(QStringLiteral("DESK1"))) {}

void Hospital::connect(ado::Connection& connection) {
    connection.Open(std::move(m_provider), QStringLiteral("demo"));
    connection.setCursorLocation(ado::Connection::adUseClient);
}

QString Hospital::value(const QString& text) {
    const ado::Rows result = rows(text);
    if (result.count() != 1 || result.columns.empty()) {
        ADD_FAILURE() << result.count() << " rows from " << text.toStdString();
        return {};
    }
    return told(result.at(0, 0));
}

QString Hospital::cell(const ado::Rows& rows, qsizetype row, const char* column) {
    for (std::size_t i = 0; i < rows.columns.size(); ++i) {
        if (rows.columns[i].name.compare(QLatin1String(column), Qt::CaseInsensitive) == 0 &&
            row < rows.count())
            return told(rows.at(row, qsizetype(i)));
    }
    ADD_FAILURE() << "no column " << column << " or no row " << row;
    return {};
}

int Hospital::count(const QString& table, const QString& condition) {
    return value(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(table, condition)).toInt();
}

} // namespace tests
