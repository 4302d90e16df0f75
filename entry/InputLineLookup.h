#pragma once

#include "entry/RequestLineLookup.h"

namespace entry {

/// The lookup of the hidden grid that holds the lines of an assessment: as that of a request line, in words
/// of its own and at the screen's own rate.
class InputLineLookup {
  public:
    InputLineLookup(controls::FlexGrid& grid, RequestLineLookup::Rate rate);

    /// The code of the current line. false: it was not found, or stands there already, which was said.
    bool LookUpCode();

  private:
    controls::FlexGrid& m_grid;
    RequestLineLookup m_lookup;
};

} // namespace entry
