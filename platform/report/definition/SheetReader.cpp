#include "platform/report/definition/DefinitionAttributes.h"

namespace report {

void DefinitionReader::readSheet(Attributes& attributes) {
    SheetDefinition& sheet = m_definition->sheet;
    if (!sheet.columns.empty())
        fail(QStringLiteral("the report has a sheet already"));
    sheet.title = attributes.expression("title");
    attributes.finish();
    readChildren([&](const QString& name, Attributes& own) {
        const bool isLine = name == QLatin1StringView("line");
        if (!isLine && name != QLatin1StringView("column"))
            return false;
        isLine ? readSheetLine(own) : readSheetColumn(own);
        return true;
    });
    if (sheet.columns.empty())
        fail(QStringLiteral("a sheet needs a column"));
}

void DefinitionReader::readSheetLine(Attributes& attributes) {
    m_definition->sheet.lines.push_back(expression(attributes.text("value")));
    attributes.finish();
    endElement();
}

void DefinitionReader::readSheetColumn(Attributes& attributes) {
    SheetColumn column;
    column.caption = attributes.text("caption");
    column.value = expression(attributes.text("value"));
    column.kind = SheetColumn::Kind(
        attributes.word("as", {QStringLiteral("text"), QStringLiteral("number"), QStringLiteral("amount"),
                               QStringLiteral("date"), QStringLiteral("moment")}));
    attributes.finish();
    m_definition->sheet.columns.push_back(std::move(column));
    endElement();
}

} // namespace report
