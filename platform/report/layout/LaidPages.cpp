#include "platform/report/layout/LaidPages.h"

#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"

namespace report {
namespace {

constexpr std::size_t mostPages = 1000000;
/// What one page may take in at once where somebody waits for his screen.
constexpr qsizetype patience = 4096;

} // namespace

LaidPages::LaidPages(std::shared_ptr<const ReportData> data)
    : m_data(std::move(data))
    , m_evaluator(m_data)
    , m_bands(m_data, m_evaluator)
    , m_builder(*m_data->definition, m_evaluator, m_bands) {}

LaidPages::Step LaidPages::work(const QDeadlineTimer& deadline) {
    if (!deadline.isForever())
        m_evaluator.setPatience(patience);
    while (!isComplete()) {
        if (m_wanted) {
            if (!m_evaluator.satisfy(*m_wanted, deadline))
                return m_evaluator.isUpToDate() ? Step::Waiting : Step::Busy;
            m_wanted.reset();
        }
        try {
            layPage();
        } catch (const RowsWanted& wanted) {
            m_wanted = wanted;
        }
        if (deadline.hasExpired() && !isComplete())
            return Step::Busy;
    }
    return Step::Done;
}

void LaidPages::layPage() {
    if (m_starts.size() == mostPages)
        throw base::RunTimeError(errorDamaged, QStringLiteral("The report has too many pages."));
    PageBuilder::Built built = m_builder.build(m_next, pageCount() + 1, unknownPages);
    m_starts.push_back(m_next);
    std::move(built.groups.begin(), built.groups.end(), std::back_inserter(m_tree));
    m_next = built.next;
}

Page LaidPages::makePage(int index) {
    return m_builder.build(m_starts[std::size_t(index)], index + 1, isComplete() ? pageCount() : unknownPages)
        .page;
}

} // namespace report
