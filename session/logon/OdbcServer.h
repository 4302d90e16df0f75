#pragma once

#include "session/logon/HospitalServer.h"

namespace session {

/// A hospital's SQL Server behind an ODBC data source of this computer. The database login is the data
/// source's own; where it has none, the one that was given by setLogin(), which is kept as long as the
/// program runs. Sessions are in NUCLEAR.
std::shared_ptr<HospitalServer> odbcServer(const QString& dataSource);

/// One for each ODBC data source of this computer, by name.
HospitalServers odbcServers();

} // namespace session
