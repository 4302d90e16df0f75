#include "lookup/RateSelection.h"

#include "platform/base/Error.h"

#include <gtest/gtest.h>

namespace {

session::NuclearExamRecord exam() {
    session::NuclearExamRecord record;
    record.RateA = 1000.0;
    record.RateB = 2000.0;
    record.RateC = 3000.0;
    record.RateD = 4000.0;
    record.RateE = 5000.0;
    record.RateH = 6000.0;
    record.Outpatient = 7000.0;
    return record;
}

TEST(RateSelection, TakesTheRateOfTheRoomClass) {
    EXPECT_EQ(lookup::rateForClass(exam(), QStringLiteral("A")), 1000);
    EXPECT_EQ(lookup::rateForClass(exam(), QStringLiteral("B")), 2000);
    EXPECT_EQ(lookup::rateForClass(exam(), QStringLiteral("C")), 3000);
    EXPECT_EQ(lookup::rateForClass(exam(), QStringLiteral("D")), 4000);
    EXPECT_EQ(lookup::rateForClass(exam(), QStringLiteral("E")), 5000);
}

TEST(RateSelection, AnyOtherClassIsZero) {
    for (const char* roomClass : {"", "OPD", "F", "H", "a", "e", " A", "A ", "AB"})
        EXPECT_EQ(lookup::rateForClass(exam(), QString::fromLatin1(roomClass)), 0) << roomClass;
}

TEST(RateSelection, NullReadsZero) {
    session::NuclearExamRecord record = exam();
    record.RateC = nullptr;
    EXPECT_EQ(lookup::rateForClass(record, QStringLiteral("C")), 0);
}

TEST(RateSelection, ReadsNumbersThatTravelAsText) {
    session::NuclearExamRecord record = exam();
    record.RateB = "2345.50";
    EXPECT_EQ(lookup::rateForClass(record, QStringLiteral("B")), 2345.5);
}

TEST(RateSelection, AnotherClassesBrokenRateDoesNotMatter) {
    session::NuclearExamRecord record = exam();
    record.RateD = "-";
    EXPECT_EQ(lookup::rateForClass(record, QStringLiteral("A")), 1000);
    EXPECT_THROW(lookup::rateForClass(record, QStringLiteral("D")), base::RunTimeError);
}

} // namespace
