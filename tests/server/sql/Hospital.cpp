#include "tests/server/sql/Hospital.h"

#include "platform/base/Conversion.h"
#include "server/demo/Hospital.h"

#include <QFile>

namespace tests {

namespace {

base::DateTime fixedMoment() {
    return *base::makeDateTime({2026, 11, 21}, {8, 30, 0, 0});
}

/// Made once in this process, removed when it ends.
const QString& masterFile() {
    static const QTemporaryDir folder;
    static const QString file = [] {
        QString name = folder.filePath(QStringLiteral("master.scintra"));
        demo::createHospital(name);
        return name;
    }();
    return file;
}

} // namespace

Hospital::Hospital() : m_clock(fixedMoment()) {
    m_file = m_folder.filePath(QStringLiteral("hospital.scintra"));
    if (!QFile::copy(masterFile(), m_file))
        throw std::runtime_error("the demo hospital could not be copied");
    m_provider = workstation(QStringLiteral("DESK1"));
}

std::unique_ptr<engine::EmbeddedProvider> Hospital::workstation(const QString& name) {
    engine::Options options;
    options.hostName = name;
    auto provider = engine::EmbeddedProvider::open(m_file, options);
    provider->useDatabase(QStringLiteral("NUCLEAR"));
    return provider;
}

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
    const base::Value& only = result.at(0, 0);
    return only.isNull() ? QStringLiteral("<Null>") : base::textOf(only);
}

QString Hospital::cell(const ado::Rows& rows, qsizetype row, const char* column) {
    for (std::size_t i = 0; i < rows.columns.size(); ++i) {
        if (rows.columns[i].name.compare(QLatin1String(column), Qt::CaseInsensitive) == 0 &&
            row < rows.count())
            return rows.at(row, qsizetype(i)).isNull() ? QStringLiteral("<Null>")
                                                       : base::textOf(rows.at(row, qsizetype(i)));
    }
    ADD_FAILURE() << "no column " << column << " or no row " << row;
    return {};
}

int Hospital::count(const QString& table, const QString& condition) {
    return value(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(table, condition)).toInt();
}

} // namespace tests
