#pragma once

#include "server/hospital/Kit.h"

#include <QString>

#include <vector>

namespace tests {

/// A kit that hospitals were made with (kits/*.kit, written by kits/record).
struct RecordedKit {
    QString name;                         ///< "07"
    int number;                           ///< 0: before there were numbers
    bool isInOldOrder;                    ///< given out with a server that knew case in A to Z alone
    std::vector<hospital::KitFile> files; ///< in the order in which they are to be installed
};
/// From the oldest on.
const std::vector<RecordedKit>& recordedKits();

/// A hospital file as a program with that kit made it.
void makeHospital(const RecordedKit& kit, const QString& file);

} // namespace tests
