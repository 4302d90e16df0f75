#pragma once

#include "platform/report/layout/BandFlow.h"
#include "platform/report/layout/BandLayout.h"
#include "platform/report/layout/PageDocument.h"

#include <optional>

namespace report {

/// Builds one page from the place where it begins. A page depends on nothing but that place, its number and
/// the number of pages, so it can be made again at any time.
class PageBuilder {
  public:
    PageBuilder(const ReportDefinition& definition, Evaluator& evaluator, BandLayout& bands);

    struct Built {
        Page page;
        Position next; ///< where the next page begins
        std::vector<TreeEntry> groups;
    };
    /// Raises 20515 when page header and footer leave no room.
    Built build(const Position& start, int pageNumber, int pageCount);

  private:
    Scope scopeAt(const Position& position) const;
    /// Of the outermost groups, how many have begun on an earlier page.
    static int groupsGoingOn(const Position& start, int groups);

    Length placeAll(const std::vector<Band>& bands, Length y, const Scope& scope);
    Length placeWhole(const Band& band, Length y, const Scope& scope);
    void placeFooter(const Position& start);
    void placeReportHeaders();
    void placePageHeaders(const Position& start);
    void repeatGroupHeaders(const Position& start);
    bool placeBody();
    bool placeBand(const Band& band);
    bool wantsNewPage(const Band& band) const;
    bool beginsPage(const Group& group);
    bool fitsWhole();
    bool nextColumn();
    void leaveColumns();
    Length keptWith(const Position& header);
    Length keptBehind(const Position& details);
    Length keptNext(const Position& position, Length height);
    bool isKept(const std::optional<Position>& position) const;
    std::optional<Position> shownBefore(const Position& position) const;
    Length bottomBands(const Position& footer);
    void addSlice(const LaidBand& laid, Length from, Length to);
    void splitBand(const LaidBand& laid);
    void addTreeEntry();

    const ReportDefinition& m_definition;
    Evaluator& m_evaluator;
    BandFlow m_flow;
    BandLayout& m_bands;

    // of the page in work
    Built m_built;
    Position m_at;
    Length m_y;
    Length m_bottom; ///< where the body ends
    int m_pageNumber = 0;
    int m_pageCount = 0;
    bool m_hasBody = false;  ///< of the column in work
    bool m_pageEnds = false; ///< what comes next belongs on a page of its own
    int m_column = 0;
    int m_columns = 1;
    Length m_bodyTop;
    Length m_x;       ///< where the column begins
    Length m_deepest; ///< how far the columns before reach
};

} // namespace report
