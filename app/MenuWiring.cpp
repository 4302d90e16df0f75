#include "app/MenuWiring.h"

#include "lookup/clsOutPatientSearch.h"
#include "menu/MenuLinks.h"

namespace app {

namespace {

std::optional<menu::FoundOutPatient> findOutPatient(const QString& searchText) {
    lookup::clsOutPatientSearch search;
    if (!search.ValidatePatient(searchText))
        return std::nullopt;
    return menu::FoundOutPatient{.IdNumber = search.IdNumber(),
                                 .BillingDate = search.BillingDate(),
                                 .InvoiceNumber = search.InvoiceNumber(),
                                 .LateCharges = search.LateCharges()};
}

} // namespace

void linkMenu() {
    menu::links().findOutPatient = findOutPatient;
}

} // namespace app
