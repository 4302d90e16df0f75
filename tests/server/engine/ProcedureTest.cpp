#include "platform/base/TestDoors.h"
#include "tests/server/engine/Hospital.h"

#include "platform/base/DateTime.h"

namespace {

using tests::Hospital;

class Procedure : public testing::Test {
  protected:
    void install(const char* script) { m_hospital.install(QString::fromUtf8(script)); }
    QString rows(const char* text) { return m_hospital.rows(QString::fromUtf8(text)); }
    QString error(const char* text) { return m_hospital.error(QString::fromUtf8(text)); }
    ado::Result run(const char* text) { return m_hospital.run(QString::fromUtf8(text)); }
    base::FixedClock m_clock{*base::makeDateTime({2026, 11, 21}, {8, 30, 0, 0})};
    Hospital m_hospital;
};

TEST_F(Procedure, isFoundByEveryWayOfNamingIt) {
    install(
        "USE STATION\nGO\nCREATE PROCEDURE sp_Echo @a varchar(20), @b int = 5 AS SELECT @a AS a, @b AS b");
    EXPECT_EQ(rows("STATION..sp_Echo 'x', '7'"), "x|7");
    EXPECT_EQ(rows("station..SP_ECHO 'x'"), "x|5");
    EXPECT_EQ(rows("  Station.dbo.sp_Echo   'x' ,  7  ;"), "x|7");
    EXPECT_EQ(rows("EXEC STATION..sp_Echo @b = 9, @A = 'y'"), "y|9");
    EXPECT_EQ(rows("execute STATION..[sp_Echo] N'Ñ', DEFAULT"), QString::fromUtf8("Ñ|5"));
    EXPECT_EQ(rows("STATION..sp_Echo NULL, NULL"), "NULL|NULL");
    EXPECT_EQ(rows("STATION..sp_Echo word, -3"), "word|-3");
    EXPECT_EQ(rows("STATION..sp_Echo 12.50, 7"), "12.50|7");
    EXPECT_EQ(rows("STATION..sp_Echo\n'a\nb'\n,\n'1'"), "a\nb|1");
    EXPECT_EQ(rows("-- a remark with a ' in it\nSTATION..sp_Echo 'O''BRIEN'"), "O'BRIEN|5");
    EXPECT_EQ(error("sp_Echo 'x'"), "2812: Could not find stored procedure 'sp_Echo'.");
    m_hospital.provider().useDatabase(QStringLiteral("station"));
    EXPECT_EQ(rows("sp_Echo 'x'"), "x|5");
}

TEST_F(Procedure, argumentsBecomeTheDeclaredTypes) {
    install("CREATE PROCEDURE sp_Types @t varchar(3) = 'abcd', @i int = '12', @m money = 0, @d datetime = "
            "NULL, @f bit = 0, "
            "@n decimal(8,2) = 0 AS SELECT @t AS t, @i AS i, @m AS m, @d AS d, @f AS f, @n AS n");
    EXPECT_EQ(rows("sp_Types"), "abc|12|0|NULL|false|0");
    EXPECT_EQ(rows("sp_Types 'REYES', ' 5 ', '1,200.505', '11/21/2026 08:30:00 PM', 'true', '1.005'"),
              "REY|5|1200.505|2026-11-21 20:30:00.000|true|1.01");
    EXPECT_EQ(rows("sp_Types '', '', '', '', ''"), "|0|0|1900-01-01 00:00:00.000|false|0");
    EXPECT_EQ(rows("sp_Types 5, 5, 5, 0, 5, 5"), "5|5|5|1900-01-01 00:00:00.000|true|5");
    const ado::Result result = run("sp_Types");
    EXPECT_EQ(result.rows.columns[2].type, ado::DataType::Money);
    EXPECT_EQ(result.rows.columns[4].type, ado::DataType::Bit);
    EXPECT_EQ(result.affected, -1);
    EXPECT_EQ(error("sp_Types 'a', 'x'"), "8114: Error converting data type varchar to int.");
    EXPECT_EQ(m_hospital.sqlState("sp_Types 'a', 'x'"), "22018");
    EXPECT_EQ(error("sp_Types 'a', N'x'"), "8114: Error converting data type nvarchar to int.");
    EXPECT_EQ(error("sp_Types 'a', '1.5'"), "8114: Error converting data type varchar to int.");
    EXPECT_EQ(error("sp_Types 'a', '99999999999'"), "8114: Error converting data type varchar to int.");
    EXPECT_EQ(error("sp_Types 'a', 1, 'x'"), "8114: Error converting data type varchar to money.");
    EXPECT_EQ(error("sp_Types 'a', 1, 1, '13/45/2026'"),
              "8114: Error converting data type varchar to datetime.");
    EXPECT_EQ(error("sp_Types 'a', 1, 1, '', 'x'"), "8114: Error converting data type varchar to bit.");
    EXPECT_EQ(error("sp_Types 'a', 1, 1, '', 1, ''"), "8114: Error converting data type varchar to numeric.");
}

TEST_F(Procedure, takesAsManyArgumentsAsItDeclares) {
    constexpr int count = 70;
    QString parameters;
    QString columns;
    QString byPlace;
    QString byName;
    QString expected;
    for (int i = 1; i <= count; ++i) {
        const QString end = i < count ? QStringLiteral(", ") : QString();
        parameters += QStringLiteral("@p%1 int = -1").arg(i) + end;
        columns += QStringLiteral("@p%1 AS c%1").arg(i) + end;
        byPlace += QString::number(100 + i) + end;
        byName += QStringLiteral("@p%1 = %2").arg(count + 1 - i).arg(100 + count + 1 - i) + end;
        expected += QString::number(100 + i) + (i < count ? QStringLiteral("|") : QString());
    }
    m_hospital.install("CREATE PROCEDURE sp_Wide " + parameters + " AS SELECT " + columns);
    EXPECT_EQ(m_hospital.rows("sp_Wide " + byPlace), expected);
    EXPECT_EQ(m_hospital.rows("sp_Wide " + byName), expected);
    EXPECT_TRUE(rows("sp_Wide @p69 = 7").endsWith("|-1|7|-1"));
    m_hospital.install("CREATE PROCEDURE sp_Strict " + QString(parameters).remove(" = -1") +
                       " AS SELECT @p70 AS c");
    EXPECT_EQ(m_hospital.rows("sp_Strict " + byPlace), "170");
    EXPECT_EQ(m_hospital.error("sp_Strict " + byPlace.section(", ", 0, 68)),
              "201: Procedure or function 'sp_Strict' expects parameter '@p70', which was not supplied.");
}

TEST_F(Procedure, aCallThatDoesNotFit) {
    install("CREATE PROCEDURE sp_Two @a int, @b int AS SELECT @a + @b");
    EXPECT_EQ(error("sp_Two 1"),
              "201: Procedure or function 'sp_Two' expects parameter '@b', which was not supplied.");
    EXPECT_EQ(error("sp_Two @b = 1"),
              "201: Procedure or function 'sp_Two' expects parameter '@a', which was not supplied.");
    EXPECT_EQ(error("sp_Two 1, DEFAULT"),
              "201: Procedure or function 'sp_Two' expects parameter '@b', which was not supplied.");
    EXPECT_EQ(error("sp_Two 1, 2, 3"),
              "8144: Procedure or function sp_Two has too many arguments specified.");
    EXPECT_EQ(error("sp_Two 1, @c = 2"), "8145: @c is not a parameter for procedure sp_Two.");
    EXPECT_EQ(error("sp_Nowhere"), "2812: Could not find stored procedure 'sp_Nowhere'.");
    EXPECT_EQ(error("BILLING..sp_Nowhere 'a'"),
              "2812: Could not find stored procedure 'BILLING..sp_Nowhere'.");
    EXPECT_EQ(error("NOWHERE..sp_Two 1, 2"),
              "911: Database 'NOWHERE' does not exist. Make sure that the name is entered correctly.");
    EXPECT_EQ(error("sp_Two 'O'BRIEN', 1"), "102: Incorrect syntax near 'BRIEN'.");
    EXPECT_EQ(error("sp_Two 'a"), "105: Unclosed quotation mark after the character string 'a'.");
}

TEST_F(Procedure, controlFlow) {
    install(R"(
CREATE PROCEDURE sp_Flow @n int
AS
SET NOCOUNT ON
DECLARE @i int = 0, @sum int, @words varchar(20)
SET @sum = 0
WHILE 1 = 1
BEGIN
    SET @i = @i + 1
    IF @i > @n BREAK
    IF @i % 2 = 0 CONTINUE
    SET @sum += @i
END
IF @sum = 0
    SET @words = 'nothing'
ELSE IF @sum < 5
BEGIN
    SET @words = 'little'
END
ELSE
    SET @words = 'much'
IF @n < 0
BEGIN
    SELECT 'negative' AS answer
    RETURN 1
END
SELECT @sum AS s, @words AS w
RETURN
SELECT 'never'
)");
    EXPECT_EQ(rows("sp_Flow 0"), "0|nothing");
    EXPECT_EQ(rows("sp_Flow 4"), "4|little");
    EXPECT_EQ(rows("sp_Flow 7"), "16|much");
    EXPECT_EQ(rows("sp_Flow -1"), "negative");
}

TEST_F(Procedure, aVariableHoldsANulAmongItsLetters) {
    EXPECT_EQ(m_hospital.value("DECLARE @a varchar(5) SET @a = 'a' + CHAR(0) + 'bc' SELECT REVERSE(@a)")
                  .asText()
                  ->toStdString(),
              std::string("cb\0a", 4));
    EXPECT_EQ(*m_hospital.value("DECLARE @a varchar(5) SET @a = CHAR(0) SELECT LEN(@a)").asInteger(), 1);
}

TEST_F(Procedure, variablesAreTakenFromRows) {
    install(R"(
CREATE TABLE tbRow (Id int NOT NULL PRIMARY KEY, Name varchar(20) NULL)
INSERT INTO tbRow VALUES (1, 'one'), (2, 'two')
GO
CREATE PROCEDURE sp_Take @id int AS
DECLARE @name varchar(2), @count int = 99, @now datetime
SELECT @name = Name, @count = Id * 10 FROM tbRow WHERE Id = @id
SET @now = (SELECT GETDATE())
SELECT @name, @count, @@ROWCOUNT, @now
)");
    EXPECT_EQ(rows("sp_Take 2"), "tw|20|1|2026-11-21 08:30:00.000");
    EXPECT_EQ(rows("sp_Take 3"), "NULL|99|1|2026-11-21 08:30:00.000"); // no row, no change
    EXPECT_EQ(rows("DECLARE @n int SELECT @n = ISNULL(MAX(Id), 0) + 1 FROM tbRow SELECT @n"), "3");
    EXPECT_EQ(rows("DECLARE @n int = 5 SELECT @n = ISNULL(MAX(Id), @n) FROM tbRow WHERE Id > 9 SELECT @n"),
              "5");
    EXPECT_EQ(error("DECLARE @n int SELECT @n = 1, Id FROM tbRow").left(4), "141:");
    EXPECT_EQ(error("DECLARE @s varchar(99) = '' SELECT @s = @s + Name FROM tbRow").left(6), "40000:");
}

TEST_F(Procedure, callsAnother) {
    install(R"(
CREATE TABLE tbLog (Id int IDENTITY(1,1) NOT NULL PRIMARY KEY, Words varchar(50) NOT NULL)
GO
CREATE PROCEDURE sp_Inner @words varchar(50) AS
SET NOCOUNT ON
INSERT INTO tbLog (Words) VALUES (@words)
SELECT @words AS said
GO
CREATE PROCEDURE sp_Outer @name varchar(20) AS
DECLARE @words varchar(50)
SET @words = 'hello ' + @name
EXEC sp_Inner @words
EXEC NUCLEAR..sp_Inner @words = 'again'
GO
CREATE PROCEDURE sp_Endless AS EXEC sp_Endless
GO
CREATE PROCEDURE sp_Missing AS EXEC sp_NotThere
GO
USE BILLING
GO
CREATE PROCEDURE sp_Across AS EXEC NUCLEAR..sp_Outer 'there'
)");
    EXPECT_EQ(rows("sp_Outer 'REYES'"), "again");
    EXPECT_EQ(rows("SELECT Words FROM tbLog ORDER BY Id"), "hello REYES;again");
    EXPECT_EQ(rows("BILLING..sp_Across"), "again");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbLog"), "4");
    EXPECT_EQ(error("sp_Endless"),
              "217: Maximum stored procedure, function, trigger, or view nesting level exceeded (limit 32).");
    EXPECT_EQ(error("sp_Missing"), "2812: Could not find stored procedure 'sp_NotThere'.");
    EXPECT_EQ(m_hospital.provider().check().join('|'),
              "NUCLEAR..sp_Missing: Could not find stored procedure 'sp_NotThere'.");
}

TEST_F(Procedure, countsItsRowsUnlessToldNotTo) {
    install(R"(
CREATE TABLE tbCount (Id int NOT NULL PRIMARY KEY)
GO
CREATE PROCEDURE sp_Counts AS INSERT INTO tbCount VALUES (1), (2)
GO
CREATE PROCEDURE sp_Quiet AS SET NOCOUNT ON DELETE FROM tbCount
)");
    EXPECT_EQ(run("sp_Counts").affected, 2);
    EXPECT_EQ(run("sp_Quiet").affected, -1);
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbCount"), "0");
}

TEST_F(Procedure, raisesItsOwnErrors) {
    install(R"(
CREATE TABLE tbOnce (Id int NOT NULL PRIMARY KEY)
GO
CREATE PROCEDURE sp_Raise @how int AS
SET NOCOUNT ON
INSERT INTO tbOnce VALUES (@how)
IF @how = 1 THROW 51001, 'The slip is closed.', 1
IF @how = 2 RAISERROR('The bill is closed.', 16, 1)
IF @how = 3 RAISERROR('Only a remark.', 10, 1)
IF @how = 4
BEGIN
    DECLARE @words varchar(50) = 'Joined ' + CAST(@how AS varchar);
    THROW 50004, @words, 1
END
IF @how = 5 THROW 1, 'x', 1
SELECT 'done'
)");
    EXPECT_EQ(error("sp_Raise 1"), "51001: The slip is closed.");
    EXPECT_EQ(m_hospital.sqlState("sp_Raise 1"), "42000");
    EXPECT_EQ(error("sp_Raise 2"), "50000: The bill is closed.");
    EXPECT_EQ(rows("sp_Raise 3"), "done");
    EXPECT_EQ(error("sp_Raise 4"), "50004: Joined 4");
    EXPECT_EQ(error("sp_Raise 5").left(6), "35100:");
    EXPECT_EQ(rows("SELECT Id FROM tbOnce"), "3"); // what the others wrote is undone
}

TEST_F(Procedure, insideATransactionOnlyTheFailedStatementIsUndone) {
    install(R"(
CREATE TABLE tbStep (Id int NOT NULL PRIMARY KEY)
GO
CREATE PROCEDURE sp_Steps AS
INSERT INTO tbStep VALUES (1)
INSERT INTO tbStep VALUES (1)
)");
    m_hospital.provider().begin();
    EXPECT_EQ(error("sp_Steps").left(5), "2627:");
    EXPECT_TRUE(m_hospital.provider().inTransaction());
    m_hospital.provider().commit();
    EXPECT_EQ(rows("SELECT Id FROM tbStep"), "1");
}

TEST_F(Procedure, aCallGoesToWhatStandsThereNow) {
    install("CREATE PROCEDURE sp_Inner AS SELECT 1\nGO\nCREATE PROCEDURE sp_Outer AS EXEC sp_Inner");
    EXPECT_EQ(rows("sp_Outer"), "1");
    run("ALTER PROCEDURE sp_Inner AS SELECT 2");
    EXPECT_EQ(rows("sp_Outer"), "2");
    run("DROP PROCEDURE sp_Inner");
    EXPECT_EQ(error("sp_Outer"), "2812: Could not find stored procedure 'sp_Inner'.");
    run("CREATE PROCEDURE sp_Inner AS SELECT 3");
    EXPECT_EQ(error("DECLARE @i int = 0 WHILE @i < 2 BEGIN EXEC sp_Inner IF @i = 0 DROP PROCEDURE sp_Inner "
                    "SET @i = @i + "
                    "1 END"),
              "2812: Could not find stored procedure 'sp_Inner'.");
}

/// Simple tests are decided without SQLite, all others by it; the value of a CASE always comes from SQLite.
TEST_F(Procedure, aTestHoldsAsSQLiteSays) {
    const std::string values =
        "DECLARE @t varchar(10), @o nvarchar(10), @c char(3), @none varchar(10), @i int, @big bigint, @bit "
        "bit, "
        "@noNumber int, @m money, @f float, @d datetime, @eight varchar(10) "
        "SET @t = 'Da' SET @o = 'd\u00c1 ' SET @c = 'D' SET @i = -2 SET @big = 5000000000 SET @bit = 1 "
        "SET @m = 2.5 SET @f = 2 SET @d = '2026-11-21' SET @eight = '8' ";
    int asked = 0;
    int held = 0;
    const auto check = [&](const std::string& condition) {
        const QString answer = rows((values + "IF " + condition + " SELECT 1 ELSE SELECT 0").c_str());
        const QString value = rows((values + "SELECT CASE WHEN " + condition + " THEN 1 ELSE 0 END").c_str());
        EXPECT_EQ(answer, value) << condition;
        ++asked;
        held += answer == u"1" ? 1 : 0;
    };
    const std::vector<std::string> texts{"@t", "@o", "@c", "@none", "@eight", "'DA  '", "''", "'10'", "N'd'"};
    const std::vector<std::string> numbers{"@i", "@big", "@bit", "@noNumber",  "@m",
                                           "@f", "2",    "0",    "5000000000", "@@ROWCOUNT"};
    const std::vector<std::string> moments{"@d", "'11/21/2026'", "'11/21/2026 10:00'"};
    for (const char* sign : {"=", "<>", "!=", "<", "<=", ">", ">=", "!<", "!>"}) {
        for (const auto& sides : {texts, numbers, moments}) {
            for (const std::string& left : sides) {
                for (const std::string& right : sides)
                    check(left + ' ' + sign + ' ' + right);
            }
        }
    }
    check("@eight < 10");
    EXPECT_GT(held, asked / 4);
    EXPECT_LT(held, asked * 3 / 4);
    for (const char* condition :
         {"@t = 'da' AND @i < 0", "@t = 'da' AND @i > 0", "@t = 'x' OR @i < 0", "@t = 'x' OR @i > 0",
          "@none = '' OR @t = 'da'", "@none = '' AND @t = 'da'", "NOT @none = ''",
          "NOT (@t = 'x' AND @none = '')", "@t LIKE 'd%' AND @i = -2", "@none IS NULL AND @t = 'da'"})
        check(condition);
}

TEST_F(Procedure, whatStandsBehindAndIsAskedOnlyWhereItDecides) {
    EXPECT_EQ(rows("DECLARE @zero int SET @zero = 0 "
                   "IF EXISTS (SELECT 1 WHERE 1 = 0) AND 1 / @zero = 1 SELECT 'held' ELSE SELECT 'not'"),
              "not");
    EXPECT_EQ(error("DECLARE @zero int SET @zero = 0 "
                    "IF EXISTS (SELECT 1) AND 1 / @zero = 1 SELECT 'held' ELSE SELECT 'not'"),
              "8134: Divide by zero error encountered.");
}

TEST_F(Procedure, functionsGiveValues) {
    install(R"(
CREATE TABLE tbRate (Id varchar(10) NOT NULL PRIMARY KEY, Rate money NULL)
INSERT INTO tbRate VALUES ('E1', 100), ('E2', NULL)
GO
CREATE FUNCTION fnRate (@id varchar(10), @stat bit = 0) RETURNS money
AS
BEGIN
    DECLARE @rate money
    SELECT @rate = Rate FROM tbRate WHERE Id = @id
    IF @stat = 1
        SET @rate = @rate * 1.25
    RETURN ISNULL(@rate, 0)
END
GO
CREATE FUNCTION fnFactorial (@n int) RETURNS int AS
BEGIN
    IF @n <= 1 RETURN 1
    RETURN @n * dbo.fnFactorial(@n - 1)
END
GO
CREATE FUNCTION fnAge (@born datetime) RETURNS varchar(3) AS
BEGIN
    RETURN CONVERT(varchar(10), DATEDIFF(year, @born, GETDATE())) + ' years'
END
)");
    EXPECT_EQ(rows("SELECT Id, dbo.fnRate(Id, 1) / 2, dbo.fnRate('E1', '0') FROM tbRate ORDER BY Id"),
              "E1|62.5|100;E2|0|100");
    EXPECT_EQ(rows("SELECT Id FROM tbRate WHERE NUCLEAR.dbo.fnRate(Id, 0) > 50"), "E1");
    EXPECT_EQ(rows("SELECT dbo.fnFactorial(6)"), "720");
    EXPECT_EQ(rows("SELECT dbo.fnAge('11/21/1980')"), "46 ");
    EXPECT_EQ(m_hospital.run("SELECT dbo.fnRate('E1', 0)").rows.columns[0].type, ado::DataType::Money);
    EXPECT_EQ(error("SELECT dbo.fnFactorial(50)"),
              "217: Maximum stored procedure, function, trigger, or view nesting level exceeded (limit 32).");
    EXPECT_EQ(
        error("SELECT dbo.fnRate('E1')"),
        "313: An insufficient number of arguments were supplied for the procedure or function dbo.fnRate.");
    EXPECT_EQ(error("SELECT dbo.fnRate('E1', 0, 0)"),
              "8144: Procedure or function dbo.fnRate has too many arguments specified.");
    EXPECT_EQ(error("SELECT dbo.fnFactorial('x')"),
              "245: Conversion failed when converting the varchar value 'x' to data type int.");
    EXPECT_EQ(error("fnRate 'E1', 0"), "2812: Could not find stored procedure 'fnRate'.");
    EXPECT_EQ(rows("DECLARE @r money SET @r = dbo.fnRate('E1', 1) IF dbo.fnRate('E1', 0) = 100 SELECT @r"),
              "125");
    EXPECT_EQ(rows("UPDATE tbRate SET Rate = dbo.fnRate(Id, 1) + 1 SELECT Rate FROM tbRate ORDER BY Id"),
              "126;1");
}

TEST_F(Procedure, functionsThatCallEachOtherMayChange) {
    install("CREATE FUNCTION fnInner (@a int) RETURNS int AS BEGIN RETURN @a + 1 END\nGO\n"
            "CREATE FUNCTION fnOuter (@a int) RETURNS int AS BEGIN RETURN dbo.fnInner(@a) * 10 END");
    EXPECT_EQ(rows("SELECT dbo.fnOuter(1)"), "20");
    install("ALTER FUNCTION fnInner (@a int) RETURNS int AS BEGIN RETURN @a + 2 END");
    EXPECT_EQ(rows("SELECT dbo.fnOuter(1)"), "30");
    install("DROP FUNCTION fnInner");
    EXPECT_EQ(error("SELECT dbo.fnOuter(1)").left(5), "4121:");
    install("CREATE FUNCTION fnInner (@a int) RETURNS money AS BEGIN RETURN @a + 0.5 END");
    EXPECT_EQ(rows("SELECT dbo.fnOuter(1)"), "15");
}

TEST_F(Procedure, functionsDoNotWrite) {
    install(R"(
CREATE TABLE tbNo (Id int NOT NULL PRIMARY KEY)
GO
CREATE FUNCTION fnWrites () RETURNS int AS BEGIN INSERT INTO tbNo VALUES (1) RETURN 1 END
GO
CREATE FUNCTION fnShows () RETURNS int AS BEGIN SELECT 1 RETURN 1 END
)");
    EXPECT_EQ(error("SELECT dbo.fnWrites()"),
              "443: Invalid use of a side-effecting operator within a function.");
    EXPECT_EQ(error("SELECT dbo.fnShows()"),
              "444: Select statements included within a function cannot return data to a client.");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbNo"), "0");
}

TEST_F(Procedure, thePiecesOfABatchShareTheirVariables) {
    EXPECT_EQ(rows("DECLARE @a varchar(10), @b int SET @a = 'x' SET @b = 3 IF @b > 2 AND @a = 'X' SELECT @a "
                   "+ CAST(@b AS varchar)"),
              "x3");
    EXPECT_EQ(rows("SELECT 1 AS a SELECT 2 AS b"), "2"); // the last result
    EXPECT_EQ(rows("DECLARE @m money = 10.12345 SELECT @m"), "10.1235");
    EXPECT_EQ(rows("DECLARE @d decimal(6,1) = 1.26 SELECT @d"), "1.3");
    EXPECT_EQ(rows("PRINT 'hello' SELECT 1"), "1");
    EXPECT_EQ(rows("SET NOCOUNT ON SET XACT_ABORT ON SELECT 1"), "1");
}

TEST_F(Procedure, theSameTextWithOtherValuesIsReadOnce) {
    install("CREATE TABLE tbMany (Id int NOT NULL PRIMARY KEY, Name varchar(20) NOT NULL)");
    for (int i = 0; i < 50; ++i)
        m_hospital.run(QStringLiteral("INSERT INTO tbMany VALUES (%1, 'name %1')").arg(i));
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(m_hospital.rows(QStringLiteral("SELECT Name FROM tbMany WHERE Id = '%1'").arg(i)),
                  QStringLiteral("name %1").arg(i));
        EXPECT_EQ(m_hospital.rows(QStringLiteral("SELECT Name AS 'n' FROM tbMany WHERE Id = %1").arg(i)),
                  QStringLiteral("name %1").arg(i));
        EXPECT_EQ(
            m_hospital.rows(QStringLiteral("SELECT TOP %1 Id FROM tbMany ORDER BY 1").arg(i + 1)).count(u';'),
            i);
    }
}

} // namespace
