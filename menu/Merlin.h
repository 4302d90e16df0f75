#pragma once

#include "platform/agent/Character.h"
#include "session/Character.h"

namespace menu {

/// "merlin", out of the character file beside the program, while it lives: told of on the desktop, known to
/// the screens that it leads to. Without the file there is a balloon and no figure.
class Merlin : public session::Character {
  public:
    Merlin();
    ~Merlin() override;

    /// Comes to its place, says the six sentences about notices of discharge and hides. A round that waits is
    /// enough: one more that nobody would hear before its time is left out.
    void announceNotices();
    /// At once, unlike what it does in a round.
    void Show() override;
    void Hide() override;

    agent::Character& figure() { return m_figure; }

  private:
    agent::Character m_figure;
};

} // namespace menu
