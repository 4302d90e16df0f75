#pragma once

#include "platform/ado/Provider.h"
#include "server/hospital/Progress.h"

namespace site {

/// Creates what is missing of the hospital's databases on a SQL Server, from the kit: databases, tables,
/// columns, then functions, views and procedures, which are brought up to the kit's, then the rows that no
/// hospital can do without. What is there stays. Can be run again. The login must be allowed to create
/// databases, or own them. Raises what the server says, with the kit's file and line.
void install(ado::Provider& server, const hospital::Progress& progress);

/// Puts the made-up hospital into databases that were just made, all of it or nothing. Raises 58 when there
/// are patients already.
void installDemo(ado::Provider& server, const hospital::Progress& progress);

/// Number tables without their row. install() does not fill them where requests exist, since their numbers
/// would be given out again.
QStringList missingNumbers(ado::Provider& server);

/// What differs from the kit, one line each; none when all is well. Adds nothing.
QStringList verify(ado::Provider& server);

} // namespace site
