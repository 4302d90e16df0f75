#include "session/reports/ReportLaunch.h"

#include "platform/base/Error.h"
#include "platform/base/Installed.h"
#include "platform/report/output/Print.h"
#include "session/Session.h"
#include "session/TestDoors.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/frmReportViewer.h"

#include <QFileInfo>

#include <algorithm>

namespace session {

std::unique_ptr<report::Report> gReport;
QString gReportFrom;
QString gReportTo;
QString gReportOption;
QString gReportOptionTitle;

namespace {

QString otherProgramFolder;

clsCurrentUser& user() {
    if (!gUser)
        throw base::RunTimeError(base::errors::objectNotSet);
    return *gUser;
}

report::Report& openReport() {
    if (!gReport)
        throw base::RunTimeError(base::errors::objectNotSet);
    return *gReport;
}

/// In stored order; values beyond the fields are ignored, fields beyond the values stay without one.
void feedParameters(report::Report& report, const std::vector<base::Value>& values) {
    const std::size_t count = std::min(values.size(), std::size_t(report.parameterNames().size()));
    for (std::size_t i = 0; i < count; ++i)
        report.setParameter(int(i), values[i]);
}

/// The table's new place: the database, and the old place from its first "." on.
QString movedTo(const QString& database, const QString& location) {
    const qsizetype point = location.indexOf(u'.');
    return point < 0 ? database + u'.' + location : database + location.mid(point);
}

} // namespace

ReportLaunchers& otherReportLaunchers() {
    static ReportLaunchers launchers;
    return launchers;
}

QString programFolder() {
    if (!otherProgramFolder.isEmpty())
        return otherProgramFolder;
    return QFileInfo(base::sharedFile(QStringLiteral("Reports"))).path();
}

void setProgramFolder(const QString& folder) {
    otherProgramFolder = folder;
}

QString reportPath(const QString& file) {
    return programFolder() + QStringLiteral("\\Reports\\") + file;
}

void OpenReport(const QString& path) {
    gReport = report::Report::open(
        path, [](const QString& server, const QString& base, const QString& login, const QString& password) {
            return user().openReportConnection(server, base, login, password);
        });
    if (gUser)
        gReport->printedBy = gUser->employeename();
}

void PrepareReport(const QString& path, const QString& database, const std::vector<base::Value>& parameters) {
    if (const auto& other = otherReportLaunchers().prepareReport)
        return other(path, database, parameters);
    OpenReport(path);
    gReport->headingName = gHospitalName;
    gReport->headingAddress = gHospitalAddress;
    for (report::TableLogOn& table : gReport->tables()) {
        table.server = user().ServerName();
        table.database = database;
        table.login = QStringLiteral("sa");
        table.password = gServerPassword;
    }
    gReport->testLogOn();
    feedParameters(*gReport, parameters);
}

void PrepareSubReport(const QString& name, const std::vector<base::Value>& parameters) {
    if (const auto& other = otherReportLaunchers().prepareSubReport)
        return other(name, parameters);
    report::Report& subReport = openReport().subReport(name);
    for (report::TableLogOn& table : subReport.tables()) {
        table.location = movedTo(user().Database(), table.location);
        table.server = user().ServerName();
        table.database = user().Database();
        table.login = QStringLiteral("sa");
        table.password = gServerPassword;
    }
    subReport.testLogOn();
    feedParameters(subReport, parameters);
}

void SetReportTableLogOn(report::TableLogOn& table, const QString& database) {
    table.location = movedTo(database, table.location);
    table.server = user().ServerName();
    table.database = database;
    table.login = user().UserID();
    table.password = user().serverpassword();
    user().openReportConnection(table.server, table.database, table.login, table.password)->Close();
}

void PrepareResult(const QString& file, const QString& IdNum, const QString& RequestNum) {
    PrepareReport(reportPath(file), QStringLiteral("NUCLEAR"), {IdNum, RequestNum});
}

void ShowResult() {
    ShowReport(false, QStringLiteral("Imaging Section Report"), false);
}

void ShowReport(bool showGroupTree, const QString& title, bool directPrint) {
    if (const auto& other = otherReportLaunchers().showReport)
        return other(showGroupTree, title, directPrint);
    report::Report& report = openReport();
    const QString hindrance = directPrint ? report::printDirect(report) : QString();
    if (directPrint && hindrance.isEmpty()) {
        gReport.reset();
        return;
    }
    frmReportViewer viewer;
    viewer.ShowGroupTree = showGroupTree;
    viewer.setWindowTitle(title);
    viewer.DirectPrint = false;
    if (directPrint) // what was to be printed may just have been saved: it is never the end of the program
        viewer.Notice = hindrance + QStringLiteral(": the page is shown, not printed.");
    viewer.ShowModal();
    gReport.reset();
}

} // namespace session
