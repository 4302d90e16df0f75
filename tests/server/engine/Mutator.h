#pragma once

#include "server/engine/parser/Token.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tests {

/// Two tables with rows, a view, a function and a procedure that the seeds speak of.
extern const char* const fuzzTables;
/// Texts of every kind, all of them good.
const std::vector<const char*>& fuzzSeeds();

/// Makes texts that are nearly right: a word, a sign or a piece is changed, doubled, cut. The same seed makes
/// the same texts.
class Mutator {
  public:
    explicit Mutator(unsigned seed);

    /// One change, now and then two.
    std::string mutated(std::string text);
    const char* anySeed() { return fuzzSeeds()[std::size_t(number(int(fuzzSeeds().size())))]; }
    /// From 0 to `below` - 1.
    int number(int below) { return int(m_random() % unsigned(below)); }

  private:
    bool changeWord(std::string& text);
    void change(std::string& text);
    void swapWords(std::string& text);

    std::mt19937 m_random;
    std::vector<std::pair<engine::TokenKind, std::string>> m_words;
};

} // namespace tests
