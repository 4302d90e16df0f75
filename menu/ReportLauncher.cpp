#include "menu/ReportLauncher.h"

#include "platform/ado/Statement.h"
#include "platform/base/Format.h"
#include "platform/controls/screen/Screen.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"
#include "session/reports/frmDailyReport.h"
#include "session/reports/frmDateEntry.h"
#include "session/reports/frmReportDate.h"

namespace menu {

namespace {

constexpr const char* monthFirst = "mm/dd/yyyy";
constexpr const char* yearFirst = "yyyy/mm/dd";

QString todayAs(const char* pattern) {
    return base::Format(base::today(), pattern);
}

bool askReportDate(bool oneDay, const QString& report) {
    auto& dialog = controls::SharedScreen<session::frmReportDate>::fresh();
    dialog.load();
    dialog.nameReport(report);
    if (oneDay)
        dialog.hideEndDate();
    dialog.ShowModal();
    const bool cancelled = dialog.Cancel;
    if (!cancelled) {
        session::gReportFrom = dialog.startdate;
        session::gReportTo = dialog.enddate;
    }
    dialog.Unload();
    return !cancelled;
}

/// False when there is no date to report on. The rows that do not heed it go on with what stands there.
bool haveDates() {
    return !session::gReportFrom.isEmpty() && session::gReportFrom != QStringLiteral("CANCEL");
}

template <typename Dialog>
bool askDatesOf(const QString& report) {
    auto& dialog = controls::SharedScreen<Dialog>::fresh();
    dialog.nameReport(report);
    dialog.ShowModal();
    return haveDates();
}

bool askDates(DateDialog dialog, const QString& report) {
    switch (dialog) {
    case DateDialog::None:
        return true;
    case DateDialog::ReportDate:
        return askReportDate(false, report);
    case DateDialog::ReportDateOneDay:
        return askReportDate(true, report);
    case DateDialog::DailyReport:
        return askDatesOf<session::frmDailyReport>(report);
    case DateDialog::DateEntry:
        return askDatesOf<session::frmDateEntry>(report);
    }
    return true;
}

void runCensus(Census census) {
    if (census == Census::AllPatients)
        session::Run(ado::sql("Patient_Data..sp_adm_censusallpatient '{}',''", todayAs(yearFirst)));
    if (census == Census::ByStation)
        session::Run(ado::sql("PATIENT_DATA..sp_adm_censusbystation '{}',''", todayAs(yearFirst)));
}

base::Value valueOf(Feed feed) {
    switch (feed) {
    case Feed::From:
        return session::gReportFrom;
    case Feed::To:
        return session::gReportTo;
    case Feed::FromAsDate:
        return base::Format(session::gReportFrom, monthFirst);
    case Feed::ToAsDate:
        return base::Format(session::gReportTo, monthFirst);
    case Feed::Option:
        return session::gReportOption;
    case Feed::HospitalName:
        return session::gHospitalName;
    case Feed::HospitalAddress:
        return session::gHospitalAddress;
    case Feed::DeptCode:
        return session::gDeptCode;
    case Feed::EmployeeName:
        return session::gUser->employeename();
    case Feed::LetterA:
        return "A";
    case Feed::LetterB:
        return "B";
    case Feed::TodayYearFirst:
        return todayAs(yearFirst);
    case Feed::TodayMonthFirst:
        return todayAs(monthFirst);
    case Feed::End:
        break;
    }
    return {};
}

} // namespace

std::vector<base::Value> parametersOf(const ReportRow& row) {
    std::vector<base::Value> values;
    for (const Feed feed : row.feeds) {
        if (feed == Feed::End)
            break;
        values.push_back(valueOf(feed));
    }
    return values;
}

Launch launchReport(const ReportRow& row) {
    if (!askDates(row.dialog, row.title) && row.stopsOnCancel)
        return Launch::Cancelled;
    runCensus(row.census);
    session::PrepareReport(session::reportPath(row.file), row.database, parametersOf(row));
    if (row.census == Census::ByStation)
        session::PrepareSubReport(QStringLiteral("Summary"), {"PATIENT_DATA", todayAs(yearFirst)});
    session::ShowReport(row.groupTree, row.title, false);
    return Launch::Shown;
}

} // namespace menu
