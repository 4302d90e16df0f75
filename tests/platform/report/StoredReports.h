#pragma once

#include "platform/base/TestDoors.h"
#include "platform/report/Report.h"
#include "tests/platform/report/Bench.h"
#include "tests/support/hospital/Days.h"

#include <gtest/gtest.h>

namespace tests {

/// The stored definitions, run on a made-up hospital that the tests of a program share. Values and what is
/// printed are in the tests' days.
class StoredReports : public testing::Test {
  protected:
    StoredReports();

    /// The file that is read and changed; the made-up hospital itself unless a test says otherwise. Where
    /// SCINTRA_TEST_DSN names a server, its rows are put there once.
    virtual const QString& hospitalFile() const;
    /// A session of its own in NUCLEAR.
    std::unique_ptr<ado::Provider> openHospital() const;

    std::unique_ptr<report::Report> open(const QString& file, const QStringList& values);
    report::LogOn logOn();

    /// The report as a PDF reader tells it, one line of paper a line.
    QString printed(report::Report& opened);
    QString printed(const QString& file, const QStringList& values) { return printed(*open(file, values)); }

    /// The result of one text, run in NUCLEAR.
    ado::Rows rows(const QString& query) const;
    /// The only value of the only row, as text.
    QString value(const QString& query) const;
    QString money(const QString& query) const;
    void run(const QString& statement) const { rows(statement); }

    base::FixedClock clock;
    Folder folder;
    QStringList logOns;
};

} // namespace tests
