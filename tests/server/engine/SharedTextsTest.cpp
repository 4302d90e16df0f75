#include "server/engine/file/SharedTexts.h"

#include <gtest/gtest.h>

namespace {

using engine::SharedTexts;

TEST(SharedTexts, ATextThatComesAgainIsShared) {
    SharedTexts texts;
    for (const char* text : {"MANILA", "M", "PEÑA", "\xEF\xBB\xBFmarked"}) {
        const QString first = texts.shown(text);
        EXPECT_EQ(texts.shown(text).constData(), first.constData()) << text;
    }
}

TEST(SharedTexts, WhoeverWritesIntoItWritesIntoHisOwn) {
    SharedTexts texts;
    texts.shown("MANILA").replace(u'M', u'V');
    EXPECT_EQ(texts.shown("MANILA"), QStringLiteral("MANILA"));
}

// More texts than there are places, many of which are alike in length, first, middle and last letter.
TEST(SharedTexts, EachTextIsShownAsItself) {
    SharedTexts texts;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 5'000; ++i) {
            const QString text = QString::number(i % 10) + QString::number(i).rightJustified(6, u'0') +
                                 (i % 3 == 0 ? QStringLiteral("ñ") : QStringLiteral("n"));
            ASSERT_EQ(texts.shown(text.toStdString()), text);
        }
    }
}

TEST(SharedTexts, ALongTextIsNotTakenForOneThatBeginsLikeIt) {
    SharedTexts texts;
    for (int round = 0; round < 2; ++round) {
        for (std::size_t size = 1; size < 600; ++size)
            ASSERT_EQ(texts.shown(std::string(size, 'x')).size(), qsizetype(size));
    }
}

TEST(SharedTexts, BytesThatLookAlikeAreToldApart) {
    SharedTexts texts;
    EXPECT_EQ(texts.shown("\xC3\xB1"), QStringLiteral("ñ"));
    EXPECT_EQ(texts.shown("\xC3\x83\xC2\xB1"), QStringLiteral("Ã±"));
    EXPECT_EQ(texts.shown(std::string_view("a\0b", 3)), QString::fromLatin1("a\0b", 3));
    EXPECT_EQ(texts.shown(std::string_view("a\0c", 3)), QString::fromLatin1("a\0c", 3));
    EXPECT_EQ(texts.shown("\xEF\xBB\xBF"
                          "a"),
              QStringLiteral("\uFEFFa"));
}

TEST(SharedTexts, NothingIsNoNull) {
    SharedTexts texts;
    EXPECT_TRUE(texts.shown("").isEmpty());
    EXPECT_FALSE(texts.shown("").isNull());
}

TEST(SharedTexts, LongTextsAreNotKept) {
    SharedTexts texts;
    const std::string finding(200, 'x');
    const QString first = texts.shown(finding);
    EXPECT_EQ(first, QString::fromStdString(finding));
    EXPECT_NE(texts.shown(finding).constData(), first.constData());
}

} // namespace
