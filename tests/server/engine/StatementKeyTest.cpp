#include "server/engine/parser/StatementKey.h"

#include "server/engine/run/BatchCache.h"
#include "server/engine/values/Like.h"
#include "server/engine/values/NumberText.h"

#include <gtest/gtest.h>

namespace {

using engine::StatementKey;

/// The key with ? for each mark, and the values behind it.
std::string keyOf(std::string_view text) {
    StatementKey key;
    key.read(text);
    std::string shown;
    for (std::size_t i = 0; i < key.key().size(); ++i) {
        if (key.key()[i] == '\x01') {
            shown += '?';
            shown += key.key()[++i];
        } else {
            shown += key.key()[i];
        }
    }
    for (int i = 0; i < key.count(); ++i) {
        const engine::Cell& value = key.value(i);
        shown += " | " + (value.kind() == engine::Cell::Kind::Text      ? value.text()
                          : value.kind() == engine::Cell::Kind::Integer ? std::to_string(value.integer())
                                                                        : std::to_string(value.real()));
    }
    return shown;
}

TEST(StatementKey, takesTheArgumentsOfACall) {
    EXPECT_EQ(keyOf("sp_X 'a','b''c', N'd', 5, 12.50, -3, NULL, @e = 7"),
              "sp_X ?s,?s, ?n, ?i, ?2, -3, NULL, @e = ?i | a | b'c | d | 5 | 12.500000 | 7");
    EXPECT_EQ(keyOf("  STATION..sp_X2 '' "), "  STATION..sp_X2 ?s  | ");
    EXPECT_EQ(keyOf("[sp x] 1"), "[sp x] ?i | 1");
    EXPECT_EQ(keyOf("EXEC sp_X 'a'"), "EXEC sp_X ?s | a");
    EXPECT_EQ(keyOf("-- 'quoted'\nsp_X 'a' /* 'b' */"), "-- 'quoted'\nsp_X ?s /* 'b' */ | a");
    EXPECT_EQ(keyOf("sp_X /* 'a' /* 'b' */ 'c' */ 'd' --'e'\n, 'f'"),
              "sp_X /* 'a' /* 'b' */ 'c' */ ?s --'e'\n, ?s | d | f");
}

TEST(StatementKey, aBackslashJoinsLines) {
    EXPECT_EQ(keyOf("sp_X 'a\\\nb', 'c\\\r\nd', 'e\\\\\n\nf', 'g\\h', '\\'"),
              "sp_X ?s, ?s, ?s, ?s, ?s | ab | cd | e\\\nf | g\\h | \\");
}

TEST(StatementKey, takesTextsAndComparedNumbersOfAStatement) {
    EXPECT_EQ(keyOf("SELECT TOP 5 a FROM t WHERE b = 'x' AND c >= 10 AND d = 1.5 ORDER BY 2"),
              "SELECT TOP 5 a FROM t WHERE b = ?s AND c >= ?i AND d = ?1 ORDER BY 2 | x | 10 | 1.500000");
    EXPECT_EQ(keyOf("UPDATE [t'1] SET a = 'x' WHERE \"b'\" = 99999999999"),
              "UPDATE [t'1] SET a = ?s WHERE \"b'\" = 99999999999 | x");
    EXPECT_EQ(keyOf("SELECT [a]]'1], \"b\"\"'2\" FROM t WHERE [c]]] = 3"),
              "SELECT [a]]'1], \"b\"\"'2\" FROM t WHERE [c]]] = ?i | 3");
    EXPECT_EQ(keyOf("delete from t where a like '%x' and b like 'y%'"),
              "delete from t where a like '%x' and b like ?s | y%");
    EXPECT_EQ(keyOf("SELECT CONVERT(varchar(10), a1, 101) FROM t"),
              "SELECT CONVERT(varchar(10), a1, 101) FROM t");
}

TEST(StatementKey, leavesTheRestWhole) {
    for (const char* text :
         {"CREATE TABLE t (a varchar(5) DEFAULT 'x')", "IF 1 = 1 SELECT 'a'", "DECLARE @a int = 5",
          "-- 'x'\nCREATE VIEW v AS SELECT 'a' AS a", "SELECT 'open", "sp_X 'a', 'open", "", "   ", "'text'"})
        EXPECT_EQ(keyOf(text), text);
    EXPECT_EQ(keyOf(std::string_view("SELECT 'a\0b'", 12)), std::string("SELECT 'a\0b'", 12));
    StatementKey key;
    key.read("SELECT '\x01s', 'b'");
    EXPECT_TRUE(key.isWhole());
}

TEST(Like, matchesAsTheServerDoes) {
    struct {
        const char* text;
        const char* pattern;
        bool matches;
    } cases[] = {{"REYES", "rey%", true},
                 {"REYES", "%", true},
                 {"", "%", true},
                 {"REYES", "r_%", true},
                 {"R", "r_%", false},
                 {"", "_", false},
                 {"abc", "a_c", true},
                 {"abc", "a__c", false},
                 {"abc", "%c", true},
                 {"abc", "%b%", true},
                 {"abcbc", "a%bc", true},
                 {"abc  ", "abc", true},
                 {"abc", "abc ", false},
                 {"a%c", "a[%]c", true},
                 {"abc", "a[%]c", false},
                 {"5x", "[0-9]%", true},
                 {"x5", "[^0-9]%", true},
                 {"]", "[]]", true},
                 {"a-b", "a[-]b", true},
                 {"PEÑA", "pe_a", true},
                 {"PEÑA", "peña", true},
                 {"a", "[", false},
                 {"aaaaaaaaaaaaaaaaaaaaab", "%a%a%a%a%a%a%a%c", false}};
    for (const auto& c : cases)
        EXPECT_EQ(engine::matchesLike(c.text, c.pattern), c.matches) << c.text << " LIKE " << c.pattern;
    EXPECT_EQ(engine::likePrefix("abc%d"), "abc");
    EXPECT_EQ(engine::likePrefix("a[b]"), "a");
    EXPECT_EQ(engine::likePrefix("abc"), "abc");
    EXPECT_EQ(engine::likePrefix("PEÑA%"), "PE");
}

TEST(NumberText, readsAndWritesAmounts) {
    double value = 0;
    EXPECT_EQ(int(engine::readMoney("(5)", value)), int(engine::NumberReading::NotANumber));
    EXPECT_EQ(int(engine::readMoney("1.2.3", value)), int(engine::NumberReading::NotANumber));
    EXPECT_EQ(int(engine::readMoney("$-1,000", value)), int(engine::NumberReading::Good));
    EXPECT_EQ(value, -1000);
    EXPECT_EQ(int(engine::readFloat("1e", value)), int(engine::NumberReading::NotANumber));
    EXPECT_EQ(int(engine::readFloat("nan", value)), int(engine::NumberReading::NotANumber));
    EXPECT_EQ(engine::moneyText(-1234567.005, 1), "-1,234,567.01");
    EXPECT_EQ(engine::moneyText(999, 1), "999.00");
    EXPECT_EQ(engine::fixedText(-0.001, 2), "0.00");
    EXPECT_EQ(engine::roundedTo(2.675, 2), 2.68);
    EXPECT_EQ(engine::roundedTo(-0.5, 0), -1);
}

TEST(BatchCache, ReadsTextsThatDifferInTheirValuesOnce) {
    engine::SessionState session;
    session.database = "NUCLEAR";
    engine::BatchCache batches(session);
    for (const auto& [one, other] :
         {std::pair("sp_X 'a', 5, 1.5, NULL, @e = 'b'", "sp_X 'c', 6, 2.5, NULL, @e = 'd'"),
          std::pair("EXEC sp_X N'a'", "EXEC sp_X N'b'"),
          std::pair("SELECT a FROM t WHERE b = 'x'", "SELECT a FROM t WHERE b = 'y'")}) {
        const auto module = batches.batch(one);
        EXPECT_EQ(batches.batch(other), module) << one;
    }
    EXPECT_NE(batches.batch("sp_X 'a', 5"), batches.batch("sp_X 'a', 5.0"));
}

} // namespace
