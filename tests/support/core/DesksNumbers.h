#pragma once

#include <string>

namespace tests {

/// While it lives the C library writes and reads numbers as a desk of that language does ("de_DE.UTF-8"), in
/// a program that did not keep the point. The test fails where the language is not to be had.
class DesksNumbers {
  public:
    explicit DesksNumbers(const char* language);
    ~DesksNumbers();
    DesksNumbers(const DesksNumbers&) = delete;
    DesksNumbers& operator=(const DesksNumbers&) = delete;

  private:
    std::string m_outer;
};

} // namespace tests
