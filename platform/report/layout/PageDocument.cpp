#include "platform/report/layout/PageDocument.h"

#include "platform/base/Error.h"

#include <QStringList>

#include <algorithm>

namespace report {
namespace {

constexpr std::size_t keptPages = 24;

} // namespace

const std::vector<TreeEntry>& PageSource::groupTree() const {
    static const std::vector<TreeEntry> none;
    return none;
}

PageDocument::PageDocument(std::unique_ptr<PageSource> source, QString title, Length width, Length height)
    : m_source(std::move(source)), m_title(std::move(title)), m_width(width), m_height(height) {}

PageDocument::~PageDocument() = default;

void PageDocument::setPages(std::unique_ptr<PageSource> source) {
    m_kept.clear();
    m_source = std::move(source);
}

void PageDocument::setRows(std::shared_ptr<const RowSource> rows, SheetHeading heading) {
    m_rows = std::move(rows);
    m_rowsHeading = std::move(heading);
}

const std::vector<TreeEntry>& PageDocument::groupTree() const {
    static const std::vector<TreeEntry> none;
    return m_source ? m_source->groupTree() : none;
}

std::shared_ptr<const Page> PageDocument::page(int index) const {
    if (index < 0 || index >= pageCount())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    const auto kept =
        std::find_if(m_kept.begin(), m_kept.end(), [index](const Kept& one) { return one.index == index; });
    if (kept != m_kept.end()) {
        m_kept.splice(m_kept.begin(), m_kept, kept);
        return m_kept.front().page;
    }
    m_kept.push_front({index, std::make_shared<const Page>(m_source->makePage(index))});
    if (m_kept.size() > keptPages)
        m_kept.pop_back();
    return m_kept.front().page;
}

QString textOf(const Page& page) {
    std::vector<const TextRun*> runs;
    for (const Item& item : page.items) {
        const TextRun* run = std::get_if<TextRun>(&item);
        if (run && run->degrees == 0)
            runs.push_back(run);
    }
    std::stable_sort(runs.begin(), runs.end(), [](const TextRun* a, const TextRun* b) {
        return a->baseline != b->baseline ? a->baseline < b->baseline : a->frame.x < b->frame.x;
    });
    QString text;
    const TextRun* before = nullptr;
    for (const TextRun* run : runs) {
        if (before)
            text += before->baseline == run->baseline ? u'\t' : u'\n';
        text += run->text;
        before = run;
    }
    return text;
}

} // namespace report
