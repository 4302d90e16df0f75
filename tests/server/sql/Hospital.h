#pragma once

#include "platform/ado/Connection.h"
#include "platform/base/DateTime.h"
#include "server/engine/EmbeddedProvider.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tests {

/// A demo hospital of its own for each test, copied from one that is made once, on 2026-11-21 at 08:30.
class Hospital : public testing::Test {
  protected:
    Hospital();

    /// The result of one text.
    ado::Rows rows(const QString& text) { return m_provider->execute(text).rows; }
    /// The only value of the only row, as text; Null is "<Null>".
    QString value(const QString& text);
    QString cell(const ado::Rows& rows, qsizetype row, const char* column);
    /// Runs a text that gives no rows.
    void run(const QString& text) { m_provider->execute(text); }
    int count(const QString& table, const QString& condition);
    /// A second workstation on the same file.
    std::unique_ptr<engine::EmbeddedProvider> workstation(const QString& name);
    /// Hands the provider to a connection; rows() and the like are over then.
    void connect(ado::Connection& connection);

    base::FixedClock m_clock;
    QTemporaryDir m_folder;
    QString m_file;
    std::unique_ptr<engine::EmbeddedProvider> m_provider;
};

} // namespace tests
