#pragma once

#include "server/hospital/Progress.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace engine {
class EmbeddedProvider;
}

namespace hospital {

struct KitFile {
    QString name; ///< "NUCLEAR/procedures/sp_Nuclear_AddRequest.sql"
    QString text;
};

/// The T-SQL files compiled into the program, in the order in which they are to be installed: tables,
/// functions, views, procedures, the rows that every hospital needs.
const std::vector<KitFile>& kitFiles();
/// The databases of the kit, by name.
QStringList kitDatabases();
/// Changes with every change of a file.
QString kitVersion();

/// Where a file of a kit stands in its order: tables, functions, views, procedures, first rows.
int kitRank(const QString& name);

/// Tells a newer kit from an older one; raised with every release that changes the kit. A file remembers the
/// highest it was given, 0 when it was made before there were numbers.
inline constexpr int kitNumber = 5;
int installedKitNumber(engine::EmbeddedProvider& provider);

/// Runs all files; the caller has a transaction open. Raises what the first faulty file raises, naming it.
void installKit(engine::EmbeddedProvider& provider, const Progress& progress);
/// What installKit() last left in the file; empty when it never ran.
QString installedKitVersion(engine::EmbeddedProvider& provider);

} // namespace hospital
