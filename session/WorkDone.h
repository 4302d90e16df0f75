#pragma once

#include "platform/base/DateTime.h"

#include <QObject>
#include <QString>

#include <deque>

namespace session {

/// What a screen carries out for its user.
enum class Work {
    Slip,        ///< lines charged under a slip of their own
    PaidRequest, ///< lines of a receipt: there is no slip
    Assessment,
    RevokedAssessment,
    CancelledCharge,
    Result,
    RevokedResult,
    SupplyRequest,
    PharmacyRequest,
    Clearance, ///< of a patient for discharge
    WalkIn     ///< a patient taken on file
};

/// One thing that was carried out since the log-on.
struct WorkDone {
    Work work;
    QString number = {};      ///< by which the hospital knows it: slip, receipt, request; "" without one
    QString patient = {};     ///< "LAST, FIRST MIDDLE"
    QString IdNum = {};       ///< admission number; "" without one
    QString PatientType = {}; ///< of a slip: "I" or "O"
    QString report = {};      ///< of a result: its file below Reports
    base::DateTime at = {};   ///< by the workstation's clock; tellDone() sets it
};

/// The most that is kept; what is older goes.
inline constexpr std::size_t mostWorkDone = 200;

/// Told by a screen once it has succeeded. What was saved before under the same number moves to the front; a
/// result goes when it is revoked.
void tellDone(WorkDone done);
/// The newest first. Kept in memory only and for one log-on: LogOff() and forgetSession() leave nothing of
/// it.
const std::deque<WorkDone>& workDone();
void forgetWorkDone();

/// Tells of every change of what was done.
class WorkTeller : public QObject {
    Q_OBJECT

  Q_SIGNALS:
    void Changed();
};
WorkTeller& workTeller();

} // namespace session
