#pragma once

#include "platform/ado/Connection.h"
#include "platform/base/DateTime.h"

#include <QString>

#include <memory>

namespace session {

class clsCurrentUser;
class clsRegistry;
class clsAdmission;
class clsPatientMaster;
class clsCensusFind;
class clsLookupPad;
class clsDeptFind;
class clsFormulist;
class clsDispense;
class KeyPress;

/// The state of one session, written by Main() and read everywhere. Strings are "" before the log-on.
extern std::unique_ptr<clsCurrentUser> gUser;
/// The connection object of gUser; null before the log-on. Not owned.
extern ado::Connection* gConnection;
extern QString gEmployeeCode;
extern QString gServerPassword;
extern QString gDeptCode; ///< "NU"
extern QString
    gSectionCode; ///< "NU" at start; the request screens overwrite it with the revenue code of a line
extern QString gDeptLetter;
extern bool gIsNuclearDept;
extern QString gHospitalName;
extern QString gHospitalAddress;
extern QString gHospitalTitle;
extern QString gHospitalTin;
/// True once a package screen has been closed; read by the saves.
extern bool gInventoryEntry;
extern QString gCodeFindDummy;
extern std::unique_ptr<KeyPress> gKeyPress;
extern std::unique_ptr<clsRegistry> gPatient;
extern clsAdmission* gAdmission;         ///< a member of gPatient
extern clsPatientMaster* gPatientMaster; ///< a member of gPatient
extern std::unique_ptr<clsCensusFind> gPatientFind;
extern std::unique_ptr<clsLookupPad> gCodeFind;
extern std::unique_ptr<clsDeptFind> gDeptFind;
extern std::unique_ptr<clsFormulist> gFormulist;
extern std::unique_ptr<clsDispense> gDispense;
extern base::DateTime gServerDate;

/// The department's number in the hospital's user tables.
inline constexpr const char* departmentNumber = "5";

void InitDepartment(const QString& departmentNumber);
/// Logs a user on, reads the hospital's heading, wires the services and shows the main menu (through
/// screens()). Returns with no screen open when the log-on was given up or a service failed.
void Main();

/// The steps of Main() behind the log-on, for a user who is logged on already: tests and the tour. False when
/// a service failed, which has been said then.
bool wireSession(std::unique_ptr<clsCurrentUser> user);
/// Forgets user, connection and services: as before the first log-on.
void forgetSession();
/// Closes the user's connection when it is open: the first half of a change of user, before Main() again.
void LogOff();

/// The connection of the session. Raises 91 before the log-on.
ado::Connection& sharedConnection();
/// Reads over the shared connection: dynamic cursor, read-only, client side.
ado::Recordset Read(const ado::Statement& statement);
/// A read that may be written back: dynamic cursor, optimistic lock.
ado::Recordset ReadForUpdate(const ado::Statement& statement);
/// Runs a statement with no result kept.
void Run(const ado::Statement& statement);

} // namespace session
