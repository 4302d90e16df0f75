#include "platform/report/layout/BandFlow.h"

#include <algorithm>

namespace report {
namespace {

using Stage = FlowPlace::Stage;

} // namespace

const std::vector<Band>& BandFlow::bandsAt(const FlowPlace& place) const {
    switch (place.stage) {
    case Stage::ReportHeader:
        return m_definition.reportHeaders;
    case Stage::GroupHeader:
        return m_definition.groups[std::size_t(place.level)].headers;
    case Stage::Details:
        return m_definition.details;
    case Stage::GroupFooter:
        return m_definition.groups[std::size_t(place.level)].footers;
    default:
        return m_definition.reportFooters;
    }
}

FlowPlace BandFlow::rowBegin(qsizetype row) const {
    FlowPlace place;
    place.row = row;
    place.level = m_evaluator.firstGroupBegun(row);
    const bool begins = place.level < int(m_definition.groups.size());
    place.stage = begins ? Stage::GroupHeader : Stage::Details;
    return place;
}

FlowPlace BandFlow::nextStage(const FlowPlace& place) const {
    const int groups = int(m_definition.groups.size());
    FlowPlace next;
    next.row = place.row;
    next.level = place.level;
    switch (place.stage) {
    case Stage::ReportHeader:
        if (m_evaluator.hasRow(0))
            return rowBegin(0);
        next.stage = Stage::ReportFooter;
        return next;
    case Stage::GroupHeader:
        next.stage = ++next.level < groups ? Stage::GroupHeader : Stage::Details;
        return next;
    case Stage::Details:
    case Stage::GroupFooter:
        next.level = place.stage == Stage::Details ? groups - 1 : place.level - 1;
        next.stage = Stage::GroupFooter;
        if (next.level >= m_evaluator.firstGroupEnded(place.row))
            return next;
        if (m_evaluator.hasRow(place.row + 1))
            return rowBegin(place.row + 1);
        next.level = 0;
        next.stage = Stage::ReportFooter;
        return next;
    default:
        next.stage = Stage::End;
        return next;
    }
}

FlowPlace BandFlow::next(const FlowPlace& place) const {
    if (std::size_t(place.band) + 1 >= bandsAt(place).size())
        return nextStage(place);
    FlowPlace next = place;
    next.offset = {};
    ++next.band;
    return next;
}

Standpoint BandFlow::standpointAt(const FlowPlace& place) const {
    Standpoint standpoint;
    const bool atEnd = place.stage == Stage::ReportFooter || place.stage == Stage::End;
    standpoint.row = !atEnd && m_evaluator.hasRow(place.row) ? place.row : m_evaluator.rowCount() - 1;
    if (place.stage == Stage::GroupHeader || place.stage == Stage::GroupFooter)
        standpoint.level = place.level;
    return standpoint;
}

} // namespace report
