#include "session/StampRow.h"

namespace session {

void stampRow(ado::Recordset& rows, const char* table, std::initializer_list<Stamp> stamps) {
    if (rows.State() != ado::Recordset::adStateOpen || rows.Eof())
        return;
    if (*table)
        rows.setUniqueTable(QString::fromLatin1(table));
    for (const Stamp& stamp : stamps)
        rows.Fields(stamp.field).setValue(stamp.value);
    rows.Update();
}

} // namespace session
