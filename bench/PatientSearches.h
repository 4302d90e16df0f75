#pragma once

#include "platform/ado/Statement.h"
#include "platform/controls/screen/Screen.h"

#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

namespace bench {

/// What the user types.
enum class Typed { Name, AdmissionNumber, HospitalNumber, OutPatientNumber, WalkInNumber };

/// One search for patients, as the program does it and as nothing but the file would.
struct PatientSearch {
    const char* name;
    Typed typed;
    ado::QueryTemplate ours; ///< "#" is the text
    /// ?1 the text or its beginning, ?2 behind everything that begins so.
    const char* raw;
    int number; ///< column of the raw query with the number that both sides must give in the same order
    std::unique_ptr<controls::Screen> (*screen)();
    int choice; ///< in the screen's cmbSearch
};

extern const std::vector<PatientSearch> patientSearches;

/// Some forty texts that can be typed. Names are starts of last names which so many patients share that each
/// search fills its list.
std::vector<std::string> typedTexts(sqlite3* handle, Typed typed);

} // namespace bench
