#pragma once

#include "platform/base/Error.h"

#include <deque>

namespace tests {

/// Takes what reaches the error boundary while it lives. An error that no test takes fails it. The program
/// may go on when the recorder goes. One at a time.
class ErrorRecorder {
  public:
    ErrorRecorder();
    ~ErrorRecorder();
    ErrorRecorder(const ErrorRecorder&) = delete;
    ErrorRecorder& operator=(const ErrorRecorder&) = delete;

    bool isEmpty() const { return m_errors.empty(); }
    /// The oldest error not taken; with none the test fails and gets number 0. The boundary is reset, so that
    /// the test can go on.
    base::RunTimeError take();

    /// Fails the test with the error; what stands while no recorder lives.
    static void refuse(const base::RunTimeError& error);

  private:
    std::deque<base::RunTimeError> m_errors;
};

} // namespace tests
