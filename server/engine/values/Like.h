#pragma once

#include <string>
#include <string_view>

namespace engine {

/// LIKE as the server does it: % any text, _ one character, [a-f] and [^a-f] one of a set; case does not
/// count.
bool matchesLike(std::string_view text, std::string_view pattern);
/// What every text that matches begins with, but for case: what stands before the first wild card, in plain
/// ASCII, or in Latin letters where the index knows their order (see Collation.h).
std::string likePrefix(std::string_view pattern, bool latin = false);

} // namespace engine
