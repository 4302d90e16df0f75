#include "tests/platform/report/StoredReports.h"

#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/report/output/Print.h"
#include "server/engine/EmbeddedProvider.h"
#include "tests/support/hospital/DemoFile.h"
#include "tests/support/hospital/Site.h"
#include "tests/support/hospital/TestHospital.h"

#include <QRegularExpression>

namespace tests {

namespace {

/// Puts it there unless it is what was put there last.
void putOnSite(const QString& hospitalFile) {
    static QString last;
    if (last == hospitalFile)
        return;
    site::put(hospitalFile);
    last = hospitalFile;
}

} // namespace

// The server's clock is asked before the program's own is held.
StoredReports::StoredReports()
    : clock([] {
        if (usualWay() == Way::Site)
            site::prepare();
        return demoMoment();
    }()) {}

const QString& StoredReports::hospitalFile() const {
    static const QString file = demoHospital();
    return file;
}

std::unique_ptr<ado::Provider> StoredReports::openHospital() const {
    if (usualWay() == Way::Site) {
        putOnSite(hospitalFile());
        return site::open(QStringLiteral("look"));
    }
    auto provider = engine::EmbeddedProvider::open(hospitalFile(), {});
    provider->useDatabase("NUCLEAR");
    return provider;
}

std::unique_ptr<report::Report> StoredReports::open(const QString& file, const QStringList& values) {
    auto opened = report::Report::open(QStringLiteral(SCINTRA_SOURCE_DIR "\\Reports\\") + file, logOn());
    opened->headingName = "HEADING NAME";
    opened->headingAddress = "HEADING ADDRESS";
    for (report::TableLogOn& table : opened->tables())
        table.database = "NUCLEAR";
    for (qsizetype i = 0; i < values.size(); ++i)
        opened->setParameter(int(i), toServerDays(values[i]));
    return opened;
}

report::LogOn StoredReports::logOn() {
    return [this](const QString&, const QString& database, const QString&, const QString&) {
        logOns << database;
        auto provider = openHospital();
        if (!database.isEmpty())
            provider->useDatabase(database);
        auto connection = std::make_unique<ado::Connection>();
        connection->Open(std::move(provider), "demo");
        return connection;
    };
}

QString StoredReports::printed(report::Report& opened) {
    const QString pdf = folder.path("report.pdf");
    report::exportPdf(*opened.run(), pdf);
    QString text = toolOutput("pdftotext", {"-layout", pdf, "-"});
    return toTestDays(text.replace(QRegularExpression(" {2,}"), " "));
}

ado::Rows StoredReports::rows(const QString& query) const {
    return ado::runBatch(*openHospital(), toServerDays(query)).rows;
}

QString StoredReports::value(const QString& query) const {
    const ado::Rows found = rows(query);
    return found.count() == 1 ? toTestDays(base::textOf(found.at(0, 0))) : QStringLiteral("no single row");
}

QString StoredReports::money(const QString& query) const {
    return base::Format(base::CDbl(value(query)), "#,##0.00");
}

} // namespace tests
