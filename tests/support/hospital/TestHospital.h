#pragma once

#include "platform/ado/Provider.h"
#include "tests/support/odbc/TestDriver.h"

#include <QString>

#include <memory>

namespace tests {

/// How a test's sessions reach its demo hospital.
enum class Way {
    File, ///< by the server that comes along
    Odbc, ///< over ODBC: the test driver, behind which the same file stands
    Site  ///< over ODBC on the SQL Server that SCINTRA_TEST_DSN names; its clock is its own
};
/// Site when SCINTRA_TEST_DSN is set, else File.
Way usualWay();

/// A demo hospital as new, for one test.
class TestHospital {
  public:
    explicit TestHospital(Way way = usualWay());
    ~TestHospital();
    TestHospital(const TestHospital&) = delete;
    TestHospital& operator=(const TestHospital&) = delete;

    Way way() const { return m_way; }
    /// Empty on a Site.
    QString file() const { return m_file; }
    /// What stands behind the test driver, on the way Odbc; else null.
    LoopbackServer* loopback() const { return m_loopback.get(); }
    /// The data source of the program's session; empty on the way File.
    QString dataSource() const;

    /// A session of the test's own in NUCLEAR, beside the program's: on the file itself, or on the Site.
    std::unique_ptr<ado::Provider> open(const QString& workstation = QStringLiteral("look")) const;
    /// A text of the test's own, in its own days.
    ado::Rows run(const QString& text) const;
    /// A procedure of the test's own ("ALTER PROCEDURE ...") in the place of the kit's, as long as this
    /// hospital lasts.
    void replaceProcedure(const QString& text);
    /// The first value of the first row, as text, in the test's days; Null and no row are "".
    QString value(const QString& query) const;
    int count(const QString& table, const QString& condition) const;

  private:
    Way m_way;
    QString m_file;
    std::unique_ptr<LoopbackServer> m_loopback;
    bool m_kitChanged = false;
};

} // namespace tests
