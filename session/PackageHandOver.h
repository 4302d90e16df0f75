#pragma once

namespace controls {
class FlexGrid;
}

namespace session {

/// The grids of a request screen that a package screen fills. Not owned.
struct PackageHandOver {
    controls::FlexGrid* SourceGrid = nullptr;
    controls::FlexGrid* PackageGrid = nullptr;
};

} // namespace session
