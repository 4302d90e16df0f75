#pragma once

namespace base {

/// What a program says is UTF-8, also where the console goes by another code page, and is seen where a
/// program with windows was started from a console. Call before the first word; asked by answeredAtOnce.
void prepareOutput();

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
