#pragma once

// The ODBC headers in the one order that every system takes.
#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <QString>

#include <vector>

namespace odbc {

/// A text as the wide functions take it; reused, so that a statement costs no allocation of its own.
class WideText {
  public:
    WideText() = default;
    explicit WideText(QStringView text) { assign(text); }
    void assign(QStringView text) {
        m_units.resize(std::size_t(text.size()) + 1);
        for (qsizetype i = 0; i < text.size(); ++i)
            m_units[std::size_t(i)] = SQLWCHAR(text[i].unicode());
        m_units.back() = 0;
    }
    SQLWCHAR* data() { return m_units.data(); }
    /// In units, without the closing nought.
    SQLINTEGER size() const { return SQLINTEGER(m_units.size()) - 1; }

  private:
    std::vector<SQLWCHAR> m_units{0};
};

inline QString fromWide(const SQLWCHAR* text, qsizetype units) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text), units);
}

} // namespace odbc
