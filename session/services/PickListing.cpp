#include "session/services/PickListing.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "session/services/frmPickList.h"

namespace session {
namespace {

/// A quote cannot stand in a literal; the screens' key rule keeps it out in the same way.
QString withoutQuotes(const QString& text) {
    return base::BackQuoted(base::Trim(text));
}

/// The start of a name, for LIKE: its signs stand for any one letter, and so does the back-quote, as old
/// names were kept with an apostrophe.
QString startOf(const QString& text) {
    QString result = base::Trim(text);
    for (QChar& c : result) {
        if (c == u'\'' || c == u'`' || c == u'%' || c == u'[' || c == u']')
            c = u'_';
    }
    return result;
}

QString stockOf(const PickListing& listing, const PickScope& scope) {
    const QString location = withoutQuotes(scope.location);
    return location.isEmpty() ? QString::fromLatin1(listing.ownStock) : location;
}

} // namespace

ado::Statement pickStatement(const PickListing& listing, const PickScope& scope, const QString& typed) {
    const QString text = base::Trim(typed);
    const bool number = !text.isEmpty() && text[0].isDigit() && !listing.byCode.isEmpty();
    const qsizetype comma = text.indexOf(u',');
    const QString last = comma < 0 ? text : text.left(comma);
    const QString first = comma < 0 ? QString() : text.mid(comma + 1);
    const ado::QueryTemplate& query = text.isEmpty() ? listing.newest
                                      : number       ? listing.byCode
                                                     : listing.byName;
    return query.with({{"##text", startOf(text)},
                       {"##last", startOf(last)},
                       {"##first", startOf(first)},
                       {"##section", withoutQuotes(scope.section)},
                       {"##location", withoutQuotes(scope.location)},
                       {"##stock", stockOf(listing, scope)}});
}

Pick pick(ado::Connection* connection, const PickListing& listing, const PickScope& scope,
          const QString& text, bool showList, const PickPrice& price) {
    if (!connection)
        throw base::RunTimeError(base::errors::connectionInvalid);
    const QString code = withoutQuotes(text);
    if (!code.isEmpty()) {
        ado::Recordset row;
        row.Open(listing.exact.with({{"##code", code},
                                     {"##section", withoutQuotes(scope.section)},
                                     {"##location", withoutQuotes(scope.location)},
                                     {"##stock", stockOf(listing, scope)}}),
                 *connection);
        if (row.State() == ado::Recordset::adStateOpen && !row.Eof())
            return {std::move(row), false};
    }
    if (!showList)
        return {};
    frmPickList dialog(listing, [connection, &listing, &scope](const QString& typed) {
        ado::Recordset rows;
        rows.Open(pickStatement(listing, scope, typed), *connection);
        return rows;
    });
    dialog.setPrice(price);
    dialog.setSearchText(code);
    dialog.ShowModal();
    if (!dialog.Valid)
        return {{}, true};
    return {dialog.takeChosenRow(), false};
}

} // namespace session
