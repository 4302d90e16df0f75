#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace engine {

/// A value inside the server: of a variable, an argument or a column. Moments are ISO texts ("2026-11-21
/// 08:30:00.000"), bits are integers, amounts are reals. The text keeps its memory when the cell is set anew.
class Cell {
  public:
    enum class Kind : std::uint8_t { Null, Integer, Real, Text };

    Kind kind() const { return m_kind; }
    bool isNull() const { return m_kind == Kind::Null; }
    std::int64_t integer() const { return m_integer; }
    double real() const { return m_real; }
    /// UTF-8.
    const std::string& text() const { return m_text; }

    void setNull() { m_kind = Kind::Null; }
    void setInteger(std::int64_t value) {
        m_kind = Kind::Integer;
        m_integer = value;
    }
    void setReal(double value) {
        m_kind = Kind::Real;
        m_real = value;
    }
    void setText(std::string_view value) {
        m_kind = Kind::Text;
        m_text.assign(value);
    }
    std::string& editText() {
        m_kind = Kind::Text;
        return m_text;
    }

  private:
    Kind m_kind = Kind::Null;
    std::int64_t m_integer = 0;
    double m_real = 0;
    std::string m_text;
};

} // namespace engine
