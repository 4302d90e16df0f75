#include "platform/report/viewer/TextFind.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <cmath>

namespace report {
namespace {

void findInRun(const TextRun& run, const QString& text, int page, FontMeasures& measures,
               std::vector<Hit>& hits) {
    const FontMeasure& measure = measures.of(run.face);
    for (qsizetype at = run.text.indexOf(text, 0, Qt::CaseInsensitive); at >= 0;
         at = run.text.indexOf(text, at + text.size(), Qt::CaseInsensitive)) {
        Frame frame = run.frame;
        const Extent extent = measure.extentIn(run, at, text.size());
        frame.x.hundredths += qint32(std::floor(extent.left));
        frame.width.hundredths = qint32(std::ceil(extent.width));
        hits.push_back({page, frame});
    }
}

} // namespace

TextFind::TextFind(std::shared_ptr<const PageDocument> document, QString text)
    : m_document(std::move(document)), m_text(std::move(text)) {}

bool TextFind::work(int milliseconds) {
    if (m_text.isEmpty())
        return true;
    const QDeadlineTimer deadline(milliseconds);
    while (m_page < m_document->pageCount() && m_hits.size() < mostHits) {
        searchPage(m_page++);
        if (deadline.hasExpired())
            break;
    }
    return m_page >= m_document->pageCount() || m_hits.size() >= mostHits;
}

void TextFind::searchPage(int page) {
    const std::size_t before = m_hits.size();
    const std::shared_ptr<const Page> content = m_document->page(page);
    for (const Item& item : content->items) {
        if (const TextRun* run = std::get_if<TextRun>(&item); run && run->degrees == 0)
            findInRun(*run, m_text, page, m_measures, m_hits);
    }
    std::stable_sort(m_hits.begin() + qsizetype(before), m_hits.end(), [](const Hit& a, const Hit& b) {
        return a.frame.y != b.frame.y ? a.frame.y < b.frame.y : a.frame.x < b.frame.x;
    });
}

std::vector<Hit> findText(std::shared_ptr<const PageDocument> document, const QString& text) {
    TextFind find(std::move(document), text);
    while (!find.work(1000)) {
    }
    return find.hits();
}

} // namespace report
