#include "tools/scintra-server-commands.h"

#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/base/Terminal.h"
#include "platform/odbc/DataSources.h"
#include "platform/odbc/OdbcProvider.h"
#include "server/demo/Hospital.h"
#include "server/demo/Neighbours.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/engine/Trace.h"
#include "server/hospital/Backup.h"
#include "server/hospital/Create.h"
#include "server/hospital/Passwords.h"
#include "server/site/Install.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QTextStream>
#include <QThread>

#include <cstdio>
#include <ranges>

namespace tools {

namespace {

using ado::sql;

QString fileOf(const Arguments& arguments, qsizetype place = 0) {
    const QString named = arguments.words.value(place);
    return named.isEmpty() || named == QLatin1String("-") ? hospital::defaultHospitalFile() : named;
}

std::unique_ptr<engine::EmbeddedProvider> openHospital(const QString& file) {
    if (!QFileInfo::exists(file))
        throw base::RunTimeError(base::errors::fileNotFound,
                                 QStringLiteral("There is no file ") + file + u'.');
    engine::Options options;
    options.hostName = QSysInfo::machineHostName();
    options.programName = QStringLiteral("scintra-server");
    auto provider = engine::EmbeddedProvider::open(file, options);
    provider->useDatabase(QStringLiteral("NUCLEAR"));
    return provider;
}

QString readLine() {
    static QTextStream in(stdin); // it reads ahead
    return in.readLine();
}

/// From the keyboard a password is not shown; from a file or a pipe it is read as it is.
QString readSecret(const char* prompt) {
    std::fputs(prompt, stderr);
    const base::HiddenTyping hidden;
    const QString secret = readLine();
    if (base::isTypedAt())
        std::fputc('\n', stderr);
    return secret;
}

/// From the keyboard twice, since nobody sees what was typed.
QString readNewSecret(const char* prompt) {
    const QString secret = readSecret(prompt);
    if (base::isTypedAt() && readSecret("Once more: ") != secret)
        throw base::RunTimeError(base::errors::invalidProcedureCall,
                                 QStringLiteral("The two passwords differ."));
    return secret;
}

std::unique_ptr<ado::Provider> openDataSource(const Arguments& arguments) {
    odbc::ConnectionText text;
    text.add("DSN", arguments.dsn);
    if (!arguments.login.isEmpty()) {
        text.add("UID", arguments.login).add("PWD", readSecret("Database password: "));
    }
    text.add("APP", QStringLiteral("scintra-server")).add("WSID", QSysInfo::machineHostName());
    text.add("Language", QStringLiteral("us_english"));
    odbc::Options options;
    options.statementSeconds = 600; // a database takes its time to be made
    return odbc::OdbcProvider::open(text.text(), options);
}

/// The file or the data source that the command line names.
std::unique_ptr<ado::Provider> openHospital(const Arguments& arguments) {
    if (arguments.dsn.isEmpty())
        return openHospital(fileOf(arguments));
    auto provider = openDataSource(arguments);
    provider->useDatabase(QStringLiteral("NUCLEAR"));
    return provider;
}

void showProgress(int percent, const QString& stage) {
    static int shownPercent = -1;
    if (percent == shownPercent)
        return;
    shownPercent = percent;
    std::fprintf(stderr, "\r%3d %%  %-70.70s", percent, qPrintable(stage));
    if (percent == 100)
        std::fputc('\n', stderr);
    std::fflush(stderr);
}

void print(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout);
    std::fputc('\n', stdout);
}

/// The common password of the guarded screens, where there is none yet. As long as it is empty nobody passes.
void askCommonPassword(ado::Provider& provider) {
    const ado::Result row = provider.execute(sql("SELECT OPDPassword FROM PATIENT_DATA..tbHospitalInfo"));
    if (row.rows.count() == 0 || !base::textOf(row.rows.at(0, 0)).isEmpty())
        return;
    const QString password = readNewSecret("Common password of the guarded screens: ");
    if (password.contains(u'\''))
        throw base::RunTimeError(base::errors::invalidProcedureCall,
                                 QStringLiteral("The password cannot hold a quote."));
    if (password.isEmpty()) {
        std::fputs("None: the guarded screens stay shut until PATIENT_DATA..tbHospitalInfo has an "
                   "OPDPassword.\n",
                   stderr);
        return;
    }
    provider.execute(sql("UPDATE PATIENT_DATA..tbHospitalInfo SET OPDPassword = '{}'", password));
}

int runInit(const Arguments& arguments) {
    const QString file = fileOf(arguments);
    hospital::createEmptyHospital(file, showProgress);
    askCommonPassword(*openHospital(file));
    print(QStringLiteral(
              "Made %1. Add a first user with: scintra-server password FILE ID --name \"LAST, FIRST\"")
              .arg(file));
    return exitDone;
}

int runDemo(const Arguments& arguments) {
    const QString file = fileOf(arguments);
    demo::createHospital(file, showProgress);
    print(QStringLiteral("Made %1. User 1001, password kerova.").arg(file));
    return exitDone;
}

int runGenerate(const Arguments& arguments) {
    if (arguments.patients == 0)
        throw base::RunTimeError(base::errors::invalidProcedureCall,
                                 QStringLiteral("How many? --patients N"));
    const QString file = fileOf(arguments);
    hospital::ensureKit(*openHospital(file));
    demo::generatePatients(file, arguments.patients, showProgress);
    return exitDone;
}

int runUpdate(const Arguments& arguments) {
    const bool changed = hospital::ensureKit(*openHospital(fileOf(arguments)));
    print(changed ? QStringLiteral("Brought up to date.") : QStringLiteral("It was up to date."));
    return exitDone;
}

int runPassword(const Arguments& arguments) {
    const auto provider = openHospital(arguments);
    // Everything goes between quotes, so none may stand in it.
    const QString id = arguments.words.constLast();
    if (id.contains(u'\'') || id.isEmpty() || arguments.name.contains(u'\''))
        throw base::RunTimeError(base::errors::invalidProcedureCall,
                                 QStringLiteral("A code or name cannot hold a quote."));
    const bool known =
        provider->execute(sql("SELECT EmployeeID FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '{}'", id))
            .rows.count() > 0;
    if (!known && arguments.name.isEmpty())
        throw base::RunTimeError(base::errors::itemNotFound,
                                 QStringLiteral("There is no user %1. With --name one is added.").arg(id));
    const QString password = readNewSecret("Password: ");
    if (password.isEmpty())
        throw base::RunTimeError(base::errors::invalidProcedureCall,
                                 QStringLiteral("An empty password is none."));
    const QString hash = hospital::passwordHash(password);
    provider->begin();
    if (!known) {
        provider->execute(
            sql("INSERT INTO PASSWORD..tbPasswordMain (EmployeeID, Name, LastName, FirstName, DeptCode) "
                "VALUES ('{}', '{}', '{}', '{}', '5')",
                id, arguments.name, arguments.name.section(u',', 0, 0).trimmed(),
                arguments.name.section(u',', 1).trimmed()));
        provider->execute(
            sql("NUCLEAR..spNuclear_SaveUserRights '{}','|1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16|17|18','{}'",
                id, id));
    }
    provider->execute(sql("UPDATE PASSWORD..tbPasswordMain SET PasswordHash = '{}', WrongTries = 0, "
                          "LockedUntil = NULL WHERE EmployeeID = '{}'",
                          hash, id));
    provider->commit();
    print(QStringLiteral("Password of %1 set.").arg(id));
    return exitDone;
}

int runTrace(const Arguments& arguments) {
    const QString& what = arguments.words[0];
    const QString file = fileOf(arguments, 1);
    const auto provider = openHospital(file);
    const QString diary = engine::Trace::fileOf(file);
    if (what == QLatin1String("show")) {
        QFile in(diary);
        if (in.open(QIODevice::ReadOnly)) {
            while (!in.atEnd()) {
                const QByteArray line = in.readLine();
                std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
            }
        }
        std::fprintf(stderr, "The trace is %s.\n", provider->isTracing() ? "on" : "off");
        return exitDone;
    }
    if (what != QLatin1String("on") && what != QLatin1String("off"))
        throw base::RunTimeError(base::errors::invalidProcedureCall, QStringLiteral("on, off or show?"));
    provider->setTracing(what == QLatin1String("on"));
    print(QStringLiteral("The trace is %1: %2").arg(what, diary));
    return exitDone;
}

int runCheck(const Arguments& arguments) {
    const auto provider = openHospital(fileOf(arguments));
    const QStringList faults = provider->check();
    for (const QString& fault : faults)
        print(fault);
    if (!faults.isEmpty())
        return exitFaulty;
    print(QStringLiteral("All is well."));
    return exitDone;
}

hospital::Existing existingOf(const Arguments& arguments) {
    return arguments.force ? hospital::Existing::Replace : hospital::Existing::Refuse;
}

int runBackup(const Arguments& arguments) {
    hospital::backupHospital(fileOf(arguments), arguments.words[1], existingOf(arguments), showProgress);
    return exitDone;
}

int runRestore(const Arguments& arguments) {
    hospital::restoreHospital(arguments.words[0], fileOf(arguments, 1), existingOf(arguments), showProgress);
    return exitDone;
}

QString shown(const base::Value& value) {
    if (value.isNull())
        return QStringLiteral("NULL");
    if (value.asDateTime())
        return base::toIso(*value.asDateTime());
    return base::textOf(value);
}

int runSql(const Arguments& arguments) {
    const auto provider = openHospital(arguments);
    const ado::Result result = ado::runBatch(*provider, arguments.words.constLast());
    if (!result.rows.columns.empty()) {
        QStringList line;
        for (const ado::Column& column : result.rows.columns)
            line << column.name;
        print(line.join(u'\t'));
        for (qsizetype row = 0; row < result.rows.count(); ++row) {
            line.clear();
            for (std::size_t column = 0; column < result.rows.columns.size(); ++column)
                line << shown(result.rows.at(row, qsizetype(column)));
            print(line.join(u'\t'));
        }
        std::fprintf(stderr, "%lld rows\n", static_cast<long long>(result.rows.count()));
    } else if (result.affected >= 0) {
        std::fprintf(stderr, "%lld rows written\n", static_cast<long long>(result.affected));
    }
    return exitDone;
}

demo::Deed deedOf(const QString& name) {
    const auto found = std::ranges::find_if(
        demo::deeds(), [&](const demo::NamedDeed& each) { return name == QLatin1String(each.name); });
    if (found != demo::deeds().end())
        return found->deed;
    QStringList names;
    for (const demo::NamedDeed& each : demo::deeds())
        names << QLatin1String(each.name);
    throw base::RunTimeError(base::errors::invalidProcedureCall,
                             QStringLiteral("There is no \"%1\": %2.").arg(name, names.join(u", ")));
}

int runNeighbours(const Arguments& arguments) {
    const bool once = !arguments.once.isEmpty();
    const demo::Deed deed = once ? deedOf(arguments.once) : demo::Deed::Ward;
    const auto provider = openHospital(arguments);
    demo::Neighbours neighbours(*provider, std::uint64_t(base::now().ms));
    if (once) {
        print(neighbours.act(deed));
        return exitDone;
    }
    for (;;) {
        print(neighbours.actInTurn());
        std::fflush(stdout);
        QThread::sleep(static_cast<unsigned long>(arguments.everySeconds));
    }
}

int runInstall(const Arguments& arguments) {
    const auto provider = openDataSource(arguments);
    site::install(*provider, showProgress);
    if (arguments.demo)
        site::installDemo(*provider, showProgress);
    const QStringList missing = site::missingNumbers(*provider);
    for (const QString& table : missing)
        print(table);
    if (!missing.isEmpty())
        return exitFaulty;
    askCommonPassword(*provider);
    print(arguments.demo ? QStringLiteral("Installed on %1. User 1001, password kerova.").arg(arguments.dsn)
                         : QStringLiteral("Installed on %1. Add a first user with: scintra-server password "
                                          "--dsn %1 ID --name \"LAST, FIRST\"")
                               .arg(arguments.dsn));
    return exitDone;
}

int runVerify(const Arguments& arguments) {
    const QStringList differences = site::verify(*openDataSource(arguments));
    for (const QString& difference : differences)
        print(difference);
    if (!differences.isEmpty())
        return exitFaulty;
    print(QStringLiteral("All is well."));
    return exitDone;
}

constexpr Command commandList[] = {
    {"demo", "[FILE]", "make the made-up hospital", 0, 1, runDemo},
    {"init", "[FILE]", "make an empty hospital", 0, 1, runInit},
    {"password", "FILE ID [--name \"LAST, FIRST\"]", "set a user's password; with a name, add the user", 2, 2,
     runPassword, Target::Either},
    {"generate", "[FILE] --patients N", "add made-up patients with stays", 0, 1, runGenerate},
    {"update", "[FILE]", "bring tables and procedures up to this program's", 0, 1, runUpdate},
    {"trace", "on|off|show [FILE]", "write down every statement, without results", 1, 2, runTrace},
    {"check", "[FILE]", "read the file and try every procedure on it", 0, 1, runCheck},
    {"backup", "FILE TO [--force]", "copy while people work", 2, 2, runBackup},
    {"restore", "FROM [FILE] [--force]", "put a copy in the place of a file", 1, 2, runRestore},
    {"sql", "FILE \"text\"", "run a text and print its rows", 2, 2, runSql, Target::Either},
    {"neighbours", "[--file FILE] [--every SECONDS] [--once KIND]",
     "play wards, cashier and prepaid office on the made-up hospital", 0, 1, runNeighbours, Target::Either},
    {"install", "--dsn NAME [--demo]",
     "make the hospital's databases on a SQL Server, or add what is missing", 0, 0, runInstall,
     Target::DataSource},
    {"verify", "--dsn NAME", "tell what differs there from this program's", 0, 0, runVerify,
     Target::DataSource},
};

} // namespace

std::span<const Command> serverCommands() {
    return commandList;
}

} // namespace tools
