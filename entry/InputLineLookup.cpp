#include "entry/InputLineLookup.h"

#include "entry/RequestColumns.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/MessageBox.h"

namespace entry {

using namespace controls;

InputLineLookup::InputLineLookup(FlexGrid& grid, RequestLineLookup::Rate rate)
    : m_grid(grid), m_lookup(grid, std::move(rate), {"You have already entered that item code", ""}) {}

bool InputLineLookup::LookUpCode() {
    const QString revenue = m_grid.TextMatrix(m_grid.Row(), colDepartment);
    const QString code = m_grid.TextMatrix(m_grid.Row(), colCode);
    if (isFeeRevenue(revenue)) {
        if (m_lookup.LookUpDoctorLine(code))
            return true;
        MsgBox(QStringLiteral("Doctor code not exist!"), vbExclamation);
        return false;
    }
    const LookUp found = m_lookup.LookUpExamLine(code);
    if (found == LookUp::NotFound || found == LookUp::NoRecord)
        MsgBox(QStringLiteral("Item Code does not exist."), vbExclamation);
    return found == LookUp::Found;
}

} // namespace entry
