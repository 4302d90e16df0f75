#include "platform/ado/Connection.h"
#include "platform/base/Error.h"
#include "tests/support/core/ScriptedProvider.h"

#include <gtest/gtest.h>

#include <functional>

using ado::Connection;
using ado::LockType;
using ado::Recordset;
using ado::sql;
using tests::ScriptedProvider;

namespace {

int errorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const base::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

class RecordsetTest : public testing::Test {
  protected:
    RecordsetTest() {
        auto provider = std::make_unique<ScriptedProvider>();
        server = provider.get();
        connection.Open(std::move(provider), "test");
    }
    Connection connection;
    ScriptedProvider* server;
};

TEST_F(RecordsetTest, ReadsRowsByNameInEitherCase) {
    server->answer("sp_A", ScriptedProvider::rowsOf("Code,Name", {{"1", "one"}, {"2", base::Value()}}));
    Recordset rows;
    rows.Open(sql("sp_A"), connection);
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.Fields("code").text(), "1");
    rows.MoveNext();
    EXPECT_TRUE(rows.Fields("NAME").Value().isNull());
    EXPECT_EQ(rows.Fields("Name").text(), "");
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(errorOf([&] { rows.Fields("Code").Value(); }), 3021);
    EXPECT_EQ(errorOf([&] { rows.MoveNext(); }), 3021);
    EXPECT_EQ(errorOf([&] { rows.Fields("Nothing"); }), 3265);
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields(1).text(), "one");
    EXPECT_EQ(errorOf([&] { rows.Fields(2); }), 3265);
}

TEST_F(RecordsetTest, IsClosedUntilOpenedAndAfterClose) {
    Recordset rows;
    EXPECT_EQ(rows.State(), Recordset::adStateClosed);
    EXPECT_EQ(errorOf([&] { rows.Eof(); }), 3704);
    EXPECT_EQ(errorOf([&] { rows.Close(); }), 3704);
    server->answer("sp_A", ScriptedProvider::rowsOf("Code"));
    rows.Open(sql("sp_A"), connection);
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(errorOf([&] { rows.Open(sql("sp_A"), connection); }), 3705);
    EXPECT_EQ(errorOf([&] { rows.MoveFirst(); }), 3021);
    rows.Close();
    EXPECT_EQ(rows.State(), Recordset::adStateClosed);
    EXPECT_EQ(connection.Execute(sql("delete from t")).State(), Recordset::adStateClosed);
}

ado::Result logBookRow() {
    ado::Result result = ScriptedProvider::rowsOf("RequestNum,RecordStatus,Name",
                                                  {{qint64(7), base::Value(), QString("O'BRIEN")}});
    return result;
}

TEST_F(RecordsetTest, UpdateSendsTheSetFieldsFoundByKeyAndLastValues) {
    server->answer("sp_A", logBookRow());
    server->keyColumns = {"RequestNum"};
    tests::StatementRecorder recorder(connection);
    Recordset rows;
    rows.Open(sql("sp_A"), connection, ado::CursorType::Dynamic, LockType::Optimistic);
    rows.setUniqueTable("STATION..tbNurseLogBook");
    rows.Fields("RecordStatus").setValue("X");
    rows.Fields("name").setValue("D'ARCY");
    EXPECT_EQ(rows.Fields("RecordStatus").text(), "X");
    rows.Update();
    EXPECT_EQ(recorder.texts.last(),
              "UPDATE: UPDATE STATION..tbNurseLogBook SET [RecordStatus] = 'X', [Name] = 'D''ARCY' WHERE "
              "[RequestNum] = 7 AND [RecordStatus] IS NULL AND [Name] = 'O''BRIEN'");
    const qsizetype sent = recorder.texts.size();
    rows.Update();
    EXPECT_EQ(recorder.texts.size(), sent) << "nothing set, nothing sent";
}

TEST_F(RecordsetTest, UpdateFindsTheOneTableOfASelect) {
    server->answer("SELECT", logBookRow());
    server->keyColumns = {"RequestNum"};
    tests::StatementRecorder recorder(connection);
    Recordset rows;
    rows.Open(sql("SELECT * FROM PATIENT_DATA..tbLast WHERE a='1'"), connection, ado::CursorType::Dynamic,
              LockType::Optimistic);
    rows.Fields("Name").setValue(base::Value());
    rows.Update();
    EXPECT_TRUE(
        recorder.texts.last().startsWith("UPDATE: UPDATE PATIENT_DATA..tbLast SET [Name] = NULL WHERE"));
}

TEST_F(RecordsetTest, UpdateRefusesWhatItCannotFind) {
    server->answer("sp_A", logBookRow());
    Recordset readOnly;
    readOnly.Open(sql("sp_A"), connection);
    EXPECT_EQ(errorOf([&] { readOnly.Fields("Name").setValue("x"); }), 3251);
    Recordset rows;
    rows.Open(sql("sp_A"), connection, ado::CursorType::Dynamic, LockType::Optimistic);
    rows.Fields("Name").setValue("x");
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3251) << "no table is known";
    rows.setUniqueTable("A..t");
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3251) << "the table has no key";
    server->keyColumns = {"Elsewhere"};
    EXPECT_EQ(errorOf([&] { rows.Update(); }), 3265) << "the key was not selected";
    server->keyColumns = {"RequestNum"};
    ado::Result nothingHit;
    nothingHit.affected = 0;
    server->answer("UPDATE", nothingHit);
    EXPECT_EQ(errorOf([&] { rows.Update(); }), -2147217864);
}

TEST_F(RecordsetTest, ARowIsFoundByAllItsColumnsWhereTheKeyWasNotSelected) {
    server->answer("sp_A", logBookRow());
    server->keyColumns = {"Elsewhere"};
    tests::StatementRecorder recorder(connection);
    Recordset rows;
    rows.Open(sql("sp_A"), connection, ado::CursorType::Dynamic, LockType::Optimistic);
    rows.setUniqueTable("A..t");
    rows.setFoundByAllColumns(true);
    rows.Fields("RecordStatus").setValue("X");
    rows.Update();
    EXPECT_EQ(
        recorder.texts.last(),
        "UPDATE: UPDATE A..t SET [RecordStatus] = 'X' WHERE [RequestNum] = 7 AND [RecordStatus] IS NULL "
        "AND [Name] = 'O''BRIEN' AND (SELECT COUNT(*) FROM A..t WHERE [RequestNum] = 7 AND "
        "[RecordStatus] IS NULL AND [Name] = 'O''BRIEN') = 1");
}

TEST_F(RecordsetTest, AConnectionIsFoundByItsString) {
    EXPECT_EQ(Connection::byConnectionString("test"), &connection);
    connection.Close();
    EXPECT_EQ(Connection::byConnectionString("test"), nullptr);
    EXPECT_EQ(errorOf([&] { connection.Execute(sql("sp_A")); }), 3704);
    EXPECT_EQ(errorOf([&] { connection.BeginTrans(); }), 3704);
}

TEST_F(RecordsetTest, ObserversSeeTextsTransactionsAndErrors) {
    tests::StatementRecorder recorder(connection);
    tests::FaultInjector fault(connection, 2);
    connection.BeginTrans();
    connection.Execute(sql("sp_A"));
    try {
        connection.Execute(sql("sp_B"));
        ADD_FAILURE();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 50000);
        EXPECT_EQ(error.statement(), "sp_B");
    }
    EXPECT_TRUE(connection.inTransaction());
    connection.RollbackTrans();
    EXPECT_EQ(recorder.texts, (QStringList{"BEGIN", "sp_A", "sp_B", "ROLLBACK"}));
}

} // namespace
