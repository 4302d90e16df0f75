#include "platform/controls/guide/GuideReader.h"

#include "platform/controls/guide/GuideBrowser.h"
#include "tests/support/screens/Driver.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QResource>
#include <QTemporaryDir>
#include <QTest>

namespace {

using controls::GuideHit;
using controls::GuidePages;

/// Three pages in a folder.
class Pages : public testing::Test {
  protected:
    Pages() {
        write("README.md", "# Contents\n\n[Requests](requests.md)\n");
        write("requests.md",
              "# Requests\n\nOne for each patient.\n\n## Delete a line\n\n**F3** deletes the [line]"
              "(README.md).\n\n![A line](pictures/line.png)\n\n| key | does |\n|---|---|\n| F5 | reads |\n");
        write("results.md", "# Results\n\nA deleted line stays.\n");
    }
    void write(const char* name, const char* text) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QStringList links(const char* words) const {
        QStringList links;
        for (const GuideHit& hit : GuidePages(folder.path()).find(QString::fromLatin1(words)))
            links += hit.link;
        return links;
    }

    QTemporaryDir folder;
};

TEST_F(Pages, TheContentsComeFirst) {
    EXPECT_EQ(GuidePages(folder.path()).names(), (QStringList{"README.md", "requests.md", "results.md"}));
}

TEST_F(Pages, ASectionIsFoundByAllOfItsWords) {
    EXPECT_EQ(links("LINE delete"), (QStringList{"requests.md#delete-a-line", "results.md"}));
    EXPECT_EQ(links("requests"), (QStringList{"requests.md", "README.md"})) << "what is named so comes first";
    EXPECT_EQ(links("f3"), QStringList{"requests.md#delete-a-line"});
    EXPECT_EQ(links("each patient"), QStringList{"requests.md"});
    EXPECT_EQ(links("delete nothing"), QStringList());
    EXPECT_EQ(links("  "), QStringList());
}

TEST_F(Pages, NeitherLinksNorPicturesNorRulesAreText) {
    EXPECT_EQ(links("png"), QStringList());
    EXPECT_EQ(links("README.md"), QStringList());
    EXPECT_EQ(links("---"), QStringList());
    EXPECT_EQ(GuidePages(folder.path()).find("F3").at(0).line, "F3 deletes the line.");
    EXPECT_EQ(GuidePages(folder.path()).find("F5").at(0).line, "F5 reads");
}

TEST_F(Pages, WhatWasTypedIsNoMarkdown) {
    const QString page = GuidePages(folder.path()).foundPage("*a* [b](c) <i>");
    EXPECT_TRUE(page.startsWith("# Found: \\*a\\* \\[b\\](c) \\<i\\>")) << page.toStdString();
}

TEST(GuideSlug, IsAsAHostOfMarkdownHasIt) {
    EXPECT_EQ(GuidePages::slugOf("Print a result"), "print-a-result");
    EXPECT_EQ(GuidePages::slugOf("What waits (N, P, G)"), "what-waits-n-p-g");
    EXPECT_EQ(GuidePages::slugOf("Walk-in: late charges"), "walk-in-late-charges");
}

} // namespace
