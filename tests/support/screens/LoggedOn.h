#pragma once

#include "platform/base/DateTime.h"
#include "session/HospitalServer.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/odbc/TestDriver.h"
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

/// How a test's session reaches its demo hospital.
enum class Way {
    File, ///< by the server that comes along
    Odbc, ///< over ODBC: the test driver, behind which the same file stands
    Site  ///< over ODBC on the SQL Server that SCINTRA_TEST_DSN names; its clock is its own
};
/// File; Odbc when SCINTRA_TEST_OVER_ODBC is set.
Way usualWay();

/// Clock fixed at demoMoment(), a demo hospital of its own, 1001 logged on, services wired, screens recorded.
class LoggedOn : public testing::Test {
  public:
    explicit LoggedOn(Way way = usualWay());
    ~LoggedOn() override;

    base::FixedClock clock{demoMoment()};
    QString file = demoHospital();
    /// What stands behind the test driver, on the way Odbc.
    std::unique_ptr<LoopbackServer> loopback;
    RecordedScreens screens;
    /// The session's texts since the log-on.
    std::unique_ptr<StatementRecorder> recorder;

    /// What the recorder holds, which is then empty again.
    QStringList takeTexts();

  private:
    std::shared_ptr<session::HospitalServer> hospital(Way way);
};

} // namespace tests
