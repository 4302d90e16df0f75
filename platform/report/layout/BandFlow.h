#pragma once

#include "platform/report/evaluation/Evaluator.h"

namespace report {

/// A place in the flow of bands: report headers, then each row with the group bands around it, then report
/// footers.
struct FlowPlace {
    enum class Stage { ReportHeader, GroupHeader, Details, GroupFooter, ReportFooter, End };

    Stage stage = Stage::ReportHeader;
    qsizetype row = 0;
    int level = 0; ///< of a group band
    int band = 0;  ///< among the bands of the stage
    Length offset; ///< how much of the band earlier pages show

    bool operator==(const FlowPlace&) const = default;
};

/// Which band comes after which. Raises RowsWanted where that hangs on rows that have not arrived.
class BandFlow {
  public:
    BandFlow(const ReportDefinition& definition, Evaluator& evaluator)
        : m_definition(definition), m_evaluator(evaluator) {}

    /// The bands of the place's stage; may be none.
    const std::vector<Band>& bandsAt(const FlowPlace& place) const;
    /// The place behind the band; a stage without bands is visited once.
    FlowPlace next(const FlowPlace& place) const;
    /// Row and group that the place's expressions see; no page.
    Standpoint standpointAt(const FlowPlace& place) const;

  private:
    FlowPlace nextStage(const FlowPlace& place) const;
    FlowPlace rowBegin(qsizetype row) const;

    const ReportDefinition& m_definition;
    Evaluator& m_evaluator;
};

} // namespace report
