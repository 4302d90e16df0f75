#pragma once

#include "platform/report/layout/LaidPages.h"
#include "platform/report/rows/BackgroundReader.h"

namespace report {

/// A report on its way: rows are read on a thread of their own, pages are laid out on this one as the rows
/// come. Everything but the reading belongs to the thread that made it. Going away it stops the reading.
class Run {
  public:
    enum class State {
        Running,
        Complete,
        Stopped ///< given up, or failed: the pages laid so far can be read
    };

    /// `data` without rows of the details; `reader` null when the report has no table.
    Run(std::shared_ptr<const ReportData> data, std::unique_ptr<BackgroundReader> reader);
    ~Run();

    /// Grows while this runs.
    const std::shared_ptr<PageDocument>& document() const { return m_document; }
    State state() const { return m_state; }
    /// Lays out for about so many milliseconds. Raises what the statement raised and what layout() raises;
    /// then the run has stopped.
    State work(int milliseconds);
    /// Nothing can be laid out before further rows arrive.
    bool isWaiting() const { return m_waiting; }
    /// Until rows arrive or the time is up.
    void waitForRows(int milliseconds);
    void stop();
    /// The reader has let go of the server.
    bool isIdle() const { return !m_reader; }
    Progress progress() const;

  private:
    void takeStep(int milliseconds);
    void takeRows(std::shared_ptr<RowStore> rows);
    void complete();
    void letGo();

    std::shared_ptr<const ReportData> m_data;
    std::unique_ptr<BackgroundReader> m_reader;
    std::shared_ptr<PageDocument> m_document;
    std::shared_ptr<RowStore> m_rows;
    LaidPages* m_pages = nullptr; ///< the document's
    std::exception_ptr m_fault;   ///< of the layout; a further result may yet make it void
    State m_state = State::Running;
    bool m_waiting = true;
};

} // namespace report
