#include "tests/server/hospital/RecordedKits.h"

#include "platform/base/Conversion.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"
#include "server/hospital/Kit.h"
#include "tests/support/hospital/DemoFile.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <algorithm>
#include <map>

namespace {

struct Column {
    QString name, type;
    int length;
    bool isIdentity;
};
using Tables = std::map<QString, std::vector<Column>>;
using Rows = std::map<QString, QStringList>;

class Upgrade : public testing::TestWithParam<tests::RecordedKit> {
  protected:
    Upgrade() {
        tests::makeHospital(GetParam(), m_file);
        m_provider = engine::EmbeddedProvider::open(m_file, {});
    }

    Tables tables() {
        Tables tables;
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_provider->handle(),
                           "SELECT databaseName || '..' || tableName, name, type, length, identity FROM "
                           "\"scintra.columns\" ORDER BY 1, ordinal",
                           -1, &statement, nullptr);
        const auto text = [&](int column) {
            return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
        };
        while (sqlite3_step(statement) == SQLITE_ROW)
            tables[text(0)].push_back({text(1), text(2).toLower(), sqlite3_column_int(statement, 3),
                                       sqlite3_column_int(statement, 4) != 0});
        sqlite3_finalize(statement);
        return tables;
    }

    static QString literal(const Column& column, int row) {
        if (column.type.contains(u"char") || column.type.contains(u"text")) {
            const QString text = QStringLiteral("%1 Ñuñez, ''é'' %2").arg(row).arg(column.name);
            const int room = column.length > 0 ? column.length : 40;
            QString value = text.left(std::min(room, 30));
            while (value.count(u'\'') % 2 != 0)
                value.chop(1);
            return u'\'' + value + u'\'';
        }
        if (column.type.contains(u"date") || column.type == u"time")
            return QStringLiteral("'2026-11-%1 08:30:15'").arg(row, 2, 10, QLatin1Char('0'));
        return column.type == u"bit" ? QString::number(row % 2) : QString::number(row);
    }

    void runRaw(const QString& text) {
        ASSERT_EQ(sqlite3_exec(m_provider->handle(), text.toUtf8().constData(), nullptr, nullptr, nullptr),
                  SQLITE_OK)
            << text.toStdString() << ": " << sqlite3_errmsg(m_provider->handle());
    }
    QStringList namesOf(const char* schema, const QString& table) {
        QStringList names;
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_provider->handle(),
                           QStringLiteral("PRAGMA %1.table_info(%2)")
                               .arg(QLatin1String(schema), engine::sqliteName(table))
                               .toUtf8()
                               .constData(),
                           -1, &statement, nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW)
            names << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)))
                         .toLower();
        sqlite3_finalize(statement);
        return names;
    }

    /// A hospital in use: the rows of the made-up one as far as the old tables have columns for them, and a
    /// few in every table that it leaves empty.
    void fill() {
        runRaw(QStringLiteral("ATTACH '%1' AS demo").arg(tests::originalHospital()));
        for (const auto& [table, columns] : tables()) {
            const QStringList there = namesOf("demo", table);
            QStringList names;
            for (const Column& column : columns) {
                if (there.contains(column.name.toLower()))
                    names << u'"' + column.name + u'"';
            }
            if (names.isEmpty())
                continue;
            const QString name = engine::sqliteName(table);
            runRaw(QStringLiteral("DELETE FROM main.%1; INSERT INTO main.%1 (%2) SELECT %2 FROM demo.%1")
                       .arg(name, names.join(u", ")));
        }
        runRaw(QStringLiteral("DETACH demo"));
        fillEmptyTables();
    }
    void fillEmptyTables() {
        for (const auto& [table, columns] : tables()) {
            if (!rowsOf(table, columns).isEmpty())
                continue;
            for (int row = 1; row <= 3; ++row) {
                QStringList names, values;
                for (const Column& column : columns) {
                    if (column.isIdentity)
                        continue;
                    names << column.name;
                    values << literal(column, row);
                }
                m_provider->execute(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                        .arg(table, names.join(u", "), values.join(u", ")));
            }
        }
    }

    QStringList rowsOf(const QString& table, const std::vector<Column>& columns) {
        QStringList names;
        for (const Column& column : columns)
            names << column.name;
        const ado::Rows rows =
            m_provider->execute(QStringLiteral("SELECT %1 FROM %2").arg(names.join(u", "), table)).rows;
        QStringList lines;
        for (qsizetype row = 0; row < rows.count(); ++row) {
            QStringList cells;
            for (qsizetype column = 0; column < qsizetype(columns.size()); ++column) {
                const base::Value value = rows.at(row, column);
                cells << (value.isNull() ? QStringLiteral("<Null>") : base::textOf(value));
            }
            lines << cells.join(u'|');
        }
        lines.sort();
        return lines;
    }
    Rows rowsOf(const Tables& tables) {
        Rows rows;
        for (const auto& [table, columns] : tables)
            rows[table] = rowsOf(table, columns);
        return rows;
    }
    QString value(const QString& text) { return base::textOf(m_provider->execute(text).rows.at(0, 0)); }

    QStringList savedRows() {
        QStringList numbers;
        for (const char* text :
             {"SELECT COUNT(*) FROM NUCLEAR..tbNucMaster", "SELECT COUNT(*) FROM STATION..tbNurseLogBook",
              "SELECT COUNT(*) FROM BILLING..tbDailyBill", "SELECT COUNT(*) FROM INVENTORY..tbInvStockCard",
              "SELECT ChargeSlip FROM NUCLEAR..tbNucSlip", "SELECT RequestNum FROM NUCLEAR..tbNucSlip"})
            numbers << value(QString::fromLatin1(text));
        return numbers;
    }
    /// By the program's own log-on and request screen.
    void save() {
        m_provider.reset();
        QProcess saver;
        saver.start(QStringLiteral(SCINTRA_BINARY_DIR "/tests/saver"), {m_file, QStringLiteral("1")});
        ASSERT_TRUE(saver.waitForFinished());
        EXPECT_EQ(saver.exitCode(), 0) << saver.readAllStandardOutput().toStdString();
        m_provider = engine::EmbeddedProvider::open(m_file, {});
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("hospital.scintra"));
    std::unique_ptr<engine::EmbeddedProvider> m_provider;
};

TEST_P(Upgrade, LosesNothingAndTakesASave) {
    fill();
    const Tables then = tables();
    const Rows before = rowsOf(then);
    ASSERT_GT(before.size(), 50u);
    EXPECT_TRUE(hospital::ensureKit(*m_provider));
    m_provider = engine::EmbeddedProvider::open(m_file, {});
    EXPECT_EQ(hospital::installedKitVersion(*m_provider), hospital::kitVersion());
    EXPECT_EQ(hospital::installedKitNumber(*m_provider), hospital::kitNumber);
    for (const auto& [table, rows] : rowsOf(then))
        EXPECT_EQ(rows, before.at(table)) << table.toStdString();
#ifdef SCINTRA_WIDGETS
    const QStringList counts = savedRows();
    save();
    const QStringList after = savedRows();
    const int more[] = {2, 2, 1, 1, 1, 2};
    for (qsizetype i = 0; i < after.size(); ++i)
        EXPECT_EQ(after[i].toInt(), counts[i].toInt() + more[i]) << i;
#endif
    EXPECT_EQ(m_provider->check(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(FromKit, Upgrade, testing::ValuesIn(tests::recordedKits()),
                         [](const auto& from) { return from.param.name.toStdString(); });

TEST(RecordedKits, TellTheOldOnesFromTodays) {
    const auto& kits = tests::recordedKits();
    ASSERT_GE(kits.size(), 22u);
    int newest = 0;
    for (const tests::RecordedKit& kit : kits) {
        EXPECT_GE(kit.number, newest) << kit.name.toStdString();
        newest = std::max(newest, kit.number);
    }
    EXPECT_EQ(newest, hospital::kitNumber)
        << "The kit has a new number: tests/server/hospital/kits/record writes down what it holds.";
}

} // namespace
