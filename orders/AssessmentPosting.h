#pragma once

#include "platform/base/DateTime.h"

#include <QString>

namespace controls {
class FlexGrid;
}

namespace orders {

/// Whom an assessment is for; texts as the screen shows them.
struct AssessmentHeader {
    QString txtHospNum;
    QString txtIdNum; ///< "" for a walk-in
    QString txtSname, txtFname, txtMname;
    QString txtDoctorID;
};

/// Files the lines of a grid for the cashier, within the caller's transaction: nothing is charged to an
/// account. The numbers are written back through the rows that were read. Raises what a statement raises, 13
/// for a number that is none.
class AssessmentPosting {
  public:
    AssessmentPosting(const AssessmentHeader& header, const controls::FlexGrid& lines)
        : m_header(header), m_lines(lines) {}

    /// Down to the first line without a code. A line that stands in the assessment already is left out.
    void post();
    /// The session's section code and the number; "" before post().
    const QString& AssessmentRef() const { return m_assessmentRef; }

  private:
    void takeAssessmentNum();
    QString takeRowRef() const;
    void postLine(int row) const;

    const AssessmentHeader& m_header;
    const controls::FlexGrid& m_lines;
    QString ServerNow; ///< as the statements want it
    QString m_assessmentRef;
};

/// The next number, "NU" and digits, that no assessment has: one that was used by hand is skipped. Each that
/// was looked at is used up.
QString NextFreeAssessment();

} // namespace orders
