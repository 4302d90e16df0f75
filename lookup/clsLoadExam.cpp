#include "lookup/clsLoadExam.h"

#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "session/Session.h"

namespace lookup {

namespace {

double rate(ado::Recordset& rows, const char* column) {
    const base::Value value = rows.Fields(column).Value();
    return value.isNull() ? 0 : base::CDbl(value);
}

ado::Connection& sessionConnection() {
    if (!session::gConnection)
        throw base::RunTimeError(base::errors::objectNotSet);
    return *session::gConnection;
}

} // namespace

clsLoadExam::clsLoadExam() : clsLoadExam(sessionConnection()) {}

clsLoadExam::clsLoadExam(ado::Connection& connection) : m_connection(&connection) {}

void clsLoadExam::LoadExam(const QString& examID) {
    ado::Recordset rows;
    rows.Open(ado::sql("spNuclear_LoadExamEntry '{}'", examID), *m_connection);
    m_found = !rows.Eof();
    if (!m_found)
        return;
    m_examId = fieldText(rows, "ExamID");
    m_exam = fieldText(rows, "Exam");
    m_status = fieldText(rows, "Status");
    m_rateA = rate(rows, "RateA");
    m_rateB = rate(rows, "RateB");
    m_rateC = rate(rows, "RateC");
    m_rateD = rate(rows, "RateD");
    m_rateE = rate(rows, "RateE");
    const base::Value classification = rows.Fields("Classification").Value();
    m_classification = classification.isNull() ? QStringLiteral("A") : fieldText(rows, "Classification");
}

} // namespace lookup
