#include "platform/report/layout/BandFlow.h"

#include <algorithm>

namespace report {
namespace {

using Stage = Position::Stage;

} // namespace

const std::vector<Band>& BandFlow::bandsAt(const Position& position) const {
    switch (position.stage) {
    case Stage::ReportHeader:
        return m_definition.reportHeaders;
    case Stage::GroupHeader:
        return m_definition.groups[std::size_t(position.level)].headers;
    case Stage::Details:
        return m_definition.details;
    case Stage::GroupFooter:
        return m_definition.groups[std::size_t(position.level)].footers;
    default:
        return m_definition.reportFooters;
    }
}

Position BandFlow::rowBegin(qsizetype row) const {
    Position position;
    position.row = row;
    position.level = m_evaluator.firstGroupBegun(row);
    const bool begins = position.level < int(m_definition.groups.size());
    position.stage = begins ? Stage::GroupHeader : Stage::Details;
    return position;
}

Position BandFlow::nextStage(const Position& position) const {
    const int groups = int(m_definition.groups.size());
    Position next;
    next.row = position.row;
    next.level = position.level;
    switch (position.stage) {
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
        next.level = position.stage == Stage::Details ? groups - 1 : position.level - 1;
        next.stage = Stage::GroupFooter;
        if (next.level >= m_evaluator.firstGroupEnded(position.row))
            return next;
        if (m_evaluator.hasRow(position.row + 1))
            return rowBegin(position.row + 1);
        next.level = 0;
        next.stage = Stage::ReportFooter;
        return next;
    default:
        next.stage = Stage::End;
        return next;
    }
}

Position BandFlow::next(const Position& position) const {
    if (std::size_t(position.band) + 1 >= bandsAt(position).size())
        return nextStage(position);
    Position next = position;
    next.offset = {};
    ++next.band;
    return next;
}

Scope BandFlow::scopeAt(const Position& position) const {
    Scope scope;
    const bool atEnd = position.stage == Stage::ReportFooter || position.stage == Stage::End;
    scope.row = !atEnd && m_evaluator.hasRow(position.row) ? position.row : m_evaluator.rowCount() - 1;
    if (position.stage == Stage::GroupHeader || position.stage == Stage::GroupFooter)
        scope.level = position.level;
    return scope;
}

} // namespace report
