#include "platform/report/output/SheetRows.h"

#include "platform/base/Conversion.h"
#include "platform/base/DateTime.h"
#include "platform/report/evaluation/Evaluator.h"

namespace report {
namespace {

using base::Value;
using Kind = SheetColumn::Kind;

/// Rows that the data holds whole, kept as long as somebody wants to export them.
class DataRows : public HeldRows {
  public:
    explicit DataRows(std::shared_ptr<const ReportData> data)
        : HeldRows(data->tables.front()), m_data(std::move(data)) {}

  private:
    std::shared_ptr<const ReportData> m_data;
};

/// What is not of the kind stays a text: nothing is lost on the way into a sheet.
Value valueAs(Kind kind, const Value& value) {
    const QString text = base::textOf(value);
    if (value.isNull() || text.isEmpty())
        return {};
    switch (kind) {
    case Kind::Number:
    case Kind::Amount:
        return base::IsNumeric(value) ? Value(base::CDbl(value)) : Value(text);
    case Kind::Date:
        return base::IsDate(value) ? Value(base::dateOnly(base::CDate(value))) : Value(text);
    case Kind::Moment:
        return base::IsDate(value) ? Value(base::CDate(value)) : Value(text);
    case Kind::Text:
        break;
    }
    return text;
}

} // namespace

SheetRows::SheetRows(std::shared_ptr<const ReportData> data)
    : m_data(std::move(data))
    , m_held(m_data->details ? std::nullopt : std::optional<HeldRows>(m_data->tables.front()))
    , m_rows(m_held ? static_cast<const RowSource&>(*m_held) : *m_data->details) {
    for (const SheetColumn& column : m_data->definition->sheet.columns)
        m_columns.push_back({column.caption, ado::DataType::Text, {}, {}});
}

SheetRows::~SheetRows() = default;

CellLook SheetRows::look(qsizetype column) const {
    switch (m_data->definition->sheet.columns[std::size_t(column)].kind) {
    case Kind::Amount:
        return CellLook::Amount;
    case Kind::Date:
        return CellLook::Day;
    case Kind::Moment:
        return CellLook::Moment;
    default:
        return CellLook::Plain;
    }
}

Value SheetRows::at(qsizetype row, qsizetype column) const {
    if (!m_evaluator)
        m_evaluator = std::make_unique<Evaluator>(m_data);
    const SheetColumn& told = m_data->definition->sheet.columns[std::size_t(column)];
    return valueAs(told.kind, m_evaluator->value(told.value, Standpoint{row, -1, 0, 0}));
}

std::shared_ptr<const RowSource> exportedRows(const std::shared_ptr<const ReportData>& data) {
    if (data->tables.empty())
        return nullptr;
    if (!data->definition->sheet.columns.empty())
        return std::make_shared<SheetRows>(data);
    return data->details ? data->details : std::make_shared<DataRows>(data);
}

} // namespace report
