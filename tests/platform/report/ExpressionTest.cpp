#include "platform/base/Conversion.h"
#include "platform/report/definition/ReportError.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

using base::RunTimeError;
using tests::laidOut;

namespace {

/// What the expression prints as the only field of a report.
QString printed(const QString& expression, const QString& format = {}, const tests::Cells& rows = {{"x"}}) {
    const auto document = laidOut(
        QStringLiteral("<details height=\"10mm\"><field x=\"0mm\" y=\"0mm\" width=\"80mm\" height=\"5mm\" "
                       "format=\"%2\" value=\"%1\"/></details>")
            .arg(expression.toHtmlEscaped(), format),
        QStringLiteral("A"), rows);
    return tests::textsOf(*document, 0).join(u'|');
}

QString readError(const QString& expression) {
    try {
        printed(expression);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), report::errorDamaged);
        return error.description();
    }
    return {};
}

} // namespace

TEST(Expression, JoinsAndCalculates) {
    EXPECT_EQ(printed("\"a\" & \"b\"\"c\" & 3"), "ab\"c3");
    EXPECT_EQ(printed("1 + 2 * 3 - 4 / 8"), "6.5");
    EXPECT_EQ(printed("-(1 + 2) * 2"), "-6");
    EXPECT_EQ(printed("\"7\" + 1"), "8");
}

TEST(Expression, ComparesNumbersAsNumbersAndTextsWithoutCase) {
    EXPECT_EQ(printed("If(\"10\" + 0 > 9, \"yes\", \"no\")"), "yes");
    EXPECT_EQ(printed("If(\"bone\" = \"BONE\", \"yes\", \"no\")"), "yes");
    EXPECT_EQ(printed("If(1 < 2 and not (2 <= 1) or 1 <> 1, \"yes\", \"no\")"), "yes");
}

TEST(Expression, NullIsNoNumberAndNoText) {
    EXPECT_EQ(printed("\"[\" & ({A} + 1) & \"]\"", {}, {{base::Value()}}), "[]");
    EXPECT_EQ(printed("If({A} = \"\", \"equal\", \"not\")", {}, {{base::Value()}}), "not");
    EXPECT_EQ(printed("If(IsNull({A}), \"null\", \"some\")", {}, {{base::Value()}}), "null");
}

TEST(Expression, Functions) {
    EXPECT_EQ(printed("Upper(Trim(\" ab \")) & Lower(\"CD\")"), "ABcd");
    EXPECT_EQ(printed("Left(\"abcdef\", 2) & Mid(\"abcdef\", 3, 2) & Right(\"abcdef\", 1)"), "abcdf");
    EXPECT_EQ(printed("Length(\"abc\") & Abs(-2) & Round(2.345, 2)"), "322.35");
    EXPECT_EQ(printed("Format(1234.5, \"#,##0.00\")"), "1,234.50");
    EXPECT_EQ(printed("If(IsEmpty(\"  \"), Val(\"12 mg\"), 0)"), "12");
}

TEST(Expression, FunctionsOfDates) {
    const auto birthday = *base::makeDateTime({1984, 2, 29}, {23, 30});
    EXPECT_EQ(
        printed("Year({A}) & \"/\" & Month({A}) & \"/\" & Day({A}) & \"/\" & Weekday({A})", {}, {{birthday}}),
        "1984/2/29/4");
    EXPECT_EQ(printed("Year(\"11/21/2026\") - 1"), "2025");
    EXPECT_EQ(printed("AddDays({A}, 1)", "mm/dd/yyyy hh:nn", {{birthday}}), "03/01/1984 23:30");
    EXPECT_EQ(printed("AddDays(\"01/01/2026\", -1)", "mm/dd/yyyy"), "12/31/2025");
    // The hours do not count.
    EXPECT_EQ(printed("DaysBetween({A}, \"03/01/1984 00:10\")", {}, {{birthday}}), "1");
    EXPECT_EQ(printed("DaysBetween(\"03/01/1984\", {A})", {}, {{birthday}}), "-1");
    EXPECT_EQ(printed("\"[\" & Year({A}) & AddDays({A}, 1) & DaysBetween({A}, PrintDate) & \"]\"", {},
                      {{base::Value()}}),
              "[]");
    EXPECT_THROW(printed("Year({A})", {}, {{"bone scan"}}), RunTimeError);
}

TEST(Expression, SpecialsTellTheRun) {
    EXPECT_EQ(printed("HeadingName & \", \" & HeadingAddress"), "VALE GENERAL HOSPITAL, 1 Harbour Road");
    EXPECT_EQ(printed("PrintDate", "mm/dd/yyyy"), "11/21/2026");
    EXPECT_EQ(printed("PrintedBy"), "REYES, JOAN P.");
    EXPECT_EQ(printed("PrintTime", "mm/dd/yyyy hh:mm AMPM"), "11/21/2026 08:30 PM");
    EXPECT_EQ(printed("PageNumber & \"/\" & PageCount & \"/\" & RecordNumber"), "1/1/1");
}

TEST(Expression, WhatCannotBeReadIsToldWithItsPlace) {
    EXPECT_NE(readError("1 +").indexOf("a value is missing"), -1);
    EXPECT_NE(readError("{?Nobody}").indexOf("there is no parameter \"Nobody\""), -1);
    EXPECT_NE(readError("{Elsewhere.A}").indexOf("there is no table \"Elsewhere\""), -1);
    EXPECT_NE(readError("Upper(\"a\", \"b\")").indexOf("takes another number of values"), -1);
    EXPECT_NE(readError("\"open").indexOf("a text has no end"), -1);
    EXPECT_NE(readError("1 2").indexOf("at 3"), -1);
    EXPECT_NE(readError("Sum(Sum({A}))").indexOf("a sum cannot stand in a sum"), -1);
    EXPECT_NE(readError("Sum({A}, Nowhere)").indexOf("there is no group"), -1);
}

TEST(Expression, DepthAndLengthAreBounded) {
    EXPECT_NE(readError(QString(200, u'(') + "1" + QString(200, u')')), "");
    EXPECT_NE(readError(QString("1") + QString("+1").repeated(500)), "");
    EXPECT_NE(readError(QString("not ").repeated(500) + "1"), "");
    EXPECT_NE(readError(QString(9000, u' ') + "1"), "");
}

TEST(Expression, AWrongKindOfValueStopsTheRun) {
    try {
        printed("{A} * 2", {}, {{"bone scan"}});
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), base::errors::typeMismatch);
    }
    try {
        printed("1 / 0");
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), report::errorDivision);
    }
}

TEST(Expression, AMissingColumnIsNamed) {
    try {
        printed("{Gone}");
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.description(), "Table Lines of the report gives no column Gone.");
    }
}
