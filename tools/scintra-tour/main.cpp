#include "app/AppScreens.h"
#include "platform/ado/Batch.h"
#include "platform/base/CommandLine.h"
#include "platform/base/Conversion.h"
#include "platform/base/DesksLanguage.h"
#include "platform/base/Error.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Application.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/report/output/Print.h"
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"
#include "tools/scintra-tour/Findings.h"
#include "tools/scintra-tour/InquiryWalk.h"
#include "tools/scintra-tour/OrderWalks.h"
#include "tools/scintra-tour/PharmacyWalk.h"
#include "tools/scintra-tour/RequestWalk.h"
#include "tools/scintra-tour/ResultWalk.h"
#include "tools/scintra-tour/RevocationWalk.h"
#include "tools/scintra-tour/WaitingWalk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace {

const QString employeeCode = QStringLiteral("1001");
const QString demoPassword = QStringLiteral("kerova");

void say(const QString& text) {
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

void tellUsage() {
    say(QStringLiteral(
        "Usage: scintra-tour [FOLDER] [--guide FOLDER]\n\n"
        "Takes the program through a day, on a made-up hospital in a fresh file: requests, an "
        "assessment, a result,\n"
        "and what is asked about them. Leaves a picture of each step, what was printed and all "
        "statements in the\n"
        "folder (./out/tour), which holds nothing or an earlier tour before. Exit code 1 when a "
        "step does not happen.\n\n"
        "  --guide FOLDER  leave the guide's pictures there, small\n"
        "  --help          tell this\n"
        "  --version       tell the program's version"));
}

/// Removes what an earlier tour left in the folder. False where that is somebody else's: a hospital without
/// the tour's pictures, or pictures without its hospital.
bool clearFolder(const QDir& folder) {
    const QStringList names = folder.entryList(
        {QStringLiteral("[0-9][0-9]-*.png"), QStringLiteral("failed.png"), QStringLiteral("slip.pdf"),
         QStringLiteral("assessment.pdf"), QStringLiteral("trace.txt"), QStringLiteral("hospital.scintra*")},
        QDir::Files);
    const bool isTours = names.contains(QStringLiteral("hospital.scintra")) &&
                         std::ranges::any_of(names, [](const QString& name) {
                             return name.startsWith(QStringLiteral("01-"));
                         });
    if (!isTours && !names.isEmpty())
        return false;
    for (const QString& name : names)
        QFile::remove(folder.filePath(name));
    return true;
}

void makeHospital(const QString& file) {
    demo::createHospital(file);
    engine::EmbeddedProvider::open(file, {})->setTracing(true);
}

QString valueOf(const QString& file, const QString& query) {
    return base::textOf(ado::runBatch(*engine::EmbeddedProvider::open(file, {}), query).rows.at(0, 0));
}

/// The latest out-patient on a company's account whose bill is open.
QString outPatientOnAccount(const QString& file) {
    return valueOf(file, QStringLiteral("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS "
                                        "NULL AND BillingDate IS NULL AND AccountNum <> HospNum ORDER BY "
                                        "IdNum DESC"));
}

QString lastAssessment(const QString& file) {
    return valueOf(file,
                   QStringLiteral("SELECT TOP 1 RefNum + ' of ' + PatientName FROM BILLING..tbCashAssessment "
                                  "ORDER BY AssessID DESC"));
}

/// Ends the server's diary and moves it to the folder's trace.txt; gives the number of its lines.
int takeTrace(const QString& hospitalFile, const QString& target) {
    engine::EmbeddedProvider::open(hospitalFile, {})->setTracing(false);
    if (!QFile::rename(hospitalFile + QStringLiteral(".trace.txt"), target))
        return 0;
    QFile trace(target);
    return trace.open(QIODevice::ReadOnly) ? int(trace.readAll().count('\n')) : 0;
}

/// Says what the tour brought; ends the process when something is missing.
void finish(const tour::Walk& walk, const QString& hospitalFile, const QString& chargeSlip,
            tour::Findings findings, const QString& packageSlip) {
    const QDir folder(walk.folder());
    const int statements = takeTrace(hospitalFile, folder.filePath(QStringLiteral("trace.txt")));
    say(QStringLiteral("\nslip number: %1").arg(chargeSlip));
    const tour::Findings package = tour::findPackage(hospitalFile, packageSlip);
    findings.lines += package.lines;
    findings.faults += package.faults;
    for (const QString& line : findings.lines)
        say(line);
    say(QStringLiteral("statements: %1 (trace.txt)").arg(statements));
    if (!findings.faults.isEmpty())
        walk.fail(
            QStringLiteral("The order is not whole: %1.").arg(findings.faults.join(QStringLiteral("; "))));
    if (QFileInfo(folder.filePath(QStringLiteral("slip.pdf"))).size() == 0)
        walk.fail(QStringLiteral("The charge slip was not printed."));
    if (statements == 0)
        walk.fail(QStringLiteral("The server wrote no trace."));
    if (!walk.guide().missing().isEmpty())
        walk.fail(QStringLiteral("The guide shows what the tour does not come by: %1.")
                      .arg(walk.guide().missing().join(QStringLiteral(", "))));
    say(QStringLiteral("pictures, slip.pdf and trace.txt are in %1").arg(folder.absolutePath()));
}

int runTour(const QString& folder, const QString& guideFolder) {
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "scintra-tour: %s cannot be made.\n", folder.toUtf8().constData());
        return 1;
    }
    if (!clearFolder(QDir(folder))) {
        std::fprintf(stderr,
                     "scintra-tour: %s holds what no tour has left there. Please name a new folder.\n",
                     folder.toUtf8().constData());
        return 1;
    }
    const QString hospitalFile = QDir(folder).filePath(QStringLiteral("hospital.scintra"));
    makeHospital(hospitalFile);

    app::AppScreens screens;
    session::setScreens(&screens);
    session::setHospitalFile(hospitalFile);
    report::setPrintTarget(QDir(folder).filePath(QStringLiteral("slip.pdf")));

    tour::Walk walk(folder, guideFolder);
    controls::ErrorBoundary::setHandler([&](const base::RunTimeError& error) {
        walk.fail(QStringLiteral("Run-time error '%1': %2 %3")
                      .arg(error.number())
                      .arg(error.description(), error.statement()));
    });
    tour::RequestWalkResult result;
    tour::addRequestWalk(walk, employeeCode, demoPassword, result);
    tour::addOutPatientWalk(walk, outPatientOnAccount(hospitalFile));
    tour::Findings findings; // before the next slip takes the work table
    walk.step(
        QStringLiteral("Another sheet of paper"),
        [] { return tour::windowOnTop(QStringLiteral("frmMainMenu")); },
        [&](QWidget&) {
            findings = tour::findOrder(hospitalFile, result.chargeSlip);
            report::setPrintTarget(QDir(folder).filePath(QStringLiteral("assessment.pdf")));
        });
    tour::addAssessmentWalk(walk, QStringLiteral("104078"));
    tour::ResultWalkResult shown;
    tour::addResultWalk(walk, result.admissionNumber, result.chargeSlip, shown);
    tour::addPharmacyWalk(walk, result.admissionNumber);
    tour::InquiryWalkResult told;
    tour::addInquiryWalk(walk, result.admissionNumber, result.chargeSlip, told);
    tour::RequestWalkResult package;
    tour::addPackageWalk(walk, package);
    tour::addWaitingWalk(walk);
    tour::RevocationWalkResult copy;
    tour::addRevocationWalk(walk, result.admissionNumber, result.chargeSlip, copy);
    walk.step(
        QStringLiteral("Back in the menu"), [] { return tour::windowOnTop(QStringLiteral("frmMainMenu")); },
        [&](QWidget&) {
            if (!shown.page.contains(QStringLiteral("-90001")) || shown.written.isEmpty() ||
                !shown.page.contains(result.admissionNumber))
                walk.fail(QStringLiteral("The result's page is not whole."));
            for (const QString& text : shown.written) {
                if (!shown.page.contains(text))
                    walk.fail(QStringLiteral("The result's page lacks \"%1\".").arg(text));
            }
            say(QStringLiteral("\nassessment: %1").arg(lastAssessment(hospitalFile)));
            if (QFileInfo(QDir(folder).filePath(QStringLiteral("assessment.pdf"))).size() == 0)
                walk.fail(QStringLiteral("The assessment's slip was not printed."));
            if (!told.ledger.contains(result.chargeSlip) || told.issued == 0)
                walk.fail(QStringLiteral("The ledger or the inquiry does not know the slip."));
            if (copy.mark != QLatin1String("RE-PRINT") || !copy.page.contains(result.chargeSlip))
                walk.fail(QStringLiteral("The slip that was printed again is not known as a copy."));
            finish(walk, hospitalFile, result.chargeSlip, findings, package.chargeSlip);
            QCoreApplication::exit(0);
        });
    walk.start();
    controls::ErrorBoundary::guard([] { session::Main(); });
    const int exitCode = QCoreApplication::exec();
    session::setScreens(nullptr);
    return exitCode;
}

} // namespace

/// scintra-tour [FOLDER] [--guide FOLDER]
int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    if (base::answeredAtOnce(argc, argv, tellUsage))
        return 0;
    controls::Application application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    controls::look::apply(application);
    QStringList arguments = application.arguments().mid(1);
    QString guideFolder;
    if (const qsizetype at = arguments.indexOf(QStringLiteral("--guide"));
        at >= 0 && at + 1 < arguments.size()) {
        guideFolder = arguments.takeAt(at + 1);
        arguments.removeAt(at);
    }
    if (arguments.size() > 1) {
        tellUsage();
        return 1;
    }
    try {
        return runTour(arguments.value(0, QStringLiteral("out/tour")), guideFolder);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "scintra-tour: %s\n", error.what());
        return 1;
    }
}
