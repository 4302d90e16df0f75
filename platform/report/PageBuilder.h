#pragma once

#include "platform/report/BandLayout.h"
#include "platform/report/PageDocument.h"

namespace report {

/// A place in the flow of bands: report headers, then each row with the group bands around it, then report
/// footers.
struct Position {
    enum class Stage { ReportHeader, GroupHeader, Details, GroupFooter, ReportFooter, End };

    Stage stage = Stage::ReportHeader;
    qsizetype row = 0;
    int level = 0; ///< of a group band
    int band = 0;  ///< among the bands of the stage
    Length offset; ///< how much of the band earlier pages show

    bool operator==(const Position&) const = default;
};

/// Builds one page from the place where it begins. A page depends on nothing but that place, its number and
/// the number of pages, so it can be made again at any time.
class PageBuilder {
  public:
    PageBuilder(const ReportData& data, Evaluator& evaluator, BandLayout& bands);

    struct Built {
        Page page;
        Position next; ///< where the next page begins
        std::vector<TreeEntry> groups;
    };
    /// Raises 20515 when page header and footer leave no room.
    Built build(const Position& start, int pageNumber, int pageCount);

  private:
    const std::vector<Band>& bandsAt(const Position& position) const;
    Position nextStage(const Position& position) const;
    Position rowBegin(qsizetype row) const;
    void advance();
    Scope scopeAt(const Position& position) const;

    Length placeAll(const std::vector<Band>& bands, Length y, const Scope& scope);
    void placeFooter(const Position& start);
    void placeReportHeaders();
    void placePageHeaders(const Position& start);
    void repeatGroupHeaders(const Position& start);
    bool placeBody();
    bool placeBand(const Band& band);
    bool wantsNewPage(const Band& band) const;
    Length keptWith(const Position& header);
    Length bottomBands(const Position& footer);
    void addSlice(const LaidBand& laid, Length from, Length to);
    void splitBand(const LaidBand& laid);
    void addTreeEntry();

    const ReportData& m_data;
    const ReportDefinition& m_definition;
    Evaluator& m_evaluator;
    BandLayout& m_bands;

    // of the page in work
    Built m_built;
    Position m_at;
    Length m_y;
    Length m_bottom; ///< where the body ends
    int m_pageNumber = 0;
    int m_pageCount = 0;
    bool m_hasBody = false;
};

} // namespace report
