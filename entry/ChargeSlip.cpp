#include "entry/ChargeSlip.h"

#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/reports/ReportLaunch.h"

namespace entry {

using ado::sql;
using session::gUser;
using session::Run;

void dumpSlipLine(SlipStatement statement, const SlipLine& line) {
    const QString& user = gUser->employeecode();
    switch (statement) {
    case SlipStatement::Request:
        return Run(sql("sp_Nuclear_DumpChargeSlip '{}','{}','{}','{}','{}', '{}', '{}'", line.code,
                       line.particular, line.quantity, line.price, line.amount, user, line.revenue));
    case SlipStatement::Assessment:
        return Run(sql("sp_Nuclear_DumpChargeSlip '{}','{}','{}','{}','{}','{}', '{}'", line.code,
                       line.particular, line.quantity, line.price, line.amount, user, line.revenue));
    case SlipStatement::AssessmentStatus:
        return Run(sql("sp_Nuclear_DumpChargeSlip '{}','{}','{}','{}','{}','{}','{}'", line.code,
                       line.particular, line.quantity, line.price, line.amount, user, line.revenue));
    }
}

void dumpSlipLines(const SlipDump& dump, const controls::FlexGrid& lines) {
    for (int row = 1; row < lines.Rows(); ++row) {
        const auto cell = [&](int column) { return lines.TextMatrix(row, column); };
        const QString revenue = cell(colDepartment);
        if (cell(colCode).isEmpty() && dump.endsAtGap)
            return;
        if (!dump.endsAtGap && (cell(colCode).isEmpty() || revenue.isEmpty()))
            continue;
        const QString amount = cell(colAmount);
        const bool priceIsAmount =
            (dump.feeCostsItsAmount && isFeeRevenue(revenue)) || cell(dump.priceColumn).isEmpty();
        dumpSlipLine(dump.statement, {cell(colCode), cell(colParticular),
                                      cell(colQuantity).isEmpty() ? QStringLiteral("1") : cell(colQuantity),
                                      priceIsAmount ? amount : cell(dump.priceColumn), amount, revenue});
    }
}

QString nurseText(const QString& employeeId) {
    ado::Recordset nurse =
        session::Read(sql("SELECT Name FROM PASSWORD..tbPasswordMain WHERE Employeeid = '{}'", employeeId));
    return nurse.Eof() ? QString()
                       : QStringLiteral("(%1)%2").arg(employeeId, lookup::fieldText(nurse, "Name"));
}

void launchChargeSlip(const ChargeSlipHeader& header, bool directPrint) {
    session::PrepareReport(session::reportPath(QStringLiteral("Chargeslip.RPT")), QStringLiteral("NUCLEAR"),
                           {QStringLiteral("NUCLEAR MEDICINE COST CENTER SLIP"), header.patientName,
                            header.account, header.admissionNumber, gUser->employeename(),
                            header.nursingRemarks, base::CStr(base::today()), header.doctor,
                            header.chargeSlip, header.nurse});
    if (session::gReport) {
        session::gReport->number = header.chargeSlip;
        if (!header.mark.isEmpty())
            session::gReport->watermark = header.mark;
    }
    session::ShowReport(false, QStringLiteral("Charge Slip Printing"), directPrint);
}

} // namespace entry
