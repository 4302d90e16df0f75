#include "orders/frmOutRequest.h"

#include "session/Session.h"

namespace orders {

using ado::sql;
using session::Read;

namespace {

constexpr entry::RequestVariant variant{.screen = "frmOutRequest",
                                        .caption = "RequestEntry",
                                        .title = "OutPatient Request Entry",
                                        .legend = entry::houseLegend,
                                        .grid = entry::outPatientGrid,
                                        .posting = entry::outPatientPosting,
                                        .boxTellsSlip = false,
                                        .hasNucCharges = true};

} // namespace

frmOutRequest::frmOutRequest(QWidget* parent) : RequestScreen(variant, parent) {}

void frmOutRequest::take(const session::OutRequestEntry& given) {
    entry = {.PatIdNum = given.IdNumber,
             .CashBasis = given.CashBasis,
             .NurseCommnunication = given.NurseCommnunication,
             .CashOrNum = given.CashOrNum,
             .CashPrice = given.CashPrice,
             .NursingRemarks = given.NursingRemarks,
             .RequestingNurse = given.RequestingNurse};
    ShowListPatient = given.ShowListPatient;
}

void frmOutRequest::fillHeader() {
    fillOutPatient(Read(sql("sp_Nuclear_searchoutpatient '{}'", IdNumber())));
}

ado::Recordset frmOutRequest::readNurseLines() const {
    return Read(sql("spNuclearcommsearchexam '{}'", IdNumber()));
}

} // namespace orders
