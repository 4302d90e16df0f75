#pragma once

#include <QtGlobal>

#include <cmath>
#include <compare>

namespace report {

/// A length on paper, in whole hundredths of a millimetre: the one unit of definitions, layout and pages.
struct Length {
    qint32 hundredths = 0;

    static Length fromMm(double mm) { return {qint32(std::lround(mm * 100.0))}; }
    static Length fromPoints(double points) { return {qint32(std::lround(points * 2540.0 / 72.0))}; }
    double mm() const { return hundredths / 100.0; }
    double points() const { return hundredths * 72.0 / 2540.0; }

    // NOLINTNEXTLINE(modernize-use-nullptr): the check stumbles over a generated comparison
    auto operator<=>(const Length&) const = default;
    Length operator+(Length other) const { return {hundredths + other.hundredths}; }
    Length operator-(Length other) const { return {hundredths - other.hundredths}; }
    Length& operator+=(Length other) {
        hundredths += other.hundredths;
        return *this;
    }
    Length& operator-=(Length other) {
        hundredths -= other.hundredths;
        return *this;
    }
};

/// A rectangle on a page or in a band, y downwards.
struct Frame {
    Length x, y, width, height;

    Length right() const { return x + width; }
    Length bottom() const { return y + height; }
    bool operator==(const Frame&) const = default;
};

} // namespace report
