#pragma once

#include "platform/report/PageDocument.h"

namespace report {

/// Where a text was found.
struct Hit {
    int page = 0; ///< from 0
    Frame frame;  ///< of the found signs
};

/// All places of the text, in reading order, cases not told apart. Nothing for an empty text.
std::vector<Hit> findText(const PageDocument& document, const QString& text);

} // namespace report
