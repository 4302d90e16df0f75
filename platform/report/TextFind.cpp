#include "platform/report/TextFind.h"

#include "platform/report/FontMeasure.h"

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

std::vector<Hit> findText(const PageDocument& document, const QString& text) {
    std::vector<Hit> hits;
    if (text.isEmpty())
        return hits;
    FontMeasures measures;
    for (int page = 0; page < document.pageCount(); ++page) {
        const std::size_t before = hits.size();
        const std::shared_ptr<const Page> content = document.page(page);
        for (const Item& item : content->items) {
            if (const TextRun* run = std::get_if<TextRun>(&item); run && run->degrees == 0)
                findInRun(*run, text, page, measures, hits);
        }
        std::stable_sort(hits.begin() + qsizetype(before), hits.end(), [](const Hit& a, const Hit& b) {
            return a.frame.y != b.frame.y ? a.frame.y < b.frame.y : a.frame.x < b.frame.x;
        });
    }
    return hits;
}

} // namespace report
