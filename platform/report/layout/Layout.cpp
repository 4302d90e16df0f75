#include "platform/report/layout/Layout.h"

#include "platform/report/layout/LaidPages.h"
#include "platform/report/output/SheetRows.h"

namespace report {

std::unique_ptr<PageDocument> emptyDocument(const ReportDefinition& definition) {
    return std::make_unique<PageDocument>(nullptr, definition.title, definition.paperWidth,
                                          definition.paperHeight);
}

LaidPages& beginPages(PageDocument& document, const std::shared_ptr<const ReportData>& data) {
    auto pages = std::make_unique<LaidPages>(data);
    LaidPages& begun = *pages;
    document.setPages(std::move(pages));
    if (!data->tables.empty())
        document.setRows(exportedRows(data), headingOf(data));
    return begun;
}

std::unique_ptr<PageDocument> layout(std::shared_ptr<const ReportData> data, const ProgressCall& progress) {
    constexpr int slice = 50; // ms
    auto document = emptyDocument(*data->definition);
    LaidPages& pages = beginPages(*document, data);
    const qsizetype rows = data->details ? data->details->count() : 0;
    LaidPages::Step step = LaidPages::Step::Busy;
    while (step != LaidPages::Step::Done) {
        step = pages.work(progress ? QDeadlineTimer(slice) : QDeadlineTimer(QDeadlineTimer::Forever));
        if (progress && !progress({rows, pages.pageCount(), 0}))
            return nullptr;
    }
    return document;
}

} // namespace report
