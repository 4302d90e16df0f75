#include "platform/controls/grid/FlexGridFit.h"

#include "platform/controls/grid/FlexGridDelegate.h"
#include "platform/controls/grid/FlexGridModel.h"
#include "platform/controls/look/Look.h"

#include <QFontMetrics>

#include <algorithm>

namespace controls {

FlexGridFit::FlexGridFit(const FlexGridModel& model, const FlexGridDelegate& delegate)
    : m_model(model), m_delegate(delegate) {}

void FlexGridFit::forget() {
    m_contents.clear();
    m_readsTexts = false;
}

void FlexGridFit::expectTexts() {
    forget();
    m_readsTexts = true;
}

bool FlexGridFit::isWhole(int section) const {
    if (m_model.holdsValues(section + m_model.headerColumns()))
        return true;
    const QString heads = captionOf(section);
    for (const char* told : {"Name", "Num", "No.", "#"}) {
        if (heads.contains(QLatin1StringView(told), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

QString FlexGridFit::captionOf(int section) const {
    return m_model.headerData(section, Qt::Horizontal, Qt::DisplayRole).toString().trimmed();
}

int FlexGridFit::contents(int section) const {
    return section < int(m_contents.size()) ? m_contents[std::size_t(section)] : 0;
}

bool FlexGridFit::read(int first, int last, const Widths& widths) {
    const int sections = int(widths.size());
    m_contents.resize(std::size_t(sections));
    bool asksForMore = false;
    for (int section = 0; section < sections; ++section) {
        const int width = widths[std::size_t(section)];
        if (width == 0 || (!m_readsTexts && !isWhole(section)))
            continue;
        int& widest = m_contents[std::size_t(section)];
        for (int row = first; row <= last; ++row)
            widest = qMax(widest, m_delegate.widthOf(m_model.index(row, section)));
        asksForMore |= widest > width;
    }
    m_readsTexts = false;
    return asksForMore;
}

int FlexGridFit::caption(int section) const {
    QFont bold(m_delegate.headerFont());
    bold.setWeight(QFont::DemiBold);
    const QString text = captionOf(section);
    return text.isEmpty() ? 0 : QFontMetrics(bold).horizontalAdvance(text) + look::scaled(14);
}

void FlexGridFit::fit(Widths& widths) const {
    const int sections = int(widths.size());
    Widths captions;
    for (int section = 0; section < sections; ++section)
        captions.push_back(widths[std::size_t(section)] == 0 ? 0 : caption(section));
    const auto lacking = [&](int section, int needed) {
        const int width = widths[std::size_t(section)];
        return width == 0 ? 0 : qMax(0, needed - width);
    };
    for (int section = 0; section < sections; ++section) {
        const int needed = captions[std::size_t(section)];
        borrow(section, lacking(section, needed), widths, captions);
        takeFromWidest(section, lacking(section, needed), widths, captions);
        if (!m_contents.empty()) // what is seen is known: nobody can spare any
            widths[std::size_t(section)] += lacking(section, needed);
    }
    for (int section = 0; section < sections; ++section) {
        if (!isWhole(section))
            continue;
        borrow(section, lacking(section, contents(section)), widths, captions);
        takeFromWidest(section, lacking(section, contents(section)), widths, captions);
        widths[std::size_t(section)] += lacking(section, contents(section));
    }
    for (int section = 0; section < sections; ++section)
        borrow(section, lacking(section, contents(section)), widths, captions);
}

/// Up to `lacking`, most from the columns that can spare most.
void FlexGridFit::borrow(int section, int lacking, Widths& widths, const Widths& captions) const {
    if (lacking == 0)
        return;
    std::vector<std::pair<int, int>> lenders;
    for (int other = 0; other < int(widths.size()); ++other) {
        const int needed = qMax(contents(other), captions[std::size_t(other)]);
        if (other != section && contents(other) > 0 && widths[std::size_t(other)] > needed)
            lenders.emplace_back(widths[std::size_t(other)] - needed, other);
    }
    std::sort(lenders.rbegin(), lenders.rend());
    for (const auto& [spare, other] : lenders) {
        const int taken = qMin(spare, lacking);
        widths[std::size_t(other)] -= taken;
        widths[std::size_t(section)] += taken;
        lacking -= taken;
    }
}

/// As much as the widest text can give up and still be recognised.
void FlexGridFit::takeFromWidest(int section, int lacking, Widths& widths, const Widths& captions) const {
    if (lacking == 0)
        return;
    const int recognised = look::scaled(110);
    int lender = -1;
    int spare = 0;
    for (int other = 0; other < int(widths.size()); ++other) {
        const int width = widths[std::size_t(other)];
        const int kept = isWhole(other) ? contents(other) : qMin(contents(other), recognised);
        const int more = width - qMax(captions[std::size_t(other)], kept);
        const bool isWider = lender < 0 || width > widths[std::size_t(lender)];
        if (other == section || width == 0 || more <= 0 || (isWhole(other) && contents(other) == 0) ||
            !isWider)
            continue;
        lender = other;
        spare = more;
    }
    const int taken = qMin(spare, lacking);
    if (lender >= 0)
        widths[std::size_t(lender)] -= taken;
    widths[std::size_t(section)] += taken;
}

} // namespace controls
