#include "tests/support/core/DesksNumbers.h"

#include <gtest/gtest.h>

#include <clocale>

namespace tests {

DesksNumbers::DesksNumbers(const char* language) : m_outer(std::setlocale(LC_NUMERIC, nullptr)) {
    EXPECT_NE(std::setlocale(LC_NUMERIC, language), nullptr) << language << " is not under LOCPATH";
}

DesksNumbers::~DesksNumbers() {
    std::setlocale(LC_NUMERIC, m_outer.c_str());
}

} // namespace tests
