#include "tests/support/hospital/TestHospital.h"

#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "tests/support/hospital/Days.h"
#include "tests/support/hospital/DemoFile.h"
#include "tests/support/hospital/Site.h"

namespace tests {

Way usualWay() {
    return site::name().isEmpty() ? Way::File : Way::Site;
}

TestHospital::TestHospital(Way way) : m_way(way) {
    if (way == Way::Site) {
        site::put(originalHospital());
        return;
    }
    m_file = demoHospital();
    if (way == Way::File)
        return;
    m_loopback = std::make_unique<LoopbackServer>(m_file);
    setDataSources(QStringLiteral("[Test]\nDriver=%1\n").arg(testDriver()));
}

TestHospital::~TestHospital() {
    m_loopback.reset();
    if (m_way != Way::Site)
        forgetHospital(m_file);
    else if (m_kitChanged)
        site::putKitBack();
}

QString TestHospital::dataSource() const {
    return m_way == Way::Site ? site::name() : m_way == Way::Odbc ? QStringLiteral("Test") : QString();
}

std::unique_ptr<ado::Provider> TestHospital::open(const QString& workstation) const {
    if (m_way == Way::Site)
        return site::open(workstation);
    engine::Options options;
    options.hostName = workstation;
    auto session = engine::EmbeddedProvider::open(m_file, options);
    session->useDatabase(QStringLiteral("NUCLEAR"));
    return session;
}

ado::Rows TestHospital::run(const QString& text) const {
    return ado::runBatch(*open(), toServerDays(text)).rows;
}

void TestHospital::replaceProcedure(const QString& text) {
    m_kitChanged = true;
    ado::runBatch(*open(), text);
}

QString TestHospital::value(const QString& query) const {
    const ado::Rows rows = run(query);
    return rows.count() == 0 ? QString() : toTestDays(base::textOf(rows.at(0, 0)));
}

int TestHospital::count(const QString& table, const QString& condition) const {
    return value(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(table, condition)).toInt();
}

} // namespace tests
