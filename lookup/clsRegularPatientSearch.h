#pragma once

#include "lookup/FoundPatient.h"

namespace lookup {

/// Finds a registered patient. Made where it is needed and used once. CivilStatus is "1" where the file has
/// none.
class clsRegularPatientSearch : public FoundPatient {
  public:
    /// True when a patient is loaded: the only one of that hospital number, or, with `showList`, the one
    /// picked from the list. Says nothing when there is none.
    bool ValidatePatient(const QString& searchText, bool showList);
};

} // namespace lookup
