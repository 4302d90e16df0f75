#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdlib>

namespace {

// Worth something where LC_ALL says German or Turkish: this program's main has made its application.
TEST(DesksLanguage, IsLeftOutOfNumbersAndCases) {
    EXPECT_STREQ(std::localeconv()->decimal_point, ".");
    EXPECT_EQ(std::strtod("100.5", nullptr), 100.5);
    EXPECT_EQ(std::tolower('I'), 'i');
    EXPECT_EQ(std::toupper('i'), 'I');
}

} // namespace
