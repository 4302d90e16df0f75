#include "platform/ado/Quoting.h"

#include "platform/base/Conversion.h"

namespace ado {

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
    return u'\'' + text.replace(u'\'', QLatin1StringView("''")) + u'\'';
}

QString bracketed(const QString& name) {
    QString text = name;
    return u'[' + text.replace(u']', QLatin1StringView("]]")) + u']';
}

} // namespace ado
