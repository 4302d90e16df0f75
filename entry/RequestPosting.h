#pragma once

#include "entry/PostedLine.h"
#include "platform/ado/Connection.h"
#include "platform/base/DateTime.h"
#include "session/Screens.h"

#include <QString>

namespace entry {

/// Where the request screens differ in what they post.
struct PostingVariant {
    const char* patientType;     ///< in the ward's checks and the bill: "I" or "O"
    int nurseLinkColumn;         ///< the column with the ward's own request number
    bool stockLineIsRequest;     ///< a supply line leaves a request beside its stock movement
    bool onlyAdmitted;           ///< any other patient type than "I" posts nothing
    bool billsDeptCode;          ///< the procedures on the bill are those of gDeptCode, not those of "NU"
    bool alwaysTakesTime = true; ///< the server's time is read even where nothing is posted
};

inline constexpr PostingVariant inPatientPosting{"I", 11, true, true, false};
inline constexpr PostingVariant outPatientPosting{"O", 12, false, false, true};
inline constexpr PostingVariant receivablePosting{"I", 11, false, true, false, false};

/// What a save takes from its screen; texts as the screen shows them.
struct PostingHeader {
    const session::RequestEntry& entry;
    QString txtHospNum;
    QString txtIdNum;
    QString txtRoom;
    QString DoctorCode;
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
    void SetStockDept();
    void takeChargeSlip();
    QString takeRequestNum();
    void postLines();
    void postLine(int row);
    void addRequest(const PostedLine& line);
    void addRequestRow(const PostedLine& line, const QString& link, const QString& revenue);
    void stampNurseFiles(const PostedLine& line);
    void addNurseLogBook(const PostedLine& line);
    void addBill(const PostedLine& line);
    void addStockMovement(const PostedLine& line);
    void saveUnusedItems();

    const PostingVariant& m_variant;
    const PostingHeader& m_header;
    controls::FlexGrid& m_lines;
    controls::FlexGrid& m_unusedItems;
    base::DateTime ServerNow;
    QString m_billTime; ///< ServerNow as the bill takes it
    QString m_chargeSlip;
    QString StockClass;
    QString StockDeptCode;
};

} // namespace entry
