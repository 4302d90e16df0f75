#pragma once

#include "server/engine/values/Cell.h"

#include <string>
#include <string_view>
#include <vector>

namespace engine {

/// A text with its values taken out, so that texts that differ only in them are prepared once: texts that a
/// screen joins differ in nothing else. Values are taken out of a procedure's arguments and of SELECT,
/// INSERT, UPDATE and DELETE; any other text stays whole. Where comments and quoted names end is
/// ado::StatementScanner's to tell; literals are read here, which are more to this than a place: N'', doubled
/// quotes and broken lines are joined as the value is taken.
class StatementKey {
  public:
    /// Reads a text; the memory of the last one is used again.
    void read(std::string_view text);

    /// The text with parameter marks in place of the values.
    const std::string& key() const { return m_key; }
    int count() const { return m_count; }
    const Cell& value(int index) const { return m_values[std::size_t(index)]; }
    /// No value was taken out.
    bool isWhole() const { return m_count == 0; }

  private:
    bool takesValues();
    void takeText(bool national);
    void takeNumber();
    void passOver();
    Cell& add(std::size_t begin, char mark);
    bool atComment() const { return (peek() == '-' && peek(1) == '-') || (peek() == '/' && peek(1) == '*'); }
    char peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0';
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    bool m_isCall = false;
    char m_before = '\0';   // the last sign that is no blank
    std::size_t m_kept = 0; // what stands before is in the key
    std::string m_key;
    std::vector<Cell> m_values;
    int m_count = 0;
};

} // namespace engine
