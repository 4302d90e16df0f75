#pragma once

#include "platform/report/layout/PageBuilder.h"

namespace report {

/// A report's pages over rows that may still be arriving. A first pass finds where the pages begin; a page
/// is made when it is wanted, over and over.
class LaidPages : public PageSource {
  public:
    explicit LaidPages(std::shared_ptr<const ReportData> data);

    enum class Step {
        Done,
        Waiting, ///< for rows that have not arrived
        Busy     ///< the time was up
    };
    /// Lays out further pages, at least one where the rows are there. Raises 20515 for a column that is
    /// missing or a page without room, 13 for a value of the wrong kind.
    Step work(const QDeadlineTimer& deadline);

    int pageCount() const override { return int(m_starts.size()); }
    /// The number of pages is told only when it is known.
    Page makePage(int index) override;
    const std::vector<TreeEntry>& groupTree() const override { return m_tree; }
    bool isComplete() const override { return m_next.stage == FlowPlace::Stage::End; }

  private:
    void layPage();

    std::shared_ptr<const ReportData> m_data;
    Evaluator m_evaluator;
    BandLayout m_bands;
    PageBuilder m_builder;
    std::vector<FlowPlace> m_starts;
    std::vector<TreeEntry> m_tree;
    FlowPlace m_next;
    std::optional<RowsWanted> m_wanted; ///< by the page that comes next
};

} // namespace report
