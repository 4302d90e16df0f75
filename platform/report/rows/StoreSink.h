#pragma once

#include "platform/report/Progress.h"
#include "platform/report/rows/RowStore.h"

#include <memory>

namespace report {

/// Takes a statement's rows into a store; a store of its own for each result, the last one counts. The
/// statement may run on one thread while another one asks and stops.
class StoreSink : public ado::RowSink {
  public:
    /// `progress` is called on the thread of the statement, each time that some rows have come.
    explicit StoreSink(ProgressCall progress = {}) : m_progress(std::move(progress)) {}

    void begin(const std::vector<ado::Column>& columns) override;
    bool row(std::vector<base::Value>& values) override;
    bool isWanted() const override { return !m_stopped.load(std::memory_order_acquire); }

    /// Called when the statement has ended well: the rows are complete, and none where there was no result.
    void finish();
    void stop() { m_stopped.store(true, std::memory_order_release); }
    /// Null before the first result begins.
    std::shared_ptr<RowStore> rows() const;

  private:
    ProgressCall m_progress;
    std::atomic<bool> m_stopped{false};
    mutable std::mutex m_mutex; ///< guards m_rows
    std::shared_ptr<RowStore> m_rows;
};

} // namespace report
