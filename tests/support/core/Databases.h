#pragma once

#include <QStringList>

namespace tests {

/// What a file without the kit is made with.
inline QStringList databases() {
    return {"NUCLEAR",  "PATIENT_DATA", "BUILD_FILE", "BILLING",    "STATION",
            "PASSWORD", "INVENTORY",    "RADIOLOGY",  "LABORATORY", "CARDIO"};
}

} // namespace tests
