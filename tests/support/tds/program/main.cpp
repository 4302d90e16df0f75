// A hospital behind TDS, for a data source of this computer: the program can be tried on it as on a SQL
// Server.
#include "platform/base/DateTime.h"
#include "tests/support/tds/TdsServer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <exception>

namespace {

volatile std::sig_atomic_t stopped = 0;

void stop(int) {
    stopped = 1;
}

} // namespace

int main(int argc, char** argv) {
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
    words.process(application);
    if (!words.isSet(QStringLiteral("file"))) {
        std::fputs("tds-hospital: which --file?\n", stderr);
        return 2;
    }
    std::signal(SIGINT, stop);
    std::signal(SIGTERM, stop);
    try {
        const base::ClockAhead clock(words.value(QStringLiteral("ahead")).toInt());
        tests::TdsServer::Options options;
        options.file = words.value(QStringLiteral("file"));
        options.port = words.value(QStringLiteral("port")).toUShort();
        options.user = words.value(QStringLiteral("user"));
        options.password = words.value(QStringLiteral("password"));
        const tests::TdsServer server(options);
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
