#pragma once

#include <functional>

namespace controls {
class FlexGrid;
}

namespace session {

/// The grids of a request screen that a package screen fills. Not owned.
struct PackageHandOver {
    controls::FlexGrid* SourceGrid = nullptr;
    controls::FlexGrid* PackageGrid = nullptr;
    /// Called as the package screen closes: the request screen's save commands come on.
    std::function<void()> enableSave;
};

} // namespace session
