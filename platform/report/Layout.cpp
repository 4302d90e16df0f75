#include "platform/report/Layout.h"

#include "platform/report/LaidPages.h"

namespace report {

std::unique_ptr<PageDocument> emptyDocument(const ReportDefinition& definition) {
    return std::make_unique<PageDocument>(nullptr, definition.title, definition.paperWidth,
                                          definition.paperHeight);
}

std::unique_ptr<PageDocument> layout(std::shared_ptr<const ReportData> data, const ProgressCall& progress) {
    constexpr int slice = 50; // ms
    auto document = emptyDocument(*data->definition);
    auto pages = std::make_unique<LaidPages>(data);
    const qsizetype rows = data->details ? data->details->count() : 0;
    while (pages->work(progress ? QDeadlineTimer(slice) : QDeadlineTimer(QDeadlineTimer::Forever)) !=
           LaidPages::Step::Done) {
        if (progress && !progress({rows, pages->pageCount(), 0}))
            return nullptr;
    }
    document->setPages(std::move(pages), data->details);
    return document;
}

} // namespace report
