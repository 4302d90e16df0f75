#pragma once

#include "platform/ado/Provider.h"
#include "server/engine/catalogue/Catalogue.h"

#include <QStringList>

namespace site {

/// The texts that put the rows of one table of `from` in the place of those that another server holds, with
/// the numbers that an identity gave them.
QStringList tableRows(ado::Provider& from, const engine::Table& table);

} // namespace site
