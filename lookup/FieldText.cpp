#include "lookup/FieldText.h"

#include "platform/base/Conversion.h"

namespace lookup {

QString fieldText(ado::Recordset& rows, const char* column) {
    return base::Trim(rows.Fields(column).text());
}

bool fieldFlag(ado::Recordset& rows, const char* column) {
    const base::Value value = rows.Fields(column).Value();
    if (const bool* bit = value.asBool())
        return *bit;
    const QString word = base::Trim(base::textOf(value));
    return word.compare(u"True", Qt::CaseInsensitive) == 0 || base::Val(word) != 0;
}

} // namespace lookup
