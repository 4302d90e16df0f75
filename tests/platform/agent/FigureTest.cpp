#include "platform/agent/Figure.h"
#include "tests/support/core/Raised.h"

#include <QFile>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

const QByteArray small = "scintra-character 1\n"
                         "name small\n"
                         "size 20 30\n"
                         "; a remark\n"
                         "part box\n"
                         "polygon #FF0000 0,0 10,0 10,10 0,10\n"
                         "part dot\n"
                         "ellipse #00FF00 5,5 3,3\n"
                         "line #80FFFFFF 1.5 0,0 3,3\n"
                         "animation show\nframe 20 box\n"
                         "animation rest\nframe 20 box dot@1,-2\n"
                         "animation speak\nframe 20 box\nframe 40 dot\n"
                         "animation hide\nframe 20 box\n";

QByteArray with(const QByteArray& former, const QByteArray& other) {
    QByteArray text = small;
    EXPECT_TRUE(text.contains(former));
    return text.replace(former, other);
}

TEST(Figure, IsReadAsItIsWritten) {
    const agent::Figure figure = agent::readFigure(small);
    EXPECT_EQ(figure.name, "small");
    EXPECT_EQ(figure.size, QSize(20, 30));
    ASSERT_EQ(figure.parts.size(), 2U);
    EXPECT_EQ(figure.parts[0][0].color, QColor(255, 0, 0));
    EXPECT_EQ(figure.parts[1][1].width, 1.5);
    EXPECT_EQ(figure.parts[1][1].color.alpha(), 128);
    const auto& rest = figure.animations.at("rest");
    EXPECT_EQ(rest[0].parts[1].part, 1);
    EXPECT_EQ(rest[0].parts[1].offset, QPointF(1, -2));
    EXPECT_EQ(figure.animations.at("speak")[1].milliseconds, 40);
}

TEST(Figure, IsPaintedPartOverPart) {
    const agent::Figure figure = agent::readFigure(small);
    QImage image(20, 30, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    agent::paint(painter, figure, figure.animations.at("rest")[0]);
    painter.end();
    EXPECT_EQ(image.pixelColor(2, 8), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(7, 3), QColor(0, 255, 0)) << "moved by its offset";
    EXPECT_EQ(image.pixelColor(15, 15).alpha(), 0);
}

struct Refused {
    QByteArray former, other;
    QString said;
};

class RefusedFigure : public testing::TestWithParam<Refused> {};

TEST_P(RefusedFigure, IsToldByItsLine) {
    const auto& [former, other, said] = GetParam();
    const base::RunTimeError error = tests::raised([&] { agent::readFigure(with(former, other)); });
    EXPECT_EQ(error.number(), 321);
    EXPECT_EQ(error.description(), said);
}

INSTANTIATE_TEST_SUITE_P(
    Agent, RefusedFigure,
    testing::Values(
        Refused{"scintra-character 1", "scintra-character 2",
                "Character file, line 1: this is no character file of version 1."},
        Refused{"size 20 30", "size 20 3000",
                "Character file, line 3: \"3000\" is no number from 16 to 512."},
        Refused{"size 20 30", "size 20", "Character file, line 3: \"size\" has too few words or too many."},
        Refused{"name small\n", "", "Character file, line 18: name or size is missing."},
        Refused{"part dot", "part box", "Character file, line 7: too many parts, or one of that name."},
        Refused{"part box\n", "", "Character file, line 5: a shape without a part, or one too many."},
        Refused{"#FF0000", "red", "Character file, line 6: a colour is #RRGGBB or #AARRGGBB."},
        Refused{"10,10", "10,nan", "Character file, line 6: \"nan\" is no number from -1024 to 1024."},
        Refused{"10,10", "10", "Character file, line 6: a point is two numbers with a comma between them."},
        Refused{"ellipse", "oval", "Character file, line 8: \"oval\" is not known."},
        Refused{"animation show\n", "",
                "Character file, line 10: a frame without an animation, or one too many."},
        Refused{"animation hide", "animation dance",
                "Character file, line 17: an animation is show, rest, speak or hide."},
        Refused{"frame 20 box dot@1,-2", "frame 20 box cat",
                "Character file, line 13: a frame of a part that does not stand above it."},
        Refused{"frame 40 dot", "frame 0 dot",
                "Character file, line 16: \"0\" is no number from 20 to 10000."},
        Refused{"animation hide\nframe 20 box\n", "",
                "Character file, line 17: there is no frame of \"hide\"."}));

TEST(Figure, OfEndlessTextIsRefused) {
    EXPECT_EQ(tests::raised([] { agent::readFigure(small + QByteArray(300'000, ' ')); }).number(), 321);
}

TEST(Figure, OfTheProgramIsReadAndPaintsSomethingInEveryFrame) {
    QFile file(SCINTRA_SOURCE_DIR "/assets/merlin.acs");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const agent::Figure merlin = agent::readFigure(file.readAll());
    EXPECT_EQ(merlin.name, "merlin");
    for (const auto& [name, frames] : merlin.animations) {
        for (const agent::Frame& frame : frames) {
            QImage image(merlin.size, QImage::Format_ARGB32);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            agent::paint(painter, merlin, frame);
            painter.end();
            int painted = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    painted += image.pixelColor(x, y).alpha() > 0;
            EXPECT_GT(painted, 1500) << name.toStdString();
        }
    }
}

} // namespace
