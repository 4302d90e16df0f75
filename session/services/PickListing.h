#pragma once

#include "platform/ado/Connection.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace session {

enum class PickFormat {
    Text,
    Date,
    Amount,
    Quantity,
    Price ///< what the caller makes of the row; left out of the list where it makes nothing of it
};

struct PickColumn {
    const char* caption = nullptr;
    const char* field = nullptr;
    int twips = 0;
    PickFormat format = PickFormat::Text;
};

/// One list that a service lets the user pick from. Its statements take these place-holders: `##code` a whole
/// code, `##text` the start of a code or name, `##last` and `##first` the starts of a person's names,
/// `##section` what the list is confined to, `##location` a stock location it is confined to, `##stock` the
/// stock location that is shown.
struct PickListing {
    static constexpr std::size_t mostColumns = 8;
    static constexpr int mostRows = 200; ///< the TOP of every listing statement

    const char* title;
    const char* hint;  ///< what can be typed
    const char* one;   ///< "doctor"
    const char* many;  ///< "doctors"
    const char* empty; ///< the sentence of an empty list
    std::array<PickColumn, mostColumns> columns;
    ado::QueryTemplate exact;  ///< the row of a code that is complete
    ado::QueryTemplate newest; ///< what is shown before anything is typed
    ado::QueryTemplate byCode; ///< for a text that begins with a digit; none: byName serves it too
    ado::QueryTemplate byName;
    const char* ownStock = ""; ///< the stock location that is shown when none is asked for
};

/// What a listing is confined to.
struct PickScope {
    QString section;
    QString location;
};

extern const PickListing townListing;
extern const PickListing doctorListing;
extern const PickListing dosageListing;
extern const PickListing examListing;
extern const PickListing confinedPatientListing;
extern const PickListing outPatientListing;
extern const PickListing medicineListing;
extern const PickListing supplyListing;

/// What the caller's line would cost with the current row of the list.
using PickPrice = std::function<double(ado::Recordset& rows)>;

/// The statement that a typed text makes.
ado::Statement pickStatement(const PickListing& listing, const PickScope& scope, const QString& text);

struct Pick {
    /// The row chosen, as current row of its recordset; none when the code is unknown or the list was left.
    std::optional<ado::Recordset> row;
    /// The list was shown and left without a choice.
    bool left = false;
};

/// Takes a complete code at once; else shows the list when `showList`.
Pick pick(ado::Connection* connection, const PickListing& listing, const PickScope& scope,
          const QString& text, bool showList, const PickPrice& price = {});

} // namespace session
