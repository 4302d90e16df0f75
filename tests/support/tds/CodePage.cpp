#include "tests/support/tds/CodePage.h"

#include <algorithm>
#include <array>

namespace tests::tds {
namespace {

constexpr int firstOwn = 0x80;
/// What stands at 0x80 to 0x9F; a nought where nothing does.
constexpr std::array<char16_t, 32> own{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                       0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// -1 when the page has no such character.
int byteOf(char16_t unit) {
    if (unit < firstOwn || (unit >= 0xA0 && unit <= 0xFF))
        return unit;
    const auto found = std::find(own.begin(), own.end(), unit);
    return unit == 0 || found == own.end() ? -1 : firstOwn + int(found - own.begin());
}

} // namespace

std::optional<QByteArray> toCodePage(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar unit : text) {
        const int byte = byteOf(unit.unicode());
        if (byte < 0)
            return std::nullopt;
        bytes += char(byte);
    }
    return bytes;
}

} // namespace tests::tds
