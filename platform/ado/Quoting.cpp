#include "platform/ado/Quoting.h"

#include "platform/base/Conversion.h"

namespace ado {

qsizetype brokenLine(QStringView text, qsizetype at) {
    if (text[at] != u'\\' || at + 1 >= text.size())
        return 0;
    if (text[at + 1] == u'\n')
        return 1;
    return text[at + 1] == u'\r' && at + 2 < text.size() && text[at + 2] == u'\n' ? 2 : 0;
}

QString withLinesKept(QString text) {
    for (qsizetype at = text.indexOf(u'\\'); at >= 0; at = text.indexOf(u'\\', at + 1)) {
        if (const qsizetype length = brokenLine(text, at)) {
            text.insert(at + 1, text.mid(at, 1 + length));
            at += 1 + length;
        }
    }
    return text;
}

QString withLinesJoined(QStringView text) {
    QString joined;
    joined.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (const qsizetype length = brokenLine(text, at))
            at += length;
        else
            joined += text[at];
    }
    return joined;
}

QString literal(const base::Value& value) {
    if (value.isNull())
        return QStringLiteral("NULL");
    if (const base::DateTime* moment = value.asDateTime())
        return u'\'' + base::toIso(*moment).replace(u' ', u'T') + u'\'';
    if (const bool* flag = value.asBool())
        return *flag ? QStringLiteral("1") : QStringLiteral("0");
    QString text = base::textOf(value);
    if (!value.asText())
        return text;
    text.replace(u'\'', QLatin1StringView("''"));
    return u'\'' + withLinesKept(std::move(text)) + u'\'';
}

QString bracketed(const QString& name) {
    QString text;
    text.reserve(name.size() + 2);
    addBracketed(text, name);
    return text;
}

void addBracketed(QString& text, const QString& name) {
    text += u'[';
    text += name.contains(u']') ? QString(name).replace(u']', QLatin1StringView("]]")) : name;
    text += u']';
}

} // namespace ado
