#include "entry/ChargeSlipPrint.h"

#include "entry/RequestColumns.h"
#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"

namespace entry {

using ado::sql;
using session::gUser;

namespace {

void dumpLines(controls::FlexGrid& lines) {
    session::Run(sql("delete from tbNucChargeSlip"));
    for (int row = 1; row < lines.Rows() && !lines.TextMatrix(row, colCode).isEmpty(); ++row) {
        const auto cell = [&](int column) { return lines.TextMatrix(row, column); };
        const QString revenue = cell(colDepartment);
        const QString quantity = cell(colQuantity).isEmpty() ? QStringLiteral("1") : cell(colQuantity);
        const QString amount = cell(colAmount);
        const bool priceIsAmount = isFeeRevenue(revenue) || cell(colPrice).isEmpty();
        session::Run(sql("sp_Nuclear_DumpChargeSlip '{}','{}','{}','{}','{}', '{}', '{}'", cell(colCode),
                         cell(colParticular), quantity, priceIsAmount ? amount : cell(colPrice), amount,
                         gUser->employeecode(), revenue));
    }
}

/// "(id)name", or "" when the employee is not on file.
QString nurseText(const QString& employeeId) {
    ado::Recordset nurse =
        session::Read(sql("SELECT Name FROM PASSWORD..tbPasswordMain WHERE Employeeid = '{}'", employeeId));
    return nurse.Eof() ? QString()
                       : QStringLiteral("(%1)%2").arg(employeeId, lookup::fieldText(nurse, "Name"));
}

} // namespace

void PrintChargeSlip(controls::FlexGrid& lines, const ChargeSlipHeader& header) {
    dumpLines(lines);
    const QString nurse = nurseText(header.requestingNurse);
    session::PrepareReport(session::reportPath(QStringLiteral("Chargeslip.RPT")), QStringLiteral("NUCLEAR"),
                           {QStringLiteral("NUCLEAR MEDICINE COST CENTER SLIP"), header.patientName,
                            header.account, header.admissionNumber, gUser->employeename(),
                            header.nursingRemarks, base::CStr(base::today()), header.doctor,
                            header.chargeSlip, nurse});
    session::ShowReport(false, QStringLiteral("Charge Slip Printing"), true);
}

} // namespace entry
