#pragma once

#include <QString>

namespace session {

/// Answers one question of rights at a time; nothing is remembered. One shared instance: checkAccess().
class clsCheckAccess {
  public:
    /// Two statements each time: the server lists the user's rights, then one is looked up.
    bool WithRights(const QString& employeeCode, const QString& rightsID);
};

clsCheckAccess& checkAccess();

} // namespace session
