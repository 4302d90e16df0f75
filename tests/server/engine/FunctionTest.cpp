#include "platform/base/TestDoors.h"
#include "tests/server/engine/Hospital.h"

#include "platform/base/DateTime.h"
#include "tests/support/core/DesksNumbers.h"

#include <ostream>

namespace {

using tests::Hospital;

struct Case {
    const char* expression;
    const char* value;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.expression;
}

class Function : public testing::TestWithParam<Case> {
  protected:
    static Hospital& hospital() {
        static Hospital file;
        return file;
    }
    /// Saturday.
    base::FixedClock m_clock{*base::makeDateTime({2026, 11, 21}, {20, 30, 5, 123})};
};

TEST_P(Function, givesWhatTheServerGives) {
    EXPECT_EQ(hospital().expression(QString::fromUtf8(GetParam().expression)),
              QString::fromUtf8(GetParam().value));
}

// What the value is must not depend on where it stands: as a literal, or taken out of the text into a
// parameter.
TEST_P(Function, givesTheSameInABatch) {
    const QString text = QStringLiteral("IF 1 = 1 SELECT ") + QString::fromUtf8(GetParam().expression);
    EXPECT_EQ(Hospital::shown(hospital().value(text)), QString::fromUtf8(GetParam().value));
}

TEST_P(Function, givesTheSameOnADeskWithACommaToo) {
    const tests::DesksNumbers german("de_DE.UTF-8");
    EXPECT_EQ(hospital().expression(QString::fromUtf8(GetParam().expression)),
              QString::fromUtf8(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Function,
    testing::Values(
        Case{"TRY_CAST('12' AS int)", "12"}, Case{"TRY_CAST('$' AS int)", "NULL"},
        Case{"TRY_CAST('1e3' AS int)", "NULL"}, Case{"TRY_CAST('' AS int)", "0"},
        Case{"TRY_CAST(NULL AS int)", "NULL"}, Case{"TRY_CAST('99999999999' AS int)", "NULL"},
        Case{"TRY_CAST('02/30/2026' AS datetime)", "NULL"}, Case{"LTRIM('  a ')", "a "},
        Case{"RTRIM('  a ')", "  a"}, Case{"LTRIM(NULL)", "NULL"}, Case{"UPPER('abc-ñ')", "ABC-Ñ"},
        Case{"LOWER('ABC-Ñ')", "abc-ñ"}, Case{"LEFT('REYES', 3)", "REY"}, Case{"LEFT('PEÑA', 3)", "PEÑ"},
        Case{"LEFT('a', 5)", "a"}, Case{"RIGHT('REYES', 2)", "ES"}, Case{"RIGHT('PEÑA', 2)", "ÑA"},
        Case{"RIGHT('a', 5)", "a"}, Case{"SUBSTRING('REYES', 2, 3)", "EYE"},
        Case{"SUBSTRING('REYES', 0, 3)", "RE"}, Case{"SUBSTRING('REYES', -5, 3)", ""},
        Case{"SUBSTRING('REYES', 4, 99)", "ES"}, Case{"SUBSTRING(12345, 2, 2)", "23"},
        Case{"LEN('abc  ')", "3"}, Case{"LEN('')", "0"}, Case{"LEN('ñandú')", "5"}, Case{"LEN(NULL)", "NULL"},
        Case{"CHARINDEX('ye', 'REYES')", "3"}, Case{"CHARINDEX('x', 'REYES')", "0"},
        Case{"CHARINDEX('e', 'REYES', 3)", "4"}, Case{"CHARINDEX('', 'REYES')", "0"},
        Case{"CHARINDEX('A', 'PEÑA')", "4"}, Case{"REPLACE('aXbxc', 'x', '-')", "a-b-c"},
        Case{"REPLACE('abc', '', '-')", "abc"}, Case{"REPLICATE('ab', 3)", "ababab"},
        Case{"REPLICATE('ab', -1)", "NULL"}, Case{"'[' + SPACE(3) + ']'", "[   ]"},
        Case{"STR(12.6)", "        13"}, Case{"STR(12.345, 8, 2)", "   12.35"}, Case{"STR(123456, 3)", "***"},
        Case{"STUFF('abcdef', 2, 3, 'X')", "aXef"}, Case{"STUFF('abc', 9, 1, 'X')", "NULL"},
        Case{"REVERSE('PEÑA')", "AÑEP"}, Case{"CHAR(65)", "A"}, Case{"ASCII('A')", "65"},
        Case{"CONCAT('a', NULL, 5)", "a5"}, Case{"'a' + 'b'", "ab"}, Case{"'a' + NULL", "NULL"},
        Case{"'O''BRIEN'", "O'BRIEN"}, Case{"N'Ñ'", "Ñ"}, Case{"DATALENGTH('abc ')", "4"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, Function,
    testing::Values(Case{"ABS(-5)", "5"}, Case{"ABS(-5.5)", "5.5"}, Case{"ROUND(2.345, 2)", "2.35"},
                    Case{"ROUND(2.5, 0)", "3"}, Case{"ROUND(-2.5, 0)", "-3"}, Case{"ROUND(1234, -2)", "1200"},
                    Case{"ROUND(2.349, 2, 1)", "2.34"}, Case{"ROUND(1.005, 2)", "1.01"},
                    Case{"FLOOR(2.7)", "2"}, Case{"FLOOR(-2.1)", "-3"}, Case{"CEILING(2.1)", "3"},
                    Case{"CEILING(5)", "5"}, Case{"SIGN(-3)", "-1"}, Case{"SQRT(16)", "4"},
                    Case{"POWER(2, 10)", "1024"}, Case{"ISNUMERIC('12.5')", "1"},
                    Case{"ISNUMERIC('$1,200')", "1"}, Case{"ISNUMERIC('1e5')", "1"},
                    Case{"ISNUMERIC('abc')", "0"}, Case{"ISNUMERIC('')", "0"}, Case{"ISNUMERIC(5)", "1"},
                    Case{"ISNUMERIC(NULL)", "0"}, Case{"7 / 2", "3"}, Case{"7 / 2.0", "3.5"},
                    Case{"7 % 3", "1"}, Case{"2 + 3 * 4", "14"}, Case{"(2 + 3) * 4", "20"},
                    Case{"-5 + 3", "-2"}, Case{"- - 5", "5"}, Case{"'5' + 3", "8"}, Case{"6 & 3", "2"},
                    Case{"6 | 3", "7"}, Case{"CAST(100 AS money) / 3 * 3", "100"},
                    Case{"CAST(10 AS money) / 4", "2.5"}, Case{"1000000 * 3", "3000000"}));

INSTANTIATE_TEST_SUITE_P(Nulls, Function,
                         testing::Values(Case{"ISNULL(NULL, 5)", "5"}, Case{"ISNULL('a', 'b')", "a"},
                                         Case{"COALESCE(NULL, NULL, 'c')", "c"},
                                         Case{"COALESCE(NULL, 1, 2.5)", "1"},
                                         Case{"NULLIF('a', 'A')", "NULL"}, Case{"NULLIF(1, 2)", "1"},
                                         Case{"NULLIF('1', 1)", "NULL"}, Case{"IIF(1 = 2, 'a', 'b')", "b"},
                                         Case{"CASE WHEN 'abc' = 'ABC' THEN 1 ELSE 0 END", "1"},
                                         Case{"CASE 'a' WHEN 'A' THEN 'x' ELSE 'y' END", "x"},
                                         Case{"CASE 3 WHEN 1 THEN 'a' WHEN '3' THEN 'b' END", "b"},
                                         Case{"CASE WHEN 1 = 2 THEN 1 END", "NULL"},
                                         Case{"CASE WHEN 1 = 1 THEN 1 ELSE 2.5 END / 2", "0.5"},
                                         Case{"CASE WHEN NULL = NULL THEN 1 ELSE 0 END", "0"}));

INSTANTIATE_TEST_SUITE_P(
    Dates, Function,
    testing::Values(
        Case{"GETDATE()", "2026-11-21 20:30:05.123"}, Case{"YEAR(GETDATE())", "2026"},
        Case{"MONTH('11/21/2026')", "11"}, Case{"DAY('2026-11-21')", "21"},
        Case{"DATEADD(day, 10, '11/21/2026')", "2026-12-01 00:00:00.000"},
        Case{"DATEADD(month, 1, '01/31/2026')", "2026-02-28 00:00:00.000"},
        Case{"DATEADD(yy, -1, '02/29/2024')", "2023-02-28 00:00:00.000"},
        Case{"DATEADD(hh, 5, '11/21/2026 20:00')", "2026-11-22 01:00:00.000"},
        Case{"DATEADD(mi, -5, '11/21/2026')", "2026-11-20 23:55:00.000"},
        Case{"DATEADD(quarter, 1, '11/21/2026')", "2027-02-21 00:00:00.000"},
        Case{"DATEDIFF(day, '11/21/2026 23:59', '11/22/2026 00:01')", "1"},
        Case{"DATEDIFF(year, '12/31/2025', '01/01/2026')", "1"},
        Case{"DATEDIFF(mm, '01/31/2026', '03/01/2026')", "2"},
        Case{"DATEDIFF(hh, '11/21/2026 08:59', '11/21/2026 09:01')", "1"},
        Case{"DATEDIFF(ss, '11/21/2026 08:00', '11/21/2026 08:01')", "60"},
        Case{"DATEDIFF(dd, '11/22/2026', '11/21/2026')", "-1"},
        Case{"DATEDIFF(week, '11/21/2026', '11/22/2026')", "1"}, Case{"DATEPART(weekday, '11/21/2026')", "7"},
        Case{"DATEPART(dy, '02/01/2026')", "32"}, Case{"DATEPART(hour, '8:30 PM')", "20"},
        Case{"DATEPART(qq, '11/21/2026')", "4"}, Case{"DATEPART(wk, '01/01/2026')", "1"},
        Case{"DATEPART(ms, '2026-11-21 00:00:00.123')", "123"},
        Case{"DATENAME(month, '11/21/2026')", "November"}, Case{"DATENAME(dw, '11/21/2026')", "Saturday"},
        Case{"DATENAME(year, '11/21/2026')", "2026"}, Case{"GETDATE() + 1", "2026-11-22 20:30:05.123"},
        Case{"GETDATE() - 0.5", "2026-11-21 08:30:05.123"}, Case{"ISDATE('11/21/2026')", "1"},
        Case{"ISDATE('13/45/2026')", "0"}, Case{"ISDATE('')", "0"}, Case{"ISDATE('abc')", "0"},
        Case{"ISDATE(NULL)", "0"}, Case{"DATEDIFF(day, '', '01/02/1900')", "1"}));

INSTANTIATE_TEST_SUITE_P(
    DateTexts, Function,
    testing::Values(Case{"CONVERT(datetime, '11/21/2026')", "2026-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '11/21/2026 08:30:15 PM')", "2026-11-21 20:30:15.000"},
                    Case{"CONVERT(datetime, '11/21/2026 12:05:00 AM')", "2026-11-21 00:05:00.000"},
                    Case{"CONVERT(datetime, '11/21/2026 12:05PM')", "2026-11-21 12:05:00.000"},
                    Case{"CONVERT(datetime, '11/21/2026 14:05')", "2026-11-21 14:05:00.000"},
                    Case{"CONVERT(datetime, '2026/11/21')", "2026-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '20261121')", "2026-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '2026-11-21T08:30:15.123')", "2026-11-21 08:30:15.123"},
                    Case{"CONVERT(datetime, '2026-11-21 08:30')", "2026-11-21 08:30:00.000"},
                    Case{"CONVERT(datetime, 'Nov 21 2026  8:30AM')", "2026-11-21 08:30:00.000"},
                    Case{"CONVERT(datetime, '21 November 2026')", "2026-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '21-Nov-26')", "2026-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '11/21/49')", "2049-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '11/21/50')", "1950-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '21/11/2026', 103)", "2026-11-21 00:00:00.000"},
                    Case{"CONVERT(datetime, '')", "1900-01-01 00:00:00.000"},
                    Case{"CONVERT(datetime, '10:15 AM')", "1900-01-01 10:15:00.000"},
                    Case{"CONVERT(datetime, 1)", "1900-01-02 00:00:00.000"},
                    Case{"CAST('11/21/2026 08:30' AS date)", "2026-11-21 00:00:00.000"},
                    Case{"CONVERT(varchar(10), CAST('11/21/2026 08:30' AS date))", "2026-11-21"},
                    Case{"CONVERT(varchar, GETDATE())", "Nov 21 2026  8:30PM"},
                    Case{"CONVERT(varchar, GETDATE(), 100)", "Nov 21 2026  8:30PM"},
                    Case{"CONVERT(varchar, GETDATE(), 101)", "11/21/2026"},
                    Case{"CONVERT(varchar, GETDATE(), 1)", "11/21/26"},
                    Case{"CONVERT(varchar, GETDATE(), 102)", "2026.11.21"},
                    Case{"CONVERT(varchar, GETDATE(), 103)", "21/11/2026"},
                    Case{"CONVERT(varchar, GETDATE(), 104)", "21.11.2026"},
                    Case{"CONVERT(varchar, GETDATE(), 105)", "21-11-2026"},
                    Case{"CONVERT(varchar, GETDATE(), 106)", "21 Nov 2026"},
                    Case{"CONVERT(varchar, GETDATE(), 107)", "Nov 21, 2026"},
                    Case{"CONVERT(varchar, GETDATE(), 108)", "20:30:05"},
                    Case{"CONVERT(varchar, GETDATE(), 109)", "Nov 21 2026  8:30:05:123PM"},
                    Case{"CONVERT(varchar, GETDATE(), 110)", "11-21-2026"},
                    Case{"CONVERT(varchar, GETDATE(), 111)", "2026/11/21"},
                    Case{"CONVERT(varchar, GETDATE(), 112)", "20261121"},
                    Case{"CONVERT(varchar, GETDATE(), 113)", "21 Nov 2026 20:30:05:123"},
                    Case{"CONVERT(varchar, GETDATE(), 114)", "20:30:05:123"},
                    Case{"CONVERT(varchar, GETDATE(), 120)", "2026-11-21 20:30:05"},
                    Case{"CONVERT(varchar, GETDATE(), 121)", "2026-11-21 20:30:05.123"},
                    Case{"CONVERT(varchar, GETDATE(), 126)", "2026-11-21T20:30:05.123"},
                    Case{"CONVERT(varchar, GETDATE(), 22)", "11/21/26 8:30:05 PM"},
                    Case{"CONVERT(varchar(5), GETDATE(), 108)", "20:30"}));

INSTANTIATE_TEST_SUITE_P(
    Conversions, Function,
    testing::Values(
        Case{"CAST('12' AS int)", "12"}, Case{"CAST('' AS int)", "0"}, Case{"CAST(' -7 ' AS int)", "-7"},
        Case{"CAST('' AS money)", "0"}, Case{"CAST('1,234.56' AS money)", "1234.56"},
        Case{"CAST('$5' AS money)", "5"}, Case{"CAST('-$5.125' AS money)", "-5.125"},
        Case{"CAST('12.34567' AS money)", "12.3457"}, Case{"CAST('' AS float)", "0"},
        Case{"CAST('1e3' AS float)", "1000"}, Case{"CAST('12.345' AS decimal(10,2))", "12.35"},
        Case{"CAST(12.7 AS int)", "12"}, Case{"CAST(CAST(12.7 AS money) AS int)", "13"},
        Case{"CAST('true' AS bit)", "true"}, Case{"CAST(5 AS bit)", "true"},
        Case{"CAST('0' AS bit)", "false"}, Case{"CAST(5 AS varchar(10))", "5"},
        Case{"CAST('REYES' AS varchar(3))", "REY"}, Case{"CAST(12345 AS varchar(3))", "*"},
        Case{"CAST(CAST(12.5 AS money) AS varchar(20))", "12.50"},
        Case{"CONVERT(varchar, CAST(1234567.891 AS money), 1)", "1,234,567.89"},
        Case{"CONVERT(varchar, CAST(1234.5 AS money), 2)", "1234.5000"},
        Case{"CAST(CAST(12.5 AS float) AS varchar)", "12.5"},
        Case{"CAST(CAST(1234567 AS float) AS varchar)", "1.23457e+06"},
        Case{"CAST(12.50 AS varchar)", "12.50"}, Case{"CAST(CAST(3 AS decimal(8,3)) AS varchar)", "3.000"},
        Case{"'Slip ' + CAST(5 AS varchar)", "Slip 5"}, Case{"CAST(NULL AS int)", "NULL"},
        Case{"CAST('11/22/1900' AS datetime) - 0", "1900-11-22 00:00:00.000"},
        Case{"CAST(CAST('01/03/1900 12:00' AS datetime) AS float)", "2.5"}, Case{"CAST(0 AS money)", "0"}));

INSTANTIATE_TEST_SUITE_P(Session, Function,
                         testing::Values(Case{"HOST_NAME()", "WARD1"}, Case{"APP_NAME()", "Visual Scintra"},
                                         Case{"SUSER_SNAME()", "1001"}, Case{"DB_NAME()", "NUCLEAR"},
                                         Case{"CASE WHEN DB_ID('billing') IS NULL THEN 0 ELSE 1 END", "1"},
                                         Case{"DB_ID('NOWHERE')", "NULL"},
                                         Case{"OBJECT_ID('nowhere')", "NULL"}, Case{"@@ERROR", "0"},
                                         Case{"@@TRANCOUNT", "0"}, Case{"SCOPE_IDENTITY()", "NULL"},
                                         Case{"COL_LENGTH('nowhere', 'a')", "NULL"}));

TEST(FunctionErrors, aDayFarBehindTheCalendarIsNone) {
    Hospital hospital;
    // 65,536 years
    EXPECT_EQ(hospital.error("SELECT DATEADD(day, 23936532, '11/21/2026')"),
              "517: Adding a value to a 'datetime' column caused an overflow.");
}

TEST(FunctionErrors, aNumberBeyondAFloatIsEndlessOrNothing) {
    Hospital hospital;
    EXPECT_EQ(hospital.expression("CAST(1e-400 AS float)"), "0");
    EXPECT_EQ(hospital.expression("1e400"), "inf");
}

TEST(FunctionErrors, areTheServers) {
    Hospital hospital;
    EXPECT_EQ(hospital.error("SELECT NOSUCH(1)"),
              "195: 'NOSUCH' is not a recognized built-in function name.");
    EXPECT_EQ(hospital.error("SELECT LEFT('a')"), "174: The LEFT function requires 2 argument(s).");
    EXPECT_EQ(hospital.error("SELECT LEFT('a', -1)"),
              "537: Invalid length parameter passed to the left function.");
    EXPECT_EQ(hospital.error("SELECT DATEADD(fortnight, 1, GETDATE())"),
              "155: 'fortnight' is not a recognized dateadd option.");
    EXPECT_EQ(hospital.error("SELECT 1 / 0"), "8134: Divide by zero error encountered.");
    EXPECT_EQ(hospital.error("SELECT 'a' - 'b'"),
              "402: The data types varchar and varchar are incompatible in the '-' operator.");
    EXPECT_EQ(hospital.error("SELECT SUM('a')"),
              "8117: Operand data type varchar is invalid for sum operator.");
    EXPECT_EQ(hospital.error("SELECT SQRT(-1)"), "3623: An invalid floating point operation occurred.");
    EXPECT_EQ(hospital.error("SELECT DATEADD(year, 9000, GETDATE())"),
              "517: Adding a value to a 'datetime' column caused an overflow.");
    EXPECT_EQ(hospital.error("SELECT CONVERT(varchar, GETDATE(), 999)"),
              "281: 999 is not a valid style number when converting from datetime to a character string.");
    EXPECT_EQ(hospital.error("SELECT dbo.fnNowhere(1)"),
              "4121: Cannot find either column \"dbo\" or the user-defined function or aggregate "
              "\"dbo.fnNowhere\", or the "
              "name is ambiguous.");
    EXPECT_EQ(hospital.error("SELECT LEN(*)"), "102: Incorrect syntax near '*'.");
}

TEST(ProcessId, differsFromConnectionToConnection) {
    Hospital hospital;
    const auto other = hospital.open("WARD2");
    const ado::Result mine = hospital.run("SELECT @@SPID");
    const ado::Result theirs = other->execute("SELECT @@SPID");
    EXPECT_NE(*mine.rows.at(0, 0).asInteger(), *theirs.rows.at(0, 0).asInteger());
    EXPECT_EQ(Hospital::shown(other->execute("SELECT HOST_NAME()").rows.at(0, 0)), "WARD2");
}

} // namespace
