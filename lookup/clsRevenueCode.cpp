#include "lookup/clsRevenueCode.h"

#include "lookup/FieldText.h"
#include "lookup/frmSearch.h"
#include "platform/base/Conversion.h"
#include "platform/controls/screen/MessageBox.h"
#include "session/Session.h"

namespace lookup {

bool clsRevenueCode::ValidateRevenue(const QString& code) {
    {
        ado::Recordset exact = session::ReadForUpdate(ado::sql("sp_Nuclear_SearchRevenue '1','{}'", code));
        if (exact.RecordCount() == 1) {
            copy(exact);
            return true;
        }
    }
    ado::Recordset like = session::ReadForUpdate(ado::sql("sp_Nuclear_SearchRevenue '2','{}'", code));
    const bool someLike = base::CLng(like.Fields("recCount").Value()) > 0;
    like.Close();
    if (!someLike) {
        controls::MsgBox(QStringLiteral("Item does not exists."), controls::vbExclamation);
        return false;
    }
    frmSearch& search = controls::SharedScreen<frmSearch>::fresh();
    search.SearchCaption = QStringLiteral("Revenue Codes");
    search.Criteria = code;
    search.Query = "spNuclear_SearchRevenue '0','##'";
    search.ShowModal();
    if (!search.Valid)
        return false;
    ado::Recordset chosen =
        session::ReadForUpdate(ado::sql("spNuclear_SearchRevenue '1','{}'", search.ResultCode));
    copy(chosen);
    return true;
}

void clsRevenueCode::copy(ado::Recordset& rows) {
    m_revenueId = fieldText(rows, "RevenueID");
    m_revenue = fieldText(rows, "Revenue");
    m_withItems = fieldText(rows, "WithItems");
    m_searchInventory = fieldFlag(rows, "SearchInventory");
    m_locationId = fieldText(rows, "LocationID");
    m_inventoryCode = fieldText(rows, "InvCode");
}

clsRevenueCode& revenueCode() {
    static clsRevenueCode instance;
    return instance;
}

} // namespace lookup
