#pragma once

#include "platform/report/layout/Page.h"

class QPainter;

namespace report {

/// Paints one page; the painter's unit must be 1/100 mm and its origin the paper's top left corner. Viewer,
/// printer and PDF all paint through here.
void paintPage(QPainter& painter, const Page& page);

} // namespace report
