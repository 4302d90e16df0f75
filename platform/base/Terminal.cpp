#include "platform/base/Terminal.h"

#ifdef _WIN32
#include <cstdio>
#include <io.h>
#include <tuple>
#include <windows.h>
#else
#include <termios.h>
#include <unistd.h>
#endif

namespace base {

namespace {

/// False where the terminal cannot be asked.
bool showTyping(bool shown) {
#ifdef _WIN32
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    DWORD mode = 0;
    if (!GetConsoleMode(input, &mode))
        return false;
    return SetConsoleMode(input, shown ? mode | ENABLE_ECHO_INPUT : mode & ~DWORD(ENABLE_ECHO_INPUT));
#else
    termios settings{};
    if (tcgetattr(STDIN_FILENO, &settings) != 0)
        return false;
    if (shown)
        settings.c_lflag |= tcflag_t(ECHO);
    else
        settings.c_lflag &= ~tcflag_t(ECHO);
    return tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings) == 0;
#endif
}

} // namespace

void prepareOutput() {
#ifdef _WIN32
    // A program with windows has no output unless whoever started it gave it one, or is a console.
    if (GetStdHandle(STD_OUTPUT_HANDLE) == nullptr && AttachConsole(ATTACH_PARENT_PROCESS)) {
        std::ignore = std::freopen("CONOUT$", "w", stdout);
        std::ignore = std::freopen("CONOUT$", "w", stderr);
    }
    SetConsoleOutputCP(CP_UTF8);
#endif
}

bool isTypedAt() {
#ifdef _WIN32
    return _isatty(_fileno(stdin)) != 0;
#else
    return isatty(STDIN_FILENO) != 0;
#endif
}

HiddenTyping::HiddenTyping() : m_hidden(isTypedAt() && showTyping(false)) {}

HiddenTyping::~HiddenTyping() {
    if (m_hidden)
        showTyping(true);
}

} // namespace base
