#include "bench/Measure.h"
#include "bench/Measures.h"

#include "platform/base/DesksLanguage.h"
#include "platform/base/Error.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Application.h"

#include <cstdio>

namespace {

struct Measure {
    const char* name;
    bool (*run)(const QString& folder);
};

constexpr Measure measures[] = {
    {"save", bench::saveOrder},    {"find", bench::findPatients},  {"text", bench::statementText},
    {"grid", bench::bindGrid},     {"odbc", bench::odbcStatement}, {"start", bench::startUp},
    {"report", bench::longReport}, {"ledger", bench::ledgerPage},  {"charges", bench::findCharges},
    {"menu", bench::menuKeys},     {"open", bench::openScreen},    {"polls", bench::pollsOfTheMenu},
    {"desks", bench::desks}};

/// A desk without a display has no place of its own for a window, and says so for each.
void writeRemark(QtMsgType, const QMessageLogContext&, const QString& remark) {
    if (!remark.startsWith(QStringLiteral("This plugin does not support")))
        std::fprintf(stderr, "%s\n", remark.toUtf8().constData());
}

} // namespace

/// scintra-bench FOLDER [measure ...]: exit code 0 when every goal is met, 2 when one is not, 1 on an error.
int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    qInstallMessageHandler(writeRemark);
    controls::Application application(argc, argv);
    controls::look::apply(application);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.isEmpty()) {
        std::fputs("usage: scintra-bench FOLDER "
                   "[save|find|text|grid|odbc|start|report|ledger|charges|menu|open|polls|desks ...]\n",
                   stderr);
        return 1;
    }
    const QStringList wanted = arguments.mid(1);
    bool met = true;
    try {
        if (arguments.first() == QLatin1String("--desk"))
            return bench::desk(arguments.value(1));
        bench::Report::heading();
        for (const Measure& measure : measures) {
            if (wanted.isEmpty() || wanted.contains(QString::fromLatin1(measure.name)))
                met &= measure.run(arguments.first());
        }
    } catch (const base::RunTimeError& error) {
        std::fprintf(stderr, "%d: %s\n%s\n", error.number(), error.description().toUtf8().constData(),
                     error.statement().toUtf8().constData());
        return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return met ? 0 : 2;
}
