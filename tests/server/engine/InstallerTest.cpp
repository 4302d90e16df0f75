#include "tests/server/engine/Hospital.h"

namespace {

using tests::Hospital;

QString installError(Hospital& hospital, const char* script) {
    try {
        hospital.install(QString::fromUtf8(script));
    } catch (const base::RunTimeError& error) {
        return QStringLiteral("%1: %2").arg(error.number()).arg(error.description());
    }
    return {};
}

TEST(Installer, runsAScriptThatIsMeantToBeRunAgain) {
    Hospital hospital;
    const char* script =
        "\xEF\xBB\xBF-- a kit\r\nUSE STATION\r\nGO\r\nIF OBJECT_ID('tbOne') IS NULL\r\nBEGIN\r\n"
        "    CREATE TABLE tbOne (Id int NOT NULL PRIMARY KEY, Name varchar(20) NOT NULL DEFAULT '')\r\n"
        "    CREATE INDEX IX_One ON tbOne (Name)\r\nEND\r\n  go  \r\n\r\nGO\r\n"
        "IF NOT EXISTS (SELECT 1 FROM tbOne WHERE Id = 1)\r\n    INSERT INTO tbOne VALUES (1, 'GO')\r\nGO\r\n"
        "CREATE OR ALTER PROCEDURE sp_One AS SELECT Name FROM tbOne\r\nGO\r\n"
        "CREATE OR ALTER VIEW vwOne AS SELECT Name FROM tbOne\r\nGO\r\n"
        "CREATE OR ALTER FUNCTION fnOne (@a int) RETURNS int AS BEGIN RETURN @a + 1 END\r\n";
    EXPECT_EQ(installError(hospital, script), "");
    EXPECT_EQ(installError(hospital, script), "");
    EXPECT_EQ(hospital.provider().database(), "NUCLEAR");
    EXPECT_EQ(hospital.rows("STATION..sp_One"), "GO");
    EXPECT_EQ(hospital.rows("SELECT Name, STATION.dbo.fnOne(1) FROM STATION..vwOne"), "GO|2");
    EXPECT_EQ(hospital.expression("CASE WHEN OBJECT_ID('STATION..tbOne', 'U') IS NULL THEN 0 ELSE 1 END"),
              "1");
    EXPECT_EQ(hospital.expression("OBJECT_ID('STATION.dbo.[tbOne]', 'P')"), "NULL");
    EXPECT_EQ(hospital.expression("CASE WHEN OBJECT_ID('STATION..sp_One', 'P') > 0 THEN 1 END"), "1");
    EXPECT_EQ(hospital.expression("CASE WHEN OBJECT_ID('STATION..vwOne', 'V') > 0 THEN 1 END"), "1");
    EXPECT_EQ(hospital.expression("CASE WHEN OBJECT_ID('STATION..fnOne', 'FN') > 0 THEN 1 END"), "1");
    EXPECT_EQ(hospital.expression("COL_LENGTH('STATION..tbOne', 'Name')"), "20");
    EXPECT_EQ(hospital.expression("COL_LENGTH('STATION..tbOne', 'Shoe')"), "NULL");
    EXPECT_TRUE(hospital.provider().check().isEmpty());
}

TEST(Installer, namesFileLineAndColumn) {
    Hospital hospital;
    EXPECT_EQ(installError(hospital, "USE STATION\nGO\n\nCREATE TABLE t (\n  a int NOT NUL)\nGO\n"),
              "102: test.sql (line 5, column 13): Incorrect syntax near 'NUL'.");
    EXPECT_EQ(hospital.provider().database(), "NUCLEAR");
    EXPECT_EQ(installError(hospital, "GO\nSELECT x\nFROM nowhere"),
              "208: test.sql (line 3, column 6): Invalid object name 'nowhere'.");
    EXPECT_EQ(installError(hospital, "SELECT 1\nGO\nMERGE INTO t"),
              "40000: test.sql (line 3, column 1): 'MERGE' is not supported (line 1, column 1).");
    EXPECT_EQ(installError(hospital, "SELECT 1\nGO\n\nSELECT CAST('x' AS int)"),
              "245: test.sql (batch at line 3): Conversion failed when converting the varchar value 'x' to "
              "data type int.");
}

TEST(Definitions, turnDownWhatIsThereOrIsNot) {
    Hospital hospital;
    hospital.install(QStringLiteral(
        "CREATE TABLE tbOne (Id int NOT NULL PRIMARY KEY)\nGO\nCREATE PROCEDURE sp_One AS SELECT 1"));
    EXPECT_EQ(hospital.error("CREATE TABLE TBONE (Id int)"),
              "2714: There is already an object named 'TBONE' in the database.");
    EXPECT_EQ(hospital.error("CREATE PROCEDURE sp_one AS SELECT 2"),
              "2714: There is already an object named 'sp_one' in the database.");
    EXPECT_EQ(hospital.error("CREATE OR ALTER VIEW sp_One AS SELECT 2 AS a"),
              "2714: There is already an object named 'sp_One' in the database.");
    EXPECT_EQ(hospital.error("CREATE VIEW tbOne AS SELECT 2 AS a"),
              "2714: There is already an object named 'tbOne' in the database.");
    EXPECT_EQ(hospital.error("ALTER PROCEDURE sp_Two AS SELECT 2"), "208: Invalid object name 'sp_Two'.");
    EXPECT_EQ(hospital.error("CREATE TABLE tbTwo (a int, A int)"),
              "2705: Column names in each table must be unique. Column name 'A' in table 'tbTwo' is "
              "specified more than once.");
    EXPECT_EQ(hospital.error("CREATE TABLE tbTwo (a int PRIMARY KEY, b int PRIMARY KEY)"),
              "8110: Cannot add multiple PRIMARY KEY constraints to table 'tbTwo'.");
    EXPECT_EQ(hospital.error("CREATE TABLE tbTwo (a int, PRIMARY KEY (b))"),
              "1911: Column name 'b' does not exist in the target table or view.");
    EXPECT_EQ(hospital.error("CREATE INDEX i ON tbOne (b)"),
              "1911: Column name 'b' does not exist in the target table or view.");
    EXPECT_EQ(
        hospital.error("CREATE INDEX i ON tbTwo (b)"),
        "4902: Cannot find the object \"tbTwo\" because it does not exist or you do not have permissions.");
    EXPECT_EQ(
        hospital.error("DROP TABLE tbTwo"),
        "3701: Cannot drop the table 'tbTwo', because it does not exist or you do not have permission.");
    EXPECT_EQ(hospital.error("DROP TABLE IF EXISTS tbTwo"), "");
    EXPECT_EQ(
        hospital.error("DROP PROCEDURE tbOne"),
        "3701: Cannot drop the procedure 'tbOne', because it does not exist or you do not have permission.");
    EXPECT_EQ(hospital.error("SELECT 1 CREATE PROCEDURE sp_Three AS SELECT 1"),
              "111: 'CREATE/ALTER PROCEDURE' must be the first statement in a query batch.");
    EXPECT_EQ(hospital.error("CREATE TABLE tbTwo (a int IDENTITY(1,1), b int IDENTITY(1,1))").left(6),
              "40000:");
}

TEST(Definitions, comeAndGo) {
    Hospital hospital;
    hospital.install(
        QStringLiteral("CREATE TABLE tbOne (Id int NOT NULL PRIMARY KEY)\nINSERT INTO tbOne VALUES (1)\n"
                       "ALTER TABLE tbOne ADD Name varchar(10) NOT NULL DEFAULT 'x', Price money NULL\n"
                       "CREATE UNIQUE NONCLUSTERED INDEX IX_One ON tbOne (Name DESC, Id) INCLUDE (Price)\n"));
    EXPECT_EQ(hospital.rows("SELECT * FROM tbOne"), "1|x|NULL");
    EXPECT_EQ(hospital.error("INSERT INTO tbOne VALUES (2, '12345678901', 1)").left(5), "2628:");
    EXPECT_EQ(hospital.error("ALTER TABLE tbOne ADD Name int").left(5), "2705:");
    EXPECT_EQ(hospital.error("ALTER TABLE tbOne ADD More int NOT NULL").left(5), "4901:");
    EXPECT_EQ(hospital.error("ALTER TABLE tbOne ADD a int NULL, A int NULL").left(5), "2705:");
    hospital.run("DROP INDEX IX_One ON tbOne");
    hospital.run("DROP TABLE tbOne");
    EXPECT_EQ(hospital.error("SELECT * FROM tbOne"), "208: Invalid object name 'tbOne'.");
    hospital.run("CREATE TABLE tbOne (Other int NULL)");
    EXPECT_EQ(hospital.run("SELECT * FROM tbOne").rows.columns[0].name, "Other");
    hospital.run("CREATE FUNCTION fn1 (@a int) RETURNS int AS BEGIN RETURN @a END");
    EXPECT_EQ(hospital.rows("SELECT dbo.fn1(3)"), "3");
    hospital.run(
        "ALTER FUNCTION fn1 (@a int) RETURNS varchar(10) AS BEGIN RETURN 'n' + CAST(@a AS varchar) END");
    EXPECT_EQ(hospital.rows("SELECT dbo.fn1(3)"), "n3");
    hospital.run("DROP FUNCTION fn1");
    EXPECT_EQ(hospital.error("SELECT dbo.fn1(3)").left(5), "4121:");
    EXPECT_TRUE(hospital.provider().primaryKey("tbOne").isEmpty());
    EXPECT_TRUE(hospital.provider().primaryKey("NOWHERE..tbOne").isEmpty());
}

TEST(Definitions, aKeyBesideAnIdentityColumn) {
    Hospital hospital;
    hospital.install(QStringLiteral(
        "CREATE TABLE tbTwo (Line int IDENTITY NOT NULL, B varchar(5) NOT NULL, A varchar(5) NOT NULL, "
        "CONSTRAINT PK_Two PRIMARY KEY CLUSTERED (A, B))"));
    EXPECT_EQ(hospital.provider().primaryKey("NUCLEAR..tbTwo"), (QStringList{"A", "B"}));
    hospital.run("INSERT INTO tbTwo VALUES ('x', 'y')");
    EXPECT_EQ(hospital.rows("SELECT * FROM tbTwo"), "1|x|y");
    EXPECT_EQ(hospital.error("INSERT INTO tbTwo VALUES ('X', 'Y')"),
              "2627: Violation of PRIMARY KEY constraint 'PK_Two'. Cannot insert duplicate key in object "
              "'dbo.tbTwo'.");
}

TEST(Check, namesTheModuleThatDoesNotFitItsTables) {
    Hospital hospital;
    hospital.install(QStringLiteral(
        "CREATE PROCEDURE sp_Later AS\nSELECT a FROM tbLater\nGO\n"
        "CREATE VIEW vwLater AS SELECT b FROM tbLater\nGO\n"
        "CREATE FUNCTION fnLater () RETURNS int AS BEGIN RETURN (SELECT MAX(a) FROM tbLater) END"));
    EXPECT_EQ(hospital.provider().check().join(u'\n'),
              "NUCLEAR..fnLater (line 1, column 76): Invalid object name 'tbLater'.\n"
              "NUCLEAR..sp_Later (line 2, column 15): Invalid object name 'tbLater'.\n"
              "NUCLEAR..vwLater (line 1, column 38): Invalid object name 'tbLater'.");
    hospital.run("CREATE TABLE tbLater (a int NULL)");
    EXPECT_EQ(hospital.provider().check().join(u'\n'),
              "NUCLEAR..vwLater (line 1, column 31): Invalid column name 'b'.");
}

} // namespace
