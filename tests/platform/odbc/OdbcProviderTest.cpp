#include "platform/odbc/OdbcProvider.h"

#include "platform/ado/Connection.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/odbc/Api.h"
#include "platform/odbc/DataSources.h"
#include "tests/support/core/Raised.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/odbc/TestDriver.h"

#include <gtest/gtest.h>

#include <functional>

using odbc::OdbcProvider;
using tests::FakeAnswer;
using tests::fakeDriver;
using tests::FakeError;
using tests::FakeStep;
using tests::ScriptedProvider;

/// Lets a failed comparison show the text.
static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

using tests::raised;

ado::Result rowCount(qint64 affected) {
    ado::Result result;
    result.affected = affected;
    return result;
}

/// Answers are scripted: the number of an answer is the number of the text, the last one stays.
class OdbcProviderTest : public testing::Test {
  protected:
    OdbcProviderTest() {
        fakeDriver() = {};
        fakeDriver().answer = [this](int, const QString& text) -> FakeAnswer {
            if (text == QLatin1StringView("SELECT @@TRANCOUNT"))
                return rows("n", {{qint64(trancount)}}, ado::DataType::Integer);
            if (answers.empty())
                return {};
            FakeAnswer answer = answers.front();
            if (answers.size() > 1)
                answers.erase(answers.begin());
            return answer;
        };
    }
    ~OdbcProviderTest() override {
        provider.reset();
        fakeDriver() = {};
    }

    void open() { provider = OdbcProvider::open(tests::LoopbackServer::connectionText()); }
    ado::Result execute(const char* text) { return provider->execute(QString::fromLatin1(text)); }
    static FakeAnswer rows(const QString& columns, const std::vector<std::vector<base::Value>>& values,
                           ado::DataType type = ado::DataType::Text) {
        ado::Result result = ScriptedProvider::rowsOf(columns, values);
        for (ado::Column& column : result.rows.columns.edit())
            column.type = type;
        return {{result}, std::nullopt};
    }
    static FakeAnswer failing(int native, const char* state, const char* words, bool cut = false) {
        return {{}, FakeError{native, QString::fromLatin1(state), QString::fromLatin1(words), cut}};
    }

    std::vector<FakeAnswer> answers;
    int trancount = 1;
    std::unique_ptr<OdbcProvider> provider;
};

TEST_F(OdbcProviderTest, SendsTheTextAsItIsAndAsksForNothingFancy) {
    open();
    const QString text = QStringLiteral("sp_Nuclear_AddRequest 'Peña  — ☢','',  'it''s' -- {call} ? \n");
    provider->execute(text);
    EXPECT_EQ(fakeDriver().texts, QStringList{text});
    EXPECT_EQ(fakeDriver().oddCalls, QStringList()) << "no preparing, no cursor but the plain one";
    EXPECT_EQ(fakeDriver().loginSeconds, 15);
    EXPECT_EQ(fakeDriver().statementSeconds, 30);
    EXPECT_EQ(provider->product(), QStringLiteral("Microsoft SQL Server"));
    EXPECT_EQ(provider->serverName(), QStringLiteral("TESTSERVER"));
}

TEST_F(OdbcProviderTest, TakesRowCountsThatComeBeforeTheRows) {
    ado::Result read = ScriptedProvider::rowsOf(QStringLiteral("Number"), {{"7"}});
    answers = {{{rowCount(1), rowCount(3), read}, std::nullopt}};
    open();
    const ado::Result result = execute("sp_Draw");
    EXPECT_EQ(result.affected, 3);
    ASSERT_EQ(result.rows.count(), 1);
    EXPECT_EQ(base::textOf(result.rows.at(0, 0)), QStringLiteral("7"));
}

TEST_F(OdbcProviderTest, KeepsTheLastRowsOfABatchAndDrainsTheRest) {
    const ado::Result first = ScriptedProvider::rowsOf(QStringLiteral("A,B"), {{"1", "2"}, {"3", "4"}});
    const ado::Result last = ScriptedProvider::rowsOf(QStringLiteral("C"), {{"5"}});
    answers = {{{first, last, rowCount(2)}, std::nullopt}, {}};
    open();
    const ado::Result result = execute("batch");
    ASSERT_EQ(result.rows.columns.size(), 1u);
    EXPECT_EQ(result.rows.columns[0].name, QStringLiteral("C"));
    EXPECT_EQ(result.rows.count(), 1);
    EXPECT_EQ(result.affected, 2);
    EXPECT_TRUE(execute("next").rows.columns.empty());
}

TEST_F(OdbcProviderTest, AnErrorBehindTheFirstResultsIsRaised) {
    answers = {
        {{rowCount(1), ScriptedProvider::rowsOf(QStringLiteral("A"), {{"1"}})},
         FakeError{2627, QStringLiteral("23000"),
                   QStringLiteral("[Microsoft][ODBC Driver 18][SQL Server]Violation of [PK]."), false}},
        {}};
    open();
    const base::RunTimeError error = raised([&] { execute("sp_Half"); });
    EXPECT_EQ(error.number(), 2627);
    EXPECT_EQ(error.sqlState(), QStringLiteral("23000"));
    EXPECT_EQ(error.description(), QStringLiteral("Violation of [PK]."));
    EXPECT_EQ(error.statement(), QStringLiteral("sp_Half"));
    EXPECT_TRUE(execute("next").rows.columns.empty());
}

TEST_F(OdbcProviderTest, ReadsAnUntoldRowCountAndAnUpdateOfNoRow) {
    answers = {{{rowCount(-1)}, std::nullopt}, {{rowCount(0)}, std::nullopt}, {{rowCount(5)}, std::nullopt}};
    open();
    EXPECT_EQ(execute("SET NOCOUNT ON").affected, -1);
    EXPECT_EQ(execute("UPDATE").affected, 0);
    EXPECT_EQ(execute("UPDATE").affected, 5);
}

TEST_F(OdbcProviderTest, ReadsTextsOfWidthNoughtInPieces) {
    const QString longText = QString(20'011, u'x') + QStringLiteral("ñ☢") + QString(9'000, u'y');
    const QString oneBuffer(4095, u'z');
    answers = {
        rows("A,B,C,D", {{base::Value(longText), base::Value(), base::Value(""), base::Value(oneBuffer)},
                         {base::Value("last"), base::Value("x"), base::Value(), base::Value("")}})};
    open();
    const ado::Result result = execute("SELECT A, B, C, D");
    ASSERT_EQ(result.rows.count(), 2);
    EXPECT_EQ(base::textOf(result.rows.at(0, 0)), longText);
    EXPECT_TRUE(result.rows.at(0, 1).isNull());
    EXPECT_EQ(result.rows.at(0, 2), base::Value(QString(QLatin1StringView(""))));
    EXPECT_EQ(base::textOf(result.rows.at(0, 3)), oneBuffer);
    EXPECT_EQ(base::textOf(result.rows.at(1, 0)), QStringLiteral("last"));
    EXPECT_TRUE(result.rows.at(1, 2).isNull());
    EXPECT_EQ(result.rows.at(1, 3), base::Value(QString(QLatin1StringView(""))));
}

TEST_F(OdbcProviderTest, ReadsBlocksOfRowsInTheirOrder) {
    fakeDriver().textSize = 20;
    std::vector<std::vector<base::Value>> many;
    for (int i = 0; i < 1000; ++i)
        many.push_back({QString::number(i), i % 3 == 0 ? base::Value() : base::Value(QString(i % 20, u'n'))});
    answers = {rows("A,B", many), rows("A", {}), rows("A", {{"after"}})};
    open();
    const ado::Result result = execute("SELECT A, B");
    ASSERT_EQ(result.rows.count(), 1000);
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(result.rows.at(i, 0), many[std::size_t(i)][0]) << i;
        EXPECT_EQ(result.rows.at(i, 1), many[std::size_t(i)][1]) << i;
    }
    const ado::Result none = execute("SELECT A WHERE 1 = 0");
    EXPECT_EQ(none.rows.columns.size(), 1u);
    EXPECT_EQ(none.rows.count(), 0);
    EXPECT_EQ(base::textOf(execute("SELECT A").rows.at(0, 0)), QStringLiteral("after"));
}

TEST_F(OdbcProviderTest, ATextWiderThanToldIsReadWholeOrRefused) {
    fakeDriver().textSize = 10;
    answers = {rows("A", {{"short"}, {QString(25, u'w')}, {"end"}})};
    open();
    const ado::Result result = execute("SELECT A");
    ASSERT_EQ(result.rows.count(), 3);
    EXPECT_EQ(base::textOf(result.rows.at(0, 0)), QStringLiteral("short"));
    EXPECT_EQ(base::textOf(result.rows.at(1, 0)), QString(25, u'w'));
    EXPECT_EQ(base::textOf(result.rows.at(2, 0)), QStringLiteral("end"));
    fakeDriver().rereads = false;
    EXPECT_EQ(raised([&] { execute("SELECT A"); }).number(), 8152);
}

TEST_F(OdbcProviderTest, ARowOfABlockThatCannotBeReadIsAnError) {
    fakeDriver().textSize = 10;
    fakeDriver().brokenRow = 1;
    answers = {rows("A", {{"one"}, {"two"}, {"three"}})};
    open();
    EXPECT_EQ(raised([&] { execute("SELECT A"); }).number(), 8115);
}

TEST_F(OdbcProviderTest, ReadsEachType) {
    const base::DateTime moment = *base::makeDateTime({2026, 11, 21}, {8, 30, 15, 337});
    ado::Result result = ScriptedProvider::rowsOf(
        QStringLiteral("I,F,M,B,D,T"),
        {{qint64(2147483647), 0.1, 1234.5678, true, moment, "text"}, {{}, {}, {}, {}, {}, {}}});
    const ado::DataType types[] = {ado::DataType::Integer, ado::DataType::Double,   ado::DataType::Money,
                                   ado::DataType::Bit,     ado::DataType::DateTime, ado::DataType::Text};
    for (std::size_t i = 0; i < std::size(types); ++i)
        result.rows.columns.edit()[i].type = types[i];
    answers = {{{result}, std::nullopt}};
    open();
    for (const int textSize : {0, 30}) {
        fakeDriver().textSize = textSize;
        const ado::Result read = execute("SELECT *");
        for (std::size_t i = 0; i < std::size(types); ++i) {
            EXPECT_EQ(read.rows.columns[i].type, types[i]);
            EXPECT_EQ(read.rows.at(0, qsizetype(i)), result.rows.values[i]) << i << ' ' << textSize;
            EXPECT_TRUE(read.rows.at(1, qsizetype(i)).isNull());
        }
    }
    fakeDriver().wholeSeconds = true;
    EXPECT_EQ(*execute("SELECT *").rows.at(0, 4).asDateTime(),
              *base::makeDateTime({2026, 11, 21}, {8, 30, 15, 0}));
}

TEST_F(OdbcProviderTest, ATimeOutHasANumberOfItsOwnAndTheSessionGoesOn) {
    answers = {failing(0, "HYT00", "[Microsoft][ODBC Driver 18]Query timeout expired"), {}};
    open();
    const base::RunTimeError error = raised([&] { execute("slow"); });
    EXPECT_EQ(error.number(), -2147217871);
    EXPECT_EQ(error.description(), QStringLiteral("Query timeout expired"));
    EXPECT_NO_THROW(execute("next"));
}

TEST_F(OdbcProviderTest, ALostLineFailsEverythingAfterIt) {
    answers = {failing(0, "08S01", "[x]Communication link failure", true), {}};
    open();
    provider->begin();
    const base::RunTimeError first = raised([&] { execute("INSERT"); });
    EXPECT_EQ(first.sqlState(), QStringLiteral("08S01"));
    EXPECT_EQ(first.number(), -2147467259);
    EXPECT_EQ(raised([&] { execute("INSERT"); }).number(), -2147168242) << "the transaction is told first";
    EXPECT_EQ(raised([&] { provider->commit(); }).number(), -2147168242);
    EXPECT_FALSE(provider->inTransaction());
    EXPECT_EQ(raised([&] { execute("INSERT"); }).number(), 3709);
    EXPECT_EQ(raised([&] { provider->begin(); }).number(), 3709);
    EXPECT_EQ(fakeDriver().texts, QStringList{QStringLiteral("INSERT")}) << "nothing more was sent";
}

TEST_F(OdbcProviderTest, ATransactionThatTheServerRolledBackIsToldByEveryCallUntilItIsEnded) {
    answers = {{}, failing(1205, "40001", "[x]deadlocked"), {}};
    open();
    provider->begin();
    execute("first");
    trancount = 0;
    EXPECT_EQ(raised([&] { execute("second"); }).number(), 1205);
    const base::RunTimeError error = raised([&] { execute("third"); });
    EXPECT_EQ(error.number(), -2147168242);
    EXPECT_EQ(error.statement(), QStringLiteral("third"));
    EXPECT_EQ(raised([&] { execute("fourth"); }).number(), -2147168242);
    EXPECT_TRUE(provider->inTransaction());
    EXPECT_EQ(raised([&] { provider->commit(); }).number(), -2147168242);
    EXPECT_FALSE(provider->inTransaction());
    EXPECT_FALSE(fakeDriver().texts.contains(QStringLiteral("third")));
    EXPECT_FALSE(fakeDriver().steps.contains(QStringLiteral("1 commit")));
    execute("fifth");
    provider->begin();
    execute("sixth");
    provider->commit();
    EXPECT_EQ(fakeDriver().steps, (QStringList{"1 connect", "1 begin", "1 rollback", "1 begin", "1 commit"}));
}

TEST_F(OdbcProviderTest, ADriverThatWantsATransactionToRollBackGetsOne) {
    answers = {failing(1205, "40001", "[x]deadlocked"), {}};
    int refused = 0;
    fakeDriver().step = [&](int, FakeStep what) -> std::optional<FakeError> {
        if (what != FakeStep::Rollback || refused++ > 0)
            return std::nullopt;
        return FakeError{3903, QStringLiteral("25000"), QStringLiteral("[x]no corresponding BEGIN"), false};
    };
    open();
    provider->begin();
    trancount = 0;
    EXPECT_EQ(raised([&] { execute("first"); }).number(), 1205);
    EXPECT_NO_THROW(provider->rollback());
    EXPECT_EQ(fakeDriver().texts.last(), QStringLiteral("IF @@TRANCOUNT = 0 BEGIN TRANSACTION"));
    EXPECT_EQ(fakeDriver().steps, (QStringList{"1 connect", "1 begin", "1 rollback", "1 rollback"}));
    EXPECT_NO_THROW(execute("next"));
}

TEST_F(OdbcProviderTest, AnErrorThatLeavesTheTransactionOpenLeavesItOpen) {
    answers = {failing(2627, "23000", "[x]duplicate"), {}};
    open();
    provider->begin();
    EXPECT_EQ(raised([&] { execute("first"); }).number(), 2627);
    EXPECT_NO_THROW(execute("second"));
    EXPECT_NO_THROW(provider->commit());
    EXPECT_EQ(fakeDriver().steps, (QStringList{"1 connect", "1 begin", "1 commit"}));
}

TEST_F(OdbcProviderTest, ACommitWhoseAnswerIsLostSaysThatTheOutcomeIsNotKnown) {
    fakeDriver().step = [](int, FakeStep what) -> std::optional<FakeError> {
        if (what != FakeStep::Commit)
            return std::nullopt;
        return FakeError{0, QStringLiteral("08S01"), QStringLiteral("[x]Communication link failure"), true};
    };
    open();
    provider->begin();
    execute("first");
    const base::RunTimeError error = raised([&] { provider->commit(); });
    EXPECT_TRUE(error.description().startsWith(QStringLiteral("Communication link failure")));
    EXPECT_TRUE(error.description().contains(QStringLiteral("not known")));
    EXPECT_FALSE(provider->inTransaction());
    EXPECT_EQ(raised([&] { execute("second"); }).number(), 3709);
}

TEST_F(OdbcProviderTest, ACommitThatWasKeptIsNoErrorWhateverComesBehindIt) {
    fakeDriver().step = [](int, FakeStep what) -> std::optional<FakeError> {
        if (what != FakeStep::Autocommit)
            return std::nullopt;
        return FakeError{0, QStringLiteral("08S01"), QStringLiteral("[x]Communication link failure"), true};
    };
    open();
    provider->begin();
    execute("first");
    EXPECT_NO_THROW(provider->commit());
    EXPECT_EQ(raised([&] { execute("second"); }).number(), 3709);
}

TEST_F(OdbcProviderTest, ACommitThatTheServerRefusesRollsBack) {
    fakeDriver().step = [](int, FakeStep what) -> std::optional<FakeError> {
        if (what != FakeStep::Commit)
            return std::nullopt;
        return FakeError{1105, QStringLiteral("42000"), QStringLiteral("[x]disk full"), false};
    };
    open();
    provider->begin();
    execute("first");
    EXPECT_EQ(raised([&] { provider->commit(); }).number(), 1105);
    EXPECT_EQ(fakeDriver().steps, (QStringList{"1 connect", "1 begin", "1 commit", "1 rollback"}));
    EXPECT_NO_THROW(execute("second"));
}

TEST_F(OdbcProviderTest, TransactionsOutOfTurnAreRefusedAsByTheServerThatComesAlong) {
    open();
    EXPECT_EQ(raised([&] { provider->commit(); }).number(), 3902);
    EXPECT_EQ(raised([&] { provider->rollback(); }).number(), 3903);
    provider->begin();
    EXPECT_EQ(raised([&] { provider->begin(); }).number(), -2147168237);
}

TEST_F(OdbcProviderTest, AnOpenTransactionIsRolledBackAsTheSessionGoes) {
    open();
    provider->begin();
    execute("first");
    provider.reset();
    EXPECT_EQ(fakeDriver().steps, (QStringList{"1 connect", "1 begin", "1 rollback", "1 disconnect"}));
}

TEST_F(OdbcProviderTest, RefusedLogOnsKeepTheServersNumberAndWords) {
    fakeDriver().step = [](int, FakeStep) -> std::optional<FakeError> {
        return FakeError{18456, QStringLiteral("28000"),
                         QStringLiteral("[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]Login failed "
                                        "for user 'kerova'."),
                         false};
    };
    const base::RunTimeError error = raised([&] { open(); });
    EXPECT_EQ(error.number(), 18456);
    EXPECT_EQ(error.sqlState(), QStringLiteral("28000"));
    EXPECT_EQ(error.description(), QStringLiteral("Login failed for user 'kerova'."));
}

TEST_F(OdbcProviderTest, SaysWhichDriverOrDataSourceIsMissing) {
    const base::RunTimeError noDriver =
        raised([] { OdbcProvider::open(QStringLiteral("Driver={No Such Driver};")); });
    EXPECT_TRUE(noDriver.description().contains(QStringLiteral("Can't open lib")))
        << noDriver.description().toStdString();
    const base::RunTimeError noSource = raised([] { OdbcProvider::open(QStringLiteral("DSN=Nowhere;")); });
    EXPECT_EQ(noSource.sqlState(), QStringLiteral("IM002"));
}

TEST_F(OdbcProviderTest, AsksForAKeyOnce) {
    answers = {rows("COLUMN_NAME", {{"HospNum"}, {"IdNum"}})};
    open();
    const QStringList key{QStringLiteral("HospNum"), QStringLiteral("IdNum")};
    EXPECT_EQ(provider->primaryKey(QStringLiteral("PATIENT_DATA..tbPatient")), key);
    EXPECT_EQ(provider->primaryKey(QStringLiteral("PATIENT_DATA..tbPatient")), key);
    ASSERT_EQ(fakeDriver().texts.size(), 1);
    EXPECT_TRUE(fakeDriver().texts[0].contains(QStringLiteral("[PATIENT_DATA].INFORMATION_SCHEMA.")));
    EXPECT_TRUE(fakeDriver().texts[0].contains(QStringLiteral("'tbPatient'")));
    provider->primaryKey(QStringLiteral("[STATION].[dbo].[tb]]x]"));
    EXPECT_TRUE(fakeDriver().texts[1].contains(QStringLiteral("[STATION].INFORMATION_SCHEMA.")));
    EXPECT_TRUE(fakeDriver().texts[1].contains(QStringLiteral("'tb]x'")));
    provider->primaryKey(QStringLiteral("tbPatient"));
    EXPECT_TRUE(fakeDriver().texts[2].contains(QStringLiteral("FROM INFORMATION_SCHEMA.")));
    provider->useDatabase(QStringLiteral("NUC]LEAR"));
    EXPECT_EQ(fakeDriver().texts[3], QStringLiteral("USE [NUC]]LEAR]"));
}

TEST(Api, SaysWhatIsMissing) {
    const base::RunTimeError none = raised([] { odbc::Api(QStringLiteral("noodbc"), 2); });
    EXPECT_EQ(none.number(), 48);
    EXPECT_EQ(none.description(), QStringLiteral("Data sources need libnoodbc, which is not installed."));
    const base::RunTimeError other = raised([] { odbc::Api(QStringLiteral("z"), 1); });
    EXPECT_EQ(other.number(), 48);
    EXPECT_TRUE(other.description().contains(QStringLiteral("SQLAllocHandle is missing")))
        << other.description().toStdString();
}

TEST(DataSources, AreThoseOfTheDriverManagerByName) {
    tests::setDataSources(QStringLiteral("[hospital]\nDriver=Server\n[Alpha]\nDriver=SQLite3\n"));
    const auto found = odbc::dataSources();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].name, QStringLiteral("Alpha"));
    EXPECT_EQ(found[0].driver, QStringLiteral("SQLite3"));
    EXPECT_EQ(found[1].name, QStringLiteral("hospital"));
    tests::setDataSources({});
    EXPECT_TRUE(odbc::dataSources().empty());
}

TEST(ConnectionText, PutsOddValuesInBraces) {
    odbc::ConnectionText text;
    text.add("DSN", QStringLiteral("Main Server")).add("UID", QStringLiteral("kerova"));
    text.add("PWD", QStringLiteral("a;b}c")).add("APP", QStringLiteral(" x"));
    EXPECT_EQ(text.text(), QStringLiteral("DSN=Main Server;UID=kerova;PWD={a;b}}c};APP={ x};"));
    EXPECT_EQ(odbc::ConnectionText().add("PWD", QStringLiteral("a}b")).text(), u"PWD=a}b;")
        << "not every driver knows doubled braces";
}

TEST(ConnectionText, IsCompletedForFreeTdsOnly) {
    tests::setDataSources(QStringLiteral(
        "[Plain]\nDriver=/drivers/libmsodbcsql.so\n[Named]\nDriver=/drivers/libtdsodbc.so\nUID=ann\n"
        "PWD=se;cret\n[Timed]\nDriver=/drivers/libtdsodbc.so\nTimeout=90\n"));
    const auto completed = [](const char* text) { return odbc::completed(QString::fromLatin1(text), 30); };
    EXPECT_EQ(completed("DSN=Plain;UID=x;"), u"DSN=Plain;UID=x;");
    EXPECT_EQ(completed("DSN=Named"), u"DSN=Named;UID=ann;PWD={se;cret};Timeout=30;");
    EXPECT_EQ(completed("APP=y;dsn={Named};uid=bob;"), u"APP=y;dsn={Named};uid=bob;Timeout=30;");
    EXPECT_EQ(completed("DSN=Named;Trusted_Connection=yes;"),
              u"DSN=Named;Trusted_Connection=yes;Timeout=30;");
    EXPECT_EQ(completed("DSN=Timed;"), u"DSN=Timed;");
    EXPECT_EQ(completed("Driver=/drivers/libtdsodbc.so;Timeout=5;"),
              u"Driver=/drivers/libtdsodbc.so;Timeout=5;");
    tests::setDataSources({});
}

} // namespace
