#include "platform/report/Run.h"

#include "platform/base/Error.h"
#include "platform/report/layout/Layout.h"

namespace report {

Run::Run(std::shared_ptr<const ReportData> data, std::unique_ptr<BackgroundReader> reader)
    : m_data(std::move(data)), m_reader(std::move(reader)), m_document(emptyDocument(*m_data->definition)) {
    if (!m_reader)
        takeRows(nullptr);
}

Run::~Run() = default;

Run::State Run::work(int milliseconds) {
    if (m_state != State::Running) {
        letGo();
        return m_state;
    }
    try {
        takeStep(milliseconds);
    } catch (...) {
        stop();
        throw;
    }
    return m_state;
}

void Run::takeStep(int milliseconds) {
    const bool isRead = !m_reader || m_reader->isFinished(); // asked first: then the rows are all there
    if (m_reader) {
        if (isRead)
            m_reader->throwError();
        auto rows = m_reader->rows();
        if (rows && rows != m_rows)
            takeRows(std::move(rows));
    }
    if (m_fault && isRead)
        std::rethrow_exception(m_fault);
    m_waiting = !m_pages || m_fault;
    if (m_waiting)
        return;
    try {
        const LaidPages::Step step = m_pages->work(QDeadlineTimer(milliseconds));
        m_waiting = step == LaidPages::Step::Waiting;
        if (step == LaidPages::Step::Done)
            complete();
    } catch (const base::RunTimeError&) {
        if (isRead)
            throw;
        m_fault = std::current_exception();
        m_waiting = true;
    }
}

/// Lays out anew, from the first page on.
void Run::takeRows(std::shared_ptr<RowStore> rows) {
    m_rows = std::move(rows);
    m_fault = nullptr;
    auto data = std::make_shared<ReportData>(*m_data);
    data->details = m_rows;
    m_pages = &beginPages(*m_document, data);
}

void Run::complete() {
    m_state = State::Complete;
    m_document->complete();
    letGo();
}

/// The connection goes as soon as the thread has ended, not before: nobody waits for a server here.
void Run::letGo() {
    if (m_reader && m_reader->isFinished())
        m_reader.reset();
}

void Run::waitForRows(int milliseconds) {
    if (m_reader)
        m_reader->waitForRows(milliseconds);
}

void Run::stop() {
    if (m_state != State::Running)
        return;
    m_state = State::Stopped;
    if (m_reader)
        m_reader->stop();
    letGo();
}

Progress Run::progress() const {
    const int pages = m_document->pageCount();
    return {m_rows ? m_rows->count() : 0, pages, m_state == State::Complete ? pages : 0};
}

} // namespace report
