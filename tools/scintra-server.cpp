// The hospital server that comes along, from the command line: make a file, fill it, watch it, copy it.
#include "tools/scintra-server-commands.h"

#include "platform/base/CommandLine.h"
#include "platform/base/DesksLanguage.h"
#include "platform/base/Error.h"
#include "server/hospital/Create.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

void printUsage(std::FILE* out) {
    std::fputs("Usage: scintra-server COMMAND ...\n\n", out);
    for (const tools::Command& command : tools::serverCommands())
        std::fprintf(out, "  %-9s %-42s %s\n", command.name, command.usage, command.does);
    std::fprintf(out,
                 "\nFILE may be left out or be \"-\": then it is the file of the program itself,\n%s\n"
                 "With password, sql and neighbours, --dsn NAME may stand in the place of FILE. Where the "
                 "data source has no\n"
                 "database login, --login NAME gives it; its password is read first from standard input.\n"
                 "--help tells this, --version the program's version.\n"
                 "Exit codes: 0 done, 1 something is wrong with the file, 2 wrong words, 3 failed.\n",
                 qPrintable(hospital::defaultHospitalFile()));
}

int refuse(const QString& reason) {
    std::fprintf(stderr, "scintra-server: %s\nTry scintra-server --help.\n", qPrintable(reason));
    return tools::exitUsage;
}

const tools::Command* find(const QString& name) {
    for (const tools::Command& command : tools::serverCommands()) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

/// False when an option lacks its value or is none.
bool readArguments(const QStringList& words, tools::Arguments& arguments, QString& fault) {
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (!word.startsWith(QLatin1String("--"))) {
            arguments.words << word;
            continue;
        }
        if (word == QLatin1String("--demo")) {
            arguments.demo = true;
            continue;
        }
        if (word == QLatin1String("--force")) {
            arguments.force = true;
            continue;
        }
        if (i + 1 == words.size()) {
            fault = word + QStringLiteral(" needs a value.");
            return false;
        }
        const QString& value = words[++i];
        bool good = true;
        if (word == QLatin1String("--patients"))
            arguments.patients = value.toInt(&good);
        else if (word == QLatin1String("--name"))
            arguments.name = value;
        else if (word == QLatin1String("--dsn"))
            arguments.dsn = value;
        else if (word == QLatin1String("--login"))
            arguments.login = value;
        else if (word == QLatin1String("--file"))
            arguments.words << value;
        else if (word == QLatin1String("--once"))
            arguments.once = value;
        else if (word == QLatin1String("--every")) {
            arguments.everySeconds = value.toInt(&good);
            if (!good || arguments.everySeconds < 1) {
                fault = value + QStringLiteral(" is no number of seconds.");
                return false;
            }
        } else {
            fault = QStringLiteral("There is no option ") + word + u'.';
            return false;
        }
        if (!good || arguments.patients < 0) {
            fault = value + QStringLiteral(" is no number of patients.");
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    const QCoreApplication application(argc, argv);
    if (base::answeredAtOnce(argc, argv, [] { printUsage(stdout); }))
        return tools::exitDone;
    QStringList words = QCoreApplication::arguments().mid(1);
    if (words.isEmpty()) {
        printUsage(stderr);
        return tools::exitUsage;
    }
    if (words.first() == QLatin1String("-h")) {
        printUsage(stdout);
        return tools::exitDone;
    }
    const QString name = words.takeFirst();
    const tools::Command* command = find(name);
    if (!command)
        return refuse(QStringLiteral("There is no command ") + name + u'.');
    tools::Arguments arguments;
    QString fault;
    if (!readArguments(words, arguments, fault))
        return refuse(fault);
    const bool onServer = !arguments.dsn.isEmpty();
    if (onServer ? command->target == tools::Target::File : command->target == tools::Target::DataSource)
        return refuse(onServer ? QStringLiteral("%1 works on a file, not on a data source.").arg(name)
                               : QStringLiteral("Which data source? --dsn NAME"));
    const int inPlaceOfFile = onServer && command->target == tools::Target::Either ? 1 : 0;
    if (arguments.words.size() < command->fewestWords - inPlaceOfFile ||
        arguments.words.size() > command->mostWords - inPlaceOfFile)
        return refuse(QStringLiteral("Usage: scintra-server %1 %2").arg(name, QLatin1String(command->usage)));
    try {
        return command->run(arguments);
    } catch (const base::RunTimeError& error) {
        std::fprintf(stderr, "scintra-server: %s (error %d)\n", qPrintable(error.description()),
                     error.number());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "scintra-server: %s\n", error.what());
    }
    return tools::exitFailed;
}
