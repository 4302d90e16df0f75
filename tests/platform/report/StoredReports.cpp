#include "tests/platform/report/StoredReports.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/report/Print.h"
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"

#include <QRegularExpression>
#include <QTemporaryDir>

namespace tests {

const QString& StoredReports::demoHospital() {
    static const QTemporaryDir folder;
    static const QString file = [] {
        const base::FixedClock clock{demoMoment};
        QString name = folder.filePath("hospital.scintra");
        demo::createHospital(name);
        return name;
    }();
    return file;
}

std::unique_ptr<report::Report> StoredReports::open(const QString& file, const QStringList& values) {
    auto opened = report::Report::open(QStringLiteral(SCINTRA_SOURCE_DIR "\\Reports\\") + file, logOn());
    opened->headingName = "HEADING NAME";
    opened->headingAddress = "HEADING ADDRESS";
    for (report::TableLogOn& table : opened->tables())
        table.database = "NUCLEAR";
    for (qsizetype i = 0; i < values.size(); ++i)
        opened->setParameter(int(i), values[i]);
    return opened;
}

report::LogOn StoredReports::logOn() {
    return [this](const QString&, const QString& database, const QString&, const QString&) {
        logOns << database;
        auto provider = engine::EmbeddedProvider::open(hospitalFile(), {});
        provider->useDatabase(database.isEmpty() ? QStringLiteral("NUCLEAR") : database);
        auto connection = std::make_unique<ado::Connection>();
        connection->Open(std::move(provider), "demo");
        return connection;
    };
}

QString StoredReports::printed(report::Report& opened) {
    const QString pdf = folder.path("report.pdf");
    report::exportPdf(*opened.run(), pdf);
    QString text = toolOutput("pdftotext", {"-layout", pdf, "-"});
    return text.replace(QRegularExpression(" {2,}"), " ");
}

ado::Rows StoredReports::rows(const QString& query) const {
    auto provider = engine::EmbeddedProvider::open(hospitalFile(), {});
    provider->useDatabase("NUCLEAR");
    return provider->execute(query).rows;
}

QString StoredReports::value(const QString& query) const {
    const ado::Rows found = rows(query);
    return found.count() == 1 ? base::textOf(found.at(0, 0)) : QStringLiteral("no single row");
}

QString StoredReports::money(const QString& query) const {
    return base::Format(base::CDbl(value(query)), "#,##0.00");
}

} // namespace tests
