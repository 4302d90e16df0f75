#pragma once

#include "platform/base/TestDoors.h"
#include "session/Character.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ScriptedSession.h"

#include <gtest/gtest.h>

namespace tests {

using Row = std::vector<base::Value>;

/// A session on prepared answers. Every box is answered with OK.
class InquiryFixture : public testing::Test {
  protected:
    InquiryFixture();
    ~InquiryFixture() override;

    void answer(const char* statement, const char* columns, const std::vector<Row>& rows = {},
                bool once = false);
    /// No row for each that has no answer of its own; told last.
    void answerRest(std::initializer_list<const char*> statements);
    /// Statements since the last call.
    QStringList takeTexts() { return std::exchange(session.texts(), {}); }
    /// "style|title|prompt" of every box that came.
    QStringList boxes() const;

    base::FixedClock clock = fixedClock();
    ScriptedSession session;
    MessageScript script;
};

/// Writes down what it is told to do.
class RecordedCharacter : public session::Character {
  public:
    RecordedCharacter() { session::setCharacter(this); }
    ~RecordedCharacter() override { session::setCharacter(nullptr); }
    void Show() override { told += QStringLiteral("show"); }
    void Hide() override { told += QStringLiteral("hide"); }
    QStringList told;
};

} // namespace tests
