#pragma once

#include "server/engine/catalogue/Catalogue.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace site {

/// A procedure, function or view as the kit makes it.
struct ModuleText {
    QString database;
    QString name;
    QString text; ///< from "CREATE OR ALTER" on
};

/// "PROCEDURE", "VIEW" or "FUNCTION" and the name, of a batch that makes one; no name for any other batch.
struct ModuleHead {
    QString kind;
    QString name;
    /// Where "CREATE OR ALTER" begins and how long it is.
    qsizetype at = 0;
    qsizetype length = 0;
};
ModuleHead moduleHead(const QString& batch);

std::vector<ModuleText> kitModules();
/// The tables of a hospital file, in order of their names.
std::vector<engine::Table> tablesOf(const QString& file);

} // namespace site
