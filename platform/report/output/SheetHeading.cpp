#include "platform/report/output/SheetHeading.h"

#include "platform/base/Conversion.h"
#include "platform/report/evaluation/Evaluator.h"

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

SheetHeading headingOf(const std::shared_ptr<const ReportData>& data) {
    const ReportDefinition& definition = *data->definition;
    if (definition.sheet.columns.empty())
        return headingOf(definition, data->headingName, data->headingAddress, data->parameters);
    SheetHeading heading{data->headingName, data->headingAddress, definition.title, {}};
    // Of the heading nothing waits for rows: they may be on their way yet.
    auto bare = std::make_shared<ReportData>(*data);
    bare->details.reset();
    bare->tables.assign(data->tables.size(), {});
    Evaluator evaluator(bare);
    const auto told = [&](const Expression& expression) {
        return base::textOf(evaluator.value(expression, Standpoint())).simplified();
    };
    const QString title = definition.sheet.title ? told(*definition.sheet.title) : QString();
    if (!title.isEmpty())
        heading.title = title;
    for (const Expression& line : definition.sheet.lines) {
        if (const QString text = told(line); !text.isEmpty())
            heading.lines << text;
    }
    return heading;
}

} // namespace report
