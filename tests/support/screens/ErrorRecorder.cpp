#include "tests/support/screens/ErrorRecorder.h"

#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/TestDoors.h"

#include <gtest/gtest.h>

namespace tests {

namespace {

std::string described(const base::RunTimeError& error) {
    return QStringLiteral("%1 %2 [%3]")
        .arg(error.number())
        .arg(error.description(), error.statement())
        .toStdString();
}

} // namespace

ErrorRecorder::ErrorRecorder() {
    controls::ErrorBoundary::setHandler(
        [this](const base::RunTimeError& error) { m_errors.push_back(error); });
}

ErrorRecorder::~ErrorRecorder() {
    for (const base::RunTimeError& error : m_errors)
        ADD_FAILURE() << "An error that the test did not take: " << described(error);
    controls::ErrorBoundary::setHandler(&ErrorRecorder::refuse);
    controls::goOn();
}

base::RunTimeError ErrorRecorder::take() {
    controls::goOn();
    if (m_errors.empty()) {
        ADD_FAILURE() << "No error came.";
        return base::RunTimeError(0);
    }
    const base::RunTimeError error = m_errors.front();
    m_errors.pop_front();
    return error;
}

void ErrorRecorder::refuse(const base::RunTimeError& error) {
    ADD_FAILURE() << "An error that nobody expected: " << described(error);
}

} // namespace tests
