#include "server/engine/parser/ObjectText.h"

#include <vector>

namespace engine {

ObjectText readObjectText(std::string_view text, std::string_view database) {
    std::vector<std::string> parts(1);
    bool bracketed = false;
    for (const char c : text) {
        if (c == '[' && !bracketed)
            bracketed = true;
        else if (c == ']' && bracketed)
            bracketed = false;
        else if (c == '.' && !bracketed)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    ObjectText object{std::string(database), parts.back()};
    if (parts.size() == 3 && !parts.front().empty())
        object.database = parts.front();
    return object;
}

} // namespace engine
