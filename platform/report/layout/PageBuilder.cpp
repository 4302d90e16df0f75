#include "platform/report/layout/PageBuilder.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"

#include <algorithm>

namespace report {
namespace {

using Stage = FlowPlace::Stage;

const Length leastBody = Length::fromMm(8);
/// A heading and two lines: less than that of a text is not left behind at a page's end.
const Length leastTorn = Length::fromMm(17);

Length topOf(const Item& item) {
    if (const Stroke* stroke = std::get_if<Stroke>(&item))
        return std::min(stroke->y1, stroke->y2);
    return std::visit(
        [](const auto& one) {
            if constexpr (requires { one.frame; })
                return one.frame.y;
            else
                return Length();
        },
        item);
}

/// Leaves of a shape what lies between two heights; false when nothing does.
bool clip(Item& item, Length from, Length to) {
    if (Rectangle* box = std::get_if<Rectangle>(&item)) {
        const Length top = std::max(box->frame.y, from);
        const Length bottom = std::min(box->frame.bottom(), to);
        box->frame.y = top;
        box->frame.height = bottom - top;
        return bottom > top;
    }
    Stroke* stroke = std::get_if<Stroke>(&item);
    if (stroke && stroke->x1 == stroke->x2) {
        stroke->y1 = std::max(stroke->y1, from);
        stroke->y2 = std::min(stroke->y2, to);
        return stroke->y2 > stroke->y1;
    }
    // A line of text or a picture is never torn: it belongs where its top lies.
    const Length top = topOf(item);
    return top >= from && top < to;
}

} // namespace

PageBuilder::PageBuilder(const ReportDefinition& definition, Evaluator& evaluator, BandLayout& bands)
    : m_definition(definition), m_evaluator(evaluator), m_flow(definition, evaluator), m_bands(bands) {}

PageBuilder::Built PageBuilder::build(const FlowPlace& start, int pageNumber, int pageCount) {
    m_built = {};
    m_at = start;
    m_pageNumber = pageNumber;
    m_pageCount = pageCount;
    m_hasBody = false;
    m_pageEnds = false;
    m_column = 0;
    m_columns = start.stage == Stage::ReportFooter ? 1 : m_definition.columns;
    m_x = m_definition.left;
    m_y = m_definition.top;
    m_deepest = {};
    m_built.page.number = pageNumber;
    if (auto mark = m_bands.watermark(standpointAt(start)))
        m_built.page.items.emplace_back(std::move(*mark));
    placeFooter(start);
    if (start == FlowPlace())
        placeReportHeaders();
    if (start != FlowPlace() || m_at.stage != Stage::ReportHeader) {
        placePageHeaders(start);
        m_bodyTop = m_y;
        repeatGroupHeaders(start);
        do {
            while (m_at.stage != Stage::End && placeBody()) {
            }
        } while (m_at.stage != Stage::End && nextColumn());
    }
    m_built.next = m_at;
    return std::move(m_built);
}

Standpoint PageBuilder::standpointAt(const FlowPlace& place) const {
    Standpoint standpoint = m_flow.standpointAt(place);
    standpoint.pageNumber = m_pageNumber;
    standpoint.pageCount = m_pageCount;
    return standpoint;
}

/// Page bands stand whole, one under the other; tells where the last one ends.
Length PageBuilder::placeAll(const std::vector<Band>& bands, Length y, const Standpoint& standpoint) {
    for (const Band& band : bands)
        y = placeWhole(band, y, standpoint);
    return y;
}

Length PageBuilder::placeWhole(const Band& band, Length y, const Standpoint& standpoint) {
    if (!m_bands.isVisible(band, standpoint))
        return y;
    LaidBand laid = m_bands.lay(band, standpoint);
    for (Item& item : laid.items) {
        moveItem(item, m_x, y);
        m_built.page.items.push_back(std::move(item));
    }
    return y + laid.height;
}

void PageBuilder::placeFooter(const FlowPlace& start) {
    Standpoint standpoint = standpointAt(start);
    standpoint.level = -1;
    const std::size_t before = m_built.page.items.size();
    const Length height = placeAll(m_definition.pageFooters, {}, standpoint);
    m_bottom = m_definition.paperHeight - m_definition.bottom - height;
    for (std::size_t i = before; i < m_built.page.items.size(); ++i)
        moveItem(m_built.page.items[i], {}, m_bottom);
}

void PageBuilder::placePageHeaders(const FlowPlace& start) {
    Standpoint standpoint = standpointAt(start);
    standpoint.level = -1;
    const Length before = m_y;
    const std::vector<Band>& begun = m_flow.bandsAt(start);
    const bool rows =
        start.stage != Stage::ReportFooter || begun.empty() || !begun[std::size_t(start.band)].newPageBefore;
    for (const Band& band : m_definition.pageHeaders) {
        if (rows || !band.withRows)
            m_y = placeWhole(band, m_y, standpoint);
    }
    if (m_bottom - m_definition.top - (m_y - before) < leastBody)
        throw base::RunTimeError(
            errorDamaged, QStringLiteral("The report's page header and footer leave no room for rows."));
}

void PageBuilder::placeReportHeaders() {
    while (m_at.stage == Stage::ReportHeader && placeBody()) {
    }
    m_hasBody = m_hasBody && m_at.stage == Stage::ReportHeader;
}

int PageBuilder::groupsGoingOn(const FlowPlace& start, int groups) {
    switch (start.stage) {
    case Stage::Details:
        return groups;
    case Stage::GroupHeader:
        return start.level;
    case Stage::GroupFooter:
        return start.level + 1;
    default:
        return 0;
    }
}

void PageBuilder::repeatGroupHeaders(const FlowPlace& start) {
    const int open = groupsGoingOn(start, int(m_definition.groups.size()));
    const std::size_t itemsBefore = m_built.page.items.size();
    const Length before = m_y;
    for (int level = 0; level < open; ++level) {
        const Group& group = m_definition.groups[std::size_t(level)];
        if (!group.repeat)
            continue;
        Standpoint standpoint = standpointAt(start);
        standpoint.level = level;
        m_y = placeAll(group.headers, m_y, standpoint);
    }
    if (m_bottom - m_y < leastBody) {
        m_built.page.items.resize(itemsBefore);
        m_y = before;
    }
}

/// Places the band at hand, or what of it fits; false when the page is full.
bool PageBuilder::placeBody() {
    if (m_at.stage == Stage::ReportFooter && m_columns > 1)
        leaveColumns();
    const std::vector<Band>& bands = m_flow.bandsAt(m_at);
    const Group* begun = nullptr;
    if (m_at.stage == Stage::GroupHeader && m_at.band == 0 && m_at.offset == Length()) {
        begun = &m_definition.groups[std::size_t(m_at.level)];
        if (beginsPage(*begun) || (begun->keepTogether && m_hasBody && !fitsWhole()))
            return false;
    }
    if (!bands.empty()) {
        const Band& band = bands[std::size_t(m_at.band)];
        if (m_bands.isVisible(band, standpointAt(m_at)))
            return placeBand(band);
    }
    if (begun)
        addTreeEntry();
    m_at = m_flow.next(m_at);
    return true;
}

bool PageBuilder::wantsNewPage(const Band& band) const {
    return band.newPageBefore && m_at.offset == Length() && (m_hasBody || m_column > 0);
}

bool PageBuilder::beginsPage(const Group& group) {
    const bool outermost = m_evaluator.firstGroupBegun(m_at.row) == m_at.level;
    m_pageEnds = group.newPage && outermost && m_at.row > 0 && (m_hasBody || m_column > 0);
    return m_pageEnds;
}

/// Whether the group at hand has room up to its end; true, too, when a fresh page would not help.
bool PageBuilder::fitsWhole() {
    const int level = m_at.level;
    const qsizetype first = m_at.row;
    const Length fresh = m_bottom - m_bodyTop;
    Length height;
    for (FlowPlace at = m_at; at.stage != Stage::ReportFooter; at = m_flow.next(at)) {
        const bool isNextGroup = at.row > first && m_evaluator.firstGroupBegun(at.row) <= level;
        if (isNextGroup || (at.stage == Stage::GroupFooter && at.level < level))
            break;
        const std::vector<Band>& bands = m_flow.bandsAt(at);
        if (bands.empty() || !m_bands.isVisible(bands[std::size_t(at.band)], standpointAt(at)))
            continue;
        height += m_bands.lay(bands[std::size_t(at.band)], standpointAt(at)).height;
        if (height > fresh)
            return true;
    }
    return m_y + height <= m_bottom;
}

/// The body goes on in the next column, where there is one.
bool PageBuilder::nextColumn() {
    if (m_pageEnds || m_column + 1 >= m_columns)
        return false;
    ++m_column;
    m_deepest = std::max(m_deepest, m_y);
    m_x += m_definition.columnWidth() + m_definition.gutter;
    m_y = m_bodyTop;
    m_hasBody = false;
    repeatGroupHeaders(m_at);
    return true;
}

/// What ends the report stands under all columns, from the left margin on.
void PageBuilder::leaveColumns() {
    m_columns = 1;
    m_x = m_definition.left;
    m_y = std::max(m_deepest, m_y);
    m_hasBody = m_hasBody || m_column > 0;
    m_column = 0;
}

bool PageBuilder::placeBand(const Band& band) {
    if (wantsNewPage(band)) {
        m_pageEnds = true;
        return false;
    }
    const LaidBand laid = m_bands.lay(band, standpointAt(m_at));
    const Length height = laid.height - m_at.offset;
    const bool isHeader = m_at.stage == Stage::GroupHeader;
    const Length together = height + (isHeader ? keptWith(m_at) : keptBehind(m_at)) + keptNext(m_at, height);
    const bool tears = band.tear && m_bottom - m_y >= leastTorn;
    if (m_y + together > m_bottom && m_hasBody && m_at.offset == Length() && !tears)
        return false;
    if (isHeader && m_at.band == 0 && m_at.offset == Length())
        addTreeEntry();
    if (m_y + height > m_bottom) {
        splitBand(laid);
        return false;
    }
    if (m_at.stage == Stage::ReportFooter && band.atBottom && m_at.offset == Length())
        m_y = std::max(m_y, m_bottom - bottomBands(m_at));
    addSlice(laid, m_at.offset, laid.height);
    m_y += height;
    m_hasBody = m_hasBody || height > Length();
    m_at = m_flow.next(m_at);
    return true;
}

/// Height of the headers that follow and of the first row: a header does not stand alone at a page's end.
Length PageBuilder::keptWith(const FlowPlace& header) {
    Length height;
    for (FlowPlace at = m_flow.next(header);; at = m_flow.next(at)) {
        const std::vector<Band>& bands = m_flow.bandsAt(at);
        const bool inRow = at.stage == Stage::GroupHeader || at.stage == Stage::Details;
        if (!inRow)
            return height;
        if (!bands.empty() && m_bands.isVisible(bands[std::size_t(at.band)], standpointAt(at)))
            height += m_bands.lay(bands[std::size_t(at.band)], standpointAt(at)).height;
        if (at.stage == Stage::Details && std::size_t(at.band) + 1 >= bands.size())
            return height + keptBehind(at);
    }
}

/// Height of the footers of the groups that end with the row: they do not stand alone at a page's begin.
Length PageBuilder::keptBehind(const FlowPlace& details) {
    Length height;
    if (details.stage != Stage::Details)
        return height;
    for (FlowPlace at = m_flow.next(details); at.stage == Stage::GroupFooter; at = m_flow.next(at)) {
        const std::vector<Band>& bands = m_flow.bandsAt(at);
        if (!bands.empty() && m_bands.isVisible(bands[std::size_t(at.band)], standpointAt(at)))
            height += m_bands.lay(bands[std::size_t(at.band)], standpointAt(at)).height;
    }
    return height;
}

/// Height of the bands of the same stage that go to the next page rather than being parted from the one at
/// hand; of more than a page holds only the first one counts.
Length PageBuilder::keptNext(const FlowPlace& place, Length height) {
    if (!isKept(place) || isKept(shownBefore(place)))
        return {}; // what is kept together was placed as one
    const std::vector<Band>& bands = m_flow.bandsAt(place);
    const Length fresh = m_bottom - m_bodyTop;
    Length next, first;
    bool keeps = true;
    for (FlowPlace at = place; keeps && std::size_t(at.band) + 1 < bands.size();) {
        at = m_flow.next(at);
        const Band& band = bands[std::size_t(at.band)];
        if (!m_bands.isVisible(band, standpointAt(at)))
            continue;
        const Length whole = m_bands.lay(band, standpointAt(at)).height;
        next += band.tear ? std::min(whole, leastTorn) : whole;
        first = first == Length() ? next : first;
        keeps = band.keepWithNext;
    }
    return height + next <= fresh ? next : height + first <= fresh ? first : Length();
}

bool PageBuilder::isKept(const std::optional<FlowPlace>& place) const {
    return place && m_flow.bandsAt(*place)[std::size_t(place->band)].keepWithNext;
}

/// The last band of the same stage that shows above the one at hand.
std::optional<FlowPlace> PageBuilder::shownBefore(const FlowPlace& place) const {
    const std::vector<Band>& bands = m_flow.bandsAt(place);
    for (FlowPlace at = place; at.band > 0;) {
        --at.band;
        at.offset = {};
        if (m_bands.isVisible(bands[std::size_t(at.band)], standpointAt(at)))
            return at;
    }
    return std::nullopt;
}

Length PageBuilder::bottomBands(const FlowPlace& footer) {
    Length height;
    const std::vector<Band>& bands = m_flow.bandsAt(footer);
    for (std::size_t i = std::size_t(footer.band); i < bands.size(); ++i) {
        if (bands[i].atBottom && m_bands.isVisible(bands[i], standpointAt(footer)))
            height += m_bands.lay(bands[i], standpointAt(footer)).height;
    }
    return height;
}

void PageBuilder::addSlice(const LaidBand& laid, Length from, Length to) {
    const bool whole = from == Length() && to == laid.height;
    for (const Item& item : laid.items) {
        Item copy = item;
        if (!whole && !clip(copy, from, to))
            continue;
        moveItem(copy, m_x, m_y - from);
        m_built.page.items.push_back(std::move(copy));
    }
}

/// A band higher than a page is cut between two lines of text.
void PageBuilder::splitBand(const LaidBand& laid) {
    const Length from = m_at.offset;
    const Length full = from + (m_bottom - m_y);
    Length cut = full;
    for (bool moved = true; moved;) {
        moved = false;
        for (const Item& item : laid.items) {
            const TextRun* run = std::get_if<TextRun>(&item);
            if (run && run->frame.y < cut && run->frame.bottom() > cut && run->frame.y > from) {
                cut = run->frame.y;
                moved = true;
            }
        }
    }
    addSlice(laid, from, cut);
    m_at.offset = cut;
    m_hasBody = true;
}

void PageBuilder::addTreeEntry() {
    const Group& group = m_definition.groups[std::size_t(m_at.level)];
    const base::Value label = m_evaluator.value(group.label ? *group.label : group.by, standpointAt(m_at));
    m_built.groups.push_back({base::textOf(label), m_at.level, m_pageNumber - 1, m_y});
}

} // namespace report
