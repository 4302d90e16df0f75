#include "session/WorkDone.h"

#include "session/Session.h"
#include "tests/support/screens/ScriptedSession.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace {

using session::tellDone;
using session::Work;
using session::workDone;

class WorkDoneTest : public testing::Test {
  protected:
    ~WorkDoneTest() override { session::forgetWorkDone(); }

    tests::ScriptedSession server;
};

TEST_F(WorkDoneTest, TheNewestStandsFirst) {
    tellDone({.work = Work::Slip, .number = "C1J", .patient = "AGUILAR, ROSARIO CRUZ"});
    tellDone({.work = Work::Result, .number = "90001"});
    ASSERT_EQ(workDone().size(), 2U);
    EXPECT_EQ(workDone()[0].number, "90001");
    EXPECT_EQ(workDone()[1].patient, "AGUILAR, ROSARIO CRUZ");
    EXPECT_FALSE(server.texts().size() > 0) << "nothing is sent for it";
}

TEST_F(WorkDoneTest, WhatIsSavedAgainStandsOnce) {
    tellDone({.work = Work::Result, .number = "90001", .patient = "before"});
    tellDone({.work = Work::Slip, .number = "90001"});
    tellDone({.work = Work::Result, .number = "90001", .patient = "after"});
    ASSERT_EQ(workDone().size(), 2U);
    EXPECT_EQ(workDone()[0].patient, "after");
    EXPECT_EQ(workDone()[1].work, Work::Slip);
}

TEST_F(WorkDoneTest, ARevokedResultIsNotLookedAtAnyMore) {
    tellDone({.work = Work::Result, .number = "90001", .IdNum = "26004078"});
    tellDone({.work = Work::Result, .number = "90002", .IdNum = "26004078"});
    tellDone({.work = Work::RevokedResult, .number = "90001", .IdNum = "26004078"});
    ASSERT_EQ(workDone().size(), 2U);
    EXPECT_EQ(workDone()[0].work, Work::RevokedResult);
    EXPECT_EQ(workDone()[1].number, "90002");
}

TEST_F(WorkDoneTest, WhatHasNoNumberStandsEachTime) {
    tellDone({.work = Work::SupplyRequest, .patient = "AGUILAR"});
    tellDone({.work = Work::SupplyRequest, .patient = "AGUILAR"});
    EXPECT_EQ(workDone().size(), 2U);
}

TEST_F(WorkDoneTest, TheOldestGoes) {
    for (std::size_t i = 0; i <= session::mostWorkDone; ++i)
        tellDone({.work = Work::Slip, .number = QString::number(i)});
    EXPECT_EQ(workDone().size(), session::mostWorkDone);
    EXPECT_EQ(workDone().back().number, "1");
}

TEST_F(WorkDoneTest, TheLogOffForgetsIt) {
    tellDone({.work = Work::Slip, .number = "C1J"});
    const QSignalSpy changes(&session::workTeller(), &session::WorkTeller::Changed);
    session::LogOff();
    EXPECT_TRUE(workDone().empty());
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(WorkDoneTest, AForgottenSessionForgetsIt) {
    tellDone({.work = Work::Slip, .number = "C1J"});
    session::forgetSession();
    EXPECT_TRUE(workDone().empty());
}

} // namespace
