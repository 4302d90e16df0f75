#include "session/Character.h"

namespace session {

namespace {

Character* installed = nullptr;

} // namespace

Character* character() {
    return installed;
}

void setCharacter(Character* character) {
    installed = character;
}

} // namespace session
