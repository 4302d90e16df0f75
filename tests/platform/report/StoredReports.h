#pragma once

#include "platform/report/Report.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

namespace tests {

/// The day that the made-up hospital is made on.
inline const base::DateTime demoMoment = *base::makeDateTime({2026, 11, 21}, {8, 30, 0, 0});

/// The stored definitions, run on a made-up hospital. The file is shared by the tests of a program.
class StoredReports : public testing::Test {
  protected:
    /// Made once in this process, removed when it ends.
    static const QString& demoHospital();
    /// The file that is read and changed; the made-up hospital itself unless a test says otherwise.
    virtual const QString& hospitalFile() const { return demoHospital(); }

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

    base::FixedClock clock{demoMoment};
    Folder folder;
    QStringList logOns;
};

} // namespace tests
