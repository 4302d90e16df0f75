#pragma once

#include "results/ResultVariant.h"

namespace results::technical {

/// What the screens without free text share: the four fields of the technical report take symbols and are
/// cleared, and Enter stops at the last of them.
inline constexpr const char* fields[] = {"txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute"};
inline constexpr const char* backQuotes[] = {
    "txtDose",    "txtProjections",     "txtRadiopharmaceutical", "txtRoute",
    "txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode"};
inline constexpr EnterMove enterMoves[] = {
    {"txtRadiopharmaceutical", "txtDose"}, {"txtDose", "txtRoute"}, {"txtRoute", "txtProjections"}};
inline constexpr EnterLookup enterLookups[] = {{"txtAttendingDrCode", 1}, {"txtRequestingDrCode", 2}};
inline constexpr const char* edited[] = {"txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode",
                                         "txtDose",    "txtProjections",     "txtRadiopharmaceutical",
                                         "txtRoute"};

} // namespace results::technical
