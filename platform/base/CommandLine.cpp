#include "platform/base/CommandLine.h"

#include "platform/base/Terminal.h"

#include <cstdio>
#include <span>
#include <string_view>

namespace base {

bool answeredAtOnce(int argc, char** argv, const std::function<void()>& tellUsage) {
    prepareOutput();
    const std::span<char*> words(argv, std::size_t(argc));
    for (const std::string_view word : words.subspan(words.empty() ? 0 : 1)) {
        if (word == "--help") {
            tellUsage();
            return true;
        }
        if (word == "--version") {
            const std::string_view program = words.front();
            std::printf("%s " SCINTRA_VERSION "\n", program.substr(program.find_last_of("/\\") + 1).data());
            return true;
        }
    }
    return false;
}

} // namespace base
