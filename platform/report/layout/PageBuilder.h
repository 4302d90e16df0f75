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
        FlowPlace next; ///< where the next page begins
        std::vector<TreeEntry> groups;
    };
    /// Raises 20515 when page header and footer leave no room.
    Built build(const FlowPlace& start, int pageNumber, int pageCount);

  private:
    Standpoint standpointAt(const FlowPlace& place) const;
    /// Of the outermost groups, how many have begun on an earlier page.
    static int groupsGoingOn(const FlowPlace& start, int groups);

    Length placeAll(const std::vector<Band>& bands, Length y, const Standpoint& standpoint);
    Length placeWhole(const Band& band, Length y, const Standpoint& standpoint);
    void placeFooter(const FlowPlace& start);
    void placeReportHeaders();
    void placePageHeaders(const FlowPlace& start);
    void repeatGroupHeaders(const FlowPlace& start);
    bool placeBody();
    bool placeBand(const Band& band);
    bool wantsNewPage(const Band& band) const;
    bool beginsPage(const Group& group);
    bool fitsWhole();
    bool nextColumn();
    void leaveColumns();
    Length keptWith(const FlowPlace& header);
    Length keptBehind(const FlowPlace& details);
    Length keptNext(const FlowPlace& place, Length height);
    bool isKept(const std::optional<FlowPlace>& place) const;
    std::optional<FlowPlace> shownBefore(const FlowPlace& place) const;
    Length bottomBands(const FlowPlace& footer);
    void addSlice(const LaidBand& laid, Length from, Length to);
    void splitBand(const LaidBand& laid);
    void addTreeEntry();

    const ReportDefinition& m_definition;
    Evaluator& m_evaluator;
    BandFlow m_flow;
    BandLayout& m_bands;

    // of the page in work
    Built m_built;
    FlowPlace m_at;
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
