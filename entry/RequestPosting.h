#pragma once

#include "platform/ado/Connection.h"
#include "platform/base/DateTime.h"

#include <QString>

namespace controls {
class FlexGrid;
}

namespace entry {

/// Where the request screens differ in what they post.
struct PostingVariant {
    const char* patientType; ///< in the ward's checks and the bill: "I" or "O"
    int nurseLinkColumn;     ///< the column with the ward's own request number
    bool stockLineIsRequest; ///< a supply line leaves a request beside its stock movement
    bool onlyAdmitted;       ///< any other patient type than "I" posts nothing
};

inline constexpr PostingVariant inPatientPosting{"I", 11, true, true};

/// What a save takes from its screen; texts as the screen shows them.
struct PostingHeader {
    QString PatIdNum;
    QString PatientType;
    QString txtHospNum;
    QString txtIdNum;
    QString txtRoom;
    QString DoctorCode;
    QString CashOrNum;
    bool CashBasis = false;
    bool NurseCommnunication = false;
};

/// Posts the lines of a request grid within the caller's transaction: numbers, requests, ward files, bill,
/// stock. Has no error trap: what a statement raises goes to the caller with the transaction open.
class RequestPosting {
  public:
    /// The grids are read only, but the current row of `lines` moves with the posting.
    RequestPosting(const PostingVariant& variant, const PostingHeader& header, controls::FlexGrid& lines,
                   controls::FlexGrid& unusedItems);

    void post();
    /// "C" & number & "J"; "" when nothing was numbered.
    const QString& ChargeSlip() const { return m_chargeSlip; }

  private:
    struct Line {
        QString ItemCode, ItemName, Revenue, LinkNum, RequestNum;
        double Quantity = 0;
        double Amount = 0;
    };

    void SetStockDept();
    void takeChargeSlip();
    QString takeRequestNum();
    Line readLine(int row) const;
    void postLine(const Line& line);
    void addRequest(const Line& line);
    void addRequestRow(const Line& line, const QString& link, const QString& revenue);
    void stampNurseFiles(const Line& line);
    void addNurseLogBook(const Line& line);
    void addBill(const Line& line);
    void addStockMovement(const Line& line);
    void saveUnusedItems();

    const PostingVariant& m_variant;
    const PostingHeader& m_header;
    controls::FlexGrid& m_lines;
    controls::FlexGrid& m_unusedItems;
    base::DateTime ServerNow;
    QString m_chargeSlip;
    QString StockClass;
    QString StockDeptCode;
};

} // namespace entry
