#include "server/engine/run/Binding.h"

#include "server/engine/values/DateText.h"

#include "platform/base/DateTime.h"

namespace engine {
namespace {

void bindSession(sqlite3_stmt* statement, int index, SessionValue value, const SessionState& session) {
    switch (value) {
    case SessionValue::Now:
        bindText(statement, index, isoText(base::now()));
        break;
    case SessionValue::RowCount:
        sqlite3_bind_int64(statement, index, session.rowCount);
        break;
    case SessionValue::ProcessId:
        sqlite3_bind_int(statement, index, session.processId);
        break;
    case SessionValue::HostName:
        bindText(statement, index, session.hostName);
        break;
    case SessionValue::ScopeIdentity:
        if (session.identity == 0)
            sqlite3_bind_null(statement, index);
        else
            sqlite3_bind_int64(statement, index, session.identity);
        break;
    case SessionValue::DatabaseName:
        bindText(statement, index, session.database);
        break;
    case SessionValue::ProgramName:
        bindText(statement, index, session.programName);
        break;
    case SessionValue::LoginName:
        bindText(statement, index, session.loginName);
        break;
    case SessionValue::TransactionCount:
        sqlite3_bind_int(statement, index, session.inTransaction ? 1 : 0);
        break;
    }
}

} // namespace

void bindValues(const Query& query, const std::vector<Cell>& slots, const SessionState& session) {
    sqlite3_stmt* statement = query.statement.get();
    int index = 0;
    for (const int slot : query.translation.slots) {
        ++index;
        if (slot < 0) {
            bindSession(statement, index, SessionValue(slot), session);
            continue;
        }
        const Cell& cell = slots[std::size_t(slot)];
        switch (cell.kind()) {
        case Cell::Kind::Null:
            sqlite3_bind_null(statement, index);
            break;
        case Cell::Kind::Integer:
            sqlite3_bind_int64(statement, index, cell.integer());
            break;
        case Cell::Kind::Real:
            sqlite3_bind_double(statement, index, cell.real());
            break;
        case Cell::Kind::Text: // the variable outlives the run of the statement
            sqlite3_bind_text(statement, index, cell.text().data(), int(cell.text().size()), SQLITE_STATIC);
            break;
        }
    }
}

} // namespace engine
