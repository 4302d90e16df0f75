#pragma once

#include <QString>
#include <QStringList>

#include <span>

namespace tools {

/// What stands behind the command's name on the command line.
struct Arguments {
    QStringList words;
    int patients = 0;
    QString name;
    /// The ODBC data source of a SQL Server, in the place of a file.
    QString dsn;
    /// The database login; empty for the data source's own.
    QString login;
    bool demo = false;
    /// A file that stands in the way is replaced.
    bool force = false;
    int everySeconds = 20;
    /// Does one thing of this kind and ends; empty for going on.
    QString once;
};

/// What a command works on.
enum class Target { File, DataSource, Either };

struct Command {
    const char* name;
    /// What must or may follow, as --help shows it.
    const char* usage;
    const char* does;
    int fewestWords;
    int mostWords;
    /// The program's exit code. Raises base::RunTimeError.
    int (*run)(const Arguments& arguments);
    /// Either: with a data source there is one word less.
    Target target = Target::File;
};

std::span<const Command> serverCommands();

inline constexpr int exitDone = 0;
/// The command ran and found something wrong (check).
inline constexpr int exitFaulty = 1;
/// Not a command, or not the right words behind it.
inline constexpr int exitUsage = 2;
/// The command failed; the reason is on stderr.
inline constexpr int exitFailed = 3;

} // namespace tools
