#include "tests/server/engine/Hospital.h"

#include <sqlite3.h>

namespace {

using tests::Hospital;

/// Patients, their stays and rooms: enough for every kind of question.
class Query : public testing::Test {
  protected:
    Query() {
        m_hospital.install(QStringLiteral(R"(
USE PATIENT_DATA
GO
CREATE TABLE tbMaster (HospNum varchar(20) NOT NULL PRIMARY KEY, LastName varchar(50) NOT NULL, Sex varchar(1) NULL,
    BirthDate datetime NULL)
CREATE INDEX IX_Master_LastName ON tbMaster (LastName)
CREATE TABLE tbPatient (IdNum varchar(20) NOT NULL, HospNum varchar(20) NOT NULL, RoomID varchar(10) NULL, Days int NULL,
    Deposit money NULL, Billed bit NOT NULL DEFAULT 0, CONSTRAINT PK_Patient PRIMARY KEY (IdNum))
GO
INSERT INTO tbMaster VALUES ('1', 'REYES', 'F', '01/31/1980'), ('2', 'Santos', 'M', NULL), ('3', 'reyna', NULL, '02/29/2000'),
    ('4', 'O''BRIEN', 'F', '12/25/1975')
INSERT INTO tbPatient VALUES ('A1', '1', '301', 3, 1000, 0), ('A2', '1', NULL, 5, 250.5, 1), ('A3', '2', '301', NULL, NULL, 0)
GO
USE BUILD_FILE
GO
CREATE TABLE tbcoRoom (RoomID varchar(10) NOT NULL PRIMARY KEY, RoomClassID varchar(1) NOT NULL)
INSERT INTO tbcoRoom VALUES ('301', 'A'), ('302', 'B')
GO)"));
        m_hospital.provider().useDatabase(QStringLiteral("PATIENT_DATA"));
    }
    QString rows(const char* text) { return m_hospital.rows(QString::fromUtf8(text)); }
    QString error(const char* text) { return m_hospital.error(QString::fromUtf8(text)); }
    Hospital m_hospital;
};

TEST_F(Query, caseDoesNotCount) {
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName = 'ReYeS'"), "1");
    EXPECT_EQ(rows("SELECT HospNum FROM TBMASTER WHERE UPPER(lastname) = 'santos'"), "2");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LTRIM(LastName) IN ('REYES', 'SANTOS') ORDER BY 1"),
              "1;2");
    EXPECT_EQ(rows("SELECT COUNT(DISTINCT LOWER(Sex) + 'x') FROM tbMaster"), "2");
    EXPECT_EQ(rows("SELECT DISTINCT LEFT(LastName, 3) FROM tbMaster WHERE LastName LIKE 'rey%'"), "REY");
    EXPECT_EQ(rows("SELECT LastName FROM tbMaster ORDER BY LastName"), "O'BRIEN;REYES;reyna;Santos");
    EXPECT_EQ(rows("SELECT LTRIM(LastName) AS Name FROM tbMaster ORDER BY Name"),
              "O'BRIEN;REYES;reyna;Santos");
    EXPECT_EQ(rows("SELECT MAX(LTRIM(LastName)) FROM tbMaster"), "Santos");
    EXPECT_EQ(rows("SELECT 1 WHERE 'a' + 'b' = 'AB'"), "1");
}

TEST_F(Query, likeKnowsItsWildCards) {
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE 'rey%' ORDER BY HospNum"), "1;3");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE '%e%' ORDER BY HospNum"), "1;3;4");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE '_EY_A'"), "3");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE '[o-r]%' ORDER BY 1"), "1;3;4");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE '[^r]%' ORDER BY 1"), "2;4");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName NOT LIKE 'rey%' ORDER BY 1"), "2;4");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE 'O''B%'"), "4");
    EXPECT_EQ(
        rows("DECLARE @n varchar(50) = 'SAN' SELECT HospNum FROM tbMaster WHERE LastName LIKE @n + '%'"),
        "2");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Days LIKE '5%'"), "A2");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE NULL"), "");
    EXPECT_EQ(rows("SELECT 1 WHERE 'PEÑA' LIKE 'peñ_'"), "1");
}

TEST_F(Query, patternsGoOnBehindWhatTheyBeginWith) {
    for (const char* held :
         {"'50%' LIKE '50[%]'", "'Ab_' LIKE 'aB[_]'", "'ABC' LIKE 'ab_'", "'aab' LIKE 'A%B'",
          "'abc  ' LIKE 'ABC'", "'[a' LIKE '[[]a'", "'peña' LIKE 'PEÑ%'"})
        EXPECT_EQ(rows((std::string("SELECT 1 WHERE ") + held).c_str()), "1") << held;
    for (const char* missed :
         {"'50x' LIKE '50[%]'", "'50[%]' LIKE '50[%]'", "'AB' LIKE 'ABC%'", "'ABCD' LIKE 'abc'",
          "'ab' LIKE 'ab_'", "'peña' LIKE 'PEN%'", "'pena' LIKE 'PEÑ%'"})
        EXPECT_EQ(rows((std::string("SELECT 1 WHERE ") + missed).c_str()), "") << missed;
}

TEST_F(Query, joins) {
    EXPECT_EQ(rows("SELECT m.LastName, p.IdNum, r.RoomClassID FROM tbMaster m INNER JOIN tbPatient p ON "
                   "p.HospNum = m.HospNum "
                   "LEFT JOIN BUILD_FILE..tbcoRoom r ON r.RoomID = p.RoomID ORDER BY p.IdNum"),
              "REYES|A1|A;REYES|A2|NULL;Santos|A3|A");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbMaster CROSS JOIN BUILD_FILE.dbo.tbcoRoom"), "8");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbMaster a, tbMaster b WHERE a.HospNum = b.HospNum"), "4");
    EXPECT_EQ(rows("SELECT r.RoomID FROM tbPatient p RIGHT OUTER JOIN BUILD_FILE..tbcoRoom r ON r.RoomID = "
                   "p.RoomID WHERE "
                   "p.IdNum IS NULL"),
              "302");
    EXPECT_EQ(
        rows("SELECT COUNT(*) FROM tbPatient p FULL JOIN BUILD_FILE..tbcoRoom r ON r.RoomID = p.RoomID"),
        "4");
    EXPECT_EQ(rows("SELECT m.HospNum FROM tbMaster m LEFT JOIN (tbPatient p JOIN BUILD_FILE..tbcoRoom r ON "
                   "r.RoomID = p.RoomID) "
                   "ON p.HospNum = m.HospNum WHERE r.RoomID IS NULL ORDER BY 1"),
              "3;4");
    EXPECT_EQ(rows("SELECT tbMaster.LastName FROM tbMaster WITH (NOLOCK) JOIN tbPatient (NOLOCK) ON "
                   "tbPatient.HospNum = "
                   "tbMaster.HospNum WHERE tbPatient.IdNum = 'a1'"),
              "REYES");
}

TEST_F(Query, topTakesTheFirstRows) {
    EXPECT_EQ(rows("SELECT TOP 2 HospNum FROM tbMaster ORDER BY LastName"), "4;1");
    EXPECT_EQ(rows("SELECT TOP (1) HospNum FROM tbMaster ORDER BY LastName DESC"), "2");
    EXPECT_EQ(rows("DECLARE @n int = 3 SELECT TOP (@n) HospNum FROM tbMaster ORDER BY HospNum"), "1;2;3");
    EXPECT_EQ(rows("SELECT TOP 1 HospNum FROM tbMaster WHERE HospNum = '1' UNION ALL SELECT TOP (1) HospNum "
                   "FROM tbMaster WHERE "
                   "HospNum = '2'"),
              "1;2");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM (SELECT TOP 3 HospNum FROM tbMaster) AS t"), "3");
}

TEST_F(Query, groups) {
    EXPECT_EQ(rows("SELECT HospNum, COUNT(*) AS n, SUM(Deposit), AVG(Days) FROM tbPatient GROUP BY HospNum "
                   "ORDER BY HospNum"),
              "1|2|1250.5|4;2|1|NULL|NULL");
    EXPECT_EQ(rows("SELECT HospNum FROM tbPatient GROUP BY HospNum HAVING COUNT(*) > 1"), "1");
    EXPECT_EQ(rows("SELECT AVG(Days * 1.0) FROM tbPatient"), "4");
    EXPECT_EQ(rows("select count(*) [RecCount] from tbPatient where Days > '4'"), "1");
    EXPECT_EQ(
        rows("SELECT MIN(BirthDate), MAX(Deposit) FROM tbMaster m JOIN tbPatient p ON p.HospNum = m.HospNum"),
        "1980-01-31 00:00:00.000|1000");
    EXPECT_EQ(
        error("SELECT COUNT(*) FROM tbPatient GROUP BY 1"),
        "164: Each GROUP BY expression must contain at least one column that is not an outer reference.");
}

TEST_F(Query, unionsMeetInTheHigherType) {
    EXPECT_EQ(rows("SELECT COUNT(*) FROM (SELECT LastName FROM tbMaster WHERE HospNum = '1' UNION SELECT "
                   "'reyes') t"),
              "1");
    EXPECT_EQ(rows("SELECT 'a' AS x UNION ALL SELECT 'A' ORDER BY x"), "a;A");
    EXPECT_EQ(rows("SELECT '5' UNION ALL SELECT 7"), "5;7");
    EXPECT_EQ(m_hospital.run("SELECT '5' AS n UNION ALL SELECT 7").rows.columns[0].type,
              ado::DataType::Integer);
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster EXCEPT SELECT HospNum FROM tbPatient"), "3;4");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster INTERSECT SELECT HospNum FROM tbPatient"), "1;2");
    EXPECT_EQ(error("SELECT 1 UNION SELECT 1, 2"),
              "205: All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal "
              "number of expressions in "
              "their target lists.");
    EXPECT_EQ(error("SELECT LastName FROM tbMaster UNION SELECT 'x' ORDER BY Sex"),
              "104: ORDER BY items must appear in the select list if the statement contains a UNION, "
              "INTERSECT or EXCEPT "
              "operator.");
}

TEST_F(Query, queriesInsideOfQueries) {
    EXPECT_EQ(rows("SELECT LastName, (SELECT COUNT(*) FROM tbPatient p WHERE p.HospNum = m.HospNum) AS Stays "
                   "FROM tbMaster m ORDER "
                   "BY Stays DESC, LastName"),
              "REYES|2;Santos|1;O'BRIEN|0;reyna|0");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster m WHERE EXISTS (SELECT * FROM tbPatient WHERE HospNum = "
                   "m.HospNum) ORDER BY 1"),
              "1;2");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE NOT EXISTS (SELECT 1 FROM tbPatient p WHERE p.HospNum "
                   "= tbMaster.HospNum) "
                   "ORDER BY 1"),
              "3;4");
    EXPECT_EQ(
        rows("SELECT IdNum FROM tbPatient WHERE HospNum IN (SELECT HospNum FROM tbMaster WHERE Sex = 'm')"),
        "A3");
    EXPECT_EQ(
        rows("SELECT t.Name FROM (SELECT LTRIM(LastName) AS Name FROM tbMaster) t WHERE t.Name = 'SANTOS'"),
        "Santos");
    EXPECT_EQ(rows("IF EXISTS (SELECT 1 FROM tbMaster WHERE HospNum = '9') SELECT 'yes' ELSE SELECT 'no'"),
              "no");
    EXPECT_EQ(error("SELECT (SELECT HospNum, LastName FROM tbMaster)"),
              "116: Only one expression can be specified in the select list when the subquery is not "
              "introduced with EXISTS.");
}

TEST_F(Query, conditions) {
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Days BETWEEN 3 AND 4"), "A1");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Days NOT BETWEEN '3' AND '4'"), "A2");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Days IS NULL"), "A3");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE RoomID IS NOT NULL AND (Days > 1 OR Days IS NULL) "
                   "ORDER BY IdNum"),
              "A1;A3");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Billed = 1"), "A2");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Billed = 'True'"), "A2");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE NOT (Billed = 1) AND Days NOT IN (1, '2')"), "A1");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE BirthDate = '02/29/2000'"), "3");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE BirthDate >= '1980-01-31' AND BirthDate < "
                   "'01/01/2001' ORDER BY 1"),
              "1;3");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE CONVERT(varchar(10), BirthDate, 101) = '12/25/1975'"),
              "4");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Deposit = '250.50'"), "A2");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Days <> NULL"), "");
    EXPECT_EQ(rows("SELECT IdNum FROM tbPatient WHERE Days != 3 AND Days !> 5"), "A2");
}

TEST_F(Query, moneyIsNoWholeNumber) {
    EXPECT_EQ(rows("SELECT Deposit / 3 FROM tbPatient WHERE IdNum = 'A1'"), "333.333333333333");
    EXPECT_EQ(rows("SELECT ISNULL(Deposit, 0) / 8 FROM tbPatient WHERE IdNum = 'A3'"), "0");
    EXPECT_EQ(
        rows("SELECT CASE WHEN Billed = 1 THEN Deposit ELSE 5 END / 2 FROM tbPatient WHERE IdNum = 'A1'"),
        "2.5");
    EXPECT_EQ(rows("DECLARE @m money SET @m = 5 SELECT @m / 2"), "2.5");
}

TEST_F(Query, columnsKnowWhereTheyComeFrom) {
    const ado::Rows all =
        m_hospital.run("SELECT *, getdate() as [server date] FROM tbPatient p WHERE IdNum = 'A1'").rows;
    ASSERT_EQ(all.columns.size(), 7U);
    EXPECT_EQ(all.columns[0].name, "IdNum");
    EXPECT_EQ(all.columns[0].baseTable, "PATIENT_DATA..tbPatient");
    EXPECT_EQ(all.columns[3].type, ado::DataType::Integer);
    EXPECT_EQ(all.columns[4].type, ado::DataType::Money);
    EXPECT_EQ(all.columns[5].type, ado::DataType::Bit);
    EXPECT_EQ(all.columns[6].name, "server date");
    EXPECT_EQ(all.columns[6].type, ado::DataType::DateTime);
    EXPECT_EQ(all.columns[6].baseTable, "");
    const ado::Rows some = m_hospital
                               .run("SELECT p.idnum AS Admission, m.LastName, p.Days + 1, m.* FROM tbPatient "
                                    "p JOIN tbMaster m ON "
                                    "m.HospNum = p.HospNum")
                               .rows;
    ASSERT_EQ(some.columns.size(), 7U);
    EXPECT_EQ(some.columns[0].name, "Admission");
    EXPECT_EQ(some.columns[0].baseColumn, "IdNum");
    EXPECT_EQ(some.columns[1].baseTable, "PATIENT_DATA..tbMaster");
    EXPECT_EQ(some.columns[2].name, "");
    EXPECT_EQ(some.columns[3].name, "HospNum");
}

TEST_F(Query, anEmptyResultStillHasItsColumns) {
    const ado::Result result = m_hospital.run("SELECT IdNum, Days FROM tbPatient WHERE IdNum = 'none'");
    EXPECT_EQ(result.rows.columns.size(), 2U);
    EXPECT_EQ(result.rows.count(), 0);
    EXPECT_EQ(result.affected, -1);
}

TEST_F(Query, namesThatAreNotThere) {
    EXPECT_EQ(error("SELECT a FROM tbNowhere"), "208: Invalid object name 'tbNowhere'.");
    EXPECT_EQ(m_hospital.sqlState("SELECT a FROM tbNowhere"), "42S02");
    EXPECT_EQ(error("SELECT a FROM BILLING..tbNowhere"), "208: Invalid object name 'BILLING..tbNowhere'.");
    EXPECT_EQ(error("SELECT a FROM NOWHERE..tbMaster"),
              "911: Database 'NOWHERE' does not exist. Make sure that the name is entered correctly.");
    EXPECT_EQ(error("SELECT Shoe FROM tbMaster"), "207: Invalid column name 'Shoe'.");
    EXPECT_EQ(error("SELECT m.Shoe FROM tbMaster m"), "207: Invalid column name 'Shoe'.");
    EXPECT_EQ(error("SELECT x.LastName FROM tbMaster m"),
              "4104: The multi-part identifier \"x.LastName\" could not be bound.");
    EXPECT_EQ(error("SELECT HospNum FROM tbMaster, tbPatient"), "209: Ambiguous column name 'HospNum'.");
    EXPECT_EQ(error("SELECT x.* FROM tbMaster m"),
              "107: The column prefix 'x' does not match with a table name or alias name used in the query.");
    EXPECT_EQ(error("SELECT *"), "263: Must specify table to select from.");
    EXPECT_EQ(
        error("SELECT LastName FROM tbMaster ORDER BY 2"),
        "108: The ORDER BY position number 2 is out of range of the number of items in the select list.");
    EXPECT_EQ(error("SELECT 1 FROM tbMaster a, tbMaster A"),
              "1011: The correlation name 'A' is specified multiple times in a FROM clause.");
    EXPECT_EQ(error("SELECT 1 FROM (SELECT LEFT(LastName, 1) FROM tbMaster) t"),
              "8155: No column name was specified for column 1 of 't'.");
    EXPECT_EQ(error("SELECT LastName = 'x' FROM tbMaster WHERE LastName"),
              "4145: An expression of non-boolean type specified in a context where a condition is expected, "
              "near 'LastName'.");
    EXPECT_EQ(error("SELECT (LastName > 'x') FROM tbMaster"), "102: Incorrect syntax near '>'.");
}

/// How SQLite finds the rows of the prepared statement whose text holds `part`.
QString planOf(sqlite3* handle, const char* part) {
    for (sqlite3_stmt* s = sqlite3_next_stmt(handle, nullptr); s; s = sqlite3_next_stmt(handle, s)) {
        const QByteArray sql = sqlite3_sql(s);
        if (!sql.contains(part))
            continue;
        sqlite3_stmt* explain = nullptr;
        sqlite3_prepare_v2(handle, "EXPLAIN QUERY PLAN " + sql, -1, &explain, nullptr);
        QString plan;
        while (sqlite3_step(explain) == SQLITE_ROW)
            plan += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(explain, 3)));
        sqlite3_finalize(explain);
        return plan;
    }
    return {};
}

TEST_F(Query, longRowsOfSignsAreRead) {
    constexpr int pieces = 150;
    QString sum = "0";
    QString text = "''";
    QString both = "1 = 1";
    QString either = "1 = 2";
    for (int i = 1; i <= pieces; ++i) {
        sum += i % 2 ? QStringLiteral(" - 1") : QStringLiteral(" + 3");
        text += QStringLiteral(" + 'x'");
        both += QStringLiteral(" AND %1 = %1").arg(i);
        either += QStringLiteral(" OR LastName = 'REYES'");
    }
    EXPECT_EQ(m_hospital.expression(sum), QString::number(pieces));
    EXPECT_EQ(m_hospital.expression(QStringLiteral("LEN(") + text + u')'), QString::number(pieces));
    EXPECT_EQ(m_hospital.rows(QStringLiteral("SELECT HospNum FROM tbMaster WHERE ") + both +
                              QStringLiteral(" AND (") + either + u')'),
              "1");
    EXPECT_EQ(m_hospital.expression("2 - (3 - 4) - 5 * (6 / (4 - 2)) + -(1 + 1)"), "-14");
    EXPECT_EQ(m_hospital.expression("'a' + ('b' + 'c') + CAST(1 + 2 AS varchar) + 'd'"), "abc3d");
}

TEST_F(Query, lettersBeyondZHaveCaseInAPattern) {
    m_hospital.run("INSERT INTO tbMaster VALUES ('5', N'PEÑAFLOR', 'M', NULL)");
    EXPECT_EQ(rows("SELECT HospNum FROM tbMaster WHERE LastName LIKE 'peñaf%'"), "5");
}

TEST_F(Query, groupedRowsHaveNoSingleValues) {
    EXPECT_EQ(error("SELECT HospNum, Days FROM tbPatient GROUP BY HospNum"),
              "8120: Column 'tbPatient.Days' is invalid in the select list because it is not contained in "
              "either an aggregate "
              "function or the GROUP BY clause.");
    EXPECT_EQ(error("SELECT COUNT(*), p.Days + 1 FROM tbPatient p"),
              "8120: Column 'p.Days' is invalid in the select list because it is not contained in either an "
              "aggregate function or "
              "the GROUP BY clause.");
    EXPECT_EQ(error("SELECT HospNum FROM tbPatient GROUP BY HospNum HAVING Days > 1"),
              "8121: Column 'tbPatient.Days' is invalid in the HAVING clause because it is not contained in "
              "either an aggregate "
              "function or the GROUP BY clause.");
    EXPECT_EQ(error("SELECT HospNum FROM tbPatient GROUP BY HospNum ORDER BY Days"),
              "8127: Column 'tbPatient.Days' is invalid in the ORDER BY clause because it is not contained "
              "in either an aggregate "
              "function or the GROUP BY clause.");
    EXPECT_EQ(rows("SELECT LEFT(HospNum, 1) + 'x', MAX(Days) FROM tbPatient GROUP BY LEFT(HospNum, 1) ORDER "
                   "BY MAX(Days)"),
              "2x|NULL;1x|5");
    EXPECT_EQ(rows("SELECT p.HospNum, (SELECT LastName FROM tbMaster m WHERE m.HospNum = p.HospNum) FROM "
                   "tbPatient p GROUP BY "
                   "p.HospNum HAVING SUM(ISNULL(Days, 0)) > 0"),
              "1|REYES");
    EXPECT_EQ(rows("SELECT 'x', GETDATE() - GETDATE(), COUNT(*) FROM tbPatient"),
              "x|1900-01-01 00:00:00.000|3");
}

TEST_F(Query, anIndexServesAPrefixSearch) {
    m_hospital.install(
        QStringLiteral("USE PATIENT_DATA\nGO\nCREATE PROCEDURE sp_find @n varchar(50) AS SELECT HospNum FROM "
                       "tbMaster WHERE LastName LIKE @n + '%'"));
    EXPECT_EQ(rows("sp_find 'rey'"), "1;3");
    EXPECT_EQ(rows("PATIENT_DATA..sp_find 'o'''"), "4");
    const QString plan = planOf(m_hospital.provider().handle(), "ts_like");
    EXPECT_TRUE(plan.contains("SEARCH") && plan.contains("IX_Master_LastName (LastName>? AND LastName<?)"))
        << plan.toStdString();
}

TEST_F(Query, anIndexServesAComparisonInTheTextOfAScreen) {
    EXPECT_EQ(rows("SELECT BirthDate FROM tbMaster WHERE HospNum = '2'"), "NULL");
    const QString plan = planOf(m_hospital.provider().handle(), "\"BirthDate\" FROM");
    EXPECT_TRUE(plan.contains("SEARCH tbMaster USING INDEX") && plan.contains("(HospNum=?)"))
        << plan.toStdString();
}

} // namespace
