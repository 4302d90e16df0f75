#include "tests/support/core/Raised.h"

#include <gtest/gtest.h>

namespace tests {

base::RunTimeError raised(const std::function<void()>& body) {
    try {
        body();
    } catch (const base::RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return base::RunTimeError(0);
}

} // namespace tests
