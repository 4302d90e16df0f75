#pragma once

namespace base {

/// True where somebody types at standard input; false for a file or a pipe.
bool isTypedAt();

/// What is typed at standard input is not shown while this lives; nothing happens where nobody types.
class HiddenTyping {
  public:
    HiddenTyping();
    ~HiddenTyping();
    HiddenTyping(const HiddenTyping&) = delete;
    HiddenTyping& operator=(const HiddenTyping&) = delete;

  private:
    bool m_hidden = false;
};

} // namespace base
