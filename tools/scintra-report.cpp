// A stored report run on a hospital file, without a window: pages into PDF, rows into a workbook or CSV.
#include "platform/base/CommandLine.h"
#include "platform/base/DesksLanguage.h"
#include "platform/base/Error.h"
#include "platform/base/Installed.h"
#include "platform/report/Report.h"
#include "platform/report/output/Print.h"
#include "platform/report/output/RowExport.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"

#include <QApplication>
#include <QFileInfo>

#include <cstdio>

namespace {

constexpr int exitUsage = 2;
constexpr int exitFailed = 3;

struct Wish {
    QString definition;
    QString hospital = hospital::defaultHospitalFile();
    QString to;
    QString name, address, printedBy;
    std::vector<std::pair<QString, QString>> values; ///< "name" or "sub-report.name", value
};

constexpr const char* usage =
    "Usage: scintra-report FILE.RPT [name=value ...] --to OUT.pdf|OUT.xlsx|OUT.csv\n\n"
    "  name=value            a parameter of the report; SubReport.name=value: of a report inside it\n"
    "  --hospital FILE       the hospital file to read; without it, that of the program itself\n"
    "  --heading NAME        the hospital's name on paper; without it, that of the hospital file\n"
    "  --address TEXT        its address, likewise\n"
    "  --printed-by NAME     who prints it, for the foot of the pages\n"
    "  --help                tell this\n"
    "  --version             tell the program's version\n\n"
    "FILE.RPT without a folder is one of the program's own where it is not here.\n"
    "A PDF file holds the pages; a workbook or a CSV file holds the rows of the details.\n"
    "Exit codes: 0 done, 2 wrong words, 3 failed.\n";

int refuse(const QString& reason) {
    std::fprintf(stderr, "scintra-report: %s\nTry scintra-report --help.\n", qPrintable(reason));
    return exitUsage;
}

/// "" when the words make sense, else what is wrong with them.
QString read(const QStringList& words, Wish& wish) {
    const std::pair<QString, QString*> options[] = {{QStringLiteral("--hospital"), &wish.hospital},
                                                    {QStringLiteral("--to"), &wish.to},
                                                    {QStringLiteral("--heading"), &wish.name},
                                                    {QStringLiteral("--address"), &wish.address},
                                                    {QStringLiteral("--printed-by"), &wish.printedBy}};
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (word.startsWith(QLatin1String("--"))) {
            const auto option = std::find_if(std::begin(options), std::end(options),
                                             [&](const auto& one) { return one.first == word; });
            if (option == std::end(options))
                return QStringLiteral("There is no option %1.").arg(word);
            if (++i == words.size())
                return word + QStringLiteral(" needs a value.");
            *option->second = words[i];
        } else if (wish.definition.isEmpty()) {
            wish.definition = word;
        } else if (const qsizetype equals = word.indexOf(u'='); equals > 0) {
            wish.values.emplace_back(word.left(equals), word.mid(equals + 1));
        } else {
            return QStringLiteral("%1 is no name=value.").arg(word);
        }
    }
    if (wish.definition.isEmpty())
        return QStringLiteral("Which report?");
    return report::fileKindOf(wish.to) == report::FileKind::Unknown
               ? QStringLiteral("--to must name a .pdf, an .xlsx or a .csv file.")
               : QString();
}

report::LogOn logOnTo(const QString& file) {
    return [file](const QString&, const QString& database, const QString& login, const QString&) {
        engine::Options options;
        options.programName = QStringLiteral("scintra-report");
        options.loginName = login;
        auto provider = engine::EmbeddedProvider::open(file, options);
        provider->useDatabase(database.isEmpty() ? QStringLiteral("NUCLEAR") : database);
        auto connection = std::make_unique<ado::Connection>();
        connection->Open(std::move(provider), file);
        return connection;
    };
}

void setHeading(report::Report& report, const Wish& wish, const report::LogOn& logOn) {
    report.headingName = wish.name;
    report.headingAddress = wish.address;
    if (!wish.name.isEmpty() || !wish.address.isEmpty())
        return;
    const auto connection = logOn({}, QStringLiteral("PATIENT_DATA"), QStringLiteral("sa"), {});
    const auto heading =
        connection->Execute(ado::sql("SELECT TOP 1 Company, Address1 FROM PATIENT_DATA..tbHospitalInfo"));
    if (heading.rows().count() == 0)
        return;
    report.headingName = base::textOf(heading.rows().at(0, 0));
    report.headingAddress = base::textOf(heading.rows().at(0, 1));
}

/// There is nobody to ask for what was not given.
QStringList missingIn(report::Report& report, const QString& prefix = {}) {
    QStringList names;
    for (const int index : report.missingParameters())
        names << prefix + report.parameterNames()[index];
    for (const QString& name : report.subReportNames())
        names << missingIn(report.subReport(name), name + u'.');
    return names;
}

QString definitionOf(const QString& named) {
    const bool isHere = named.contains(u'/') || named.contains(u'\\') || QFileInfo::exists(named);
    return isHere ? named : base::sharedFile(QStringLiteral("Reports/") + named);
}

int run(const Wish& wish) {
    const report::LogOn logOn = logOnTo(wish.hospital);
    const auto report = report::Report::open(definitionOf(wish.definition), logOn);
    report->printedBy = wish.printedBy;
    setHeading(*report, wish, logOn);
    for (const auto& [name, value] : wish.values) {
        const qsizetype point = name.indexOf(u'.');
        report::Report& target = point < 0 ? *report : report->subReport(name.left(point));
        const QString own = name.mid(point + 1);
        if (!target.parameterNames().contains(own, Qt::CaseInsensitive))
            return refuse(QStringLiteral("The report has no parameter %1; it has: %2.")
                              .arg(name, target.parameterNames().join(QStringLiteral(", "))));
        target.setParameter(own, value);
    }
    const QStringList missing = missingIn(*report);
    if (!missing.isEmpty())
        return refuse(
            QStringLiteral("The report wants a value for: %1.").arg(missing.join(QStringLiteral(", "))));
    if (report::fileKindOf(wish.to) == report::FileKind::Pdf) {
        report::exportPdf(*report->run(), wish.to);
    } else {
        const auto rows = report->sheetRows();
        const ado::Rows none;
        const report::HeldRows noRows(none);
        report::exportRows(rows ? *rows : noRows, report->rowsHeading(), wish.to);
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    if (base::answeredAtOnce(argc, argv, [] { std::fputs(usage, stdout); }))
        return 0;
    // Paper needs fonts, not a screen: the tool runs where there is none.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList words = QApplication::arguments().mid(1);
    if (words.isEmpty()) {
        std::fputs(usage, stderr);
        return exitUsage;
    }
    Wish wish;
    if (const QString fault = read(words, wish); !fault.isEmpty())
        return refuse(fault);
    try {
        return run(wish);
    } catch (const base::RunTimeError& error) {
        std::fprintf(stderr, "scintra-report: %s (error %d)\n", qPrintable(error.description()),
                     error.number());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "scintra-report: %s\n", error.what());
    }
    return exitFailed;
}
