// The real FreeTDS driver, on a server of the tests' own.
#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/odbc/DataSources.h"
#include "platform/odbc/Diagnostics.h"
#include "platform/odbc/OdbcProvider.h"
#include "tests/support/core/Raised.h"
#include "tests/support/odbc/TestDriver.h"
#include "tests/support/tds/TdsServer.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

/// Lets a failed comparison show the text.
static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

using tests::raised;

using tests::Fault;
using tests::TdsServer;

class FreeTds : public testing::Test {
  protected:
    std::unique_ptr<odbc::OdbcProvider> open(const QString& more = {}, int seconds = 30) {
        odbc::Options options;
        options.statementSeconds = seconds;
        return odbc::OdbcProvider::open(server.connectionText() + more, options);
    }
    static QString value(ado::Provider& provider, const char* text) {
        const ado::Result result = ado::runBatch(provider, QString::fromUtf8(text));
        return result.rows.count() == 1 ? base::textOf(result.rows.at(0, 0)) : QStringLiteral("<none>");
    }
    std::unique_ptr<odbc::OdbcProvider> openProbe(int seconds = 30) {
        auto provider = open({}, seconds);
        provider->execute(QStringLiteral("USE NUCLEAR"));
        provider->execute(QStringLiteral("CREATE TABLE tbProbe (ID int NOT NULL, Name varchar(40) NULL, "
                                         "CONSTRAINT PK_Probe PRIMARY KEY (ID))"));
        provider->execute(QStringLiteral("INSERT INTO tbProbe (ID, Name) VALUES (1, 'A')"));
        server.takeWire();
        return provider;
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("tds.scintra"));
    TdsServer server{{.file = file}};
};

TEST_F(FreeTds, TellsWhatTheServerIs) {
    const auto provider = open();
    EXPECT_EQ(provider->product(), u"Microsoft SQL Server");
    EXPECT_EQ(provider->version(), u"13.00.1601");
    EXPECT_EQ(value(*provider, "SELECT HOST_NAME()"), value(*open(), "SELECT HOST_NAME()"));
    EXPECT_EQ(value(*open(QStringLiteral("WSID=desk 7;APP=Visual Scintra;")), "SELECT HOST_NAME()"),
              u"desk 7");
    EXPECT_EQ(value(*open(QStringLiteral("APP=Visual Scintra;")), "SELECT APP_NAME()"), u"Visual Scintra");
}

TEST_F(FreeTds, SpeaksEachVersionOfTheProtocol) {
    for (const char* version : {"7.2", "7.3", "7.4"}) {
        QString text = server.connectionText();
        text.replace(QStringLiteral("TDS_Version=7.4"),
                     QStringLiteral("TDS_Version=") + QLatin1String(version));
        const auto provider = odbc::OdbcProvider::open(text);
        const ado::Rows rows = provider
                                   ->execute(QStringLiteral(
                                       "SELECT 7 AS A, NULL AS B, 'x' AS C UNION ALL SELECT NULL, 'y', 'z'"))
                                   .rows;
        ASSERT_EQ(rows.count(), 2) << version;
        EXPECT_EQ(rows.at(0, 0), base::Value(7));
        EXPECT_TRUE(rows.at(0, 1).isNull());
        EXPECT_TRUE(rows.at(1, 0).isNull());
        EXPECT_EQ(base::textOf(rows.at(1, 1)), u"y");
        EXPECT_EQ(base::textOf(rows.at(1, 2)), u"z");
    }
}

TEST_F(FreeTds, GivesTextsOfEveryLengthAndAlphabet) {
    const auto provider = openProbe();
    provider->execute(
        QStringLiteral("CREATE TABLE tbText (ID int NOT NULL, Short varchar(40) NULL, Long varchar(max) "
                       "NULL, CONSTRAINT PK_Text PRIMARY KEY (ID))"));
    const QString page = QStringLiteral("Señor Öz “€5” – ½ Žižek");
    const QString wide = QStringLiteral("Ωμέγα 漢字 😀");
    QStringList longs;
    // around the pieces that a long text is read in
    for (const int length : {0, 1, 2047, 2048, 4094, 4095, 4096, 4097, 8190, 8191, 8192, 12'285, 20'000})
        longs += QString(length, u'x') + QStringLiteral("ñ€");
    longs += QString(9000, u'ñ');
    longs += QString(5000, u'漢') + QStringLiteral("😀");
    int id = 0;
    for (const QString& text : longs) {
        for (const QString& words : {page, wide, QStringLiteral("")})
            provider->execute(
                QStringLiteral("INSERT INTO tbText VALUES (%1, N'%2', N'%3')").arg(++id).arg(words, text));
    }
    const ado::Rows rows =
        provider->execute(QStringLiteral("SELECT Short, Long, ID FROM tbText ORDER BY ID")).rows;
    ASSERT_EQ(rows.count(), id);
    for (int row = 0; row < id; ++row) {
        const QStringList words{page, wide, QStringLiteral("")};
        ASSERT_EQ(base::textOf(rows.at(row, 0)), words[row % 3]) << row;
        ASSERT_FALSE(rows.at(row, 0).isNull());
        ASSERT_EQ(base::textOf(rows.at(row, 1)), longs[row / 3]) << longs[row / 3].size();
        ASSERT_EQ(rows.at(row, 2), base::Value(row + 1));
    }
    const ado::Rows shorts = provider->execute(QStringLiteral("SELECT Short FROM tbText ORDER BY ID")).rows;
    for (int row = 0; row < id; ++row)
        ASSERT_EQ(base::textOf(shorts.at(row, 0)), (QStringList{page, wide, QString()}[row % 3])) << row;
}

TEST_F(FreeTds, GivesNumbersAndMomentsExactly) {
    const auto provider = openProbe();
    provider->execute(QStringLiteral("CREATE TABLE tbNumber (ID int NOT NULL, Amount money NULL, Weight "
                                     "float NULL, Made datetime NULL, Done "
                                     "bit NULL, CONSTRAINT PK_Number PRIMARY KEY (ID))"));
    for (const char* row : {"-2147483648, -922337203685.4775, 1e300, '1900-01-01', 0",
                            "2147483647, 922337203685.4775, -1.5e-9, '2079-06-06 23:59:59.997', 1",
                            "0, 0.0001, 0.1, '1899-12-31 00:00:00.003', NULL",
                            "1, -0.0001, 1234567.891, '2026-02-28 12:00:00.500', 1"})
        provider->execute(QStringLiteral("INSERT INTO tbNumber VALUES (%1)").arg(QLatin1String(row)));
    const auto embedded = engine::EmbeddedProvider::open(file, {});
    const QString query =
        QStringLiteral("SELECT ID, Amount, Weight, Made, Done FROM NUCLEAR..tbNumber ORDER BY ID");
    const ado::Rows there = provider->execute(query).rows;
    const ado::Rows here = embedded->execute(query).rows;
    ASSERT_EQ(there.count(), 4);
    for (qsizetype row = 0; row < 4; ++row) {
        for (qsizetype column = 0; column < 5; ++column)
            EXPECT_EQ(there.at(row, column), here.at(row, column)) << row << ' ' << column;
    }
    EXPECT_EQ(there.columns[1].type, ado::DataType::Money);
    EXPECT_EQ(value(*provider, "SELECT 3000000000"), u"3000000000");
}

TEST_F(FreeTds, TellsWhyALogOnFails) {
    const TdsServer guarded(
        {.file = file, .user = QStringLiteral("scintra"), .password = QStringLiteral("good")});
    const auto why = [&](const QString& change, const QString& to) {
        QString text = guarded.connectionText();
        EXPECT_TRUE(change.isEmpty() || text.contains(change));
        return raised([&] { odbc::OdbcProvider::open(text.replace(change, to)); });
    };
    const base::RunTimeError login = why(QStringLiteral("PWD=good"), QStringLiteral("PWD=bad"));
    EXPECT_EQ(login.number(), 18456);
    EXPECT_EQ(login.description(), u"Login failed for user 'scintra'.");
    const base::RunTimeError database = why(QStringLiteral("UID="), QStringLiteral("Database=NOWHERE;UID="));
    EXPECT_EQ(database.number(), 4060);
    EXPECT_EQ(database.description(),
              u"Cannot open database \"NOWHERE\" requested by the login. The login failed.");
    const base::RunTimeError encryption =
        why(QStringLiteral("UID="), QStringLiteral("Encryption=require;UID="));
    EXPECT_EQ(encryption.number(), odbc::errors::notAgreed);
    EXPECT_EQ(encryption.sqlState(), u"08001");
    const base::RunTimeError none = why(QStringLiteral("UID=scintra;PWD=good;"), {});
    EXPECT_EQ(none.number(), 18456) << "no login, and no ticket in its place";
    EXPECT_EQ(none.sqlState(), u"28000");
    const base::RunTimeError down =
        why(QStringLiteral("Port=%1").arg(guarded.port()), QStringLiteral("Port=9"));
    EXPECT_TRUE(odbc::isConnectionError(down));
    EXPECT_EQ(down.number(), 20009);
}

TEST_F(FreeTds, TakesPasswordsOfAnyLetters) {
    // a brace at the start and another behind it is what FreeTDS 1.3 cannot be told
    for (const char* password :
         {"se;cret", "a}b", "{p", "p}", "a=b", "x y", " x ", "Señor€", "[]()?*!@,'\""}) {
        const QString secret = QString::fromUtf8(password);
        const TdsServer guarded({.file = file, .user = QStringLiteral("scintra"), .password = secret});
        odbc::ConnectionText login;
        login.add("UID", QStringLiteral("scintra"))
            .add("PWD", secret)
            .add("APP", QStringLiteral("Visual Scintra"));
        const QString text = guarded.connectionText().section(QStringLiteral("UID="), 0, 0) + login.text();
        try {
            EXPECT_EQ(value(*odbc::OdbcProvider::open(text), "SELECT 1"), u"1");
        } catch (const base::RunTimeError& error) {
            ADD_FAILURE() << password << ": " << error.what();
        }
    }
}

TEST_F(FreeTds, LogsOnAsTheDataSourceSays) {
    const TdsServer guarded(
        {.file = file, .user = QStringLiteral("scintra"), .password = QStringLiteral("a=b c")});
    tests::setDataSources(guarded.dataSource(QStringLiteral("Own")) +
                          guarded.dataSource(QStringLiteral("None")).section(QStringLiteral("UID="), 0, 0));
    EXPECT_EQ(value(*odbc::OdbcProvider::open(QStringLiteral("DSN=Own;APP=x;")), "SELECT 1"), u"1");
    EXPECT_EQ(value(*odbc::OdbcProvider::open(QStringLiteral("APP=x;dsn={Own}")), "SELECT 1"), u"1");
    EXPECT_EQ(
        raised([] { odbc::OdbcProvider::open(QStringLiteral("DSN=Own;UID=scintra;PWD=other;")); }).number(),
        18456)
        << "a login of the program's own goes before";
    EXPECT_EQ(raised([] { odbc::OdbcProvider::open(QStringLiteral("DSN=None;")); }).number(), 18456);
    tests::setDataSources({});
}

TEST_F(FreeTds, ATextThatTakesTooLongIsGivenUp) {
    const auto provider = openProbe(1);
    server.strike(1, Fault::TimeOut);
    EXPECT_EQ(raised([&] { provider->execute(QStringLiteral("SELECT 1")); }).number(), odbc::errors::timeOut);
    EXPECT_EQ(value(*provider, "SELECT 2"), u"2") << "the line is good";
    provider->begin();
    provider->execute(QStringLiteral("UPDATE tbProbe SET Name = 'B'"));
    server.strike(1, Fault::TimeOut);
    EXPECT_EQ(raised([&] { provider->execute(QStringLiteral("SELECT 1")); }).number(), odbc::errors::timeOut);
    EXPECT_TRUE(provider->inTransaction());
    provider->commit();
    EXPECT_EQ(value(*provider, "SELECT Name FROM tbProbe"), u"B");
}

TEST_F(FreeTds, ASecondWriterWaitsAndGivesUp) {
    const auto first = openProbe();
    const auto second = open({}, 1);
    second->execute(QStringLiteral("USE NUCLEAR"));
    first->begin();
    first->execute(QStringLiteral("UPDATE tbProbe SET Name = 'B'"));
    EXPECT_EQ(value(*second, "SELECT Name FROM tbProbe"), u"A") << "a reader does not wait";
    second->begin();
    EXPECT_EQ(raised([&] { second->execute(QStringLiteral("UPDATE tbProbe SET Name = 'C'")); }).number(),
              odbc::errors::timeOut);
    first->commit();
    second->execute(QStringLiteral("UPDATE tbProbe SET Name = 'D'"));
    second->commit();
    EXPECT_EQ(value(*first, "SELECT Name FROM tbProbe"), u"D");
}

TEST_F(FreeTds, AQuestionThatTakesTooLongIsStoppedAtTheServer) {
    const auto provider = openProbe(1);
    for (int id = 2; id <= 400; ++id)
        provider->execute(QStringLiteral("INSERT INTO tbProbe (ID) VALUES (%1)").arg(id));
    const QString text = QStringLiteral(
        "SELECT COUNT(*) FROM tbProbe A, tbProbe B, tbProbe C, tbProbe D, tbProbe E WHERE A.ID + B.ID + "
        "C.ID + D.ID + E.ID = 7");
    EXPECT_EQ(raised([&] { provider->execute(text); }).number(), odbc::errors::timeOut);
    EXPECT_EQ(value(*provider, "SELECT COUNT(*) FROM tbProbe"), u"400");
}

TEST_F(FreeTds, ADeadlockEndsTheTransactionAndNothingRunsOutsideOfIt) {
    const auto provider = openProbe();
    provider->begin();
    provider->execute(QStringLiteral("UPDATE tbProbe SET Name = 'B'"));
    server.strike(1, Fault::Deadlock);
    const base::RunTimeError error = raised([&] { provider->execute(QStringLiteral("SELECT 1")); });
    EXPECT_EQ(error.number(), 1205);
    EXPECT_TRUE(provider->inTransaction());
    EXPECT_EQ(raised([&] { provider->execute(QStringLiteral("SELECT 1")); }).number(),
              odbc::errors::noTransaction);
    EXPECT_EQ(raised([&] { provider->commit(); }).number(), odbc::errors::noTransaction);
    EXPECT_FALSE(provider->inTransaction());
    EXPECT_EQ(value(*provider, "SELECT Name FROM tbProbe"), u"A");
    provider->begin();
    provider->execute(QStringLiteral("UPDATE tbProbe SET Name = 'C'"));
    provider->commit();
    EXPECT_EQ(value(*open(), "SELECT Name FROM NUCLEAR..tbProbe"), u"C") << "the next save is kept";
}

TEST_F(FreeTds, ACutLineIsLostForGood) {
    const auto provider = openProbe();
    provider->begin();
    provider->execute(QStringLiteral("UPDATE tbProbe SET Name = 'B'"));
    server.strike(1, Fault::Cut);
    const base::RunTimeError error = raised([&] { provider->execute(QStringLiteral("SELECT 1")); });
    EXPECT_TRUE(odbc::isConnectionError(error)) << error.what() << ' ' << error.sqlState().toStdString();
    EXPECT_EQ(raised([&] { provider->execute(QStringLiteral("SELECT 1")); }).number(),
              odbc::errors::noTransaction);
    provider->rollback();
    EXPECT_EQ(raised([&] { provider->execute(QStringLiteral("SELECT 1")); }).number(),
              base::errors::connectionInvalid);
    EXPECT_EQ(value(*open(), "SELECT Name FROM NUCLEAR..tbProbe"), u"A");
}

TEST_F(FreeTds, ALineThatIsFoundLostAtABeginIsToldAsSuch) {
    const auto provider = openProbe();
    server.strike(1, Fault::Cut);
    const base::RunTimeError error = raised([&] { provider->begin(); });
    EXPECT_EQ(error.number(), base::errors::connectionInvalid);
    EXPECT_EQ(error.description(), "The connection to the server is lost. Please log on again.");
    EXPECT_FALSE(provider->inTransaction());
    // a line that went while nobody used it
    auto gone = std::make_unique<TdsServer>(
        TdsServer::Options{.file = folder.filePath(QStringLiteral("gone.scintra"))});
    const auto idle = odbc::OdbcProvider::open(gone->connectionText());
    gone.reset();
    const base::RunTimeError found = raised([&] { idle->begin(); });
    EXPECT_EQ(found.number(), base::errors::connectionInvalid);
    EXPECT_EQ(found.description(), error.description());
}

TEST_F(FreeTds, AViewOfOneTableHasItsKeyWhereverTheTableIs) {
    const auto provider = openProbe();
    provider->execute(QStringLiteral("CREATE VIEW tbNear AS SELECT ID, Name FROM tbProbe"));
    provider->execute(QStringLiteral("USE STATION"));
    const QStringList key{QStringLiteral("ID")};
    const std::pair<const char*, QStringList> views[] = {
        {"SELECT ID, Name FROM NUCLEAR..tbProbe", key},
        {"-- FROM the other one\nSELECT P.ID, P.Name FROM NUCLEAR.dbo.tbProbe AS P WHERE P.ID > 0", key},
        {"SELECT ID, Name FROM [NUCLEAR]..[tbProbe] WITH (UPDLOCK, HOLDLOCK)", key},
        {"SELECT ID FROM NUCLEAR..tbNear", key},
        {"SELECT A.ID FROM NUCLEAR..tbProbe A INNER JOIN NUCLEAR..tbProbe B ON B.ID = A.ID", {}},
        {"SELECT A.ID FROM NUCLEAR..tbProbe A, NUCLEAR..tbProbe B", {}},
        {"SELECT ID FROM NUCLEAR..tbProbe UNION SELECT ID FROM NUCLEAR..tbProbe", {}},
        {"SELECT ID FROM NUCLEAR..tbProbe WHERE ID IN (SELECT MAX(ID) FROM NUCLEAR..tbProbe)", {}}};
    int number = 0;
    for (const auto& [text, columns] : views) {
        const QString name = QStringLiteral("tbView%1").arg(++number);
        provider->execute(QStringLiteral("CREATE VIEW %1 AS %2").arg(name, QLatin1StringView(text)));
        EXPECT_EQ(provider->primaryKey(QStringLiteral("STATION..") + name), columns) << text;
        EXPECT_EQ(provider->primaryKey(name), columns) << text;
    }
}

TEST_F(FreeTds, ACommitWhoseAnswerIsLostLeavesItOpen) {
    const auto provider = openProbe(1);
    provider->begin();
    provider->execute(QStringLiteral("UPDATE tbProbe SET Name = 'B'"));
    server.strike(1, Fault::Cut);
    const base::RunTimeError error = raised([&] { provider->commit(); });
    EXPECT_TRUE(error.description().contains(QStringLiteral("It is not known whether"))) << error.what();
    EXPECT_FALSE(provider->inTransaction());
}

/// The driver gives up the line with it, so the server rolls back.
TEST_F(FreeTds, ABeginOrCommitThatTakesTooLongIsGivenUp) {
    auto provider = openProbe(1);
    server.strike(1, Fault::TimeOut);
    EXPECT_EQ(raised([&] { provider->begin(); }).number(), odbc::errors::timeOut);
    EXPECT_FALSE(provider->inTransaction());
    EXPECT_EQ(raised([&] { provider->begin(); }).number(), base::errors::connectionInvalid);
    provider = open({}, 1);
    provider->begin();
    provider->execute(QStringLiteral("UPDATE NUCLEAR..tbProbe SET Name = 'B'"));
    server.strike(1, Fault::TimeOut);
    const base::RunTimeError error = raised([&] { provider->commit(); });
    EXPECT_EQ(error.number(), odbc::errors::timeOut);
    EXPECT_TRUE(error.description().contains(QStringLiteral("It is not known whether"))) << error.what();
    EXPECT_FALSE(provider->inTransaction());
    EXPECT_EQ(value(*open(), "SELECT Name FROM NUCLEAR..tbProbe"), u"A");
}

TEST_F(FreeTds, AServerThatDoesNotAnswerTheLogOnIsGivenUp) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    odbc::Options options;
    options.connectSeconds = 1;
    QElapsedTimer timer;
    timer.start();
    const base::RunTimeError error = raised([&] {
        odbc::OdbcProvider::open(
            server.connectionText().replace(QStringLiteral("Port=%1").arg(server.port()),
                                            QStringLiteral("Port=%1").arg(silent.serverPort())),
            options);
    });
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_EQ(error.number(), odbc::errors::timeOut) << error.what() << ' ' << error.sqlState().toStdString();
}

TEST_F(FreeTds, SendsEachStepOnceAndInItsPlace) {
    const auto provider = openProbe();
    provider->begin();
    provider->execute(QStringLiteral("UPDATE tbProbe SET Name = 'ñ “€”'"));
    provider->commit();
    provider->begin();
    provider->execute(QStringLiteral("DELETE FROM tbProbe"));
    provider->rollback();
    provider->execute(QStringLiteral("SELECT Name FROM tbProbe"));
    EXPECT_EQ(server.takeWire(),
              (QStringList{"BEGIN", QStringLiteral("UPDATE tbProbe SET Name = 'ñ “€”'"), "COMMIT", "BEGIN",
                           "DELETE FROM tbProbe", "ROLLBACK", "SELECT Name FROM tbProbe"}));
}

} // namespace
