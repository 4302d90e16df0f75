#include "tests/server/sql/Hospital.h"

#include <sqlite3.h>

#include <algorithm>

namespace {

/// How the file finds the rows of each query that the session has prepared, line by line.
QStringList plans(sqlite3* handle, const QByteArrayList& about) {
    QStringList lines;
    for (sqlite3_stmt* each = sqlite3_next_stmt(handle, nullptr); each;
         each = sqlite3_next_stmt(handle, each)) {
        const QByteArray text = sqlite3_sql(each);
        if (std::ranges::none_of(about, [&](const QByteArray& word) { return text.contains(word); }))
            continue;
        sqlite3_stmt* explain = nullptr;
        if (sqlite3_prepare_v2(handle, "EXPLAIN QUERY PLAN " + text, -1, &explain, nullptr) != SQLITE_OK)
            ADD_FAILURE() << sqlite3_errmsg(handle);
        while (sqlite3_step(explain) == SQLITE_ROW)
            lines += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(explain, 3)));
        lines.removeAll(QStringLiteral("SCAN CONSTANT ROW"));
        sqlite3_finalize(explain);
    }
    return lines;
}

/// Every way that a search for patients can take.
const char* const searches[] = {"sp_Nuclear_getpatientbylastname 'I','SA'",
                                "sp_Nuclear_getpatientbylastname 'O','SA'",
                                "sp_Nuclear_getpatientbylastname 'I',''",
                                "sp_Nuclear_getpatientbyfirstname 'I','SA','MA'",
                                "sp_Nuclear_getpatientbyfirstname 'O','SA','MA'",
                                "sp_Nuclear_getpatientbyfirstname 'I','','MA'",
                                "sp_Nuclear_getpatientbyfirstname 'O','','MA'",
                                "sp_Nuclear_getpatientbyidnum 'I','26004001'",
                                "sp_Nuclear_getpatientbyidnum 'O','O002001'",
                                "sp_Nuclear_getpatientbyhospnum 'I','104001'",
                                "sp_Nuclear_getpatientbyhospnum 'O','104001'",
                                "spGlobal_RegularPatients '0','0','SA'",
                                "spGlobal_RegularPatients '0','0','SA,MA'",
                                "spGlobal_RegularPatients '1','0',''",
                                "spGlobal_RegularPatients '1','1','104001'",
                                "spGlobal_RegularPatients '','1', '26004001'",
                                "spGlobal_CashPatient '0', 'SA'",
                                "spGlobal_CashPatient '0','SA,MA'",
                                "spGlobal_CashPatient '1', 'W8001'",
                                "spGlobal_RegisteredOPD '0','0', 'SA'",
                                "spGlobal_RegisteredOPD '0','0', 'SA,MA'",
                                "spGlobal_RegisteredOPD '1','0', ''",
                                "spGlobal_RegisteredOPD '0','1', 'O002001'"};

/// The billed stays come two ways by name and two by number; what those found is sorted.
const char* const billedSearches[] = {"RADIOLOGY..spGlobal_BilledPatients 'SA'",
                                      "RADIOLOGY..spGlobal_BilledPatients 'SA,MA'",
                                      "RADIOLOGY..spGlobal_BilledPatients '26004001'"};

/// Plans are the file's own, so this stays with the file.
class SearchPlan : public tests::Hospital, public testing::WithParamInterface<const char*> {
  protected:
    SearchPlan() : Hospital(tests::Way::File) {}
    QStringList plan(const QByteArrayList& about = {"PATIENT_DATA.", "NUCLEAR.tbNucMaster", "STATION.tbNurse",
                                                    "NUCLEAR.tbNucPrepaid"}) {
        return plans(dynamic_cast<engine::EmbeddedProvider&>(*m_provider).handle(), about);
    }
};

class PatientSearchPlan : public SearchPlan {};

INSTANTIATE_TEST_SUITE_P(Searches, PatientSearchPlan, testing::ValuesIn(searches));

TEST_P(PatientSearchPlan, AnIndexAnswers) {
    rows(QString::fromLatin1(GetParam()));
    const QStringList lines = plan();
    EXPECT_FALSE(lines.filter(QStringLiteral("SEARCH")).isEmpty());
    EXPECT_EQ(lines.filter(QStringLiteral("SCAN")), QStringList()) << lines.join(u'\n').toStdString();
}

/// What waits of the wards and of the prepaid office: every desk asks for it all day long.
const char* const incoming[] = {"sp_Nuclear_NurseCommunication",
                                "Nuclear..sp_Nuclear_commsearchexam '26004078','A'",
                                "spNuclearcommsearchexam 'O26002095'",
                                "sp_checknursecommunicationfile '0','I','NU','1001','26004078','7000001'",
                                "sp_checknurselogbook '0','I','26004078','NU','1001','7000001'",
                                "STATION..Nurse_CheckExamStatus '26004078','30001','PH'",
                                "STATION..Nurse_CheckExam_Posted '26004078','30001','PH'",
                                "NUCLEAR..sp_Nuclear_PrepaidCheckRequest 'NU'",
                                "NUCLEAR..sp_Nuclear_PrepaidSearchRequest 'NU'",
                                "NUCLEAR..sp_Nuclear_GetPrepaidPatientInfo 'PS401'",
                                "NUCLEAR..sp_Nuclear_RequestFormInfo 'PS401', 'O26002095'"};

class IncomingPlan : public SearchPlan {};

INSTANTIATE_TEST_SUITE_P(Searches, IncomingPlan, testing::ValuesIn(incoming));

TEST_P(IncomingPlan, AnIndexAnswers) {
    rows(QString::fromLatin1(GetParam()));
    const QStringList lines = plan();
    EXPECT_FALSE(lines.filter(QStringLiteral("SEARCH")).isEmpty());
    EXPECT_EQ(lines.filter(QStringLiteral("SCAN")), QStringList()) << lines.join(u'\n').toStdString();
}

class BilledSearchPlan : public SearchPlan {};

INSTANTIATE_TEST_SUITE_P(Searches, BilledSearchPlan, testing::ValuesIn(billedSearches));

TEST_P(BilledSearchPlan, AnIndexAnswers) {
    rows(QString::fromLatin1(GetParam()));
    QStringList lines = plan();
    EXPECT_FALSE(lines.filter(QStringLiteral("SEARCH")).isEmpty());
    lines.removeIf(
        [](const QString& line) { return line == u"SCAN A" || line == u"SCAN B" || line == u"SCAN S"; });
    EXPECT_EQ(lines.filter(QStringLiteral("SCAN")), QStringList()) << lines.join(u'\n').toStdString();
}

/// The road to the results, at a million of them.
const char* const resultSearches[] = {"sp_Nuclear_RequestMaster 'SA'",
                                      "sp_Nuclear_RequestMaster '104001'",
                                      "sp_Nuclear_ResultMaster 'SA'",
                                      "sp_Nuclear_ResultMaster ''",
                                      "sp_Nuclear_ResultMaster '104001'",
                                      "sp_Nuclear_getRequest '104001'",
                                      "sp_Nuclear_GetResult '104001'",
                                      "sp_Nuclear_ResultEntry '50001'",
                                      "sp_Nuclear_GetCancelRequest_new'SA',1",
                                      "sp_Nuclear_GetCancelRequest_new'104001',2",
                                      "sp_Nuclear_GetCancelRequest_new'26004001',3",
                                      "sp_Nuclear_GetCancelRequest_new'50001',4",
                                      "sp_Nuclear_ChargesbyPatient '26004001'"};

class ResultSearchPlan : public SearchPlan {};

INSTANTIATE_TEST_SUITE_P(Searches, ResultSearchPlan, testing::ValuesIn(resultSearches));

TEST_P(ResultSearchPlan, AnIndexAnswers) {
    rows(QString::fromLatin1(GetParam()));
    QStringList lines = plan();
    EXPECT_FALSE(lines.filter(QStringLiteral("SEARCH")).isEmpty());
    // What an index has found, 200 rows at most from each way, or the patients that wait.
    lines.removeIf([](const QString& line) {
        return line == u"SCAN A" || line == u"SCAN B" || line == u"SCAN P" || line == u"SCAN L" ||
               line.startsWith(u"SCAN M USING INDEX");
    });
    EXPECT_EQ(lines.filter(QStringLiteral("SCAN")), QStringList()) << lines.join(u'\n').toStdString();
}

/// What every menu asks each half minute, however much was asked and answered before.
class PollPlan : public SearchPlan {};

INSTANTIATE_TEST_SUITE_P(Polls, PollPlan,
                         testing::Values("sp_Nuclear_NurseCommunication",
                                         "sp_Nuclear_PrepaidCheckRequest 'NU'"));

TEST_P(PollPlan, AnIndexAnswers) {
    rows(QString::fromLatin1(GetParam()));
    const QStringList lines = plan({"STATION.tbNurseCommunicationFile", "NUCLEAR.tbNucPrepaid"});
    EXPECT_FALSE(lines.filter(QStringLiteral("SEARCH")).isEmpty());
    EXPECT_EQ(lines.filter(QStringLiteral("SCAN")), QStringList()) << lines.join(u'\n').toStdString();
}

TEST_F(SearchPlan, AssessmentsAreFoundByNameAndNumberAndWithoutThemReadFromTheirEnd) {
    rows("sp_Nuclear_AssessmentStatus ''");
    const QStringList latest = plan({"tbCashAssessment"});
    EXPECT_EQ(latest.filter(QStringLiteral("SCAN")), QStringList("SCAN A"));
    EXPECT_EQ(latest.filter(QStringLiteral("ORDER BY")), QStringList()) << "sorted by nothing";
    rows("sp_Nuclear_AssessmentStatus 'SA'");
    const QStringList found = plan({"PatientName\" >="});
    EXPECT_EQ(found.filter(QStringLiteral("SEARCH A USING INDEX")).size(), 2)
        << found.join(u'\n').toStdString();
    EXPECT_EQ(found.filter(QStringLiteral("SCAN")), QStringList()) << found.join(u'\n').toStdString();
}

TEST_F(SearchPlan, TheReadersReportGoesByTheDayOfTheResults) {
    rows("sp_Nuclear_ReportReaders '11/20/2026','11/20/2026'");
    const QStringList lines = plan({"NUCLEAR.tbNucLogBook"});
    EXPECT_FALSE(lines.filter(QStringLiteral("IX_NucLogBook_ResultDate")).isEmpty())
        << lines.join(u'\n').toStdString();
    EXPECT_EQ(lines.filter(QStringLiteral("SCAN")), QStringList()) << lines.join(u'\n').toStdString();
}

TEST_F(SearchPlan, CountsNoticesInOneWalkWithAnIndexForTheAnswers) {
    rows("spNuclear_LoadDischargeNoticeCount");
    const QStringList lines = plan({"STATION.tbDischargeNotice"});
    EXPECT_EQ(lines.filter(QStringLiteral("SCAN")).size(), 1) << lines.join(u'\n').toStdString();
    EXPECT_EQ(lines.filter(QStringLiteral("SEARCH C USING")).size(), 1) << lines.join(u'\n').toStdString();
}

} // namespace
