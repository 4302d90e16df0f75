#include "platform/report/definition/ReportDefinition.h"

#include "platform/base/Error.h"
#include "platform/report/definition/DefinitionReader.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/Formulas.h"

#include <QRegularExpression>

namespace report {

bool isLocation(const QString& text) {
    static const QRegularExpression pattern(
        QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_]*\\.[A-Za-z0-9_]*\\.[A-Za-z_][A-Za-z0-9_]*\\z"));
    return pattern.match(text).hasMatch();
}

std::shared_ptr<const ReportDefinition> ReportDefinition::read(const QByteArray& xml, const QString& file) {
    return DefinitionReader(xml, file).read();
}

Length ReportDefinition::columnWidth() const {
    const int room = (paperWidth - left - right).hundredths - gutter.hundredths * (columns - 1);
    return {room / columns};
}

Names ReportDefinition::names() const {
    Names result;
    for (const ParameterDefinition& parameter : parameters)
        result.parameters << parameter.name;
    for (const TableDefinition& table : tables)
        result.tables << table.name;
    for (const FormulaDefinition& formula : formulas)
        result.formulas << formula.name;
    for (const Group& group : groups)
        result.groups << group.name;
    for (const SubReportDefinition& subReport : subReports)
        result.subReports << subReport.name;
    return result;
}

std::vector<Expression> withFormula(const ReportDefinition& definition,
                                    const std::vector<Expression>& formulas, int index, const QString& text) {
    std::vector<Expression> changed = formulas;
    const QString& name = definition.formulas[std::size_t(index)].name;
    try {
        changed[std::size_t(index)] = parseExpression(text, definition.names());
    } catch (const ExpressionError& error) {
        throw base::RunTimeError(
            errorDamaged,
            QStringLiteral("Formula %1 at %2: %3.").arg(name).arg(error.at + 1).arg(error.reason));
    }
    if (cyclicFormula(changed) >= 0)
        throw base::RunTimeError(errorDamaged, QStringLiteral("Formula %1 leads back to itself.").arg(name));
    if (expandedSize(changed[std::size_t(index)], changed, 10000) > 10000)
        throw base::RunTimeError(errorDamaged, QStringLiteral("Formula %1 is too large.").arg(name));
    return changed;
}

} // namespace report
