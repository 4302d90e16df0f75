#include "menu/MenuTable.h"

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

namespace {

using menu::Command;
using menu::Deed;
using menu::ReportId;
using session::MenuScreen;

struct Expected {
    int group, number;
    const char *caption, *toolTip, *right;
    Deed deed;
    MenuScreen screen{};
    const char* formMode = "";
};

const Expected expectedRows[] = {
    {0, 0, "Assessment", "Out-Patient Request Entry (CASH)", "1", Deed::OpenScreen, MenuScreen::Assessment},
    {0, 1, "Charge Entry", "Out-Patient Request Entry (CHARGE)", "2", Deed::ChooseOutPatient},
    {0, 2, "In-Patient Request Entry", "In-Patient Request Entry", "3", Deed::OpenScreen,
     MenuScreen::ListPatient},
    {0, 3, "CSR Request", "CSR Request", "18", Deed::OpenScreen, MenuScreen::CSEntry},
    {0, 4, "Pharmacy Request", "Pharmacy Request", "18", Deed::OpenScreen, MenuScreen::PHEntry},
    {1, 0, "Result Entry", "Result Entry", "4", Deed::OpenScreen, MenuScreen::RequestMaster, "R"},
    {1, 1, "Result Inquiry", "Result Inquiry", "5", Deed::OpenScreen, MenuScreen::ResultMaster, "R"},
    {1, 2, "Result Cancellation", "Result Cancellation", "6", Deed::OpenScreen, MenuScreen::ResultMaster,
     "C"},
    {2, 0, "Request Cancellation", "Request Cancellation", "7", Deed::OpenScreen, MenuScreen::CancelRequest},
    {2, 1, "Re-Print Chargeslip", "Re-Print Chargeslip", "8", Deed::OpenScreen, MenuScreen::RePrint},
    {2, 2, "Assessment Status", "Assessment Status", "9", Deed::OpenScreen, MenuScreen::AssessmentStatus},
    {2, 3, "Patient's Ledger", "Patient's Ledger", "10", Deed::OpenScreen, MenuScreen::PatientLedger},
    {2, 4, "Walk-In Master File", "Walk-In Master File", "11", Deed::OpenScreen, MenuScreen::WalkInMaster},
    {2, 5, "Build File", "Add/Edit Nuclear Procedures", "", Deed::BuildFile},
    {3, 0, "Transaction Report", "Nuclear Transaction Report", "12", Deed::Report},
    {3, 1, "Monthly Report", "Monthly Report", "13", Deed::PopUp},
    {3, 2, "Statistical Report", "Statistical Report", "14", Deed::Report},
    {3, 3, "Daily Income Report", "Daily Income Report", "15", Deed::PopUp},
    {3, 4, "Cancelled Procedures", "Cancelled Procedures Report", "16", Deed::Report},
    {3, 5, "Nuclear Exams", "List of Nuclear Procedures", "17", Deed::Report},
    {4, 0, "Quit Application", "Exit Application", "", Deed::ExitProgram},
    {4, 1, "LogOff", "Change Active User", "", Deed::ChangeUser},
    {4, 2, "User Settings", "User Rights", "", Deed::UserSettings},
};

class SubMenuRows : public testing::TestWithParam<Expected> {};

TEST_P(SubMenuRows, StandsAsTold) {
    const Expected& expected = GetParam();
    const menu::SubMenuRow* row = menu::subMenuRow(expected.group, expected.number);
    ASSERT_NE(row, nullptr);
    EXPECT_STREQ(row->caption, expected.caption);
    EXPECT_STREQ(row->toolTip, expected.toolTip);
    EXPECT_STREQ(row->right, expected.right);
    EXPECT_EQ(row->command.deed, expected.deed);
    EXPECT_EQ(row->command.screen, expected.screen);
    EXPECT_STREQ(row->command.formMode, expected.formMode);
    EXPECT_STRNE(row->icon, "");
}

INSTANTIATE_TEST_SUITE_P(Menu, SubMenuRows, testing::ValuesIn(expectedRows));

TEST(SubMenuTable, HasNoOtherRows) {
    EXPECT_EQ(menu::subMenuTable().size(), std::size(expectedRows));
    EXPECT_EQ(menu::subMenuRow(1, 3), nullptr);
}

TEST(SubMenuTable, LaunchesItsReportsAndMenus) {
    EXPECT_EQ(menu::subMenuRow(3, 0)->command.report, ReportId::Transaction);
    EXPECT_STREQ(menu::subMenuRow(3, 1)->command.popUp, "mnuMonthlyReport");
    EXPECT_EQ(menu::subMenuRow(3, 2)->command.report, ReportId::Statistical);
    EXPECT_STREQ(menu::subMenuRow(3, 3)->command.popUp, "mnuDailyIncomeReport");
    EXPECT_EQ(menu::subMenuRow(3, 4)->command.report, ReportId::CancelledProcedures);
    EXPECT_EQ(menu::subMenuRow(3, 5)->command.report, ReportId::Exams);
}

TEST(SubMenuTable, CountsItsBases) {
    const int bases[] = {1, 10, 20, 30, 40};
    for (int group = 0; group < menu::groupCount; ++group)
        EXPECT_EQ(menu::menuGroup(group).subMenuBase, bases[group]);
}

TEST(SubMenuTable, KnowsTheFunctionKeysOfTheMenuBar) {
    EXPECT_EQ(menu::shortcutOf(menu::subMenuRow(0, 2)->command), Qt::Key_F1);
    EXPECT_EQ(menu::shortcutOf(menu::subMenuRow(2, 0)->command), Qt::Key_F2);
    EXPECT_EQ(menu::shortcutOf(menu::subMenuRow(2, 3)->command), Qt::Key_F3);
    EXPECT_EQ(menu::shortcutOf(menu::subMenuRow(0, 0)->command), Qt::Key_unknown);
    EXPECT_EQ(menu::shortcutOf(menu::subMenuRow(3, 0)->command), Qt::Key_unknown);
}

struct ExpectedReport {
    ReportId id;
    const char *file, *database, *title;
    menu::DateDialog dialog;
    bool stopsOnCancel, groupTree;
    QString feeds;
};

QString feedsOf(const menu::ReportRow& row) {
    // End, From, To, From/To as date, Option, Hospital name and address, dEpartment, Name of the user,
    // letters, today
    static constexpr char16_t letters[] = u".FTftOHADNabyM";
    QString text;
    for (const menu::Feed feed : row.feeds) {
        if (feed == menu::Feed::End)
            break;
        text += letters[int(feed)];
    }
    return text;
}

TEST(ReportTable, HasSeventeenRowsAsTold) {
    using menu::DateDialog;
    const ExpectedReport expected[] = {
        {ReportId::Transaction, "NuclearTrans.RPT", "NUCLEAR", "Nuclear Transaction Report",
         DateDialog::ReportDate, true, false, "FTHA"},
        {ReportId::TransactionFromMenuBar, "NuclearTrans.RPT", "Nuclear", "Nuclear Transaction Report",
         DateDialog::ReportDate, true, false, "HAFT"},
        {ReportId::Statistical, "NucStatisticalReport.RPT", "NUCLEAR", "Statistical Report",
         DateDialog::ReportDate, true, false, "FT"},
        {ReportId::CancelledProcedures, "NucCancelledProcedures.RPT", "NUCLEAR",
         "Report on Cancelled Procedures", DateDialog::ReportDate, true, false, "FT"},
        {ReportId::Exams, "NucExams.RPT", "NUCLEAR", "List of Nuclear Procedures", DateDialog::None, true,
         false, ""},
        {ReportId::ExamsFromMenuBar, "NucExams.RPT", "BUILD_FILE", "List of Nuclear Procedures",
         DateDialog::None, true, false, ""},
        {ReportId::MonthlyByDate, "NucMonthlyReport.RPT", "NUCLEAR", "Monthly Performance Report",
         DateDialog::ReportDate, true, false, "FT"},
        {ReportId::MonthlyByExam, "NucMonthlyReportPerExam.RPT", "NUCLEAR", "Monthly Performance Report",
         DateDialog::ReportDate, true, false, "FT"},
        {ReportId::RequestingDoctor, "NucRequestingDoctorreport.RPT", "NUCLEAR", "Requesting Doctor Report",
         DateDialog::ReportDate, true, false, "FT"},
        {ReportId::DailyIncomeCharge, "NucDailyIncomeReport.RPT", "NUCLEAR", "Daily Income Report",
         DateDialog::ReportDateOneDay, true, false, "aF"},
        {ReportId::DailyIncomeCash, "NucDailyIncomeReport.RPT", "NUCLEAR", "Daily Income Report",
         DateDialog::ReportDateOneDay, true, false, "bF"},
        {ReportId::Audit, "NuclearMonthlyReport.RPT", "NUCLEAR", "Transaction Report",
         DateDialog::DailyReport, true, false, "ftOA"},
        {ReportId::ReadersFee, "ReaderReport.RPT", "NUCLEAR", "Reader Report", DateDialog::DateEntry, false,
         false, "HAFT"},
        {ReportId::DoctorByTransaction, "DoctorsCommisionReport.RPT", "CARDIO", "Reader Report",
         DateDialog::DateEntry, true, false, "HADNFT"},
        {ReportId::DoctorByPayment, "DoctorsCommisionPaid.RPT", "CARDIO", "Reader Report",
         DateDialog::DateEntry, false, false, "FTDHAN"},
        {ReportId::CensusAllPatients, "GrandCensus_NVH.RPT", "Patient_Data", "Census By Station",
         DateDialog::None, true, true, "y"},
        {ReportId::CensusByStation, "CensusByStation_Nvh.RPT", "PATIENT_DATA", "Census by Station",
         DateDialog::None, true, false, "M"},
    };
    ASSERT_EQ(menu::reportTable().size(), std::size(expected));
    for (const ExpectedReport& each : expected) {
        const menu::ReportRow& row = menu::reportRow(each.id);
        SCOPED_TRACE(row.file);
        EXPECT_STREQ(row.file, each.file);
        EXPECT_STREQ(row.database, each.database);
        EXPECT_STREQ(row.title, each.title);
        EXPECT_EQ(row.dialog, each.dialog);
        EXPECT_EQ(row.stopsOnCancel, each.stopsOnCancel);
        EXPECT_EQ(row.groupTree, each.groupTree);
        EXPECT_EQ(feedsOf(row), each.feeds);
    }
}

} // namespace
