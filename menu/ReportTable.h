#pragma once

#include <array>
#include <span>

namespace menu {

/// The reports that the menu launches. Where a report has two ways in, both stand here: they feed its
/// parameters in another order, or name another database.
enum class ReportId {
    Transaction,
    TransactionFromMenuBar,
    Statistical,
    CancelledProcedures,
    Exams,
    ExamsFromMenuBar,
    MonthlyByDate,
    MonthlyByExam,
    RequestingDoctor,
    DailyIncomeCharge,
    DailyIncomeCash,
    Audit,
    ReadersFee,
    DoctorByTransaction,
    DoctorByPayment,
    CensusAllPatients,
    CensusByStation
};

/// Where a parameter's value comes from. From and To are gReportFrom and gReportTo.
enum class Feed {
    End,
    From,
    To,
    FromAsDate, ///< in "mm/dd/yyyy"
    ToAsDate,   ///< in "mm/dd/yyyy"
    Option,
    HospitalName,
    HospitalAddress,
    DeptCode,
    EmployeeName,
    LetterA,
    LetterB,
    TodayYearFirst, ///< the workstation's date in "yyyy/mm/dd"
    TodayMonthFirst ///< the workstation's date in "mm/dd/yyyy"
};

enum class DateDialog { None, ReportDate, ReportDateOneDay, DailyReport, DateEntry };

/// What is run on the server before the report is opened.
enum class Census { None, AllPatients, ByStation };

struct ReportRow {
    static constexpr int mostFeeds = 6;

    ReportId id;
    const char* file;
    const char* database;
    DateDialog dialog;
    /// False: launched although the date dialog was cancelled.
    bool stopsOnCancel;
    std::array<Feed, mostFeeds> feeds; ///< up to the first End
    const char* title;
    bool groupTree;
    Census census;
};

std::span<const ReportRow> reportTable();
const ReportRow& reportRow(ReportId id);

} // namespace menu
