#include "entry/DoctorSearch.h"

#include "platform/controls/screen/MessageBox.h"
#include "session/Session.h"

#include <QLineEdit>

namespace entry {

using session::clsLookupPad;
using session::gCodeFind;

std::optional<session::DoctorRecord> findDoctorByCode(QLineEdit& txtDoctorID, QLineEdit& txtDoctor,
                                                      bool withMiddleName) {
    gCodeFind->SearchMode = true;
    if (!gCodeFind->SearchListing(txtDoctorID.text(), clsLookupPad::doctors)) {
        if (gCodeFind->Cancelled())
            controls::MsgBox(QStringLiteral("You must fill in the Requesting Doctor First!"),
                             controls::vbCritical, QStringLiteral("DoctorId"));
        return std::nullopt;
    }
    const session::DoctorRecord doctor = gCodeFind->DoctorRecord;
    const QString middle = withMiddleName ? doctor.MiddleName + u' ' : QString();
    txtDoctor.setText(QStringLiteral("DR. %1 %2%3").arg(doctor.FirstName, middle, doctor.LastName));
    txtDoctorID.setText(doctor.ResultCode);
    return doctor;
}

std::optional<session::DoctorRecord> findDoctorByName(QLineEdit& txtDoctor) {
    gCodeFind->SearchMode = true;
    if (!gCodeFind->SearchListing(txtDoctor.text(), clsLookupPad::doctors))
        return std::nullopt;
    const session::DoctorRecord doctor = gCodeFind->DoctorRecord;
    txtDoctor.setText(QStringLiteral("%1,%2 %3").arg(doctor.LastName, doctor.FirstName, doctor.MiddleName));
    return doctor;
}

} // namespace entry
