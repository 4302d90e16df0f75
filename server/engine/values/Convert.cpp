#include "server/engine/values/Convert.h"

#include "server/engine/errors/ServerError.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/DateReader.h"
#include "server/engine/values/DateText.h"
#include "server/engine/values/NumberText.h"

#include <cmath>
#include <limits>

namespace engine {
namespace {

[[noreturn]] void failConverting(const SqlType& from, const SqlType& to) {
    throw serverError(8114,
                      QStringLiteral("Error converting data type %1 to %2.")
                          .arg(QLatin1StringView(typeWord(from.kind)), QLatin1StringView(typeWord(to.kind))),
                      "22018");
}

[[noreturn]] void failValue(const Cell& cell, const SqlType& from, const SqlType& to) {
    throw serverError(245,
                      QStringLiteral("Conversion failed when converting the %1 value '%2' to data type %3.")
                          .arg(QLatin1StringView(typeWord(from.kind)), toQString(cell.text()),
                               QLatin1StringView(typeWord(to.kind))),
                      "22018");
}

[[noreturn]] void failOverflow(const Cell& cell, const SqlType& from, const SqlType& to) {
    if (cell.kind() == Cell::Kind::Text)
        throw serverError(248,
                          QStringLiteral("The conversion of the %1 value '%2' overflowed an %3 column.")
                              .arg(QLatin1StringView(typeWord(from.kind)), toQString(cell.text()),
                                   QLatin1StringView(typeWord(to.kind))),
                          "22003");
    throw serverError(8115,
                      QStringLiteral("Arithmetic overflow error converting expression to data type %1.")
                          .arg(QLatin1StringView(typeWord(to.kind))),
                      "22003");
}

bool fits(std::int64_t value, TypeKind kind) {
    switch (kind) {
    case TypeKind::TinyInt:
        return value >= 0 && value <= 255;
    case TypeKind::SmallInt:
        return value >= std::numeric_limits<std::int16_t>::min() &&
               value <= std::numeric_limits<std::int16_t>::max();
    case TypeKind::Int:
        return value >= std::numeric_limits<std::int32_t>::min() &&
               value <= std::numeric_limits<std::int32_t>::max();
    default:
        return true;
    }
}

/// One conversion; throws in the words of its place.
struct Conversion {
    Cell& cell;
    const SqlType& from;
    const SqlType& to;
    ConversionPlace place;
    int style;

    bool isArgument() const { return place == ConversionPlace::Argument; }

    void toBit() const {
        if (cell.kind() == Cell::Kind::Integer) {
            cell.setInteger(cell.integer() != 0);
        } else if (cell.kind() == Cell::Kind::Real) {
            cell.setInteger(cell.real() != 0);
        } else if (sameWord(cell.text(), "TRUE")) {
            cell.setInteger(1);
        } else if (sameWord(cell.text(), "FALSE")) {
            cell.setInteger(0);
        } else {
            std::int64_t value = 0;
            if (readInteger(cell.text(), value) != NumberReading::Good)
                isArgument() ? failConverting(from, to) : failValue(cell, from, to);
            cell.setInteger(value != 0);
        }
    }

    void toInteger() const {
        std::int64_t value = 0;
        if (classOf(from) == TypeClass::Moment) {
            value = std::int64_t(std::floor(serialOf() + 0.5));
        } else if (cell.kind() == Cell::Kind::Text) {
            const NumberReading reading = readInteger(cell.text(), value);
            if (reading == NumberReading::NotANumber)
                isArgument() ? failConverting(from, to) : failValue(cell, from, to);
            if (reading == NumberReading::Overflow)
                isArgument() ? failConverting(from, to) : failOverflow(cell, from, to);
        } else if (cell.kind() == Cell::Kind::Real) {
            // money is rounded, the others lose their fraction
            const double whole =
                from.kind == TypeKind::Money ? roundedTo(cell.real(), 0) : std::trunc(cell.real());
            if (!(std::abs(whole) < 9.2e18))
                failOverflow(cell, from, to);
            value = std::int64_t(whole);
        } else {
            value = cell.integer();
        }
        if (!fits(value, to.kind))
            isArgument() ? failConverting(from, to) : failOverflow(cell, from, to);
        cell.setInteger(value);
    }

    void toReal() const {
        double value = 0;
        if (classOf(from) == TypeClass::Moment) {
            value = serialOf();
        } else if (cell.kind() == Cell::Kind::Text) {
            value = readReal();
        } else {
            value = cell.kind() == Cell::Kind::Integer ? double(cell.integer()) : cell.real();
        }
        if (to.kind == TypeKind::Money)
            value = roundedTo(value, 4);
        else if (to.kind == TypeKind::Decimal)
            value = roundedTo(value, to.scale);
        cell.setReal(value);
    }

    double readReal() const {
        double value = 0;
        const NumberReading reading = to.kind == TypeKind::Money     ? readMoney(cell.text(), value)
                                      : to.kind == TypeKind::Decimal ? readDecimal(cell.text(), value)
                                                                     : readFloat(cell.text(), value);
        if (reading == NumberReading::Good)
            return value;
        if (reading == NumberReading::Overflow && !isArgument())
            failOverflow(cell, from, to);
        if (to.kind == TypeKind::Money && !isArgument())
            throw serverError(
                235,
                QStringLiteral("Cannot convert a char value to money. The char value has incorrect "
                               "syntax."),
                "22018");
        failConverting(from, to);
    }

    void toMoment() const {
        base::DateTime moment;
        if (cell.kind() == Cell::Kind::Text && isText(from)) {
            const DateReading reading = readDate(cell.text(), style, moment);
            if (reading != DateReading::Good && isArgument())
                failConverting(from, to);
            if (reading == DateReading::NotADate)
                throw serverError(
                    241,
                    QStringLiteral("Conversion failed when converting date and/or time from character "
                                   "string."),
                    "22018");
            if (reading == DateReading::OutOfRange)
                throw serverError(
                    242,
                    QStringLiteral("The conversion of a varchar data type to a datetime data type "
                                   "resulted in an out-of-range value."),
                    "22007");
        } else if (cell.kind() == Cell::Kind::Text) {
            const auto iso = fromIsoText(cell.text());
            if (!iso)
                failConverting(from, to);
            moment = *iso;
        } else {
            const double days = cell.kind() == Cell::Kind::Integer ? double(cell.integer()) : cell.real();
            if (!(days >= -53690 && days < 2958464))
                throw serverError(
                    8115,
                    QStringLiteral("Arithmetic overflow error converting expression to data type "
                                   "datetime."),
                    "22003");
            moment = base::fromSerial(days + 2); // the server counts from 1900-01-01
        }
        if (to.kind == TypeKind::Date)
            moment = base::dateOnly(moment);
        writeIso(moment, cell.editText());
    }

    void toText() const {
        if (isText(from) && cell.kind() == Cell::Kind::Text) {
            cutToLength(cell, to);
            return;
        }
        std::string text;
        if (classOf(from) == TypeClass::Moment) {
            const auto moment = fromIsoText(cell.text());
            const int used = style == 0 && from.kind == TypeKind::Date ? 23 : style;
            if (!moment || !writeDate(*moment, used, text))
                throw serverError(
                    281, QStringLiteral("%1 is not a valid style number when converting from datetime to a "
                                        "character string.")
                             .arg(style));
        } else if (cell.kind() == Cell::Kind::Integer) {
            text = std::to_string(cell.integer());
        } else if (cell.kind() == Cell::Kind::Real) {
            text = from.kind == TypeKind::Money     ? moneyText(cell.real(), style)
                   : from.kind == TypeKind::Decimal ? fixedText(cell.real(), from.scale)
                                                    : floatText(cell.real(), style);
        }
        if (cell.kind() != Cell::Kind::Text || classOf(from) == TypeClass::Moment)
            cell.setText(text);
        cutToLength(cell, to);
    }

    double serialOf() const {
        const auto moment = fromIsoText(cell.text());
        return moment ? base::toSerial(*moment) - 2 : 0;
    }
};

} // namespace

void cutToLength(Cell& cell, const SqlType& type) {
    if (type.length < 0 || cell.kind() != Cell::Kind::Text ||
        std::size_t(type.length) >= cell.text().size() || !isText(type))
        return;
    cell.editText().resize(bytesOf(cell.text(), std::size_t(type.length)));
}

void convert(Cell& cell, const SqlType& from, const SqlType& to, ConversionPlace place, int style) {
    if (cell.isNull())
        return;
    const Conversion conversion{cell, from, to, place, style};
    switch (classOf(to)) {
    case TypeClass::Null:
        return;
    case TypeClass::Text:
        conversion.toText();
        return;
    case TypeClass::Integer:
        to.kind == TypeKind::Bit ? conversion.toBit() : conversion.toInteger();
        return;
    case TypeClass::Real:
        conversion.toReal();
        return;
    case TypeClass::Moment:
        conversion.toMoment();
        return;
    }
}

} // namespace engine
