#pragma once

namespace session {

/// The character on the desktop that tells of notices of discharge, as far as the screens that it leads to
/// put it out of their way and back.
class Character {
  public:
    virtual ~Character() = default;
    virtual void Show() = 0;
    virtual void Hide() = 0;
};

/// Null while the desktop has none.
Character* character();
/// Not owned; null for none.
void setCharacter(Character* character);

} // namespace session
