// One suite for every way to a server. Where a server is none of T-SQL, its quirks say what it leaves out.
#include "platform/ado/Batch.h"
#include "platform/ado/Connection.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/odbc/OdbcProvider.h"
#include "server/engine/EmbeddedProvider.h"
#include "tests/support/core/Databases.h"
#include "tests/support/hospital/Site.h"
#include "tests/support/odbc/TestDriver.h"
#include "tests/support/tds/TdsServer.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace {

struct Quirks {
    /// T-SQL: databases, procedures, GETDATE, the server's own error numbers.
    bool speaksTsql = true;
    /// money is told as money.
    bool hasMoney = true;
    const char* longText = "varchar(max)";
};

/// What stands behind the driver.
enum class Behind { Itself, Loopback, Tds };

/// Where a side finds its server.
struct Place {
    QString file;
    QString connectionText; ///< to what stands behind the driver
};

struct Side {
    const char* name;
    Quirks quirks;
    std::function<std::unique_ptr<ado::Provider>(const Place& place)> open;
    Behind behind = Behind::Itself;
};

void PrintTo(const Side& side, std::ostream* out) {
    *out << side.name;
}

std::unique_ptr<ado::Provider> overOdbc(const Place& place) {
    return odbc::OdbcProvider::open(place.connectionText);
}

std::vector<Side> sides() {
    std::vector<Side> all{
        {"Embedded",
         {},
         [](const Place& place) {
             engine::Options options;
             options.newDatabases = tests::databases();
             return engine::EmbeddedProvider::open(place.file, options);
         }},
        {"OdbcTsql", {}, overOdbc, Behind::Loopback},
        {"OdbcFreeTds", {}, overOdbc, Behind::Tds},
        {"OdbcSqlite", {false, false, "text"}, [](const Place& place) {
             return odbc::OdbcProvider::open(
                 QStringLiteral("Driver=%1;Database=%2;").arg(tests::sqliteDriver(), place.file));
         }}};
    const QString dsn = qEnvironmentVariable("SCINTRA_TEST_DSN");
    if (!dsn.isEmpty())
        all.push_back({"OdbcSite", {}, [dsn](const Place&) {
                           tests::site::prepare(); // a new server has no databases yet
                           return odbc::OdbcProvider::open(QStringLiteral("DSN=%1;").arg(dsn));
                       }});
    return all;
}

std::vector<Side> tsqlSides() {
    std::vector<Side> some = sides();
    std::erase_if(some, [](const Side& side) { return !side.quirks.speaksTsql; });
    return some;
}

class ProviderTest : public testing::TestWithParam<Side> {
  protected:
    ProviderTest() {
        m_place.file = m_folder.filePath(QStringLiteral("probe.scintra"));
        if (GetParam().behind == Behind::Loopback) {
            m_loopback = std::make_unique<tests::LoopbackServer>(m_place.file);
            m_place.connectionText = tests::LoopbackServer::connectionText();
        } else if (GetParam().behind == Behind::Tds) {
            m_tds = std::make_unique<tests::TdsServer>(tests::TdsServer::Options{.file = m_place.file});
            m_place.connectionText = m_tds->connectionText();
        }
        m_provider = GetParam().open(m_place);
        if (quirks().speaksTsql) {
            m_provider->useDatabase(QStringLiteral("NUCLEAR"));
            run("IF OBJECT_ID('tbProbe') IS NOT NULL DROP TABLE tbProbe");
        }
        run(QStringLiteral("CREATE TABLE tbProbe (ID int NOT NULL, Name varchar(40) NULL, Amount money NULL, "
                           "Weight float NULL, Done bit NULL, Made datetime NULL, Notes %1 NULL, CONSTRAINT "
                           "PK_Probe PRIMARY KEY (ID))")
                .arg(QLatin1StringView(quirks().longText)));
    }
    ~ProviderTest() override {
        if (m_provider && m_provider->inTransaction())
            m_provider->rollback();
        ado::runBatch(*m_provider, QStringLiteral("DROP TABLE tbProbe"));
    }

    const Quirks& quirks() const { return GetParam().quirks; }
    ado::Result run(const QString& text) { return ado::runBatch(*m_provider, text); }
    QString value(const QString& text) {
        const ado::Result result = run(text);
        EXPECT_EQ(result.rows.count(), 1) << text.toStdString();
        if (result.rows.count() != 1)
            return {};
        return result.rows.at(0, 0).isNull() ? QStringLiteral("<Null>") : base::textOf(result.rows.at(0, 0));
    }
    base::RunTimeError error(const QString& text) {
        try {
            run(text);
        } catch (const base::RunTimeError& caught) {
            return caught;
        }
        ADD_FAILURE() << "nothing was raised by " << text.toStdString();
        return base::RunTimeError(0);
    }
    void addRow(int id, const char* name) {
        run(QStringLiteral("INSERT INTO tbProbe (ID, Name) VALUES (%1, '%2')")
                .arg(id)
                .arg(QLatin1String(name)));
    }

    QTemporaryDir m_folder;
    Place m_place;
    std::unique_ptr<tests::LoopbackServer> m_loopback;
    std::unique_ptr<tests::TdsServer> m_tds;
    std::unique_ptr<ado::Provider> m_provider;
};

/// What only a server of T-SQL has: batches, databases, INFORMATION_SCHEMA.
class TsqlProviderTest : public ProviderTest {};

TEST_P(ProviderTest, GivesEachTypeAndNull) {
    run("INSERT INTO tbProbe (ID, Name, Amount, Weight, Done, Made, Notes) VALUES (1, 'Peña', 1234.56, "
        "0.125, "
        "1, '2026-11-21 08:30:15.120', '')");
    run("INSERT INTO tbProbe (ID) VALUES (2)");
    const ado::Rows rows =
        run("SELECT ID, Name, Amount, Weight, Done, Made, Notes FROM tbProbe ORDER BY ID").rows;
    ASSERT_EQ(rows.count(), 2);
    ASSERT_EQ(rows.columns.size(), 7u);
    EXPECT_EQ(rows.columns[1].name, u"Name");
    EXPECT_EQ(rows.columns[0].type, ado::DataType::Integer);
    EXPECT_EQ(rows.columns[1].type, ado::DataType::Text);
    EXPECT_EQ(rows.columns[3].type, ado::DataType::Double);
    EXPECT_EQ(rows.columns[4].type, ado::DataType::Bit);
    EXPECT_EQ(rows.columns[5].type, ado::DataType::DateTime);
    EXPECT_EQ(rows.at(0, 0), base::Value(1));
    EXPECT_EQ(rows.at(0, 1), base::Value(QStringLiteral("Peña")));
    EXPECT_EQ(rows.at(0, 3), base::Value(0.125));
    EXPECT_EQ(rows.at(0, 4), base::Value(true));
    EXPECT_EQ(rows.at(0, 5), base::Value(*base::makeDateTime({2026, 11, 21}, {8, 30, 15, 120})));
    EXPECT_EQ(rows.at(0, 6), base::Value(QString(QLatin1StringView("")))) << "an empty text is not Null";
    if (quirks().hasMoney) {
        EXPECT_EQ(rows.columns[2].type, ado::DataType::Money);
        EXPECT_EQ(rows.at(0, 2), base::Value(1234.56));
    } else {
        EXPECT_EQ(base::textOf(rows.at(0, 2)), u"1234.56");
    }
    for (int column = 1; column < 7; ++column)
        EXPECT_TRUE(rows.at(1, column).isNull()) << column;
}

TEST_P(ProviderTest, GivesMomentsWithoutATimeOrAFraction) {
    run("INSERT INTO tbProbe (ID, Made) VALUES (1, '2026-11-21 08:30:15')");
    run("INSERT INTO tbProbe (ID, Made) VALUES (2, '2026-11-21')");
    const ado::Rows rows = run("SELECT Made FROM tbProbe ORDER BY ID").rows;
    EXPECT_EQ(rows.at(0, 0), base::Value(*base::makeDateTime({2026, 11, 21}, {8, 30, 15})));
    EXPECT_EQ(rows.at(1, 0), base::Value(*base::makeDateTime({2026, 11, 21})));
}

TEST_P(ProviderTest, GivesLongTextsWhole) {
    const QString text = QString(120'000, u'r') + QStringLiteral(" ñ end");
    run(QStringLiteral("INSERT INTO tbProbe (ID, Notes) VALUES (1, '%1')").arg(text));
    run("INSERT INTO tbProbe (ID, Notes) VALUES (2, 'short')");
    const ado::Rows rows = run("SELECT Notes, ID FROM tbProbe ORDER BY ID").rows;
    EXPECT_EQ(base::textOf(rows.at(0, 0)), text);
    EXPECT_EQ(base::textOf(rows.at(1, 0)), u"short");
    EXPECT_EQ(rows.at(1, 1), base::Value(2));
}

TEST_P(ProviderTest, GivesManyRowsInOrder) {
    m_provider->begin();
    for (int i = 0; i < 700; ++i)
        addRow(i, "row");
    m_provider->commit();
    const ado::Rows rows = run("SELECT ID, Name FROM tbProbe ORDER BY ID").rows;
    ASSERT_EQ(rows.count(), 700);
    for (int i = 0; i < 700; ++i)
        ASSERT_EQ(rows.at(i, 0), base::Value(i));
}

/// Takes rows until it has enough.
class Taker : public ado::RowSink {
  public:
    explicit Taker(int most) : m_most(most) {}
    void begin(const std::vector<ado::Column>& columns) override {
        names.clear();
        for (const ado::Column& column : columns)
            names += column.name;
        taken.clear();
    }
    bool row(std::vector<base::Value>& values) override {
        taken.push_back(std::move(values.front()));
        if (qsizetype(taken.size()) == breaksAt)
            throw base::RunTimeError(base::errors::overflow);
        return int(taken.size()) < m_most;
    }
    QStringList names;
    std::vector<base::Value> taken;
    qsizetype breaksAt = -1;

  private:
    int m_most;
};

TEST_P(ProviderTest, HandsRowsOverOneByOneUntilTheyAreNotWanted) {
    m_provider->begin();
    for (int i = 0; i < 700; ++i)
        addRow(i, "row");
    m_provider->commit();
    const QString text = QStringLiteral("SELECT ID, Name FROM tbProbe ORDER BY ID");
    Taker all(10'000);
    const ado::Streamed whole = ado::runBatch(*m_provider, text, all);
    EXPECT_EQ(whole.rows, 700);
    EXPECT_FALSE(whole.stopped);
    EXPECT_EQ(all.names, (QStringList{"ID", "Name"}));
    ASSERT_EQ(all.taken.size(), 700u);
    for (int i = 0; i < 700; ++i)
        ASSERT_EQ(all.taken[std::size_t(i)], base::Value(i));
    Taker some(130);
    const ado::Streamed part = ado::runBatch(*m_provider, text, some);
    EXPECT_EQ(part.rows, 130);
    EXPECT_TRUE(part.stopped);
    Taker broken(10'000);
    broken.breaksAt = 300;
    EXPECT_THROW(ado::runBatch(*m_provider, text, broken), base::RunTimeError);
    EXPECT_EQ(ado::runBatch(*m_provider, QStringLiteral("UPDATE tbProbe SET Name = 'x' WHERE ID < 5"), some)
                  .affected,
              5);
    EXPECT_EQ(value("SELECT COUNT(*) FROM tbProbe"), u"700") << "the session goes on";
}

TEST_P(ProviderTest, AnEmptyResultHasItsColumns) {
    const ado::Result result = run("SELECT ID, Name FROM tbProbe");
    EXPECT_EQ(result.rows.columns.size(), 2u);
    EXPECT_EQ(result.rows.count(), 0);
}

TEST_P(ProviderTest, TellsTheRowsWritten) {
    addRow(1, "A");
    addRow(2, "B");
    EXPECT_EQ(run("UPDATE tbProbe SET Name = 'C'").affected, 2);
    EXPECT_EQ(run("UPDATE tbProbe SET Name = 'D' WHERE ID = 99").affected, 0);
    EXPECT_EQ(run("DELETE FROM tbProbe WHERE ID = 1").affected, 1);
    EXPECT_TRUE(run("DELETE FROM tbProbe").rows.columns.empty());
}

TEST_P(TsqlProviderTest, TakesTheLastRowsOfABatch) {
    const ado::Result result =
        run("INSERT INTO tbProbe (ID, Name) VALUES (1, 'A') SELECT 1 AS First UPDATE tbProbe SET "
            "Name = 'B' SELECT Name FROM tbProbe");
    ASSERT_EQ(result.rows.columns.size(), 1u);
    EXPECT_EQ(result.rows.columns[0].name, u"Name");
    EXPECT_EQ(base::textOf(result.rows.at(0, 0)), u"B");
}

TEST_P(ProviderTest, RaisesWithTheStatement) {
    const QString missing = QStringLiteral("SELECT * FROM tbNoSuchTable");
    const base::RunTimeError noTable = error(missing);
    EXPECT_EQ(noTable.statement(), missing);
    EXPECT_FALSE(noTable.description().isEmpty());
    EXPECT_FALSE(noTable.sqlState().isEmpty());
    addRow(1, "A");
    const base::RunTimeError twice = error("INSERT INTO tbProbe (ID) VALUES (1)");
    EXPECT_NE(twice.number(), 0);
    if (quirks().speaksTsql) {
        EXPECT_EQ(noTable.number(), 208);
        EXPECT_EQ(noTable.description(), u"Invalid object name 'tbNoSuchTable'.");
        EXPECT_EQ(twice.number(), 2627);
        EXPECT_EQ(twice.sqlState(), u"23000");
        EXPECT_EQ(error("sp_NoSuchProcedure '1'").number(), 2812);
    }
    EXPECT_EQ(value("SELECT COUNT(*) FROM tbProbe"), u"1") << "the session goes on";
}

TEST_P(ProviderTest, CommitsAndRollsBack) {
    m_provider->begin();
    EXPECT_TRUE(m_provider->inTransaction());
    addRow(1, "A");
    m_provider->rollback();
    EXPECT_FALSE(m_provider->inTransaction());
    EXPECT_EQ(value("SELECT COUNT(*) FROM tbProbe"), u"0");
    m_provider->begin();
    addRow(1, "A");
    EXPECT_THROW(addRow(1, "again"), base::RunTimeError);
    addRow(2, "B");
    m_provider->commit();
    EXPECT_EQ(value("SELECT COUNT(*) FROM tbProbe"), u"2") << "an error leaves the transaction open";
    addRow(3, "C");
    EXPECT_EQ(value("SELECT COUNT(*) FROM tbProbe"), u"3");
}

TEST_P(ProviderTest, RefusesTransactionsOutOfTurn) {
    const auto number = [](const std::function<void()>& body) {
        try {
            body();
        } catch (const base::RunTimeError& caught) {
            return caught.number();
        }
        return 0;
    };
    EXPECT_EQ(number([&] { m_provider->commit(); }), 3902);
    EXPECT_EQ(number([&] { m_provider->rollback(); }), 3903);
    m_provider->begin();
    EXPECT_EQ(number([&] { m_provider->begin(); }), -2147168237);
}

TEST_P(TsqlProviderTest, KnowsDatabasesAndKeys) {
    EXPECT_EQ(m_provider->primaryKey(QStringLiteral("NUCLEAR..tbProbe")), QStringList{QStringLiteral("ID")});
    EXPECT_EQ(m_provider->primaryKey(QStringLiteral("NUCLEAR..tbNoSuchTable")), QStringList());
    try {
        m_provider->useDatabase(QStringLiteral("NOWHERE"));
        FAIL() << "there is no such database";
    } catch (const base::RunTimeError& caught) {
        EXPECT_EQ(caught.number(), 911);
    }
}

TEST_P(TsqlProviderTest, WritesARowBack) {
    run("INSERT INTO tbProbe (ID, Name, Made) VALUES (5, 'A', '2026-11-21 08:30:15.120')");
    ado::Connection connection;
    connection.Open(std::move(m_provider), QStringLiteral("probe"));
    ado::Recordset rows;
    rows.Open(ado::sql("SELECT * FROM NUCLEAR..tbProbe WHERE ID = {}", 5), connection,
              ado::CursorType::Dynamic, ado::LockType::Optimistic);
    rows.Fields("Name").setValue(base::Value("it's"));
    rows.Fields("Made").setValue(base::Value(*base::makeDateTime({2027, 1, 2}, {3, 4, 5, 60})));
    rows.Update();
    const ado::Recordset read = connection.Execute(ado::sql("SELECT Name, Made FROM tbProbe"));
    EXPECT_EQ(base::textOf(read.rows().at(0, 0)), u"it's");
    EXPECT_EQ(read.rows().at(0, 1), base::Value(*base::makeDateTime({2027, 1, 2}, {3, 4, 5, 60})));
    connection.Execute(ado::sql("UPDATE tbProbe SET Name = 'other'"));
    rows.Fields("Name").setValue(base::Value("mine"));
    try {
        rows.Update();
        FAIL() << "another has changed the row";
    } catch (const base::RunTimeError& caught) {
        EXPECT_EQ(caught.number(), -2147217864);
    }
    connection.Close();
    m_provider = GetParam().open(m_place);
    m_provider->useDatabase(QStringLiteral("NUCLEAR")); // where the table is taken away
}

constexpr auto nameOfSide = [](const auto& side) { return std::string(side.param.name); };
INSTANTIATE_TEST_SUITE_P(Ways, ProviderTest, testing::ValuesIn(sides()), nameOfSide);
INSTANTIATE_TEST_SUITE_P(Ways, TsqlProviderTest, testing::ValuesIn(tsqlSides()), nameOfSide);

} // namespace
