#pragma once

#include "platform/report/layout/BandLayout.h"

namespace report {

/// Draws the rows, or one level's groups, as a chart of lying bars: labels on the left, the amount behind
/// each bar, a scale of round steps below. Negative amounts reach to the left of nought. Items count from the
/// chart's own corner.
LaidBand layChart(const Element& element, Evaluator& evaluator, const FontMeasure& measure,
                  const QColor& ink);

} // namespace report
