#pragma once

#include <string>
#include <vector>

class QString;

namespace attacks {

/// What reads texts from outside, as a fuzzer takes it: driven by the attack `fuzz` and by libFuzzer.
struct FuzzTarget {
    const char* name; ///< also its folder of the corpus
    /// What came of an input, short: the same words for the same branch, as near as an outside view can tell.
    /// Raises nothing; ends the process by fault() when the input did what it must not.
    QString (*target)(const std::string& input);
    int batch; ///< inputs that one process of the attack takes
};

const std::vector<FuzzTarget>& fuzzTargets();
/// The kept inputs that the target starts from.
std::vector<std::string> corpusOf(const FuzzTarget& target);

} // namespace attacks
