#pragma once

#include "platform/ado/Recordset.h"
#include "results/ResultScreen.h"

#include <span>

namespace results {

/// A field by its given name, and the column that fills it.
struct FieldColumn {
    const char* field;
    const char* column;
};

/// What needs a saved result.
inline constexpr const char* viewCommands[] = {"btnEdit", "btnPrint"};

/// Where the four load routines differ. Mode "R" enters, views and edits, mode "C" revokes.
struct LoadVariant {
    /// The doctor of the patient that stands beside the requesting one.
    FieldColumn doctorCode, doctorName;
    ado::Statement (*resultToEdit)(const QString& requestNumber);
    ado::Statement (*resultToRevoke)(const QString& requestNumber);
    std::span<const FieldColumn> texts; ///< filled in both modes
    /// The measured values: filled in mode "R" only. Null where there are none.
    void (*fillTable)(ResultScreen& screen, ado::Recordset& result);
    FieldNames disabledToEdit;
    FieldNames disabledToRevoke;
    FieldNames hiddenAtFirstToRevoke; ///< commands, before it is known whether there is a result
};

extern const LoadVariant genericLoad;
extern const LoadVariant perfusionLoad;
extern const LoadVariant gfrLoad;
extern const LoadVariant radioLoad;

/// Fills a screen that is loaded and not yet shown with a request and, where there is one, its result, and
/// sets its fields and commands for the mode. An unknown request leaves the fields as the screen's load left
/// them.
void fillResultScreen(ResultScreen& screen, const LoadVariant& variant, const QString& requestNumber,
                      const QString& formMode);

} // namespace results
