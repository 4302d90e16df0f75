#pragma once

#include <string>
#include <string_view>

namespace engine {

/// LIKE as the server does it: % any text, _ one character, [a-f] and [^a-f] one of a set; case does not
/// count.
bool matchesLike(std::string_view text, std::string_view pattern);
/// What stands in a pattern before its first wild card.
std::string likePrefix(std::string_view pattern);

} // namespace engine
