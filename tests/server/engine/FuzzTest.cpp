#include "tests/server/engine/Hospital.h"
#include "tests/server/engine/Mutator.h"

#include "platform/ado/Quoting.h"
#include "platform/ado/Statement.h"
#include "server/engine/parser/Lexer.h"
#include "server/engine/parser/Parser.h"

#include <QDirIterator>
#include <QFile>

#include <random>

/// Texts that are nearly right, thousands of them: whatever comes in, an answer or an error comes out.
namespace {

using tests::fuzzSeeds;
using tests::fuzzTables;
using tests::Hospital;
using tests::Mutator;

/// A loop that never ends is no error.
bool mayNotEnd(const QString& text) {
    return text.contains(QLatin1StringView("WHILE"), Qt::CaseInsensitive);
}

TEST(Fuzz, theTextsItStartsFromAreGood) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(fuzzTables));
    for (const char* seed : fuzzSeeds()) {
        hospital.provider().begin();
        const QString error = hospital.error(QString::fromLatin1(seed));
        EXPECT_TRUE(error.isEmpty() || error == "50000: no") << seed << "\n" << error.toStdString();
        hospital.provider().rollback();
    }
}

TEST(Fuzz, aTextIsRunOrTurnedDown) {
    constexpr int rounds = 40'000;
    Hospital hospital;
    hospital.install(QString::fromLatin1(fuzzTables));
    Mutator mutator(20261121);
    int run = 0;
    int turnedDown = 0;
    for (int i = 0; i < rounds; ++i) {
        const std::string mutatedText = mutator.mutated(mutator.anySeed());
        const QString text = QString::fromUtf8(mutatedText.data(), qsizetype(mutatedText.size()));
        if (mayNotEnd(text))
            continue;
        hospital.provider().begin();
        try {
            hospital.run(text);
            ++run;
        } catch (const base::RunTimeError& error) {
            ++turnedDown;
            EXPECT_GT(error.number(), 0);
            EXPECT_FALSE(error.description().isEmpty()) << mutatedText;
            EXPECT_EQ(error.statement(), text);
            // what reaches SQLite must be understood there
            EXPECT_FALSE(error.description().startsWith("near \"")) << mutatedText << "\n" << error.what();
        }
        ASSERT_TRUE(hospital.provider().inTransaction()) << mutatedText;
        hospital.provider().rollback();
    }
    EXPECT_GT(run, rounds / 10);
    EXPECT_GT(turnedDown, rounds / 4);
    EXPECT_EQ(hospital.rows("SELECT COUNT(*), (SELECT COUNT(*) FROM tbB) FROM tbA"), "3|2");
    EXPECT_TRUE(hospital.provider().check().isEmpty());
}

TEST(Fuzz, outsideOfATransactionAFailureLeavesTheFileAsItWas) {
    constexpr int rounds = 600;
    Hospital hospital;
    hospital.install(QString::fromLatin1(fuzzTables));
    Mutator mutator(42);
    for (int i = 0; i < rounds; ++i) {
        const std::string call = mutator.mutated(fuzzSeeds()[std::size_t(mutator.number(2))]);
        const QString text = QString::fromUtf8(call.data(), qsizetype(call.size()));
        const QString before = hospital.rows("SELECT COUNT(*), MAX(Id) FROM tbA");
        const bool failed = !hospital.error(text).isEmpty();
        const QString after = hospital.rows("SELECT COUNT(*), MAX(Id) FROM tbA");
        EXPECT_EQ(failed && after != before, false) << call;
    }
}

TEST(Fuzz, theKitsOwnFilesAreReadOrTurnedDown) {
    constexpr int roundsPerFile = 60;
    std::vector<std::string> sources(fuzzSeeds().begin(), fuzzSeeds().end());
    QDirIterator files(QStringLiteral(SCINTRA_SOURCE_DIR "/server/sql"), {QStringLiteral("*.sql")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        sources.push_back(file.readAll().toStdString());
    }
    Mutator mutator(7);
    int read = 0;
    for (const std::string& source : sources) {
        for (int i = 0; i < roundsPerFile; ++i) {
            const std::string text = mutator.mutated(source);
            try {
                engine::Parser::batch(text);
                ++read;
            } catch (const engine::ScriptError& error) {
                EXPECT_GE(error.position().line, 1);
                EXPECT_GE(error.position().column, 1);
            }
        }
    }
    EXPECT_GT(read, 0);
}

/// What a field holds is what the server keeps, read by its scanner or taken out of the text beforehand.
TEST(Fuzz, aValueArrivesAsItWasPut) {
    constexpr int rounds = 20'000;
    const QString alphabet = QStringLiteral("\\\\\\\n\n\r\n\r-/*[%a\u00D1 ");
    std::mt19937 random(20261122);
    Hospital hospital;
    for (int i = 0; i < rounds; ++i) {
        QString value;
        for (int length = int(random() % 10); length > 0; --length)
            value += alphabet[qsizetype(random() % unsigned(alphabet.size()))];
        const QString half = value.left(value.size() / 2);
        const QString rest = value.mid(half.size());
        EXPECT_EQ(hospital.value(ado::sql("SELECT '{}{}'", half, rest).text()).asText()->toStdString(),
                  value.toStdString());
        const engine::Token token =
            engine::Lexer(ado::literal(base::Value(value + u'\'')).toStdString()).tokens().front();
        EXPECT_EQ(token.text, (value + u'\'').toStdString());
    }
}

} // namespace
