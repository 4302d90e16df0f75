#pragma once

#include "platform/ado/Batch.h"
#include "platform/ado/Connection.h"
#include "platform/base/DateTime.h"
#include "platform/base/TestDoors.h"
#include "tests/support/hospital/Days.h"
#include "tests/support/hospital/TestHospital.h"

#include <gtest/gtest.h>

#include <memory>

namespace tests {

/// A demo hospital of its own for each test, and a session on it. Texts and values are in the tests' days.
class Hospital : public testing::Test {
  protected:
    explicit Hospital(Way way = usualWay());

    /// The result of one text.
    ado::Rows rows(const QString& text) { return ado::runBatch(*m_provider, toServerDays(text)).rows; }
    /// The only value of the only row, as text; Null is "<Null>".
    QString value(const QString& text);
    QString cell(const ado::Rows& rows, qsizetype row, const char* column);
    /// Runs a text that gives no rows.
    void run(const QString& text) { rows(text); }
    int count(const QString& table, const QString& condition);
    /// A second workstation on the same hospital.
    std::unique_ptr<ado::Provider> workstation(const QString& name) { return m_hospital.open(name); }
    /// Hands the provider to a connection; rows() and the like are over then.
    void connect(ado::Connection& connection);

    TestHospital m_hospital;
    base::FixedClock m_clock;
    std::unique_ptr<ado::Provider> m_provider;
};

} // namespace tests
