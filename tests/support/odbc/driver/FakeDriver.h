#pragma once

#include "platform/ado/Provider.h"

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace tests {

struct FakeError {
    int native = 0;
    QString state;
    QString words;
    /// The line is gone from now on.
    bool cut = false;
};

/// What a server answers to one text: its results in order (one without columns is a row count), then the
/// error, if any.
struct FakeAnswer {
    std::vector<ado::Result> results;
    std::optional<FakeError> error;
};

/// Autocommit: back to it, behind a commit or a rollback; it is not written down in the steps.
enum class FakeStep { Connect, Begin, Commit, Rollback, Autocommit, Disconnect };

/// The script of the test driver: what stands behind every connection that goes through it. The driver and
/// the test program share one; the program asks for it with fakeDriver().
struct FakeDriver {
    std::function<FakeAnswer(int connection, const QString& text)> answer;
    /// What it gives is the error of the step.
    std::function<std::optional<FakeError>(int connection, FakeStep step)> step;
    QString product = QStringLiteral("Microsoft SQL Server");
    /// How wide texts are described; 0 is what some drivers say of varchar(max).
    int textSize = 0;
    /// Moments without a fraction, as drivers tell smalldatetime.
    bool wholeSeconds = false;
    /// A bound row can be read again (SQLSetPos).
    bool rereads = true;
    /// A row of the block that cannot be read, from 0; -1 is none.
    int brokenRow = -1;
    /// For each connection, in order of their opening.
    QStringList connectionTexts;
    /// Every text as it came, whatever became of it.
    QStringList texts;
    QStringList steps;
    int loginSeconds = 0;
    int statementSeconds = 0;
    /// Attributes and calls that a plain forward-only reader has no use for.
    QStringList oddCalls;
};

} // namespace tests
