#include "server/demo/TableWriter.h"

#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/engine/file/Sqlite.h"

namespace demo {

namespace {

[[noreturn]] void raise(sqlite3* file) {
    throw base::RunTimeError(sqlite3_errcode(file), QString::fromUtf8(sqlite3_errmsg(file)));
}

} // namespace

TableWriter::TableWriter(sqlite3* file, const char* table, std::initializer_list<const char*> columns)
    : m_file(file), m_columns(int(columns.size())) {
    QString names;
    QString places;
    for (const char* column : columns) {
        const QLatin1String separator(names.isEmpty() ? "" : ", ");
        names += separator + QLatin1String(column);
        places += separator + QLatin1Char('?');
    }
    const QByteArray text = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                .arg(engine::sqliteName(QString::fromLatin1(table)), names, places)
                                .toUtf8();
    if (sqlite3_prepare_v3(file, text.constData(), int(text.size()), SQLITE_PREPARE_PERSISTENT, &m_statement,
                           nullptr) != SQLITE_OK)
        raise(file);
}

TableWriter::~TableWriter() {
    sqlite3_finalize(m_statement);
}

void TableWriter::bind(int place, const char* text) {
    sqlite3_bind_text(m_statement, place, text, -1, SQLITE_STATIC);
}

void TableWriter::bind(int place, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(m_statement, place, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

void TableWriter::bind(int place, int number) {
    sqlite3_bind_int(m_statement, place, number);
}

void TableWriter::bind(int place, double number) {
    sqlite3_bind_double(m_statement, place, number);
}

void TableWriter::bind(int place, base::DateTime moment) {
    bind(place, base::toIso(moment));
}

void TableWriter::bind(int place, std::nullptr_t) {
    sqlite3_bind_null(m_statement, place);
}

void TableWriter::store(int places) {
    Q_ASSERT(places == m_columns);
    const int result = sqlite3_step(m_statement);
    sqlite3_reset(m_statement);
    if (result != SQLITE_DONE)
        raise(m_file);
}

void runOnFile(sqlite3* file, const QString& text) {
    if (sqlite3_exec(file, text.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        raise(file);
}

} // namespace demo
