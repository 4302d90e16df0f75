#pragma once

#include "platform/base/Value.h"
#include "session/logon/HospitalServer.h"

#include <QString>

#include <functional>
#include <vector>

/// What tests do to the session and no source of the program does.
namespace session {

/// What hospitalServers() gives; an empty list brings back those of this computer.
void setHospitalServers(HospitalServers servers);
/// What programFolder() gives; "" for the program's own.
void setProgramFolder(const QString& folder);
/// No password was tried wrong.
void forgetPasswordTries();

/// What is launched instead of PrepareReport, PrepareSubReport and ShowReport; an empty one is the program's
/// own.
struct ReportLaunchers {
    std::function<void(const QString& path, const QString& database, const std::vector<base::Value>& values)>
        prepareReport = {};
    std::function<void(const QString& name, const std::vector<base::Value>& values)> prepareSubReport = {};
    std::function<void(bool showGroupTree, const QString& title, bool directPrint)> showReport = {};
};
ReportLaunchers& otherReportLaunchers();

} // namespace session
