#include "server/engine/Trace.h"

#include "platform/base/AppendedFile.h"
#include "platform/base/DateTime.h"

namespace engine {
namespace {

QString masked(const QString& text) {
    QString result;
    bool inside = false;
    for (const QChar c : text) {
        if (c == u'\'') {
            inside = !inside;
            result += inside ? QStringLiteral("'***") : QStringLiteral("'");
        } else if (!inside) {
            result += c;
        }
    }
    return result;
}

} // namespace

Trace::Trace(const QString& hospitalFile, QString workstation)
    : m_file(fileOf(hospitalFile)), m_workstation(std::move(workstation)) {}

QString Trace::fileOf(const QString& hospitalFile) {
    return hospitalFile + QStringLiteral(".trace.txt");
}

bool Trace::isSecret(const QString& text) {
    return text.contains(QLatin1StringView("$argon2")) ||
           text.contains(QLatin1StringView("PasswordHash"), Qt::CaseInsensitive);
}

void Trace::write(const Line& line) {
    constexpr double nanosecondsPerMillisecond = 1e6;
    const bool secret = line.masked || isSecret(line.text);
    QString text = secret ? masked(line.text) : line.text;
    text.replace(u'\r', QLatin1StringView("\\r")).replace(u'\n', QLatin1StringView("\\n"));
    QString outcome = line.outcome;
    if (line.error != 0)
        outcome = QStringLiteral("error %1").arg(line.error) +
                  (secret ? QString() : QStringLiteral(": ") + outcome);
    outcome.replace(u'\n', u' ');
    const QString written =
        QStringLiteral("%1\t%2\t%3 ms\t%4\t%5\n")
            .arg(base::toIso(base::now()), m_workstation,
                 QString::number(double(line.nanoseconds) / nanosecondsPerMillisecond, 'f', 3), outcome,
                 text);
    base::appendToOwn(m_file, written.toUtf8());
}

} // namespace engine
