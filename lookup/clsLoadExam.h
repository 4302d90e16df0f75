#pragma once

#include "platform/ado/Connection.h"

#include <QString>

namespace lookup {

/// One exam of the catalogue. Keeps the connection it was made with. The properties are those of the last
/// exam loaded; an exam that is not there leaves all but Found as they were.
class clsLoadExam {
  public:
    /// On the session's connection, or on another one. Not owned.
    clsLoadExam();
    explicit clsLoadExam(ado::Connection& connection);

    /// Sets Found.
    void LoadExam(const QString& examID);

    bool Found() const { return m_found; }
    const QString& ExamID() const { return m_examId; }
    const QString& Exam() const { return m_exam; }
    const QString& RevenueID() const { return m_revenueId; }
    const QString& SectionID() const { return m_sectionId; }
    const QString& Section() const { return m_section; }
    /// The rates by room class; 0 where the file has none.
    double RateA() const { return m_rateA; }
    double RateB() const { return m_rateB; }
    double RateC() const { return m_rateC; }
    double RateD() const { return m_rateD; }
    double RateE() const { return m_rateE; }
    const QString& Status() const { return m_status; }
    /// "A" where the file has none.
    const QString& Classification() const { return m_classification; }

  private:
    ado::Connection* m_connection;
    bool m_found = false;
    QString m_examId, m_exam, m_revenueId, m_sectionId, m_section, m_status, m_classification;
    double m_rateA = 0, m_rateB = 0, m_rateC = 0, m_rateD = 0, m_rateE = 0;
};

} // namespace lookup
