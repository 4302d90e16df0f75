#include "platform/ado/Connection.h"
#include "platform/base/Error.h"
#include "tests/support/core/ScriptedProvider.h"

#include <gtest/gtest.h>

using ado::sql;
using tests::ScriptedProvider;

namespace {

class Counting : public ado::RowSink {
  public:
    void begin(const std::vector<ado::Column>& columns) override { names = int(columns.size()); }
    bool row(std::vector<base::Value>& values) override {
        last = values.back();
        return ++rows < most;
    }
    int names = 0;
    int rows = 0;
    int most = 1000;
    base::Value last;
};

class Watching : public ado::Observer {
  public:
    void afterStatement(const ado::StatementEvent& event) override {
        texts << event.text;
        rows = event.rows;
        error = event.error ? event.error->number() : 0;
    }
    QStringList texts;
    qint64 rows = -1;
    int error = 0;
};

struct StreamTest : testing::Test {
    StreamTest() {
        auto provider = std::make_unique<ScriptedProvider>();
        server = provider.get();
        connection.Open(std::move(provider), "test");
        connection.addObserver(&watching);
        server->answer("sp_A",
                       ScriptedProvider::rowsOf("Code,Name", {{"1", "one"}, {"2", "two"}, {"3", "x"}}));
    }
    ado::Connection connection;
    ScriptedProvider* server;
    Watching watching;
    Counting sink;
};

TEST_F(StreamTest, AProviderThatCannotStreamFetchesFirst) {
    const ado::Streamed end = connection.stream(sql("sp_A"), sink);
    EXPECT_EQ(sink.names, 2);
    EXPECT_EQ(end.rows, 3);
    EXPECT_FALSE(end.stopped);
    EXPECT_EQ(sink.last, base::Value("x"));
}

TEST_F(StreamTest, ObserversSeeTheStatementOnceWithTheRowsHandedOver) {
    sink.most = 2;
    EXPECT_TRUE(connection.stream(sql("sp_A"), sink).stopped);
    EXPECT_EQ(watching.texts, QStringList{"sp_A"});
    EXPECT_EQ(watching.rows, 2);
}

TEST_F(StreamTest, AStatementWithoutColumnsBeginsNothing) {
    EXPECT_EQ(connection.stream(sql("UPDATE x SET y = 1"), sink).rows, 0);
    EXPECT_EQ(sink.names, 0);
}

TEST_F(StreamTest, AnErrorIsSeenAndNamesItsStatement) {
    tests::FaultInjector fault(connection, 1);
    try {
        connection.stream(sql("sp_A"), sink);
        FAIL();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.statement(), "sp_A");
    }
    EXPECT_EQ(watching.error, 50000);
    connection.Close();
    EXPECT_THROW(connection.stream(sql("sp_A"), sink), base::RunTimeError);
}

} // namespace
