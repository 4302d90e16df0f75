#include "session/Screens.h"

#include "platform/base/Error.h"

namespace session {
namespace {

Screens* installed = nullptr;

} // namespace

Screens& screens() {
    if (!installed)
        throw base::RunTimeError(base::errors::objectNotSet);
    return *installed;
}

void setScreens(Screens* screens) {
    installed = screens;
}

} // namespace session
