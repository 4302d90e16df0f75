#pragma once

#include "platform/base/TestDoors.h"
#include "platform/controls/grid/FlexGrid.h"
#include "results/frmResult.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ScriptedSession.h"

#include <gtest/gtest.h>

#include <map>

namespace tests {

using Row = std::vector<base::Value>;

/// The road to the entry screens on prepared answers.
class ListFixture : public testing::Test {
  protected:
    ListFixture();
    ~ListFixture() override;

    void answer(const char* statement, const char* columns, const std::vector<Row>& rows = {},
                bool once = false);
    /// What tbcoNucExam says the next time; no value: the exam is not on file.
    void answerFormType(const std::optional<base::Value>& formType);
    /// What sp_Nuclear_ResultEntry says of every request; columns that are not given are Null.
    void answerRequest(const std::map<QString, base::Value>& columns, bool once = false);
    /// A row of a result table; columns that are not given hold "<name>".
    void answerResult(const char* table, const std::map<QString, base::Value>& columns = {},
                      bool once = false);
    QStringList takeTexts() { return std::exchange(session.texts(), {}); }

    /// frmResult with one request, 90001 of exam 1001, and the mode; the first step finds it open.
    void openList(const QString& formMode, std::vector<Step> steps);
    /// The same, with the request's entry screen open: `look` sees it and closes it.
    void openEntry(const QString& formType, const QString& formMode, const Step& look);

    base::Value resultDate; ///< of the one request; Null: it has none
    base::FixedClock clock = fixedClock();
    ScriptedSession session;
    MessageScript boxes;
};

std::string lines(const QStringList& texts);
/// The names, of those given, that are shown (or enabled, or locked), parted by blanks.
QString shown(const QWidget& window, const QStringList& names);
QString disabled(const QWidget& window);
void close(QWidget& window);

inline const char* const requestColumns = "RequestNum,ExamDate,ItemID,NucExam,ResultDate,FileNumber,RefNum";

} // namespace tests
