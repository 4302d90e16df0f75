#include "orders/frmOutRequest.h"

#include "lookup/FieldText.h"
#include "lookup/RateSelection.h"
#include "platform/base/Conversion.h"
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

bool frmOutRequest::Check_IfHMO(const QString& patientNumber, QString& AccountNum) const {
    ado::Recordset account = Read(sql("RADIOLOGY..Radiology_CheckIfHMO '{}'", base::Trim(patientNumber)));
    if (account.Eof())
        return false;
    AccountNum = lookup::fieldText(account, "AccountNum");
    return true;
}

double frmOutRequest::inputRate(const session::NuclearExamRecord& exam) const {
    QString account;
    return lookup::rateOrZero(Check_IfHMO(IdNumber(), account) ? exam.RateH : exam.RateA);
}

} // namespace orders
