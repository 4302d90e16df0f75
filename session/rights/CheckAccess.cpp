#include "session/rights/CheckAccess.h"

#include "platform/base/Conversion.h"
#include "session/Session.h"

namespace session {

bool clsCheckAccess::WithRights(const QString& employeeCode, const QString& rightsID) {
    Run(ado::sql("NUCLEAR..spNuclear_GetSavedUserRights '{}'", employeeCode));
    ado::Recordset right = Read(ado::sql(
        "SELECT * FROM NUCLEAR..tbNuclearDumpUserRights WHERE RightsID = '{}' ", base::Trim(rightsID)));
    const bool allowed = !right.Eof();
    right.Close();
    return allowed;
}

clsCheckAccess& checkAccess() {
    static clsCheckAccess instance;
    return instance;
}

} // namespace session
