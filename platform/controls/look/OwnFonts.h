#pragma once

namespace controls::look {

/// Takes in the fonts that travel with the program (the folder "fonts", where there is one), once. A system
/// that has them installed has no such folder beside the program. Call after the application is made.
void takeOwnFonts();

} // namespace controls::look
