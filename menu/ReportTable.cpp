#include "menu/ReportTable.h"

#include <algorithm>

namespace menu {

namespace {

constexpr bool stops = true;
constexpr bool launchesAnyway = false;
constexpr bool plain = false;
constexpr bool tree = true;

using enum Feed;
using enum DateDialog;

constexpr ReportRow rows[] = {
    {ReportId::Transaction, "NuclearTrans.RPT", "NUCLEAR", ReportDate, stops,
     {From, To, HospitalName, HospitalAddress}, "Nuclear Transaction Report", plain, Census::None},
    {ReportId::TransactionFromMenuBar, "NuclearTrans.RPT", "Nuclear", ReportDate, stops,
     {HospitalName, HospitalAddress, From, To}, "Nuclear Transaction Report", plain, Census::None},
    {ReportId::Statistical, "NucStatisticalReport.RPT", "NUCLEAR", ReportDate, stops,
     {From, To}, "Statistical Report", plain, Census::None},
    {ReportId::CancelledProcedures, "NucCancelledProcedures.RPT", "NUCLEAR", ReportDate, stops,
     {From, To}, "Report on Cancelled Procedures", plain, Census::None},
    {ReportId::Exams, "NucExams.RPT", "NUCLEAR", DateDialog::None, stops,
     {}, "List of Nuclear Procedures", plain, Census::None},
    {ReportId::ExamsFromMenuBar, "NucExams.RPT", "BUILD_FILE", DateDialog::None, stops,
     {}, "List of Nuclear Procedures", plain, Census::None},
    {ReportId::MonthlyByDate, "NucMonthlyReport.RPT", "NUCLEAR", ReportDate, stops,
     {From, To}, "Monthly Performance Report", plain, Census::None},
    {ReportId::MonthlyByExam, "NucMonthlyReportPerExam.RPT", "NUCLEAR", ReportDate, stops,
     {From, To}, "Monthly Performance Report", plain, Census::None},
    {ReportId::RequestingDoctor, "NucRequestingDoctorreport.RPT", "NUCLEAR", ReportDate, stops,
     {From, To}, "Requesting Doctor Report", plain, Census::None},
    {ReportId::DailyIncomeCharge, "NucDailyIncomeReport.RPT", "NUCLEAR", ReportDateOneDay, stops,
     {LetterA, From}, "Daily Income Report", plain, Census::None},
    {ReportId::DailyIncomeCash, "NucDailyIncomeReport.RPT", "NUCLEAR", ReportDateOneDay, stops,
     {LetterB, From}, "Daily Income Report", plain, Census::None},
    {ReportId::Audit, "NuclearMonthlyReport.RPT", "NUCLEAR", DailyReport, stops,
     {FromAsDate, ToAsDate, Option, HospitalAddress}, "Transaction Report", plain, Census::None},
    {ReportId::ReadersFee, "ReaderReport.RPT", "NUCLEAR", DateEntry, launchesAnyway,
     {HospitalName, HospitalAddress, From, To}, "Reader Report", plain, Census::None},
    {ReportId::DoctorByTransaction, "DoctorsCommisionReport.RPT", "CARDIO", DateEntry, stops,
     {HospitalName, HospitalAddress, DeptCode, EmployeeName, From, To}, "Reader Report", plain, Census::None},
    {ReportId::DoctorByPayment, "DoctorsCommisionPaid.RPT", "CARDIO", DateEntry, launchesAnyway,
     {From, To, DeptCode, HospitalName, HospitalAddress, EmployeeName}, "Reader Report", plain, Census::None},
    {ReportId::CensusAllPatients, "GrandCensus_NVH.RPT", "Patient_Data", DateDialog::None, stops,
     {TodayYearFirst}, "Census By Station", tree, Census::AllPatients},
    {ReportId::CensusByStation, "CensusByStation_Nvh.RPT", "PATIENT_DATA", DateDialog::None, stops,
     {TodayMonthFirst}, "Census by Station", plain, Census::ByStation},
};

} // namespace

std::span<const ReportRow> reportTable() {
    return rows;
}

const ReportRow& reportRow(ReportId id) {
    return *std::ranges::find(rows, id, &ReportRow::id);
}

} // namespace menu
