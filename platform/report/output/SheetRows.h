#pragma once

#include "platform/report/rows/ReportData.h"
#include "platform/report/rows/RowSource.h"

#include <memory>
#include <optional>

namespace report {

class Evaluator;

/// The rows of the details as the definition's sheet tells them: its captions for names, each cell of its
/// column's kind. They may still be arriving; a row that has not come raises 20515. For one thread.
class SheetRows : public RowSource {
  public:
    /// The definition must have a sheet and a table.
    explicit SheetRows(std::shared_ptr<const ReportData> data);
    ~SheetRows() override;

    const std::vector<ado::Column>& columns() const override { return m_columns; }
    CellLook look(qsizetype column) const override;
    qsizetype count() const override { return m_rows.count(); }
    base::Value at(qsizetype row, qsizetype column) const override;
    bool isComplete() const override { return m_rows.isComplete(); }

  private:
    std::shared_ptr<const ReportData> m_data;
    std::optional<HeldRows> m_held;
    const RowSource& m_rows; ///< the data's
    std::vector<ado::Column> m_columns;
    mutable std::unique_ptr<Evaluator> m_evaluator; ///< made when the first cell is asked for
};

/// What an export of the data writes: its sheet, or the details as they come; null without a table.
std::shared_ptr<const RowSource> exportedRows(const std::shared_ptr<const ReportData>& data);

} // namespace report
