#include "platform/report/output/SheetHeading.h"

#include "platform/base/Conversion.h"
#include "platform/report/definition/ReportDefinition.h"

#include <algorithm>

namespace report {

SheetHeading headingOf(const ReportDefinition& definition, const QString& hospital, const QString& address,
                       const std::vector<base::Value>& values) {
    SheetHeading heading{hospital, address, definition.title, {}};
    const std::size_t count = std::min(values.size(), definition.parameters.size());
    for (std::size_t i = 0; i < count; ++i) {
        const QString value = base::textOf(values[i]).simplified();
        // Some reports are given the heading itself as parameters.
        const bool known = value.isEmpty() || value == hospital.simplified() ||
                           value == address.simplified() || value == heading.title;
        if (!known)
            heading.lines << definition.parameters[i].prompt + QStringLiteral(": ") + value;
    }
    return heading;
}

} // namespace report
