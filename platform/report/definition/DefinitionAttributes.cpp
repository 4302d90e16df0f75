#include "platform/report/definition/DefinitionAttributes.h"

#include <array>

namespace report {
namespace {

struct Unit {
    const char* suffix;
    double mm;
};
constexpr std::array units{Unit{"mm", 1.0}, Unit{"cm", 10.0}, Unit{"in", 25.4}, Unit{"pt", 25.4 / 72.0}};

constexpr double longest = 2000.0; // mm

/// Negative when the text is no length.
double mmOf(const QString& text) {
    for (const Unit& unit : units) {
        if (!text.endsWith(QLatin1StringView(unit.suffix)))
            continue;
        bool valid = false;
        const double number = text.chopped(2).toDouble(&valid);
        const double mm = number * unit.mm;
        return valid && mm >= 0.0 && mm <= longest ? mm : -1.0;
    }
    return -1.0;
}

} // namespace

DefinitionReader::Attributes::Attributes(DefinitionReader& reader) : m_reader(reader) {
    for (const QXmlStreamAttribute& attribute : reader.m_xml.attributes())
        m_values.insert(attribute.name().toString(), attribute.value().toString());
}

bool DefinitionReader::Attributes::has(const char* name) const {
    return m_values.contains(QLatin1StringView(name));
}

QString DefinitionReader::Attributes::text(const char* name) {
    if (!has(name))
        m_reader.fail(QStringLiteral("attribute %1 is missing").arg(QLatin1StringView(name)));
    return m_values.take(QLatin1StringView(name));
}

QString DefinitionReader::Attributes::text(const char* name, const QString& otherwise) {
    return has(name) ? text(name) : otherwise;
}

Length DefinitionReader::Attributes::length(const char* name) {
    const QString value = text(name);
    const double mm = mmOf(value);
    if (mm < 0.0)
        m_reader.fail(QStringLiteral("%1=\"%2\" is no length (such as 12.5mm) between 0 and 2 m")
                          .arg(QLatin1StringView(name), value.left(40)));
    return Length::fromMm(mm);
}

Length DefinitionReader::Attributes::length(const char* name, Length otherwise) {
    return has(name) ? length(name) : otherwise;
}

double DefinitionReader::Attributes::points(const char* name, double otherwise) {
    if (!has(name))
        return otherwise;
    const double size = length(name).points();
    if (size < 1.0 || size > 300.0)
        m_reader.fail(QStringLiteral("%1 is out of 1 to 300 pt").arg(QLatin1StringView(name)));
    return size;
}

double DefinitionReader::Attributes::number(const char* name, double otherwise, double least, double most) {
    if (!has(name))
        return otherwise;
    const QString value = text(name);
    bool valid = false;
    const double result = value.toDouble(&valid);
    if (!valid || !(result >= least && result <= most))
        m_reader.fail(QStringLiteral("%1=\"%2\" is not between %3 and %4")
                          .arg(QLatin1StringView(name), value.left(40))
                          .arg(least)
                          .arg(most));
    return result;
}

bool DefinitionReader::Attributes::yes(const char* name) {
    return word(name, {QStringLiteral("no"), QStringLiteral("yes")}) == 1;
}

QColor DefinitionReader::Attributes::colour(const char* name, const QColor& otherwise) {
    if (!has(name))
        return otherwise;
    const QString value = text(name);
    const QColor result(value);
    if (!value.startsWith(u'#') || !result.isValid())
        m_reader.fail(QStringLiteral("%1=\"%2\" is no colour (such as #5C6B77)")
                          .arg(QLatin1StringView(name), value.left(40)));
    return result;
}

int DefinitionReader::Attributes::word(const char* name, const QStringList& words) {
    if (!has(name))
        return 0;
    const QString value = text(name);
    const qsizetype index = words.indexOf(value);
    if (index < 0)
        m_reader.fail(QStringLiteral("%1=\"%2\" is none of: %3")
                          .arg(QLatin1StringView(name), value.left(40), words.join(QStringLiteral(", "))));
    return int(index);
}

std::optional<Expression> DefinitionReader::Attributes::expression(const char* name) {
    if (!has(name))
        return std::nullopt;
    return m_reader.expression(text(name));
}

void DefinitionReader::Attributes::finish() {
    if (!m_values.isEmpty())
        m_reader.fail(QStringLiteral("attribute %1 is not known here").arg(m_values.constBegin().key()));
}

} // namespace report
