#include "platform/base/TestDoors.h"
#include "tests/server/engine/Hospital.h"

#include "platform/base/DateTime.h"
#include "tests/support/core/DesksNumbers.h"

#include <sqlite3.h>

namespace {

using tests::Hospital;

class Write : public testing::Test {
  protected:
    Write() {
        m_hospital.install(QStringLiteral(R"(
CREATE TABLE tbAll (
    Id int IDENTITY(1,1) NOT NULL,
    Name varchar(10) NOT NULL DEFAULT '',
    National nvarchar(10) NULL,
    Code char(3) NULL,
    Notes text NULL,
    Small smallint NULL,
    Tiny tinyint NULL,
    Whole int NULL DEFAULT 7,
    Large bigint NULL,
    Flag bit NOT NULL DEFAULT 0,
    Price money NULL,
    Rate decimal(10,2) NULL,
    Weight float NULL,
    Born date NULL,
    Stamp datetime NOT NULL DEFAULT GETDATE(),
    Host varchar(20) NULL DEFAULT HOST_NAME(),
    CONSTRAINT PK_All PRIMARY KEY (Id))
CREATE TABLE tbKey (A varchar(5) NOT NULL, B int NOT NULL, C varchar(20) NULL, CONSTRAINT PK_Key PRIMARY KEY (A, B))
CREATE TABLE tbUnique (A varchar(5) NOT NULL PRIMARY KEY, B varchar(5) NULL UNIQUE)
GO
INSERT INTO tbKey VALUES ('a', 1, 'one'), ('a', 2, 'two'), ('b', 1, NULL)
)"));
    }
    QString rows(const char* text) { return m_hospital.rows(QString::fromUtf8(text)); }
    QString error(const char* text) { return m_hospital.error(QString::fromUtf8(text)); }
    ado::Result run(const char* text) { return m_hospital.run(QString::fromUtf8(text)); }
    base::FixedClock m_clock{*base::makeDateTime({2026, 11, 21}, {8, 30, 5, 7})};
    Hospital m_hospital;
};

TEST_F(Write, anAmountIsKeptAsItIsOnADeskWithACommaToo) {
    const tests::DesksNumbers german("de_DE.UTF-8");
    run("CREATE TABLE tbAmount (Id int NOT NULL PRIMARY KEY, Price money NULL, Rate float NOT NULL DEFAULT "
        "0.25)");
    run("INSERT INTO tbAmount (Id, Price) VALUES (1, 100.50), (2, '100.50'), (3, 1.005e2)");
    EXPECT_EQ(rows("SELECT * FROM tbAmount"), "1|100.5|0.25;2|100.5|0.25;3|100.5|0.25");
    EXPECT_EQ(rows("SELECT Id FROM tbAmount WHERE Price = '100.5' AND Price = 100.5 AND Price < 100.75"),
              "1;2;3");
    EXPECT_EQ(rows("SELECT CONVERT(varchar, SUM(Price), 1) FROM tbAmount"), "301.50");
}

TEST_F(Write, aMarkOfByteOrderAtTheFrontIsAText) {
    const QString marked = QStringLiteral("\uFEFFREYES");
    const base::Value read = m_hospital.value(QStringLiteral("SELECT '%1'").arg(marked));
    EXPECT_EQ(read, base::Value(marked));
    EXPECT_EQ(m_hospital.value(QStringLiteral("SELECT LEN('%1')").arg(*read.asText())), base::Value(6));
    EXPECT_EQ(m_hospital.value(QStringLiteral("SELECT '\uFEFF'")), base::Value(QStringLiteral("\uFEFF")));
}

TEST_F(Write, everyTypeComesBackAsItWas) {
    run("INSERT INTO tbAll (Name, National, Code, Notes, Small, Tiny, Whole, Large, Flag, Price, Rate, "
        "Weight, Born, Stamp, Host) "
        "VALUES ('REYES', N'Ñandú', 'abc', 'a\nlong text', '-5', 255, '70000', 9000000000, 'true', "
        "'1,234.56789', 12.345, '1.5e3', "
        "'11/21/2026 08:30', '11/21/2026 08:30:15 PM', NULL)");
    EXPECT_EQ(
        rows("SELECT * FROM tbAll"),
        QString::fromUtf8("1|REYES|Ñandú|abc|a\nlong text|-5|255|70000|9000000000|true|1234.5679|12.35|1500|"
                          "2026-11-21 00:00:00.000|2026-11-21 20:30:15.000|NULL"));
    const ado::Result result = run("SELECT * FROM tbAll");
    const ado::DataType types[] = {
        ado::DataType::Integer, ado::DataType::Text,     ado::DataType::Text,     ado::DataType::Text,
        ado::DataType::Text,    ado::DataType::Integer,  ado::DataType::Integer,  ado::DataType::Integer,
        ado::DataType::Integer, ado::DataType::Bit,      ado::DataType::Money,    ado::DataType::Double,
        ado::DataType::Double,  ado::DataType::DateTime, ado::DataType::DateTime, ado::DataType::Text};
    for (std::size_t i = 0; i < std::size(types); ++i)
        EXPECT_EQ(int(result.rows.columns[i].type), int(types[i])) << i;
    EXPECT_TRUE(result.rows.at(0, 9).asBool());
    EXPECT_TRUE(result.rows.at(0, 10).asDouble());
    EXPECT_TRUE(result.rows.at(0, 14).asDateTime());
}

TEST_F(Write, whatIsLeftOutTakesItsDefault) {
    EXPECT_EQ(run("INSERT INTO tbAll (Name) VALUES ('x')").affected, 1);
    EXPECT_EQ(rows("SELECT Name, Whole, Flag, Price, Stamp, Host FROM tbAll"),
              "x|7|false|NULL|2026-11-21 08:30:05.007|WARD1");
    run("INSERT INTO tbAll DEFAULT VALUES");
    run("INSERT INTO tbAll (Name, Whole, Stamp) VALUES (DEFAULT, NULL, DEFAULT)");
    EXPECT_EQ(rows("SELECT Name, Whole, Stamp FROM tbAll WHERE Id > 1 ORDER BY Id"),
              "|7|2026-11-21 08:30:05.007;|NULL|2026-11-21 08:30:05.007");
    run("UPDATE tbAll SET Whole = DEFAULT WHERE Id = 3");
    EXPECT_EQ(rows("SELECT Whole FROM tbAll WHERE Id = 3"), "7");
}

TEST_F(Write, identityCountsAndIsNeverUsedAgain) {
    EXPECT_EQ(
        rows("INSERT INTO tbAll (Name) VALUES ('a'), ('b') SELECT SCOPE_IDENTITY(), @@IDENTITY, @@ROWCOUNT"),
        "2|2|2");
    run("DELETE FROM tbAll WHERE Id = 2");
    run("INSERT INTO tbAll (Name) VALUES ('c')");
    EXPECT_EQ(rows("SELECT Id FROM tbAll ORDER BY Id"), "1;3");
    EXPECT_EQ(error("INSERT INTO tbAll (Id, Name) VALUES (9, 'd')"),
              "544: Cannot insert explicit value for identity column in table 'tbAll' when IDENTITY_INSERT "
              "is set to OFF.");
    run("SET IDENTITY_INSERT tbAll ON");
    run("INSERT INTO tbAll (Id, Name) VALUES (9, 'd')");
    run("SET IDENTITY_INSERT tbAll OFF");
    run("INSERT INTO tbAll (Name) VALUES ('e')");
    EXPECT_EQ(rows("SELECT Id FROM tbAll ORDER BY Id"), "1;3;9;10");
    EXPECT_EQ(error("UPDATE tbAll SET Id = 5"), "8102: Cannot update identity column 'Id'.");
}

TEST_F(Write, textsThatAreTooLong) {
    EXPECT_EQ(error("INSERT INTO tbAll (Name) VALUES ('12345678901')"),
              "2628: String or binary data would be truncated in table 'NUCLEAR.dbo.tbAll', column 'Name'. "
              "Truncated value: "
              "'1234567890'.");
    EXPECT_EQ(m_hospital.sqlState("UPDATE tbKey SET A = 'abcdef'"), "22001");
    run("INSERT INTO tbAll (Name) VALUES ('1234567890   ')"); // blanks are cut without a word
    EXPECT_EQ(rows("SELECT '[' + Name + ']' FROM tbAll"), "[1234567890]");
    run("INSERT INTO tbAll (Name) VALUES (N'ÑÑÑÑÑÑÑÑÑÑ')"); // characters count, not bytes
    EXPECT_EQ(error("DECLARE @x varchar(50) = 'abcdef' INSERT INTO tbKey VALUES (@x, 1, NULL)"),
              "2628: String or binary data would be truncated in table 'NUCLEAR.dbo.tbKey', column 'A'. "
              "Truncated value: 'abcde'.");
    EXPECT_EQ(error("DECLARE @x varchar(5) = 'abcdef' INSERT INTO tbKey VALUES (@x, 1, NULL)"), "");
}

TEST_F(Write, keysAndNulls) {
    EXPECT_EQ(error("INSERT INTO tbKey VALUES ('A', 1, 'again')"),
              "2627: Violation of PRIMARY KEY constraint 'PK_Key'. Cannot insert duplicate key in object "
              "'dbo.tbKey'.");
    EXPECT_EQ(m_hospital.sqlState("INSERT INTO tbKey VALUES ('A', 1, 'again')"), "23000");
    EXPECT_EQ(error("UPDATE tbKey SET B = 1 WHERE A = 'a'"),
              "2627: Violation of PRIMARY KEY constraint 'PK_Key'. Cannot insert duplicate key in object "
              "'dbo.tbKey'.");
    EXPECT_EQ(error("INSERT INTO tbKey (A, B) VALUES (NULL, 1)"),
              "515: Cannot insert the value NULL into column 'A', table 'NUCLEAR.dbo.tbKey'; column does not "
              "allow nulls. The "
              "statement has been terminated.");
    EXPECT_EQ(m_hospital.sqlState("INSERT INTO tbKey (A) VALUES ('x')"), "23000");
    run("INSERT INTO tbUnique VALUES ('1', 'x')");
    EXPECT_EQ(
        error("INSERT INTO tbUnique VALUES ('2', 'X')"),
        "2601: Cannot insert duplicate key row in object 'dbo.tbUnique' with a unique index on column 'B'.");
    EXPECT_EQ(error("INSERT INTO tbUnique VALUES ('1', 'y')").left(75),
              "2627: Violation of PRIMARY KEY constraint 'PK_tbUnique'. Cannot insert dupl");
}

TEST_F(Write, columnsAndValuesMustMeet) {
    EXPECT_EQ(error("INSERT INTO tbKey VALUES ('x', 1)"),
              "213: Column name or number of supplied values does not match table definition.");
    EXPECT_EQ(error("INSERT INTO tbKey (A, B) VALUES ('x', 1, 2)").left(70),
              "110: There are fewer columns in the INSERT statement than values speci");
    EXPECT_EQ(error("INSERT INTO tbKey (A, B) VALUES ('x')").left(68),
              "109: There are more columns in the INSERT statement than values spec");
    EXPECT_EQ(error("INSERT INTO tbKey (A, X) VALUES ('x', 1)"), "207: Invalid column name 'X'.");
    EXPECT_EQ(error("INSERT INTO tbKey (A, a) VALUES ('x', 1)").left(49),
              "264: The column name 'a' is specified more than o");
    EXPECT_EQ(error("UPDATE tbKey SET X = 1"), "207: Invalid column name 'X'.");
    EXPECT_EQ(error("DELETE FROM tbNowhere"), "208: Invalid object name 'tbNowhere'.");
}

TEST_F(Write, insertsWhatAQueryFinds) {
    EXPECT_EQ(run("INSERT INTO tbAll (Name, Whole, Price) SELECT A + 'x', CAST(B AS varchar), '5' FROM tbKey "
                  "WHERE C IS NOT NULL")
                  .affected,
              2);
    EXPECT_EQ(rows("SELECT Name, Whole, Price FROM tbAll ORDER BY Id"), "ax|1|5;ax|2|5");
    EXPECT_EQ(rows("SELECT Stamp FROM tbAll WHERE Id = 1"), "2026-11-21 08:30:05.007");
    EXPECT_EQ(run("INSERT tbKey (A, B) SELECT TOP 1 'z', Id FROM tbAll ORDER BY Id DESC").affected, 1);
    EXPECT_EQ(rows("SELECT B FROM tbKey WHERE A = 'z'"), "2");
    EXPECT_EQ(run("INSERT INTO tbKey (A, B) SELECT 'u', 1 UNION ALL SELECT 'v', 2").affected, 2);
}

TEST_F(Write, updates) {
    EXPECT_EQ(run("UPDATE tbKey SET C = 'x', B = B + 10 WHERE A = 'A'").affected, 2);
    EXPECT_EQ(rows("SELECT * FROM tbKey ORDER BY A, B"), "a|11|x;a|12|x;b|1|NULL");
    EXPECT_EQ(run("UPDATE NUCLEAR..tbKey SET tbKey.C = tbKey.A + '!' WHERE C IS NULL").affected, 1);
    EXPECT_EQ(rows("SELECT C FROM tbKey WHERE A = 'b'"), "b!");
    EXPECT_EQ(run("UPDATE tbKey SET B += 1 WHERE A = 'none'").affected, 0);
    EXPECT_EQ(run("UPDATE tbKey SET C = (SELECT MAX(B) FROM tbKey k WHERE k.A = tbKey.A)").affected, 3);
    EXPECT_EQ(rows("SELECT C FROM tbKey ORDER BY A, B"), "12;12;1");
    EXPECT_EQ(rows("UPDATE tbKey SET C = NULL SELECT @@ROWCOUNT"), "3");
}

TEST_F(Write, updatesAndDeletesThroughAJoin) {
    run("INSERT INTO tbUnique VALUES ('a', 'p'), ('b', 'q')");
    EXPECT_EQ(run("UPDATE k SET C = u.B + CAST(k.B AS varchar) FROM tbKey k INNER JOIN tbUnique u ON u.A = "
                  "k.A WHERE u.B <> 'q'")
                  .affected,
              2);
    EXPECT_EQ(rows("SELECT C FROM tbKey ORDER BY A, B"), "p1;p2;NULL");
    EXPECT_EQ(run("UPDATE tbKey SET C = 'both' FROM tbKey JOIN tbUnique u ON u.A = tbKey.A").affected, 3);
    EXPECT_EQ(run("DELETE k FROM tbKey k JOIN tbUnique u ON u.A = k.A WHERE u.B = 'p'").affected, 2);
    EXPECT_EQ(rows("SELECT A FROM tbKey"), "b");
    EXPECT_EQ(run("TRUNCATE TABLE tbKey").affected, 1);
}

TEST_F(Write, aViewOverOneTableTakesWhatItsTableTakes) {
    m_hospital.install(
        QStringLiteral("CREATE VIEW vwMine AS SELECT Id, Name, Host FROM tbAll WHERE Host = HOST_NAME()"));
    const auto other = m_hospital.open(QStringLiteral("WARD2"));
    run("INSERT INTO vwMine (Name) VALUES ('mine')");
    other->execute(QStringLiteral("INSERT INTO vwMine (Name) VALUES ('theirs')"));
    EXPECT_EQ(rows("SELECT Name FROM vwMine"), "mine");
    EXPECT_EQ(rows("SELECT Name FROM tbAll ORDER BY Id"), "mine;theirs");
    EXPECT_EQ(run("UPDATE vwMine SET Name = 'changed'").affected, 1);
    EXPECT_EQ(run("delete from vwMine").affected, 1);
    EXPECT_EQ(rows("SELECT Name FROM tbAll"), "theirs");
    m_hospital.install(QStringLiteral("CREATE VIEW vwCount AS SELECT COUNT(*) AS n FROM tbAll"));
    EXPECT_EQ(rows("SELECT n + 1 FROM vwCount"), "2");
    EXPECT_EQ(error("DELETE FROM vwCount").left(60),
              "4405: View or function 'vwCount' is not updatable because th");
}

TEST_F(Write, aStatementThatFailsHalfwayLeavesNothing) {
    run("INSERT INTO tbAll (Name) VALUES ('1'), ('2'), ('x'), ('4')");
    EXPECT_EQ(error("UPDATE tbAll SET Whole = Name"),
              "245: Conversion failed when converting the varchar value 'x' to data type int.");
    EXPECT_EQ(rows("SELECT DISTINCT Whole FROM tbAll"), "7");
    m_hospital.provider().begin();
    run("UPDATE tbAll SET Notes = 'kept'");
    EXPECT_EQ(error("UPDATE tbAll SET Whole = Name").left(4), "245:");
    EXPECT_EQ(error("INSERT INTO tbKey SELECT 'n', CAST(Name AS int), NULL FROM tbAll ORDER BY Id").left(4),
              "245:");
    EXPECT_EQ(error("INSERT INTO tbKey VALUES ('m', 1, NULL), ('a', 1, NULL)").left(5), "2627:");
    EXPECT_TRUE(m_hospital.provider().inTransaction());
    m_hospital.provider().commit();
    EXPECT_EQ(rows("SELECT DISTINCT Whole, Notes FROM tbAll"), "7|kept");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbKey"), "3");
}

TEST_F(Write, aBatchThatFailsOutsideOfATransactionLeavesNothing) {
    EXPECT_EQ(
        error("INSERT INTO tbKey VALUES ('n', 1, NULL) INSERT INTO tbKey VALUES ('a', 1, NULL)").left(5),
        "2627:");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbKey"), "3");
    EXPECT_FALSE(m_hospital.provider().inTransaction());
}

TEST_F(Write, valuesThatDoNotConvert) {
    EXPECT_EQ(error("INSERT INTO tbAll (Whole) VALUES ('abc')"),
              "245: Conversion failed when converting the varchar value 'abc' to data type int.");
    EXPECT_EQ(m_hospital.sqlState("INSERT INTO tbAll (Whole) VALUES ('abc')"), "22018");
    EXPECT_EQ(error("INSERT INTO tbAll (Stamp) VALUES ('yesterday')"),
              "241: Conversion failed when converting date and/or time from character string.");
    EXPECT_EQ(error("INSERT INTO tbAll (Stamp) VALUES ('02/30/2026')"),
              "242: The conversion of a varchar data type to a datetime data type resulted in an "
              "out-of-range value.");
    EXPECT_EQ(error("INSERT INTO tbAll (Price) VALUES ('abc')"),
              "235: Cannot convert a char value to money. The char value has incorrect syntax.");
    EXPECT_EQ(error("INSERT INTO tbAll (Weight) VALUES ('abc')"),
              "8114: Error converting data type varchar to float.");
    EXPECT_EQ(error("INSERT INTO tbAll (Rate) VALUES ('')"),
              "8114: Error converting data type varchar to numeric.");
    EXPECT_EQ(error("INSERT INTO tbAll (Flag) VALUES ('perhaps')"),
              "245: Conversion failed when converting the varchar value 'perhaps' to data type bit.");
    EXPECT_EQ(error("INSERT INTO tbAll (Whole) VALUES ('99999999999')"),
              "248: The conversion of the varchar value '99999999999' overflowed an int column.");
    EXPECT_EQ(error("INSERT INTO tbAll (Tiny) VALUES ('300')"),
              "248: The conversion of the varchar value '300' overflowed an tinyint column.");
    EXPECT_EQ(error("INSERT INTO tbAll (Tiny) VALUES (300)"),
              "8115: Arithmetic overflow error converting expression to data type tinyint.");
    EXPECT_EQ(error("INSERT INTO tbAll (Whole) VALUES (9000000000)"),
              "8115: Arithmetic overflow error converting expression to data type int.");
    EXPECT_EQ(error("SELECT Id FROM tbAll WHERE Name = 5"), "");
    run("INSERT INTO tbAll (Name) VALUES ('abc')");
    EXPECT_EQ(error("SELECT Id FROM tbAll WHERE Name = 5"),
              "245: Conversion failed when converting the varchar value 'abc' to data type int.");
}

TEST_F(Write, emptyTextsAreZeroAndTheYear1900) {
    run("INSERT INTO tbAll (Whole, Price, Weight, Flag, Stamp) VALUES ('', '', '', '', '')");
    EXPECT_EQ(rows("SELECT Whole, Price, Weight, Flag, Stamp FROM tbAll"),
              "0|0|0|false|1900-01-01 00:00:00.000");
}

TEST_F(Write, theFileHoldsWhatItsColumnsSay) {
    run("INSERT INTO tbAll (Name, Whole, Price, Stamp) VALUES (5, 5, 5, '11/21/2026')");
    sqlite3_stmt* statement = nullptr;
    const QByteArray sql = "SELECT typeof(Name), typeof(Whole), typeof(Price), Stamp FROM " +
                           engine::sqliteName(QStringLiteral("Nuclear..tbAll")).toUtf8();
    ASSERT_EQ(sqlite3_prepare_v2(m_hospital.provider().handle(), sql.constData(), -1, &statement, nullptr),
              SQLITE_OK);
    ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)), "text");
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)), "integer");
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, 2)), "real");
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, 3)), "2026-11-21 00:00:00.000");
    sqlite3_finalize(statement);
}

TEST_F(Write, aWriteBackFindsItsRow) {
    run("INSERT INTO tbAll (Name, Price, Stamp) VALUES ('x', 12.5, '2026-11-21T08:30:15.123')");
    const char* update = "UPDATE NUCLEAR..tbAll SET [Name] = 'y' WHERE [Id] = 1 AND [Name] = 'x' AND [Price] "
                         "= 12.5 AND [Stamp] = "
                         "'2026-11-21T08:30:15.123' AND [National] IS NULL";
    EXPECT_EQ(run(update).affected, 1);
    EXPECT_EQ(run(update).affected, 0);
}

} // namespace
