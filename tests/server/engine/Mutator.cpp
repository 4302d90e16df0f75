#include "tests/server/engine/Mutator.h"

#include "server/engine/parser/Keywords.h"
#include "server/engine/parser/Lexer.h"

#include <algorithm>

namespace tests {

const char* const fuzzTables = R"(
CREATE TABLE tbA (Id int IDENTITY(1,1) NOT NULL, Name varchar(10) NOT NULL DEFAULT '', Price money NULL, Born datetime NULL,
    Flag bit NOT NULL DEFAULT 0, CONSTRAINT PK_A PRIMARY KEY (Id))
CREATE TABLE tbB (Code varchar(5) NOT NULL PRIMARY KEY, AId int NULL, Rate decimal(8,2) NULL, Weight float NULL, Notes text NULL)
INSERT INTO tbA (Name, Price, Born) VALUES ('REYES', 12.5, '11/21/2026'), ('Santos', NULL, NULL), ('3', 0, '')
INSERT INTO tbB VALUES ('a', 1, 1.5, 2.5, 'x'), ('b', 2, NULL, NULL, NULL)
GO
CREATE VIEW vwA AS SELECT Id, Name, Price FROM tbA WHERE Flag = 0
GO
CREATE FUNCTION fnA (@id int) RETURNS money AS BEGIN DECLARE @p money SELECT @p = Price FROM tbA WHERE Id = @id RETURN ISNULL(@p, 0) END
GO
CREATE PROCEDURE sp_A @name varchar(5), @price money = 0, @born datetime = NULL AS
SET NOCOUNT ON
IF @price > 100 THROW 50001, 'Too dear.', 1
INSERT INTO tbA (Name, Price, Born) VALUES (@name, @price, @born)
SELECT SCOPE_IDENTITY() AS Id, @name AS Name, GETDATE() AS Stamp
)";

const std::vector<const char*>& fuzzSeeds() {
    static const std::vector<const char*> seeds{
        "sp_A 'x', '12.50', '11/21/2026 08:30:00 PM'",
        "NUCLEAR..sp_A @name = N'y', @price = 7, @born = NULL",
        "SELECT a.Id, a.Name AS n, total = a.Price * 1.25, count(*) [RecCount] FROM tbA a LEFT JOIN tbB b ON "
        "b.AId = a.Id WHERE a.Name "
        "LIKE 'r%' AND (b.Rate IS NULL OR b.Rate BETWEEN 1 AND '2') GROUP BY a.Id, a.Name, a.Price HAVING "
        "COUNT(*) > 0 ORDER BY 2 DESC",
        "SELECT TOP (2) * FROM vwA WHERE Name IN ('REYES', 'x') UNION ALL SELECT 1, LTRIM(RTRIM('a')) + "
        "CAST(5 "
        "AS varchar(3)), NULL",
        "SELECT CASE Name WHEN 'REYES' THEN dbo.fnA(Id) ELSE CONVERT(money, '5') END, CONVERT(varchar(20), "
        "Born, "
        "101), DATEADD(day, 1, "
        "ISNULL(Born, GETDATE())), DATEDIFF(mm, Born, '01/01/2027') FROM tbA ORDER BY Name",
        "SELECT SUBSTRING(Name, 1, 2), REPLACE(Name, 'E', 'xx'), STR(Price, 8, 2), ROUND(Price / 3, 2), "
        "LEN(Name), CHARINDEX('e', Name) FROM "
        "tbA WHERE NOT EXISTS (SELECT 1 FROM tbB WHERE AId = tbA.Id)",
        "INSERT INTO tbA (Name, Price, Born) VALUES ('p', 1, '2026-11-21'), (N'q', NULL, DEFAULT)",
        "INSERT INTO tbB (Code, AId) SELECT LEFT(Name, 5), Id FROM tbA WHERE Id NOT IN (SELECT AId FROM tbB)",
        "UPDATE tbA SET Name = UPPER(Name), Price = Price + 1, Born = '11/21/2026' WHERE Id = '1' AND Price "
        "<> 5",
        "UPDATE a SET Price = b.Rate FROM tbA a INNER JOIN tbB b ON b.AId = a.Id WHERE b.Weight > 1",
        "DELETE FROM vwA WHERE Price IS NULL",
        "DELETE b FROM tbB b, tbA a WHERE a.Id = b.AId",
        "DECLARE @a int = 1, @b varchar(20) SET @b = 'x' + CAST(@a AS varchar) IF @a > 0 BEGIN SELECT @b AS "
        "b "
        "END ELSE SELECT @a",
        "DECLARE @n int SELECT @n = MAX(Id) FROM tbA EXEC sp_A 'z', @n SELECT @@ROWCOUNT, @@SPID, "
        "HOST_NAME()",
        "CREATE TABLE tbC (Id int IDENTITY(1,1) NOT NULL PRIMARY KEY, A varchar(10) NULL DEFAULT 'x', "
        "CONSTRAINT "
        "UQ UNIQUE (A))",
        "CREATE UNIQUE INDEX IX_A ON tbA (Name DESC, Id)",
        "CREATE OR ALTER PROCEDURE sp_C @a int = 5, @b varchar(10) AS SET NOCOUNT ON SELECT @a, @b RETURN",
        "CREATE OR ALTER FUNCTION fnC (@a int) RETURNS varchar(10) AS BEGIN RETURN STUFF('abc', 1, @a, '') "
        "END",
        "CREATE OR ALTER VIEW vwC AS SELECT Id, Name FROM tbA WHERE Name <> '' UNION SELECT 0, 'none'",
        "IF OBJECT_ID('tbD') IS NULL BEGIN CREATE TABLE tbD (a money NOT NULL DEFAULT 0) ALTER TABLE tbD ADD "
        "b "
        "int NULL END",
        "RAISERROR('no', 16, 1) PRINT 'x' DROP VIEW IF EXISTS vwC TRUNCATE TABLE tbB",
    };
    return seeds;
}

Mutator::Mutator(unsigned seed) : m_random(seed) {
    for (const char* text : fuzzSeeds()) {
        for (const engine::Token& token : engine::Lexer(text).tokens())
            m_words.push_back({token.kind, std::string(text).substr(token.begin, token.end - token.begin)});
    }
}

std::string Mutator::mutated(std::string text) {
    const int changes = number(3) == 0 ? 2 : 1;
    for (int i = 0; i < changes && !text.empty(); ++i) {
        if (number(2) == 0 || !changeWord(text))
            change(text);
    }
    return text;
}

/// A name for a name, a sign for a sign: the text still reads, but means something else.
bool Mutator::changeWord(std::string& text) {
    std::vector<engine::Token> tokens;
    try {
        tokens = engine::Lexer(text).tokens();
    } catch (const engine::ScriptError&) {
        return false;
    }
    const engine::Token& token = tokens[std::size_t(number(int(tokens.size())))];
    for (int tries = 0; tries < 50; ++tries) {
        const auto& [kind, other] = m_words[std::size_t(number(int(m_words.size())))];
        if (kind != token.kind || engine::isReserved(other) != engine::isReserved(token.text))
            continue;
        text.replace(token.begin, token.end - token.begin, other);
        return true;
    }
    return false;
}

void Mutator::change(std::string& text) {
    static const char* const pieces[] = {
        "'",          "''",         "(",        ")",      ",",
        ".",          "..",         "=",        "--",     "/*",
        "*/",         "[",          "]",        "\"",     "@x",
        "@@",         "NULL",       "SELECT ",  " FROM ", "*",
        "-",          "%",          "1e9",      "0x1",    "9999999999999999999999",
        "\n",         "\xC3",       "\xC3\x91", "N'x'",   "UNION SELECT 1 ",
        " ORDER BY ", "CASE WHEN ", " END ",    " AS ",   "DISTINCT ",
        " IN (",      "BEGIN ",     "\x01s",    "Name",   "tbA"};
    const auto at = std::size_t(number(int(text.size())));
    const auto length = std::min<std::size_t>(text.size() - at, std::size_t(1 + number(12)));
    switch (number(7)) {
    case 0:
        text.erase(at, length);
        break;
    case 1:
        text.insert(at, pieces[number(int(std::size(pieces)))]);
        break;
    case 2:
        text[at] = char(number(256));
        break;
    case 3:
        text.insert(at, text.substr(std::size_t(number(int(text.size()))), length));
        break;
    case 4:
        text.resize(at);
        break;
    case 5:
        swapWords(text);
        break;
    default: {
        const std::string other = anySeed();
        text.insert(at, other.substr(std::size_t(number(int(other.size()))), std::size_t(1 + number(40))));
    }
    }
}

void Mutator::swapWords(std::string& text) {
    std::vector<std::string> words;
    std::size_t from = 0;
    for (std::size_t at = text.find(' '); at != std::string::npos; at = text.find(' ', from)) {
        words.push_back(text.substr(from, at - from));
        from = at + 1;
    }
    words.push_back(text.substr(from));
    std::swap(words[std::size_t(number(int(words.size())))], words[std::size_t(number(int(words.size())))]);
    text.clear();
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
}

} // namespace tests
