#include "orders/frmRequest.h"

namespace orders {

namespace {

constexpr entry::RequestVariant variant{.screen = "frmRequest",
                                        .caption = "Request Entry",
                                        .title = "InPatient Request Entry",
                                        .legend = entry::houseLegend,
                                        .grid = entry::inPatientGrid,
                                        .posting = entry::inPatientPosting,
                                        .boxTellsSlip = true,
                                        .hasNucCharges = true};

} // namespace

frmRequest::frmRequest(QWidget* parent) : RequestScreen(variant, parent) {}

} // namespace orders
