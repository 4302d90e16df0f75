#pragma once

#include "platform/base/DateTime.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/screens/RecordedScreens.h"

#include <QString>

#include <gtest/gtest.h>

#include <memory>

namespace tests {

/// The moment at which the demo hospital of the tests was made: Saturday, November 21, 2026, 08:30.
base::DateTime demoMoment();
/// A fresh copy of the demo hospital, in a folder that goes when the program ends. The hospital is made once
/// for all test programs of a build folder, and again when the kit has changed.
QString demoHospital();

/// Clock fixed at demoMoment(), a demo hospital of its own, 1001 logged on, services wired, screens recorded.
class LoggedOn : public testing::Test {
  public:
    LoggedOn();
    ~LoggedOn() override;

    base::FixedClock clock{demoMoment()};
    QString file = demoHospital();
    RecordedScreens screens;
    /// The session's texts since the log-on.
    std::unique_ptr<StatementRecorder> recorder;

    /// What the recorder holds, which is then empty again.
    QStringList takeTexts();
};

} // namespace tests
