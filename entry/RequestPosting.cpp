#include "entry/RequestPosting.h"

#include "entry/RequestColumns.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Routines.h"
#include "session/Session.h"
#include "session/StampRow.h"
#include "session/logon/clsCurrentUser.h"

namespace entry {

using ado::sql;
using base::Trim;
using session::gSectionCode;
using session::gUser;
using session::ReadForUpdate;
using session::stampRow;

RequestPosting::RequestPosting(const PostingVariant& variant, const PostingHeader& header,
                               controls::FlexGrid& lines, controls::FlexGrid& unusedItems)
    : m_variant(variant), m_header(header), m_lines(lines), m_unusedItems(unusedItems) {}

void RequestPosting::post() {
    if (session::gInventoryEntry)
        SetStockDept();
    const bool posts = !m_variant.onlyAdmitted || m_header.entry.PatientType == u"I";
    if (posts || m_variant.alwaysTakesTime)
        ServerNow = base::CDate(
            ReadForUpdate(sql("select getdate() as [server date]")).Fields("server date").Value());
    if (!posts)
        return;
    m_billTime = base::Format(ServerNow, QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM"));
    if (!m_header.entry.CashBasis)
        takeChargeSlip();
    postLines();
    saveUnusedItems();
}

/// A package brings items of two stores; the last of its lines decides for all of them.
void RequestPosting::SetStockDept() {
    for (int row = 1; row < m_lines.Rows(); ++row) {
        const QString revenue = m_lines.TextMatrix(row, colDepartment);
        if (revenue == u"MN")
            StockDeptCode = QStringLiteral("179");
        else if (revenue == u"UR")
            StockDeptCode = QStringLiteral("224");
    }
}

void RequestPosting::takeChargeSlip() {
    const QString number = ReadForUpdate(sql("SELECT chargeslip FROM tbNucSlip")).Fields("chargeslip").text();
    ReadForUpdate(sql("sp_Nuclear_IncRefNum"));
    m_chargeSlip = QStringLiteral("C%1J").arg(Trim(number));
}

QString RequestPosting::takeRequestNum() {
    const QString number = ReadForUpdate(sql("SELECT requestnum FROM tbNucSlip")).Fields("requestnum").text();
    ReadForUpdate(sql("sp_Nuclear_IncRequestNum"));
    return Trim(number);
}

/// The current row is in the end the line that was posted last, or the one that failed.
void RequestPosting::postLines() {
    for (int row = 1; row < m_lines.Rows(); ++row) {
        try {
            postLine(row);
        } catch (...) {
            m_lines.setRow(row);
            throw;
        }
    }
    if (m_lines.Rows() > 1)
        m_lines.setRow(m_lines.Rows() - 1);
}

void RequestPosting::postLine(int row) {
    PostedLine line = readLine(m_lines, row, m_variant.nurseLinkColumn);
    gSectionCode = line.Revenue;
    line.RequestNum = takeRequestNum();
    addRequest(line);
    if (m_header.entry.NurseCommnunication && !m_header.entry.CashBasis)
        stampNurseFiles(line);
    else
        addNurseLogBook(line);
    if (m_header.entry.CashBasis)
        return;
    const QString billed = m_variant.billsDeptCode ? session::gDeptCode : QStringLiteral("NU");
    if (line.Revenue == billed || isFeeRevenue(line.Revenue)) {
        addBill(line);
    } else if (!line.ItemCode.isEmpty()) {
        addStockMovement(line);
        if (m_variant.stockLineIsRequest)
            addRequestRow(line, line.RequestNum, gSectionCode);
    }
}

void RequestPosting::addRequest(const PostedLine& line) {
    if (m_header.entry.CashBasis) {
        ReadForUpdate(
            sql("sp_Nuclear_AddRequest '{}','{}','{}', '{}','{}','{}','I', '{}','{}','','','{}','','{}'",
                Trim(m_header.txtHospNum), Trim(m_header.txtIdNum), line.RequestNum, Trim(line.ItemCode),
                line.Amount, m_header.DoctorCode, m_header.entry.CashOrNum, gUser->employeecode(),
                line.Quantity, line.Revenue));
    } else if (m_header.entry.NurseCommnunication) {
        addRequestRow(line, line.LinkNum, line.Revenue);
    } else if (gSectionCode == u"NU") {
        addRequestRow(line, line.RequestNum, gSectionCode);
    }
}

void RequestPosting::addRequestRow(const PostedLine& line, const QString& link, const QString& revenue) {
    ReadForUpdate(sql(
        "sp_Nuclear_AddRequest '{}','{}','{}', '{}','{}','{}','I', '{}','{}','{}','','{}', '','{}'",
        Trim(m_header.txtHospNum), Trim(m_header.txtIdNum), line.RequestNum, Trim(line.ItemCode), line.Amount,
        m_header.DoctorCode, m_chargeSlip, gUser->employeecode(), link, line.Quantity, revenue));
}

void RequestPosting::stampNurseFiles(const PostedLine& line) {
    ado::Recordset communication = ReadForUpdate(
        sql("sp_checknursecommunicationfile '0','{}','{}','{}','{}','{}'", m_variant.patientType,
            gSectionCode, line.ItemCode, m_header.entry.PatIdNum, line.LinkNum));
    stampRow(communication, "STATION..tbNurseCommunicationFile",
             {{"referencenum", m_chargeSlip}, {"RecordStatus", "X"}});
    ado::Recordset logBook =
        ReadForUpdate(sql("sp_checknurselogbook '0','{}','{}','{}','{}','{}'", m_variant.patientType,
                          m_header.txtIdNum, gSectionCode, line.ItemCode, line.LinkNum));
    stampRow(logBook, "STATION..tbNurseLogBook",
             {{"referencenum", m_chargeSlip},
              {"RecordStatus", "X"},
              {"processby", gUser->employeecode()},
              {"processdate", ServerNow}});
}

void RequestPosting::addNurseLogBook(const PostedLine& line) {
    const QString& user = gUser->employeecode();
    ReadForUpdate(sql("sp_addnurselogbook '{}','{}', '{}','{}','{}', '{}','{}', '{}','{}','I','{}','{}'",
                      m_header.txtHospNum, m_header.entry.PatIdNum, Trim(line.ItemCode), Trim(line.ItemName),
                      line.Amount, user, user, m_chargeSlip, gSectionCode, line.RequestNum, line.Quantity));
}

void RequestPosting::addBill(const PostedLine& line) {
    ReadForUpdate(sql("sp_addbill '{}','{}','{}','{}', '{}','{}','{}','{}','{}','','', '{}'",
                      m_variant.patientType, m_header.txtIdNum, m_billTime, m_chargeSlip, Trim(line.ItemCode),
                      line.Amount, gSectionCode, gUser->employeecode(), line.Quantity, m_header.txtHospNum));
}

void RequestPosting::addStockMovement(const PostedLine& line) {
    StockClass = StockDeptCode == u"179" ? QStringLiteral("PH") : QStringLiteral("CS");
    session::AppendStockCard(StockClass, Trim(m_header.txtHospNum), Trim(m_header.txtIdNum), line.ItemCode,
                             m_chargeSlip, base::Val(base::Str(line.Quantity)),
                             base::Val(base::Str(line.Amount)), Trim(m_header.txtRoom), StockDeptCode, {});
}

void RequestPosting::saveUnusedItems() {
    bool isPackage = false;
    for (int row = 1; row < m_lines.Rows(); ++row)
        isPackage = isPackage || !m_lines.TextMatrix(row, colPackageCode).isEmpty();
    const bool isListed = m_unusedItems.Rows() > 1 && m_unusedItems.Cols() > 1 &&
                          !Trim(m_unusedItems.TextMatrix(1, 1)).isEmpty();
    if (!isPackage || !isListed)
        return;
    for (int row = 1; row < m_unusedItems.Rows(); ++row) {
        const auto cell = [&](int column) { return Trim(m_unusedItems.TextMatrix(row, column)); };
        session::Run(sql("STATION..sp_Save_PackageItems_Unused '{}','{}','{}','{}','{}','{}','{}','{}','{}'",
                         m_header.txtIdNum, cell(7), cell(1), cell(2), cell(4), cell(5), cell(6),
                         session::gEmployeeCode, m_chargeSlip));
    }
}

} // namespace entry
