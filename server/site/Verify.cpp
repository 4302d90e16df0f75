#include "platform/ado/Batch.h"
#include "platform/ado/Quoting.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "server/hospital/Create.h"
#include "server/hospital/Kit.h"
#include "server/site/Blueprint.h"
#include "server/site/Install.h"

#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace site {
namespace {

QString upper(const QString& name) {
    return name.toUpper();
}

QString cell(const ado::Rows& rows, qsizetype row, qsizetype column) {
    return base::textOf(rows.at(row, column));
}

/// What a column is, as both sides write it: "varchar(20) not null".
QString columnText(const QString& type, int length, bool nullable) {
    QString text = type.toLower();
    if (text.endsWith(QLatin1StringView("char")))
        text += length < 0 ? QStringLiteral("(max)") : QStringLiteral("(%1)").arg(length);
    return text + (nullable ? QLatin1StringView(" null") : QLatin1StringView(" not null"));
}

QString expectedColumn(const engine::TableColumn& column) {
    return columnText(QString::fromLatin1(engine::typeWord(column.type.kind)), column.type.length,
                      column.nullable && column.keyOrdinal == 0);
}

/// A module's text without what a server changes in it when it keeps it: the first words, the blanks.
QString essence(const QString& text) {
    static const QRegularExpression head(QStringLiteral(R"(^\s*(CREATE|ALTER)(\s+OR\s+ALTER)?\s+)"),
                                         QRegularExpression::CaseInsensitiveOption);
    QString bare = text;
    return bare.remove(head).simplified();
}

/// One database of the server beside the kit's.
class Comparison {
  public:
    Comparison(ado::Provider& server, QString database) : m_server(server), m_database(std::move(database)) {}

    bool read() {
        const ado::Result id = m_server.execute(ado::sql("SELECT DB_ID('{}')", m_database));
        if (id.rows.count() != 1 || id.rows.at(0, 0).isNull()) {
            tell(QString(), QStringLiteral("the database is missing"));
            return false;
        }
        const QString prefix = ado::bracketed(m_database);
        const ado::Rows columns =
            ado::runBatch(
                m_server,
                QStringLiteral("SELECT TABLE_NAME, COLUMN_NAME, DATA_TYPE, CHARACTER_MAXIMUM_LENGTH, "
                               "IS_NULLABLE FROM %1.INFORMATION_SCHEMA.COLUMNS")
                    .arg(prefix))
                .rows;
        for (qsizetype row = 0; row < columns.count(); ++row)
            m_columns[upper(cell(columns, row, 0))][upper(cell(columns, row, 1))] =
                columnText(cell(columns, row, 2),
                           columns.at(row, 3).isNull() ? -1 : int(base::CDbl(cell(columns, row, 3))),
                           cell(columns, row, 4).compare(QLatin1StringView("YES"), Qt::CaseInsensitive) == 0);
        const ado::Rows modules =
            ado::runBatch(m_server,
                          QStringLiteral("SELECT O.name, M.definition FROM %1.sys.sql_modules M INNER JOIN "
                                         "%1.sys.objects O ON O.object_id = M.object_id")
                              .arg(prefix))
                .rows;
        for (qsizetype row = 0; row < modules.count(); ++row)
            m_modules[upper(cell(modules, row, 0))] = cell(modules, row, 1);
        return true;
    }

    /// What install() sets where it makes the database, and a DBA may have left out.
    void compareSettings() {
        const ado::Rows rows =
            ado::runBatch(m_server,
                          QStringLiteral("SELECT name, collation_name, is_read_committed_snapshot_on "
                                         "FROM sys.databases WHERE name = %1")
                              .arg(ado::literal(base::Value(m_database))))
                .rows;
        if (rows.count() != 1)
            return; // a login that may not see it
        const QString collation = rows.at(0, 1).isNull() ? QString() : cell(rows, 0, 1);
        if (!collation.contains(QLatin1StringView("_CI_")))
            tell(QString(), QStringLiteral("the collation %1 tells upper from lower case").arg(collation));
        if (base::CDbl(cell(rows, 0, 2)) == 0)
            tell(QString(), QStringLiteral("READ_COMMITTED_SNAPSHOT is off"));
    }

    void compare(const engine::Table& table) {
        const QString name = QString::fromStdString(table.name);
        const auto found = m_columns.constFind(upper(name));
        if (found == m_columns.constEnd()) {
            tell(name, QStringLiteral("the table is missing"));
            return;
        }
        QStringList key;
        for (int ordinal = 1; ordinal <= int(table.columns.size()); ++ordinal) {
            for (const engine::TableColumn& column : table.columns) {
                if (column.keyOrdinal == ordinal)
                    key += QString::fromStdString(column.name);
            }
        }
        for (const engine::TableColumn& column : table.columns)
            compareColumn(name, *found, column);
        const QStringList there = m_server.primaryKey(m_database + QStringLiteral("..") + name);
        if (there.join(u',').compare(key.join(u','), Qt::CaseInsensitive) != 0)
            tell(name, QStringLiteral("the primary key is (%1), not (%2)")
                           .arg(there.join(QStringLiteral(", ")), key.join(QStringLiteral(", "))));
    }

    void compare(const ModuleText& module) {
        const auto found = m_modules.constFind(upper(module.name));
        if (found == m_modules.constEnd())
            tell(module.name, QStringLiteral("is missing"));
        else if (essence(*found) != essence(module.text))
            tell(module.name, QStringLiteral("is not the kit's"));
    }

    const QStringList& differences() const { return m_differences; }

  private:
    using Columns = QHash<QString, QString>;

    void compareColumn(const QString& table, const Columns& columns, const engine::TableColumn& column) {
        const QString name = QString::fromStdString(column.name);
        const QString there = columns.value(upper(name));
        const QString wanted = expectedColumn(column);
        if (there.isEmpty())
            tell(table, QStringLiteral("the column %1 is missing").arg(name));
        else if (there != wanted)
            tell(table, QStringLiteral("the column %1 is %2, not %3").arg(name, there, wanted));
    }
    void tell(const QString& object, const QString& what) {
        m_differences += m_database + (object.isEmpty() ? QString() : QStringLiteral("..") + object) +
                         QStringLiteral(": ") + what;
    }

    ado::Provider& m_server;
    QString m_database;
    QHash<QString, Columns> m_columns;
    QHash<QString, QString> m_modules;
    QStringList m_differences;
};

constexpr const char* numberTables[] = {"NUCLEAR..tbNucSlipRow", "BILLING..tbAssessmentNumRow",
                                        "PATIENT_DATA..tbLastWalkInNumRow", "STATION..tbNurseRequestNum"};

} // namespace

QStringList missingNumbers(ado::Provider& server) {
    QStringList missing;
    for (const char* name : numberTables) {
        const QString table = QString::fromLatin1(name);
        try {
            const ado::Rows rows =
                ado::runBatch(server, QStringLiteral("SELECT COUNT(*) FROM ") + table).rows;
            if (const double count = base::CDbl(cell(rows, 0, 0)); count != 1)
                missing += QStringLiteral("%1: %2 rows, not the one that the next numbers are drawn from")
                               .arg(table)
                               .arg(count);
        } catch (const base::RunTimeError&) {
            // the table is missing, which is told with the tables
        }
    }
    return missing;
}

QStringList verify(ado::Provider& server) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("kit.scintra"));
    hospital::createEmptyHospital(file);
    const std::vector<engine::Table> tables = tablesOf(file);
    const std::vector<ModuleText> modules = kitModules();
    QStringList differences;
    for (const QString& database : hospital::kitDatabases()) {
        Comparison comparison(server, database);
        if (comparison.read()) {
            comparison.compareSettings();
            for (const engine::Table& table : tables) {
                if (QString::fromStdString(table.database) == database)
                    comparison.compare(table);
            }
            for (const ModuleText& module : modules) {
                if (module.database == database)
                    comparison.compare(module);
            }
        }
        differences += comparison.differences();
    }
    return differences + missingNumbers(server);
}

} // namespace site
