#include "menu/MenuTable.h"

#include <algorithm>
#include <string_view>

namespace menu {

namespace {

using session::MenuScreen;
using session::Work;

constexpr Command does(Deed deed) {
    return {.deed = deed};
}
constexpr Command opens(MenuScreen screen, const char* formMode = "") {
    return {.deed = Deed::OpenScreen, .screen = screen, .formMode = formMode};
}
constexpr Command guards(MenuScreen screen) {
    return {.deed = Deed::PasswordThenScreen, .screen = screen};
}
constexpr Command prints(ReportId report) {
    return {.deed = Deed::Report, .report = report};
}
constexpr Command popsUp(const char* menuName) {
    return {.deed = Deed::PopUp, .popUp = menuName};
}
constexpr Command holds() {
    return {};
}

constexpr MenuGroup groups[groupCount] = {
    {1, "request"}, {10, "results"}, {20, "folder"}, {30, "reports"}, {40, "leave"}};

constexpr SubMenuRow subMenus[] = {
    {0, 0, "Assessment", "Out-Patient Request Entry (CASH)", "1", opens(MenuScreen::Assessment),
     "assessment"},
    {0, 1, "Charge Entry", "Out-Patient Request Entry (CHARGE)", "2", does(Deed::ChooseOutPatient), "charge"},
    {0, 2, "In-Patient Request Entry", "In-Patient Request Entry", "3", opens(MenuScreen::ListPatient),
     "inpatient"},
    {0, 3, "CSR Request", "CSR Request", "18", opens(MenuScreen::CSEntry), "supply"},
    {0, 4, "Pharmacy Request", "Pharmacy Request", "18", opens(MenuScreen::PHEntry), "pharmacy"},

    {1, 0, "Result Entry", "Result Entry", "4", opens(MenuScreen::RequestMaster, "R"), "result-entry"},
    {1, 1, "Result Inquiry", "Result Inquiry", "5", opens(MenuScreen::ResultMaster, "R"), "inquiry"},
    {1, 2, "Result Cancellation", "Result Cancellation", "6", opens(MenuScreen::ResultMaster, "C"), "cancel"},

    {2, 0, "Request Cancellation", "Request Cancellation", "7", opens(MenuScreen::CancelRequest), "cancel"},
    {2, 1, "Re-Print Chargeslip", "Re-Print Chargeslip", "8", opens(MenuScreen::RePrint), "reprint"},
    {2, 2, "Assessment Status", "Assessment Status", "9", opens(MenuScreen::AssessmentStatus), "status"},
    {2, 3, "Patient's Ledger", "Patient's Ledger", "10", opens(MenuScreen::PatientLedger), "ledger"},
    {2, 4, "Walk-In Master File", "Walk-In Master File", "11", opens(MenuScreen::WalkInMaster), "walkin"},
    {2, 5, "Build File", "Add/Edit Nuclear Procedures", "", does(Deed::BuildFile), "build"},

    {3, 0, "Transaction Report", "Nuclear Transaction Report", "12", prints(ReportId::Transaction),
     "transaction"},
    {3, 1, "Monthly Report", "Monthly Report", "13", popsUp("mnuMonthlyReport"), "monthly"},
    {3, 2, "Statistical Report", "Statistical Report", "14", prints(ReportId::Statistical), "statistics"},
    {3, 3, "Daily Income Report", "Daily Income Report", "15", popsUp("mnuDailyIncomeReport"), "income"},
    {3, 4, "Cancelled Procedures", "Cancelled Procedures Report", "16", prints(ReportId::CancelledProcedures),
     "cancelled"},
    {3, 5, "Nuclear Exams", "List of Nuclear Procedures", "17", prints(ReportId::Exams), "exams"},

    {4, 0, "Quit Application", "Exit Application", "", does(Deed::ExitProgram), "quit"},
    {4, 1, "LogOff", "Change Active User", "", does(Deed::ChangeUser), "user"},
    {4, 2, "User Settings", "User Rights", "", does(Deed::UserSettings), "settings"},
};

constexpr WorkRow workRows[] = {
    {Work::Slip, "Request charged", "Slip", 2, 1},  {Work::PaidRequest, "Paid request"},
    {Work::Assessment, "Assessment", "Slip", 2, 2}, {Work::RevokedAssessment, "Assessment revoked"},
    {Work::CancelledCharge, "Charge cancelled"},    {Work::Result, "Result", "Result", 1, 1},
    {Work::RevokedResult, "Result revoked"},        {Work::SupplyRequest, "CSR request"},
    {Work::PharmacyRequest, "Pharmacy request"},    {Work::Clearance, "Cleared for discharge"},
    {Work::WalkIn, "Walk-in registered"},
};

constexpr MenuItem tree[] = {
    {"", "mnuDataEntry", "&Data Entry", holds()},
    {"mnuDataEntry", "mnuRequest", "Re&quest Entry", holds()},
    {"mnuRequest", "mnuAssessment", "&Assessment Entry", opens(MenuScreen::Assessment)},
    {"mnuRequest", "mnuOutRequest", "&OutPatient Request Entry", holds()},
    {"mnuOutRequest", "mnuOPDCashEntry", "&Cash Entry", does(Deed::OutPatientCash)},
    {"mnuOutRequest", "mnuOPDChargeEntry", "C&hargeEntry", does(Deed::OutPatientCharge)},
    {"mnuRequest", "mnuInRequest", "&InPatient Request Entry", opens(MenuScreen::ListPatient), Qt::Key_F1},
    {"mnuDataEntry", "mnuResult", "Re&sult Entry", holds()},
    {"mnuResult", "mnuResultEntry", "Result &Entry", opens(MenuScreen::RequestMaster, "R")},
    {"mnuResult", "mnuResultEditing", "Result &Viewing/Editing", opens(MenuScreen::ResultMaster, "R")},
    {"mnuResult", "mnuResultCancellation", "Result &Cancellation", opens(MenuScreen::ResultMaster, "C")},

    {"", "mnuFileMaintenance", "File &Maintenance", holds()},
    {"mnuFileMaintenance", "mnuCancellation", "Request &Cancellation", opens(MenuScreen::CancelRequest),
     Qt::Key_F2},
    {"mnuFileMaintenance", "mnuReprintChargeSlip", "Re&Print ChargeSlip", opens(MenuScreen::RePrint)},
    {"mnuFileMaintenance", "mnuAssessmentStatus", "Assessment &Status", opens(MenuScreen::AssessmentStatus)},
    {"mnuFileMaintenance", "mnuLedger", "Patient's &Ledger", opens(MenuScreen::PatientLedger), Qt::Key_F3},
    {"mnuFileMaintenance", "mnuWalkIn", "&Walk-In MasterFile", opens(MenuScreen::WalkInMaster)},
    {"mnuFileMaintenance", "mnuBuildFile", "Build_File", guards(MenuScreen::NuclearChargesBuildFile),
     Qt::Key_unknown, false},
    {"mnuFileMaintenance", "mnuReceivableEntry", "Receivable Entry", guards(MenuScreen::ReceivableSearch),
     Qt::Key_F4},
    {"mnuFileMaintenance", "mnuVerification", "OR/CHARGESLIP VERIFICATION", opens(MenuScreen::Verification),
     Qt::Key_F5},

    {"", "mnuReports", "&Reports", holds()},
    {"mnuReports", "mnuReportAudit", "Audit Report", prints(ReportId::Audit)},
    {"mnuReports", "mnuAuditReport", "&Transaction Report", prints(ReportId::TransactionFromMenuBar)},
    {"mnuReports", "mnuMonthlyReport", "&Monthly Report", holds()},
    {"mnuMonthlyReport", "mnuMonthlyByDate", "Sorted by Transaction &Date", prints(ReportId::MonthlyByDate)},
    {"mnuMonthlyReport", "mnuMonthlyByExam", "Grouped by E&xam", prints(ReportId::MonthlyByExam)},
    {"mnuReports", "mnuRequestingDoctorReport", "Re&questing Doctor Report",
     prints(ReportId::RequestingDoctor)},
    {"mnuReports", "mnuStatisticalReport", "S&tatistical Report", prints(ReportId::Statistical)},
    {"mnuReports", "mnuDailyIncomeReport", "Daily &Income Report", holds()},
    {"mnuDailyIncomeReport", "mnuDailyIncomeOPDIPD", "In/Out Patient Charge",
     prints(ReportId::DailyIncomeCharge)},
    {"mnuDailyIncomeReport", "mnuDailyIncomeCashPatient", "Cash Patients", prints(ReportId::DailyIncomeCash)},
    {"mnuReports", "mnuCancelledProcedures", "&Cancelled Procedures Report",
     prints(ReportId::CancelledProcedures)},
    {"mnuReports", "mnuReportReadersFee", "Readers Fee Report", prints(ReportId::ReadersFee)},
    {"mnuReports", "mnuDoctorsCommision", "Doctor's Commision Report", holds()},
    {"mnuDoctorsCommision", "mnuReportDoctorTD", "Based on Transaction Date",
     prints(ReportId::DoctorByTransaction)},
    {"mnuDoctorsCommision", "mnuReportDoctorPD", "Based on Payment Date", prints(ReportId::DoctorByPayment)},
    {"mnuReports", "mnuReportCensus", "Census Report", holds()},
    {"mnuReportCensus", "mnuReportCensusAllPatient", "All Patient Census",
     prints(ReportId::CensusAllPatients)},
    {"mnuReportCensus", "mnuReportCensusbyStation", "Census by Station", prints(ReportId::CensusByStation)},
    {"mnuReports", "mnuNucExams", "Nuclear &Procedures", prints(ReportId::ExamsFromMenuBar)},

    {"", "mnuExit", "E&xit Program", holds()},
    {"mnuExit", "mnuLogOff", "Change Active &User", does(Deed::ChangeUser)},
    {"mnuExit", "mnuExitMekeip", "Quit Application", does(Deed::QuitProgram)},
};

} // namespace

const MenuGroup& menuGroup(int group) {
    return groups[group];
}

std::span<const SubMenuRow> subMenuTable() {
    return subMenus;
}

const SubMenuRow* subMenuRow(int group, int number) {
    const auto row = std::ranges::find_if(
        subMenus, [&](const SubMenuRow& each) { return each.group == group && each.number == number; });
    return row == std::end(subMenus) ? nullptr : row;
}

const WorkRow& workRow(session::Work work) {
    return *std::ranges::find(workRows, work, &WorkRow::work);
}

std::span<const MenuItem> menuTree() {
    return tree;
}

Qt::Key shortcutOf(const Command& command) {
    if (command.deed != Deed::OpenScreen)
        return Qt::Key_unknown;
    for (const MenuItem& item : tree) {
        if (item.command.deed == Deed::OpenScreen && item.command.screen == command.screen &&
            std::string_view(item.command.formMode) == command.formMode)
            return item.shortcut;
    }
    return Qt::Key_unknown;
}

} // namespace menu
