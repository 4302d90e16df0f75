#pragma once

#include "session/logon/HospitalServer.h"

#include <QString>

/// What tests do to the session and no source of the program does.
namespace session {

/// What hospitalServers() gives; an empty list brings back those of this computer.
void setHospitalServers(HospitalServers servers);
/// What programFolder() gives; "" for the program's own.
void setProgramFolder(const QString& folder);
/// No password was tried wrong.
void forgetPasswordTries();

} // namespace session
