#include "platform/controls/look/DropList.h"

#include "platform/controls/look/Look.h"

#include <QApplication>
#include <QImage>

#include <gtest/gtest.h>

#include <functional>

namespace controls {

namespace {

struct Case {
    const char* name;
    std::function<void(QComboBox& list)> set;
};

void PrintTo(const Case& one, std::ostream* stream) {
    *stream << one.name;
}

const Case cases[] = {
    {"Plain", [](QComboBox&) {}},
    {"Focused",
     [](QComboBox& list) {
         list.activateWindow();
         list.setFocus();
     }},
    {"OutOfUse", [](QComboBox& list) { list.setEnabled(false); }},
    {"Wide", [](QComboBox& list) { list.resize(331, 47); }},
    {"FromTheRight", [](QComboBox& list) { list.setLayoutDirection(Qt::RightToLeft); }},
    {"Empty", [](QComboBox& list) { list.clear(); }},
};

class DropLists : public testing::TestWithParam<Case> {
  protected:
    static QImage pictureOf(QComboBox& list) {
        list.addItems({QStringLiteral("This computer"), QStringLiteral("Kerova")});
        list.show();
        list.adjustSize();
        GetParam().set(list);
        return list.grab().toImage();
    }
};

TEST_P(DropLists, LookAsEveryOther) {
    look::apply(*qApp);
    QComboBox other;
    const QImage expected = pictureOf(other);
    other.hide();
    DropList ours;
    EXPECT_EQ(pictureOf(ours), expected);
}

INSTANTIATE_TEST_SUITE_P(Of, DropLists, testing::ValuesIn(cases),
                         [](const auto& of) { return std::string(of.param.name); });

} // namespace

} // namespace controls
