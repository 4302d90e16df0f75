#include "server/engine/parser/Parser.h"
#include "server/engine/parser/Lexer.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using engine::ExprKind;
using engine::Lexer;
using engine::Parser;
using engine::StmtKind;
using engine::TokenKind;

std::vector<std::string> texts(std::string_view source) {
    std::vector<std::string> result;
    for (const engine::Token& token : Lexer(source).tokens())
        result.push_back(token.text);
    result.pop_back(); // End
    return result;
}

TEST(Lexer, cutsTextsNamesAndSigns) {
    EXPECT_EQ(texts("a<=b<>@c1 != 'd''e' N'f' [g h] \"i\" 1.50 .5 1e3"),
              (std::vector<std::string>{"a", "<=", "b", "<>", "@c1", "!=", "d'e", "f", "g h", "i", "1.50",
                                        ".5", "1e3"}));
}

TEST(Lexer, passesOverCommentsAlsoNestedOnes) {
    EXPECT_EQ(texts("a -- b ' c\n/* d /* e */ ' */ f"), (std::vector<std::string>{"a", "f"}));
}

TEST(Lexer, knowsTheKindOfEachToken) {
    const auto tokens = Lexer("@@ROWCOUNT @a 'x' N'x' 1 1.5 1e5 [y] z (").tokens();
    const std::vector<TokenKind> kinds = {TokenKind::Global, TokenKind::Variable,   TokenKind::Text,
                                          TokenKind::NText,  TokenKind::Integer,    TokenKind::Decimal,
                                          TokenKind::Float,  TokenKind::QuotedName, TokenKind::Word,
                                          TokenKind::Symbol, TokenKind::End};
    ASSERT_EQ(tokens.size(), kinds.size());
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(int(tokens[i].kind), int(kinds[i])) << i;
}

TEST(Lexer, countsLinesAndCharacters) {
    const auto tokens = Lexer("SELECT 'Ñ\nñ', x").tokens();
    EXPECT_EQ(tokens[1].position.line, 1);
    EXPECT_EQ(tokens[1].position.column, 8);
    EXPECT_EQ(tokens[2].position.line, 2);
    EXPECT_EQ(tokens[2].position.column, 3);
    EXPECT_EQ(tokens[3].position.column, 5);
}

TEST(Lexer, readsDotsBetweenNamesAndInNumbers) {
    EXPECT_EQ(texts("NUCLEAR..tb.c"), (std::vector<std::string>{"NUCLEAR", ".", ".", "tb", ".", "c"}));
}

struct Broken {
    const char* text;
    int number;
    int line;
    int column;
    const char* words;
};

void PrintTo(const Broken& broken, std::ostream* out) {
    *out << broken.text;
}

class BrokenText : public testing::TestWithParam<Broken> {};

TEST_P(BrokenText, isTurnedDownWithItsPlace) {
    const Broken& broken = GetParam();
    try {
        Parser::batch(broken.text);
        FAIL() << "read without an error";
    } catch (const engine::ScriptError& error) {
        EXPECT_EQ(error.number(), broken.number) << error.what();
        EXPECT_EQ(error.position().line, broken.line) << error.what();
        EXPECT_EQ(error.position().column, broken.column) << error.what();
        EXPECT_TRUE(error.description().contains(QString::fromUtf8(broken.words))) << error.what();
        EXPECT_EQ(error.sqlState(), "42000");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Lexer, BrokenText,
    testing::Values(
        Broken{"SELECT 'abc", 105, 1, 8, "Unclosed quotation mark after the character string 'abc'."},
        Broken{"SELECT\n  N'abc", 105, 2, 3, "'abc'"}, Broken{"SELECT [abc", 105, 1, 8, "'abc'"},
        Broken{"SELECT /* abc", 113, 1, 8, "Missing end comment mark '*/'."},
        Broken{"SELECT /* a /* b */", 113, 1, 8, "*/"}, Broken{"SELECT ?", 102, 1, 8, "near '?'"},
        Broken{"SELECT !", 102, 1, 8, "near '!'"}, Broken{"SELECT @", 102, 1, 8, "near '@'"},
        Broken{"SELECT 0xAB", engine::notSupportedNumber, 1, 8, "'0x' is not supported (line 1, column 8)."},
        Broken{"SELECT [] FROM t", 1038, 1, 8, "missing or empty"},
        Broken{"SELECT {d}", 102, 1, 8, "near '{'"}));

INSTANTIATE_TEST_SUITE_P(
    Select, BrokenText,
    testing::Values(
        Broken{"SELECT", 156, 1, 1, "near the keyword 'SELECT'."},
        Broken{"SELECT FROM t", 156, 1, 8, "'FROM'"}, Broken{"SELECT a, FROM t", 156, 1, 11, "'FROM'"},
        Broken{"SELECT a FROM", 156, 1, 10, "'FROM'"}, Broken{"SELECT a FROM t WHERE", 156, 1, 17, "'WHERE'"},
        Broken{"SELECT a FROM t GROUP a", 102, 1, 23, "'a'"},
        Broken{"SELECT a FROM t ORDER a", 102, 1, 23, "'a'"},
        Broken{"SELECT a FROM t ORDER BY", 156, 1, 23, "'BY'"}, Broken{"SELECT (1", 102, 1, 9, "'1'"},
        Broken{"SELECT 1)", 102, 1, 9, "')'"}, Broken{"SELECT a FROM t JOIN u", 102, 1, 22, "'u'"},
        Broken{"SELECT a FROM t LEFT u ON 1 = 1", 102, 1, 22, "'u'"},
        Broken{"SELECT a FROM (SELECT 1 AS a)", 102, 1, 29, "')'"},
        Broken{"SELECT a FROM t\nWHERE a = = 1", 102, 2, 11, "'='"},
        Broken{"SELECT a FROM t WHERE a IN ()", 102, 1, 29, "')'"},
        Broken{"SELECT a FROM t WHERE a BETWEEN 1", 102, 1, 33, "'1'"},
        Broken{"SELECT a FROM t WHERE a IS 1", 102, 1, 28, "'1'"},
        Broken{"SELECT a FROM t WHERE NOT", 156, 1, 23, "'NOT'"},
        Broken{"SELECT CASE WHEN 1 = 1 END", 156, 1, 24, "'END'"},
        Broken{"SELECT CASE a END", 156, 1, 15, "'END'"}, Broken{"SELECT TOP a b FROM t", 102, 1, 12, "'a'"},
        Broken{"SELECT CAST(a varchar) FROM t", 102, 1, 15, "'varchar'"},
        Broken{"SELECT CONVERT(varchar) FROM t", 102, 1, 23, "')'"},
        Broken{"SELECT a..b FROM t", 156, 1, 13, "'FROM'"}, Broken{"SELECT f( FROM t", 156, 1, 11, "'FROM'"},
        Broken{"SELECT @a", 137, 1, 8, "Must declare the scalar variable \"@a\"."},
        Broken{"SELECT CAST(1 AS wort)", 2715, 1, 18, "Cannot find data type wort."}));

INSTANTIATE_TEST_SUITE_P(
    Statement, BrokenText,
    testing::Values(
        Broken{"INSERT INTO", 156, 1, 8, "'INTO'"}, Broken{"INSERT INTO t", 102, 1, 13, "'t'"},
        Broken{"INSERT INTO t (a VALUES (1)", 156, 1, 18, "'VALUES'"},
        Broken{"INSERT INTO t VALUES 1", 102, 1, 22, "'1'"},
        Broken{"INSERT INTO t VALUES (1", 102, 1, 23, "'1'"}, Broken{"UPDATE t a = 1", 102, 1, 10, "'a'"},
        Broken{"UPDATE t SET a 1", 102, 1, 16, "'1'"}, Broken{"UPDATE t SET a = 1,", 102, 1, 19, "','"},
        Broken{"DELETE FROM", 156, 1, 8, "'FROM'"}, Broken{"DECLARE a int", 102, 1, 9, "'a'"},
        Broken{"DECLARE @a", 102, 1, 9, "'@a'"},
        Broken{"DECLARE @a int\nDECLARE @A int", 134, 2, 9,
               "The variable name '@A' has already been declared."},
        Broken{"SET @a = 1", 137, 1, 5, "\"@a\""}, Broken{"IF 1 = 1", 102, 1, 8, "'1'"},
        Broken{"IF 1 = 1 SELECT 1 ELSE", 156, 1, 19, "'ELSE'"}, Broken{"BEGIN SELECT 1", 102, 1, 14, "'1'"},
        Broken{"BEGIN END", 156, 1, 7, "'END'"}, Broken{"END", 156, 1, 1, "'END'"},
        Broken{"BREAK", 135, 1, 1, "Cannot use a BREAK statement"},
        Broken{"THROW 50000, 'x'", 102, 1, 14, "'x'"}, Broken{"RAISERROR 'x'", 102, 1, 11, "'x'"},
        Broken{"sp_X 'a' 'b'", 102, 1, 10, "'b'"}, Broken{"sp_X 'a',", 102, 1, 9, "','"},
        Broken{"sp_X (1)", 102, 1, 6, "'('"}, Broken{"EXEC", 156, 1, 1, "'EXEC'"}));

INSTANTIATE_TEST_SUITE_P(
    Definition, BrokenText,
    testing::Values(
        Broken{"CREATE TABLE t", 102, 1, 14, "'t'"}, Broken{"CREATE TABLE t ()", 102, 1, 17, "')'"},
        Broken{"CREATE TABLE t (a)", 102, 1, 18, "')'"}, Broken{"CREATE TABLE t (a int", 102, 1, 19, "'int'"},
        Broken{"CREATE TABLE t (a varchar(0))", 1001, 1, 28, "precision specification 0"},
        Broken{"CREATE TABLE t (a int NOT)", 102, 1, 26, "')'"},
        Broken{"CREATE TABLE t (a int, PRIMARY (a))", 102, 1, 32, "'('"},
        Broken{"CREATE INDEX i t (a)", 102, 1, 16, "'t'"}, Broken{"CREATE PROCEDURE p", 102, 1, 18, "'p'"},
        Broken{"CREATE PROCEDURE p AS", 156, 1, 20, "'AS'"},
        Broken{"CREATE PROCEDURE p @a AS SELECT 1", 2715, 1, 26, "SELECT"},
        Broken{"CREATE PROCEDURE p @a int = AS SELECT 1", 156, 1, 29, "'AS'"},
        Broken{"CREATE FUNCTION f (@a int) AS BEGIN RETURN 1 END", 156, 1, 28, "'AS'"},
        Broken{"CREATE FUNCTION f (@a int) RETURNS int AS RETURN 1", 156, 1, 43, "'RETURN'"},
        Broken{"CREATE FUNCTION f () RETURNS int AS BEGIN RETURN END", 455, 1, 43, "return statement"},
        Broken{"CREATE VIEW v SELECT 1", 156, 1, 15, "'SELECT'"},
        Broken{"DROP TABLE", 156, 1, 6, "'TABLE'"}));

TEST(Parser, namesWhatTheEngineDoesNotDo) {
    const char* texts[] = {"MERGE INTO t USING u ON 1 = 1",
                           "WITH x AS (SELECT 1) SELECT 1",
                           "SELECT a INTO b FROM t",
                           "SELECT a FROM t FOR XML PATH",
                           "SELECT a FROM t OPTION (RECOMPILE)",
                           "SELECT TOP 5 PERCENT a FROM t",
                           "SELECT a FROM t ORDER BY a OFFSET 5 ROWS",
                           "SELECT a FROM t CROSS APPLY u",
                           "SELECT SUM(a) OVER (PARTITION BY b) FROM t",
                           "SELECT a FROM @t",
                           "SELECT a FROM #t",
                           "SELECT a FROM t WHERE a = ANY (SELECT 1)",
                           "SELECT a FROM t WHERE a LIKE 'b' ESCAPE 'c'",
                           "SELECT a FROM sys.objects",
                           "SELECT a FROM s.d.b.t",
                           "INSERT INTO t EXEC p",
                           "INSERT INTO t OUTPUT inserted.a VALUES (1)",
                           "UPDATE t SET @a = 1",
                           "UPDATE TOP (1) t SET a = 1",
                           "DELETE TOP (1) FROM t",
                           "DECLARE @t TABLE (a int)",
                           "DECLARE @x xml",
                           "BEGIN TRAN",
                           "BEGIN TRY SELECT 1 END TRY",
                           "COMMIT",
                           "ROLLBACK",
                           "GRANT SELECT ON t TO u",
                           "WAITFOR DELAY '00:00:01'",
                           "EXEC ('SELECT 1')",
                           "SET LANGUAGE english",
                           "RAISERROR('%s', 16, 1, 'a')",
                           "CREATE TRIGGER tr ON t AFTER INSERT AS SELECT 1",
                           "CREATE TABLE t (a int CHECK (a > 1))",
                           "CREATE TABLE t (a int REFERENCES u (b))",
                           "CREATE TABLE t (a int IDENTITY(5,1))",
                           "CREATE TABLE #t (a int)",
                           "CREATE INDEX i ON t (a) WHERE a > 1",
                           "CREATE PROCEDURE p @a int OUTPUT AS SELECT 1",
                           "ALTER TABLE t DROP COLUMN a",
                           "DROP DATABASE x"};
    for (const char* text : texts) {
        try {
            Parser::batch(text);
            ADD_FAILURE() << text << ": read without an error";
        } catch (const engine::ScriptError& error) {
            EXPECT_EQ(error.number(), engine::notSupportedNumber) << text << ": " << error.what();
            EXPECT_TRUE(error.description().contains("is not supported (line 1, column "))
                << text << ": " << error.what();
        }
    }
}

TEST(Parser, turnsDownWhatIsNestedTooDeeply) {
    for (const int depth : {500, 5000}) {
        const std::string texts[] = {"SELECT " + std::string(std::size_t(depth), '(') + "1" +
                                         std::string(std::size_t(depth), ')'),
                                     "SELECT 1" +
                                         [&] {
                                             std::string sum;
                                             for (int i = 0; i < depth; ++i)
                                                 sum += " + 1";
                                             return sum;
                                         }(),
                                     [&] {
                                         std::string blocks;
                                         for (int i = 0; i < depth; ++i)
                                             blocks += "IF 1 = 1 ";
                                         return blocks + "SELECT 1";
                                     }(),
                                     [&] {
                                         std::string query = "SELECT 1 AS a";
                                         for (int i = 0; i < depth / 4; ++i)
                                             query = "SELECT a FROM (" + query + ") AS t";
                                         return query;
                                     }()};
        for (std::size_t i = 0; i < std::size(texts); ++i) {
            try {
                Parser::batch(texts[i]);
                ADD_FAILURE() << i;
            } catch (const engine::ScriptError& error) {
                EXPECT_EQ(error.number(), 191) << i;
            }
        }
    }
}

TEST(Parser, aWordThatBeginsNoStatementIsACall) {
    const engine::Script script =
        Parser::batch("  STATION..sp_Save 'a', @p = 5, N'b', NULL, DEFAULT, -1.5, word ");
    ASSERT_EQ(script.statements.size(), 1U);
    const engine::Call& call = *script.statements[0]->call;
    EXPECT_EQ(call.name.database, "STATION");
    EXPECT_EQ(call.name.name, "sp_Save");
    ASSERT_EQ(call.arguments.size(), 7U);
    EXPECT_EQ(call.arguments[1].name, "@p");
    EXPECT_EQ(int(call.arguments[3].value->kind), int(ExprKind::Null));
    EXPECT_EQ(call.arguments[4].value, nullptr);
    EXPECT_EQ(call.arguments[5].value->text, "-1.5");
    EXPECT_EQ(call.arguments[6].value->text, "word");
}

TEST(Parser, readsStatementsOneAfterTheOther) {
    const engine::Script script =
        Parser::batch("DECLARE @a int = 1; SET @a = 2 SELECT @a; ;UPDATE t SET b = 1 WHERE c = 2 EXEC p");
    ASSERT_EQ(script.statements.size(), 5U);
    EXPECT_EQ(int(script.statements[0]->kind), int(StmtKind::Set));
    EXPECT_EQ(int(script.statements[4]->kind), int(StmtKind::Execute));
    EXPECT_EQ(script.variables.size(), 1U);
}

TEST(Parser, bindsTheOperatorsAsTheServerDoes) {
    const engine::ExprPtr either = Parser::value("a = 1 OR b = 2 AND NOT c = 3");
    ASSERT_EQ(int(either->kind), int(ExprKind::Or));
    EXPECT_EQ(int(either->children[1]->kind), int(ExprKind::And));
    const engine::ExprPtr sum = Parser::value("1 + 2 * 3 - 4");
    EXPECT_EQ(sum->text, "-");
    EXPECT_EQ(sum->children[0]->children[1]->text, "*");
}

TEST(Parser, knowsTheThreeWaysOfAnAlias) {
    const engine::Script script = Parser::batch(
        "SELECT a AS x, b y, z = c, count(*) [RecCount], d 'w', getdate() as [server date] FROM t");
    const auto& items = script.statements[0]->query->cores[0].items;
    ASSERT_EQ(items.size(), 6U);
    EXPECT_EQ(items[0].alias, "x");
    EXPECT_EQ(items[1].alias, "y");
    EXPECT_EQ(items[2].alias, "z");
    EXPECT_EQ(items[3].alias, "RecCount");
    EXPECT_EQ(items[4].alias, "w");
    EXPECT_EQ(items[5].alias, "server date");
}

} // namespace
