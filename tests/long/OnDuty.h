#pragma once

#include "tests/long/Fault.h"
#include "tests/support/screens/LoggedOn.h"

#include <QString>

#include <functional>

namespace attacks {

/// 1001 logged on to a demo hospital of its own, as tests have it.
class OnDuty : public tests::LoggedOn {
    void TestBody() override {}
};

/// What runs on the screens of this process: its folder is a fresh one, errors at the boundary are said as
/// "error NUMBER TEXT, WINDOW [STATEMENT]", and one that reached nothing but the end of `body` is a fault.
/// Returns 0.
int onScreens(const std::function<void(OnDuty&)>& body);

} // namespace attacks
