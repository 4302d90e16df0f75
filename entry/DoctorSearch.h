#pragma once

#include "session/services/Services.h"

#include <optional>

class QLineEdit;

namespace entry {

/// The requesting doctor by the code in `txtDoctorID`: both fields are filled. Nothing when none was chosen;
/// a list that was left is said.
std::optional<session::DoctorRecord> findDoctorByCode(QLineEdit& txtDoctorID, QLineEdit& txtDoctor,
                                                      bool withMiddleName);
/// The doctor by the name in `txtDoctor`, which is filled. Nothing, and nothing said, when none was chosen.
std::optional<session::DoctorRecord> findDoctorByName(QLineEdit& txtDoctor);

} // namespace entry
