#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <string_view>

namespace engine {

/// The short texts that rows held lately, ready to be shown: a row that holds one of them again (a town, a
/// word of a state, the name that a list is in order of) shares it.
class SharedTexts {
  public:
    /// `text` in UTF-8. Never null.
    QString shown(std::string_view text);

  private:
    static constexpr std::size_t longestShared = 40;

    struct Text {
        QString shown;
        std::uint8_t size = 0;
        std::array<char, longestShared> utf8{};
    };
    std::array<Text, 1024> m_texts;
};

} // namespace engine
