#include "tests/support/core/DesksNumbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>

namespace tests {

namespace {

/// As the C library of the system calls it.
const char* nameOf(const char* language) {
#ifdef _WIN32
    return std::strcmp(language, "de_DE.UTF-8") == 0 ? "German_Germany.1252" : language;
#else
    return language;
#endif
}

} // namespace

DesksNumbers::DesksNumbers(const char* language) : m_outer(std::setlocale(LC_NUMERIC, nullptr)) {
    EXPECT_NE(std::setlocale(LC_NUMERIC, nameOf(language)), nullptr) << language << " is not under LOCPATH";
}

DesksNumbers::~DesksNumbers() {
    std::setlocale(LC_NUMERIC, m_outer.c_str());
}

} // namespace tests
