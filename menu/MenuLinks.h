#pragma once

#include "platform/base/Value.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace menu {

class Monitors;
class frmMainMenu;

/// The out-patient that a search came back with; texts as the search object has them.
struct FoundOutPatient {
    QString IdNumber = {};
    QString BillingDate = {}; ///< "" while the bill is open
    QString InvoiceNumber = {};
    bool LateCharges = false;
};

/// How the menu reaches what lies beside or above it. The program fills it in, a test records.
struct MenuLinks {
    /// Looks for a registered out-patient; nothing when none was found or chosen. Without a search there is
    /// no out-patient charge entry: the command then finds nobody.
    std::function<std::optional<FoundOutPatient>(const QString& searchText)> findOutPatient;
    /// The monitors of a menu that loads; without it there are none.
    std::function<std::unique_ptr<Monitors>(frmMainMenu&)> makeMonitors;
    /// The menu is gone and no user follows.
    std::function<void()> endProgram;

    /// Report launching; the session's own at start.
    std::function<void(const QString& path, const QString& database, const std::vector<base::Value>& values)>
        prepareReport;
    std::function<void(const QString& name, const std::vector<base::Value>& values)> prepareSubReport;
    std::function<void(bool showGroupTree, const QString& title, bool directPrint)> showReport;
};

MenuLinks& links();
/// The links as they are when the program starts.
MenuLinks defaultLinks();

} // namespace menu
