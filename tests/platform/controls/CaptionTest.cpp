#include "platform/controls/look/Caption.h"

#include "platform/controls/look/TextSize.h"

#include <QLineEdit>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <functional>

namespace controls {

namespace {

struct Case {
    const char* name;
    std::function<void(QLabel& label)> set;
};

void PrintTo(const Case& one, std::ostream* stream) {
    *stream << one.name;
}

QLineEdit* field() {
    static QLineEdit line;
    return &line;
}

const Case cases[] = {
    {"Plain", [](QLabel& label) { label.setText(QStringLiteral("Admission Date")); }},
    {"Blanks", [](QLabel& label) { label.setText(QStringLiteral("Given Name  ")); }},
    {"Lines", [](QLabel& label) { label.setText(QStringLiteral("Room\nclass")); }},
    {"Tab", [](QLabel& label) { label.setText(QStringLiteral("Room\tclass")); }},
    {"Empty", [](QLabel& label) { label.setText({}); }},
    {"Nothing", [](QLabel&) {}},
    {"Ampersand", [](QLabel& label) { label.setText(QStringLiteral("X-ray & Ultrasound")); }},
    {"Letter",
     [](QLabel& label) {
         label.setBuddy(field());
         label.setText(QStringLiteral("Employee &Code"));
     }},
    {"Least",
     [](QLabel& label) {
         label.setText(QStringLiteral("Age"));
         label.setMinimumSize(120, 3);
     }},
    {"Indent",
     [](QLabel& label) {
         label.setText(QStringLiteral("Age"));
         label.setIndent(9);
     }},
    {"Margins",
     [](QLabel& label) {
         label.setText(QStringLiteral("Age"));
         label.setContentsMargins(1, 2, 3, 4);
         label.setMargin(5);
     }},
    {"OuterMargins",
     [](QLabel& label) {
         label.setText(QStringLiteral("Age"));
         label.setContentsMargins(1, 2, 3, 4);
     }},
    {"Frame",
     [](QLabel& label) {
         label.setText(QStringLiteral("Age"));
         label.setFrameShape(QFrame::Box);
     }},
    {"Rich", [](QLabel& label) { label.setText(QStringLiteral("<b>Enter</b> Search")); }},
    {"RichByName",
     [](QLabel& label) {
         label.setTextFormat(Qt::RichText);
         label.setText(QStringLiteral("one two"));
     }},
    {"Marks",
     [](QLabel& label) {
         label.setTextFormat(Qt::PlainText);
         label.setText(QStringLiteral("<b>Enter</b> Search"));
     }},
    {"Broken",
     [](QLabel& label) {
         label.setWordWrap(true);
         label.setText(QStringLiteral("Setting up the hospital on this computer, which takes a moment"));
     }},
    {"Picture", [](QLabel& label) { label.setPixmap(QPixmap(31, 17)); }},
    {"Chip",
     [](QLabel& label) {
         label.setProperty("kind", "chip");
         label.setText(QStringLiteral("Room 12"));
     }},
    {"Total",
     [](QLabel& label) {
         label.setProperty("kind", "total");
         label.setText(QStringLiteral("1,250.00"));
     }},
    {"Help",
     [](QLabel& label) {
         label.setProperty("kind", "help");
         label.setText(QStringLiteral("F3 - Delete Line"));
     }},
    {"Symbol",
     [](QLabel& label) {
         label.setProperty("kind", "symbol");
         label.setText(QStringLiteral("x"));
     }},
};

class CaptionSizes : public testing::TestWithParam<Case> {};

} // namespace

TEST_P(CaptionSizes, AreALabels) {
    Caption caption;
    QLabel label;
    for (QLabel* each : {static_cast<QLabel*>(&caption), &label})
        GetParam().set(*each);
    EXPECT_EQ(caption.sizeHint(), label.sizeHint());
    EXPECT_EQ(caption.minimumSizeHint(), label.minimumSizeHint());
    for (QLabel* each : {static_cast<QLabel*>(&caption), &label}) {
        QFont large = each->font();
        large.setPointSize(21);
        each->setFont(large);
    }
    EXPECT_EQ(caption.sizeHint(), label.sizeHint()) << "in another font";
}

INSTANTIATE_TEST_SUITE_P(Label, CaptionSizes, testing::ValuesIn(cases),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(Caption, GrowsWithItsText) {
    QWidget page;
    auto* layout = new QVBoxLayout(&page);
    auto* caption = new Caption(QStringLiteral("Age"));
    layout->addWidget(caption, 0, Qt::AlignLeft);
    page.show();
    const int narrow = caption->sizeHint().width();
    caption->setText(QStringLiteral("Age in years and months"));
    layout->activate();
    EXPECT_GT(caption->width(), narrow);
    EXPECT_EQ(caption->width(), caption->sizeHint().width());
}

TEST(TextSize, IsWhatTheToolKitMeasuresTheSecondTimeToo) {
    QFont bold = QFont();
    bold.setWeight(QFont::DemiBold);
    const QString text = QStringLiteral("Exam was not done in this admission");
    for (const QFont& font : {QFont(), bold, QFont(), bold}) {
        const QFontMetrics metrics(font);
        EXPECT_EQ(textWidth(font, text), metrics.horizontalAdvance(text));
        for (const int width : {90, 4000, 90})
            EXPECT_EQ(textSize(font, text, Qt::TextWordWrap, width),
                      metrics.boundingRect(QRect(0, 0, width, 4000), Qt::TextWordWrap, text).size());
    }
    EXPECT_NE(textWidth(QFont(), text), textWidth(bold, text));
    EXPECT_NE(textSize(QFont(), text, 0, 90), textSize(QFont(), text, Qt::TextWordWrap, 90));
}

} // namespace controls
