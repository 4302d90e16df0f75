#pragma once

#include "platform/ado/Recordset.h"

#include <initializer_list>

namespace session {

/// A field of a row and what is written into it.
struct Stamp {
    const char* field;
    base::Value value;
};

/// Writes the first row of a result back with these stamps; nothing when there is none. `table` names where
/// rows of a procedure come from ("DATABASE..table"); "" when the text selects from it. Raises what Update()
/// raises.
void stampRow(ado::Recordset& rows, const char* table, std::initializer_list<Stamp> stamps);

} // namespace session
