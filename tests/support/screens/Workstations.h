#pragma once

#include "tests/support/hospital/TestHospital.h"

#include <QSet>
#include <QString>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

class QProcess;

namespace tests {

/// A demo hospital of its own that workstations of their own work on: programs of the build's tests folder
/// that run tests::Workstation.
class Workstations : public testing::Test {
  public:
    /// The numbers that tell what a save left behind.
    using Counts = std::function<QList<int>()>;

    int value(const QString& query) const { return hospital.value(query).toInt(); }
    /// One save for each step, cut right before it, until one is not cut. The counts stay as they were up to
    /// then. Returns the steps of the whole save.
    int cutAtEveryStep(const QString& program, const Counts& counts);
    /// What all of them said. No line may come twice.
    QSet<QString> saveAtOnce(const QString& program, int workstations, int saves);

    TestHospital hospital;

  protected:
    /// A workstation with these arguments behind the file; it is running.
    std::unique_ptr<QProcess> start(const QString& program, const QStringList& arguments) const;
};

} // namespace tests
