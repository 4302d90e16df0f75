#include "server/engine/values/Collation.h"

#include "server/engine/values/Like.h"
#include "tests/server/engine/Hospital.h"
#include "tests/support/hospital/OldOrder.h"

#include <sqlite3.h>

#include <algorithm>
#include <random>
#include <thread>

/// The order of texts: in itself, in statements, and in files from before it.
namespace {

using engine::compareTexts;
using tests::Hospital;

TEST(Collation, caseAndBlanksAtTheEndDoNotCount) {
    for (const auto& [first, second] : std::vector<std::pair<const char*, const char*>>{{"Reyes", "REYES"},
                                                                                        {"REYES", "REYES   "},
                                                                                        {"", "  "},
                                                                                        {"peña", "PEÑA "},
                                                                                        {"ÿ", "Ÿ"},
                                                                                        {"žluť", "ŽLUŤ"},
                                                                                        {"α", "α"}})
        EXPECT_EQ(compareTexts(first, second), 0) << first << " " << second;
    for (const auto& [first, second] : std::vector<std::pair<const char*, const char*>>{
             {"PENA", "PEÑA"}, {" A", "A"}, {"I", "ı"}, {"S", "ſ"}, {"O", "Ø"}, {"SS", "ß"}, {"e", "é"}})
        EXPECT_NE(compareTexts(first, second), 0) << first << " " << second;
}

TEST(Collation, everyLetterHasItsPlace) {
    const char* const order[] = {"",   " -", "-",  "@",     "_",    "~",    "¿",     "0",  "9", "a",  "Á",
                                 "ab", "Æ",  "B",  "NUÑEZ", "Nuno", "NUÑO", "nunoz", "NZ", "Ñ", "ÑA", "NAB",
                                 "O",  "Ó",  "Øa", "z",     "Ž",    "ʔ",    "α",     "中", "😀"};
    // accents only where the letters are the same: Ñ before ÑA, NAB between them
    std::vector<std::string> sorted(std::begin(order), std::end(order));
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const std::string& a, const std::string& b) { return compareTexts(a, b) < 0; });
    const std::vector<std::string> expected{
        "",    " -",    "-",    "@",    "_",     "~",  "¿", "0", "9",  "a", "Á", "ab", "Æ", "B",  "Ñ", "ÑA",
        "NAB", "NUÑEZ", "Nuno", "NUÑO", "nunoz", "NZ", "O", "Ó", "Øa", "z", "Ž", "ʔ",  "α", "中", "😀"};
    EXPECT_EQ(sorted, expected);
}

std::string anyText(std::mt19937& random) {
    static const QString alphabet =
        QStringLiteral("aAbnN\u00D1\u00F1\u00E9E \u00DF0-_\u0131\u0253\u0181\u03B1\u0391");
    QString text;
    for (int length = int(random() % 6); length > 0; --length)
        text += alphabet[qsizetype(random() % unsigned(alphabet.size()))];
    return text.toStdString();
}

TEST(Collation, isAnOrder) {
    std::mt19937 random(20261121);
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    for (int i = 0; i < 200'000; ++i) {
        const std::string a = anyText(random);
        const std::string b = anyText(random);
        const std::string c = anyText(random);
        EXPECT_EQ(sign(compareTexts(a, b)), -sign(compareTexts(b, a))) << a << " " << b;
        if (compareTexts(a, b) <= 0 && compareTexts(b, c) <= 0) {
            EXPECT_LE(compareTexts(a, c), 0) << a << " " << b << " " << c;
        }
    }
}

TEST(Collation, whatBothBeginWithDecidesNothing) {
    std::mt19937 random(20261123);
    const std::string begun = "C0012345J NUÑEZ 0123456789";
    for (int i = 0; i < 100'000; ++i) {
        const std::string a = "x" + anyText(random);
        const std::string b = "x" + anyText(random);
        const std::string prefix = begun.substr(0, random() % begun.size());
        if ((static_cast<unsigned char>(begun[prefix.size()]) & 0xC0) == 0x80)
            continue; // in the middle of a letter
        EXPECT_EQ(compareTexts(prefix + a, prefix + b), compareTexts(a, b)) << prefix << " " << a << " " << b;
    }
    EXPECT_LT(compareTexts("01234567PENA", "01234567PEÑA"), 0);
    EXPECT_EQ(compareTexts("01234567pena  ", "01234567PENA"), 0);
    EXPECT_LT(compareTexts("PEÑA 01234567 A", "PEÑA 01234567 B"), 0);
}

TEST(Collation, whatAPatternFindsLiesBetweenItsBounds) {
    std::mt19937 random(20261122);
    int found = 0;
    for (int i = 0; i < 200'000; ++i) {
        const std::string pattern = anyText(random) + (i % 3 ? "%" : "");
        const std::string text = anyText(random);
        if (!engine::matchesLike(text, pattern))
            continue;
        ++found;
        const std::string prefix = engine::likePrefix(pattern, true);
        EXPECT_GE(compareTexts(text, prefix), 0) << text << " LIKE " << pattern;
        EXPECT_LT(compareTexts(text, prefix + "\xF4\x8F\xBF\xBF"), 0) << text << " LIKE " << pattern;
    }
    EXPECT_GT(found, 1000);
    EXPECT_EQ(engine::likePrefix("PEÑA%", true), "PEÑA");
    EXPECT_EQ(engine::likePrefix("Aα%", true), "A");
}

constexpr const char* tables = R"(
CREATE TABLE tbName (Code varchar(10) NOT NULL PRIMARY KEY, Name varchar(20) NOT NULL)
CREATE INDEX IX_Name ON tbName (Name)
INSERT INTO tbName VALUES ('1', 'NUNEZ'), ('2', 'NUÑEZ'), ('3', 'nuñez '), ('4', 'OCAMPO'), ('5', 'NUNO'), ('6', 'ñ')
)";

class CollatedFile : public testing::Test {
  protected:
    CollatedFile() { m_hospital.install(QString::fromUtf8(tables)); }
    QString rows(const char* text) { return m_hospital.rows(QString::fromUtf8(text)); }
    void takeOrderAway() { tests::takeOrderAway(m_hospital.file()); }
    void runRaw(const char* sql) {
        sqlite3* file = nullptr;
        sqlite3_open(m_hospital.file().toUtf8().constData(), &file);
        EXPECT_EQ(sqlite3_exec(file, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(file);
        sqlite3_close(file);
    }
    static QString namesIn(engine::EmbeddedProvider& provider) {
        QStringList names;
        const ado::Result result =
            provider.execute(QStringLiteral("SELECT Code FROM tbName ORDER BY Name, Code"));
        for (qsizetype row = 0; row < result.rows.count(); ++row)
            names += *result.rows.at(row, 0).asText();
        return names.join(u' ');
    }

    Hospital m_hospital;
};

constexpr const char* inOrder = "6 1 2 3 5 4";

TEST_F(CollatedFile, statementsCompareAsTheServerDoes) {
    EXPECT_EQ(rows("SELECT Code FROM tbName WHERE Name = 'nuñez'"), "2;3");
    EXPECT_EQ(rows("SELECT Code FROM tbName WHERE Name = 'NUNEZ  '"), "1");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbName WHERE Name <> 'NUÑEZ'"), "4");
    EXPECT_EQ(rows("SELECT Code FROM tbName WHERE LTRIM(Name) IN ('Ñ ', 'x') OR Name IN ('ocampo ')"), "4;6");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbName a INNER JOIN tbName b ON b.Name = a.Name"), "8");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM (SELECT DISTINCT Name FROM tbName) t"), "5");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM tbName WHERE Name LIKE 'nuñ%' GROUP BY Name"), "2");
    EXPECT_EQ(rows("SELECT CASE 'ñ ' WHEN 'Ñ' THEN 1 ELSE 0 END"), "1");
    EXPECT_EQ(rows("IF 'a  ' = 'A' SELECT 'same' ELSE SELECT 'other'"), "same");
    EXPECT_EQ(rows("SELECT Code FROM tbName WHERE Name BETWEEN 'Ñ' AND 'nunez'"), "6;1");
    EXPECT_EQ(m_hospital.error(QStringLiteral("INSERT INTO tbName VALUES ('1 ', '')")).left(4), "2627");
    EXPECT_EQ(namesIn(m_hospital.provider()), QString::fromLatin1(inOrder));
    EXPECT_TRUE(m_hospital.provider().check().isEmpty());
}

TEST_F(CollatedFile, aFileFromBeforeIsBroughtIntoOrderOnce) {
    takeOrderAway();
    runRaw("INSERT INTO \"NUCLEAR.tbName\" VALUES ('7', 'Ñ '), ('8', 'Nz')");
    const auto opened = m_hospital.open();
    EXPECT_EQ(opened->check(), QStringList());
    EXPECT_EQ(namesIn(*opened), QStringLiteral("6 7 1 2 3 5 8 4"));
    EXPECT_EQ(opened->setting(QStringLiteral("collation")), "1");
    // the provider that had the file open all the time sees the same
    EXPECT_EQ(namesIn(m_hospital.provider()), QStringLiteral("6 7 1 2 3 5 8 4"));
    EXPECT_EQ(m_hospital.open()->check(), QStringList());
}

TEST_F(CollatedFile, manyMayComeAtOnce) {
    takeOrderAway();
    constexpr int programs = 8;
    std::vector<std::thread> threads;
    std::vector<QString> seen(programs);
    for (int i = 0; i < programs; ++i)
        threads.emplace_back([this, &seen, i] {
            try {
                const auto opened = m_hospital.open();
                seen[std::size_t(i)] = namesIn(*opened) + opened->check().join(u';');
            } catch (const base::RunTimeError& error) {
                seen[std::size_t(i)] = error.description();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const QString& names : seen)
        EXPECT_EQ(names, QString::fromLatin1(inOrder));
}

TEST_F(CollatedFile, aFileWithOneKeyTwiceStaysAsItWasAndSaysSo) {
    takeOrderAway();
    runRaw("INSERT INTO \"NUCLEAR.tbName\" VALUES ('1 ', 'again')");
    {
        const auto opened = m_hospital.open();
        EXPECT_EQ(opened->check().size(), 1);
        EXPECT_EQ(namesIn(*opened), "1  1 5 2 3 4 6"); // as ever: Ñ behind Z
        const ado::Result found = opened->execute(
            QStringLiteral("SELECT Code FROM tbName WHERE Name LIKE 'nu\u00F1%' ORDER BY Code"));
        EXPECT_EQ(found.rows.count(), 2);
    }
    runRaw("DELETE FROM \"NUCLEAR.tbName\" WHERE Name = 'again'");
    const auto opened = m_hospital.open();
    EXPECT_EQ(opened->check(), QStringList());
    EXPECT_EQ(namesIn(*opened), QString::fromLatin1(inOrder));
}

TEST_F(CollatedFile, aProgramFromBeforeLeavesTheFileAlone) {
    sqlite3* file = nullptr;
    sqlite3_open(m_hospital.file().toUtf8().constData(), &file);
    EXPECT_EQ(
        sqlite3_exec(file, "INSERT INTO \"NUCLEAR.tbName\" VALUES ('9', 'x')", nullptr, nullptr, nullptr),
        SQLITE_ERROR);
    EXPECT_STREQ(sqlite3_errmsg(file), "no such collation sequence: SCINTRA");
    sqlite3_close(file);
}

} // namespace
