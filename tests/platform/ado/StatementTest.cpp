#include "platform/ado/Statement.h"
#include "platform/ado/Quoting.h"
#include "platform/base/Error.h"
#include "tests/support/core/DesksNumbers.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using ado::QueryTemplate;
using ado::sql;

namespace {

/// The error that `body` raises; number 0 for none.
base::RunTimeError errorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const base::RunTimeError& error) {
        return error;
    }
    return base::RunTimeError(0, "none");
}

TEST(Sql, JoinsTheValuesAsTheyAre) {
    EXPECT_EQ(sql("sp_A '{}','{}', '{}'", QString("x"), 1500.0, 2).text(), "sp_A 'x','1500', '2'");
    EXPECT_EQ(sql("select getdate() as [server date]").text(), "select getdate() as [server date]");
    EXPECT_EQ(sql("sp_A '{}'", QString()).text(), "sp_A ''");
    EXPECT_EQ(sql("sp_A {}, '{}'", 7, QString("{}")).text(), "sp_A 7, '{}'");
    EXPECT_EQ(sql("sp_A 'C{}J'", 1234).text(), "sp_A 'C1234J'");
}

TEST(Sql, AnAmountHasAPointOnADeskWithACommaToo) {
    const tests::DesksNumbers german("de_DE.UTF-8");
    EXPECT_EQ(sql("sp_A '{}',{}", 100.5, 0.25).text(), "sp_A '100.5',0.25");
    EXPECT_EQ(ado::literal(1234.5), "1234.5");
}

TEST(Sql, AValueThatLeavesItsLiteralIsRefused) {
    const auto error = errorOf([] { sql("sp_A '{}','{}'", QString("O'BRIEN"), QString("x")); });
    EXPECT_EQ(error.number(), 102);
    EXPECT_EQ(error.description(), "Incorrect syntax near 'BRIEN'.");
    EXPECT_EQ(error.sqlState(), "42000");
    EXPECT_EQ(error.statement(), "sp_A 'O'BRIEN','x'");
    EXPECT_EQ(errorOf([] { sql("sp_A '{}'", QString("x'; DROP TABLE t --")); }).number(), 102);
    EXPECT_EQ(errorOf([] { sql("sp_A '{}'", QString("a''b")); }).number(), 102);
    EXPECT_EQ(errorOf([] { sql("sp_A '{}','{}'", QString("a'"), QString("'b")); }).number(), 102);
    EXPECT_EQ(errorOf([] { sql("sp_A '{}'", QString(QChar(0))); }).number(), 102);
}

TEST(Sql, MarksInsideALiteralAreText) {
    for (const QString value :
         {"--", "/* x */", ";", "\r\n", "\"", "[", "]", "{}", "@a", "%", "\\", "`", "é"})
        EXPECT_EQ(sql("sp_A '{}','b'", value).text(), "sp_A '" + value + "','b'");
}

/// A server drops a backslash and the line break behind it, and the two again are what it leaves of each
/// pair.
TEST(Sql, ABackslashAtTheEndOfALineIsKept) {
    EXPECT_EQ(sql("sp_A '{}'", QString("a\\\nb")).text(), "sp_A 'a\\\\\n\nb'");
    EXPECT_EQ(sql("sp_A '{}'", QString("a\\\r\nb")).text(), "sp_A 'a\\\\\r\n\r\nb'");
    EXPECT_EQ(sql("sp_A '{}'", QString("\\\\\n")).text(), "sp_A '\\\\\\\n\n'");
    EXPECT_EQ(sql("sp_A '{}'", QString("\\\n\\\n")).text(), "sp_A '\\\\\n\n\\\\\n\n'");
    for (const QString value : {"\\", "\\ \n", "\n\\", "\\\r", "\\n", "\\\r\r\n"})
        EXPECT_EQ(sql("sp_A '{}'", value).text(), "sp_A '" + value + "'");
    // the two come together from both sides of a value's end
    EXPECT_EQ(sql("sp_A '{}{}{}'", QString("\\"), QString(), QString("\nb")).text(), "sp_A '\\\\\n\nb'");
    EXPECT_EQ(sql("sp_A '{}\nb', '{}'", QString("\\"), QString("c")).text(), "sp_A '\\\\\n\nb', 'c'");
    EXPECT_EQ(sql("sp_A '\\{}', '{}'", QString("\r\nb"), QString("c")).text(), "sp_A '\\\\\r\n\r\nb', 'c'");
    EXPECT_EQ(sql("sp_A '{}\nb'", QString("\\\r")).text(), "sp_A '\\\\\r\n\r\nb'");
    // what the program's own text breaks stays broken
    EXPECT_EQ(sql("sp_A 'a\\\nb{}'", QString("c")).text(), "sp_A 'a\\\nbc'");
    EXPECT_EQ(ado::definedStatement("'{?a}'", {{"{?a}", "\\\n"}}).text(), "'\\\\\n\n'");
    EXPECT_EQ(ado::literal(base::Value(QString("o'\\\n"))), "'o''\\\\\n\n'");
}

TEST(Sql, OutsideQuotesOnlyNumbersStand) {
    EXPECT_EQ(sql("sp_A {}", QString("-1.5")).text(), "sp_A -1.5");
    for (const QString value : {"", "1;", "1 or 1=1", "x", "--1", "1-1", ".", "'a'"})
        EXPECT_EQ(errorOf([&] { sql("sp_A {}", value); }).number(), 102) << value.toStdString();
    EXPECT_EQ(errorOf([] { sql("select [{}]", QString("a")); }).number(), 102);
    EXPECT_EQ(errorOf([] { sql("select /* {} */ 1", 1); }).number(), 102);
    EXPECT_EQ(errorOf([] { sql("select /* *{} 1", QString("/ 2,")); }).number(), 102);
    // a doubled bracket belongs to the name, and so does the quote behind it
    EXPECT_EQ(errorOf([] { sql("select [a]]'{}'] from t", QString("x")); }).number(), 102);
    EXPECT_EQ(sql("select [a]]'] from t where b = '{}'", QString("x")).text(),
              "select [a]]'] from t where b = 'x'");
}

TEST(QueryTemplate, ReplacesItsPlaceHolders) {
    constexpr QueryTemplate revenue("spNuclear_SearchRevenue '0','##'");
    EXPECT_EQ(revenue.with({{"##", "NU"}}).text(), "spNuclear_SearchRevenue '0','NU'");
    constexpr QueryTemplate regular("spGlobal_RegularPatients '#1','#2','#3'");
    EXPECT_EQ(regular.with({{"#1", "0"}, {"#2", "1"}, {"#3", "#1"}}).text(),
              "spGlobal_RegularPatients '0','1','#1'");
    EXPECT_EQ(errorOf([&] { revenue.with({{"##", "a'b"}}); }).number(), 102);
    EXPECT_TRUE(QueryTemplate().isEmpty());
}

TEST(DefinedStatement, ReplacesWhatADefinitionNames) {
    const QString text = "sp_List '{?From}',{?Rate},'{?From}'";
    EXPECT_EQ(ado::definedStatement(text, {{"{?From}", "11/01/2026"}, {"{?Rate}", "1.5"}}).text(),
              "sp_List '11/01/2026',1.5,'11/01/2026'");
    // A value that looks like a place-holder stays a value.
    EXPECT_EQ(ado::definedStatement("'{?a}'", {{"{?a}", "{?b}"}, {"{?b}", "x"}}).text(), "'{?b}'");
    EXPECT_EQ(errorOf([&] {
                  ado::definedStatement(text, {{"{?From}", "a'b"}, {"{?Rate}", "1"}});
              }).number(),
              102);
    EXPECT_EQ(errorOf([&] {
                  ado::definedStatement(text, {{"{?From}", "a"}, {"{?Rate}", "1 or 1"}});
              }).number(),
              102);
}

/// Whatever a value holds: either it is the one literal of the text, or nothing is made.
TEST(Sql, NoValueEverBecomesAStatement) {
    std::mt19937 random(20261121);
    const QString alphabet = QString::fromUtf8("ab'\"-;/*[]{}\r\n\n\\\\ 1é") + QChar(0);
    for (int round = 0; round < 20000; ++round) {
        QString value;
        for (int i = int(random() % 12); i > 0; --i)
            value += alphabet[qsizetype(random() % unsigned(alphabet.size()))];
        const bool breaksOut = value.contains(u'\'') || value.contains(QChar(0));
        const auto error = errorOf([&] {
            const QString text = sql("sp_A '{}','{}' , 'z'", value, QString("y")).text();
            EXPECT_EQ(text, "sp_A '" + ado::withLinesKept(value) + "','y' , 'z'");
            EXPECT_EQ(ado::withLinesJoined(text), "sp_A '" + value + "','y' , 'z'") << value.toStdString();
        });
        EXPECT_EQ(error.number() == 102, breaksOut) << value.toStdString();
    }
}

} // namespace
