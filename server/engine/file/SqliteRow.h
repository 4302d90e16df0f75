#pragma once

#include "server/engine/file/SharedTexts.h"
#include "server/engine/file/Sqlite.h"
#include "server/engine/values/Cell.h"

#include "platform/ado/Provider.h"

namespace engine {

void readColumn(sqlite3_stmt* statement, int column, Cell& cell);
void readValue(sqlite3_value* value, Cell& cell);
/// Adds the present row of the statement to the rows, each value by the type of its column.
void appendRow(sqlite3_stmt* statement, ado::Rows& rows, SharedTexts& texts);
/// Takes the present row in place of what `row` held.
void readRow(sqlite3_stmt* statement, const std::vector<ado::Column>& columns, std::vector<base::Value>& row,
             SharedTexts& texts);

} // namespace engine
