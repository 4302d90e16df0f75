// A hospital behind TDS, for a data source of this computer: the program can be tried on it as on a SQL
// Server, and test programs run there.
#include "platform/base/DateTime.h"
#include "platform/base/DesksLanguage.h"
#include "platform/base/TestDoors.h"
#include "tests/support/tds/TdsServer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <exception>
#include <stdexcept>

namespace {

volatile std::sig_atomic_t stopped = 0;

void stop(int) {
    stopped = 1;
}

/// The exit code of a test program whose hospital is the server.
int runOn(const tests::TdsServer& server, const QString& folder, const QStringList& program) {
    // A name of its own for each port: one server is one program's at a time.
    const QString name = QStringLiteral("Hospital%1").arg(server.port());
    for (const QString& file : {QStringLiteral("/odbc.ini"), QStringLiteral("/odbcinst.ini")}) {
        QFile ini(folder + file);
        if (!ini.open(QIODevice::WriteOnly))
            throw std::runtime_error("no place for an odbc.ini");
        if (file == u"/odbc.ini")
            // a machine may have the hospital's own, too: no test may see it
            ini.write(
                (server.dataSource(name) + u'\n' + server.dataSource(QStringLiteral("Kerova"))).toUtf8());
    }
    qputenv("ODBCSYSINI", folder.toLocal8Bit());
    qputenv("SCINTRA_TEST_DSN", name.toLocal8Bit());
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program.first(), program.mid(1));
    process.waitForFinished(-1);
    return process.exitStatus() == QProcess::NormalExit && process.error() == QProcess::UnknownError
               ? process.exitCode()
               : 3;
}

} // namespace

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    QCoreApplication application(argc, argv);
    QCommandLineParser words;
    words.setApplicationDescription(
        QStringLiteral("Serves a hospital file over TDS on 127.0.0.1, until it is stopped."));
    words.addHelpOption();
    words.addOption({QStringLiteral("file"), QStringLiteral("The hospital file; made, empty, when missing."),
                     QStringLiteral("F")});
    words.addOption({QStringLiteral("port"), QStringLiteral("Else one that is free."), QStringLiteral("P"),
                     QStringLiteral("0")});
    words.addOption({QStringLiteral("ahead"), QStringLiteral("Days by which its clock runs ahead."),
                     QStringLiteral("DAYS"), QStringLiteral("0")});
    words.addOption(
        {QStringLiteral("user"), QStringLiteral("The one login; else any."), QStringLiteral("U")});
    words.addOption({QStringLiteral("password"), QStringLiteral("Of that login."), QStringLiteral("P")});
    words.addPositionalArgument(
        QStringLiteral("program"),
        QStringLiteral("A test program to run on a server of its own, and its arguments."),
        QStringLiteral("[program ...]"));
    words.process(application);
    const QStringList program = words.positionalArguments();
    const QTemporaryDir folder;
    if (!words.isSet(QStringLiteral("file")) && program.isEmpty()) {
        std::fputs("tds-hospital: which --file?\n", stderr);
        return 2;
    }
    std::signal(SIGINT, stop);
    std::signal(SIGTERM, stop);
    try {
        const base::ClockAhead clock(words.value(QStringLiteral("ahead")).toInt());
        tests::TdsServer::Options options;
        options.file = words.isSet(QStringLiteral("file"))
                           ? words.value(QStringLiteral("file"))
                           : folder.filePath(QStringLiteral("hospital.scintra"));
        options.port = words.value(QStringLiteral("port")).toUShort();
        options.user = words.value(QStringLiteral("user"));
        options.password = words.value(QStringLiteral("password"));
        const tests::TdsServer server(options);
        if (!program.isEmpty())
            return runOn(server, folder.path(), program);
        std::printf("listening on %d\n", int(server.port()));
        std::fflush(stdout);
        while (!stopped)
            QThread::msleep(50);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tds-hospital: %s\n", error.what());
        return 3;
    }
    return 0;
}
