#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "tests/support/core/DesksNumbers.h"

#include <gtest/gtest.h>

using namespace base;

namespace {

int errorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(Val, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("abc12"), 0);
    EXPECT_EQ(Val(" 1 2 . 5 x"), 12.5);
    EXPECT_EQ(Val("-3.25"), -3.25);
    EXPECT_EQ(Val("1,500"), 1);
    EXPECT_EQ(Val("1e3"), 1000);
    EXPECT_EQ(Val("1d3"), 1000);
    EXPECT_EQ(Val("1e"), 1);
    EXPECT_EQ(Val("."), 0);
    EXPECT_EQ(Val(".5."), 0.5);
    EXPECT_EQ(Val("&HFF"), 255);
    EXPECT_EQ(Val("&hFFFF"), -1);
    EXPECT_EQ(Val("&O17"), 15);
    EXPECT_EQ(Val("+7"), 7);
    EXPECT_EQ(Val("-"), 0);
}

TEST(CDbl, TakesWholeNumbersOnly) {
    EXPECT_EQ(CDbl(" 12 "), 12);
    EXPECT_EQ(CDbl("1,500.50"), 1500.5);
    EXPECT_EQ(CDbl("-.5"), -0.5);
    EXPECT_EQ(CDbl("6250.00"), 6250);
    EXPECT_EQ(CDbl("12."), 12);
    EXPECT_EQ(CDbl(".5"), 0.5);
    EXPECT_EQ(CDbl("123456789012345678901234567890"), 123456789012345678901234567890.0);
    EXPECT_EQ(errorOf([] { CDbl("."); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { CDbl("1.2.3"); }), errors::typeMismatch);
    EXPECT_EQ(CDbl(Value(true)), -1);
    EXPECT_EQ(errorOf([] { CDbl(""); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { CDbl("12abc"); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { CDbl(Value()); }), errors::invalidUseOfNull);
}

TEST(CLng, RoundsHalvesToTheEvenNumberAndOverflows) {
    EXPECT_EQ(CLng(0.5), 0);
    EXPECT_EQ(CLng(1.5), 2);
    EXPECT_EQ(CLng("2.5"), 2);
    EXPECT_EQ(errorOf([] { CLng(3e9); }), errors::overflow);
}

TEST(Numbers, HaveAPointOnADeskWithACommaToo) {
    const tests::DesksNumbers german("de_DE.UTF-8");
    EXPECT_EQ(CStr(100.5), "100.5");
    EXPECT_EQ(textOf(-1234.25), "-1234.25");
    EXPECT_EQ(Str(0.5), " 0.5");
    EXPECT_EQ(CDbl("1,500.50"), 1500.5);
    EXPECT_EQ(Val("100.50"), 100.5);
    EXPECT_EQ(Val("100,50"), 100);
    EXPECT_TRUE(IsNumeric("0.5"));
    EXPECT_EQ(Format(1234.5, "##,##0.00"), "1,234.50");
}

TEST(CStr, WritesFifteenDigits) {
    EXPECT_EQ(CStr(1234.0), "1234");
    EXPECT_EQ(CStr(0.1), "0.1");
    EXPECT_EQ(CStr(0.1 + 0.2), "0.3");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(1e15), "1E+15");
    EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
    EXPECT_EQ(CStr(0.00001), "1E-05");
    EXPECT_EQ(CStr(qint64(7)), "7");
    EXPECT_EQ(CStr(false), "False");
    EXPECT_EQ(errorOf([] { CStr(Value()); }), errors::invalidUseOfNull);
}

TEST(CStr, WritesDatesAsTheyAreSpoken) {
    EXPECT_EQ(CStr(*makeDateTime({2026, 11, 21})), "11/21/2026");
    EXPECT_EQ(CStr(*makeDateTime({2026, 1, 2}, {0, 5, 9})), "1/2/2026 12:05:09 AM");
    EXPECT_EQ(CStr(*makeDateTime({1899, 12, 30}, {13, 0, 0})), "1:00:00 PM");
}

TEST(Str, LeavesRoomForTheSign) {
    EXPECT_EQ(Str(2), " 2");
    EXPECT_EQ(Str(-2.5), "-2.5");
    EXPECT_EQ(Val(Str(1250.5)), 1250.5);
}

TEST(TextOf, NullIsEmpty) {
    EXPECT_EQ(textOf(Value()), "");
    EXPECT_FALSE(Value() == Value(QString()));
}

TEST(Trim, TakesBlanksAndNothingElse) {
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("\ta "), "\ta");
    EXPECT_EQ(LTrim("  a "), "a ");
    EXPECT_EQ(RTrim("  a "), "  a");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Tests, TellNumbersAndDates) {
    EXPECT_TRUE(IsNumeric(" 12 "));
    EXPECT_FALSE(IsNumeric(""));
    EXPECT_FALSE(IsNumeric("12a"));
    EXPECT_FALSE(IsNumeric(Value()));
    EXPECT_TRUE(IsDate("2/29/2024"));
    EXPECT_FALSE(IsDate("2/30/2024"));
    EXPECT_FALSE(IsDate(Value()));
}

TEST(CDate, ReadsWhatTheScreensWrite) {
    EXPECT_EQ(toIso(CDate("11/21/2026")), "2026-11-21 00:00:00.000");
    EXPECT_EQ(toIso(CDate("11/21/2026 08:30:05 PM")), "2026-11-21 20:30:05.000");
    EXPECT_EQ(toIso(CDate("11/21/2026 12:00:00 AM")), "2026-11-21 00:00:00.000");
    EXPECT_EQ(toIso(CDate("2026/11/21 20:30")), "2026-11-21 20:30:00.000");
    EXPECT_EQ(toIso(CDate("1/2/29")), "2029-01-02 00:00:00.000");
    EXPECT_EQ(toIso(CDate("1/2/30")), "1930-01-02 00:00:00.000");
    EXPECT_EQ(errorOf([] { CDate("soon"); }), errors::typeMismatch);
}

TEST(DateTime, CountsDaysOnBothSidesOf1970) {
    const DateTime before = *makeDateTime({1899, 12, 30}, {6, 0, 0});
    EXPECT_EQ(toSerial(before), 0.25);
    EXPECT_EQ(fromSerial(0.25), before);
    EXPECT_EQ(calendarDate(before).year, 1899);
    EXPECT_EQ(clockTime(before).hour, 6);
    EXPECT_EQ(weekday(*makeDateTime({2026, 11, 21})), 7);
    EXPECT_EQ(weekday(*makeDateTime({1969, 12, 31})), 4);
    EXPECT_EQ(toIso(*fromIso("2026-11-21 01:02:03.45", 22)), "2026-11-21 01:02:03.450");
    EXPECT_FALSE(fromIso("2026-13-21", 10));
    EXPECT_FALSE(fromIso("21.11.2026", 10));
}

TEST(Conversion, AQuoteBecomesABackQuote) {
    EXPECT_EQ(BackQuoted("O'NEIL'S `A`"), "O`NEIL`S `A`");
    EXPECT_EQ(BackQuoted(QStringLiteral("O\u02BCNEIL\u2019S \uFF07A\u2018")),
              QStringLiteral("O`NEIL`S `A\u2018"));
    EXPECT_EQ(BackQuoted({}), "");
}

TEST(Error, NamesItsNumberAndKeepsItsStatement) {
    const RunTimeError plain(errors::noCurrentRecord);
    EXPECT_TRUE(plain.description().startsWith("Either BOF or EOF is True"));
    EXPECT_EQ(RunTimeError(errors::typeMismatch).description(), "Type mismatch");
    EXPECT_EQ(RunTimeError(12345).description(), "Application-defined or object-defined error");
    const RunTimeError first = plain.withStatement("sp_A");
    EXPECT_EQ(first.withStatement("sp_B").statement(), "sp_A");
}

} // namespace
