#pragma once

#include "platform/ado/Connection.h"
#include "platform/controls/grid/FlexGrid.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/RecordedScreens.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace tests {

/// A session on prepared answers. Every statement is written down, every box is answered with OK.
class LookupFixture : public testing::Test {
  protected:
    LookupFixture();
    ~LookupFixture() override;

    /// One row for each list of cells.
    void answer(const char* statement, const char* columns,
                const std::vector<std::vector<base::Value>>& rows = {}, bool once = false);
    /// Statements since the last call.
    QStringList takeStatements();
    /// "style|title|prompt" of every box that came.
    QStringList boxes() const;

    ScriptedProvider* server = nullptr;
    ado::Connection connection;
    std::optional<StatementRecorder> recorder;
    RecordedScreens screens;
    MessageScript script;
};

QString cells(const controls::FlexGrid& grid, int row);

} // namespace tests
