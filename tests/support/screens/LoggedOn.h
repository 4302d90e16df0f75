#pragma once

#include "platform/base/DateTime.h"
#include "platform/base/TestDoors.h"
#include "session/logon/HospitalServer.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/hospital/Days.h"
#include "tests/support/hospital/TestHospital.h"
#include "tests/support/screens/RecordedScreens.h"

#include <QString>

#include <gtest/gtest.h>

#include <memory>

namespace tests {

/// The server of a test's hospital, as the program logs on to it.
std::shared_ptr<session::HospitalServer> serverOf(const TestHospital& hospital);

/// Clock fixed at demoMoment(), a demo hospital of its own, 1001 logged on, services wired, screens recorded.
class LoggedOn : public testing::Test {
  public:
    explicit LoggedOn(Way way = usualWay());
    ~LoggedOn() override;

    TestHospital hospital;
    base::FixedClock clock{demoMoment()};
    RecordedScreens screens;
    /// The session's texts since the log-on, in the server's days.
    std::unique_ptr<StatementRecorder> recorder;

    std::shared_ptr<session::HospitalServer> server() const { return serverOf(hospital); }
    /// What the recorder holds, in the test's days; it is empty then.
    QStringList takeTexts();
    QString value(const QString& query) const { return hospital.value(query); }
    int count(const QString& table, const QString& condition) const {
        return hospital.count(table, condition);
    }
};

} // namespace tests
