#pragma once

#include "lookup/FoundPatient.h"

namespace lookup {

/// Finds a walk-in cash patient. Made where it is needed and used once. CivilStatus is "1" where the file
/// has none.
class clsCashPatientSearch : public FoundPatient {
  public:
    /// True when a patient is loaded. Always by way of the list, for a single row too: without `showList`, or
    /// when no last name begins so, nobody is. Says nothing when there is none.
    bool ValidatePatient(const QString& searchText, bool showList);
};

} // namespace lookup
