#include "server/engine/Installer.h"

#include "server/engine/EmbeddedProvider.h"
#include "server/engine/ServerError.h"

#include <QStringList>

namespace engine {
namespace {

/// Gives the provider its database back.
class DatabaseKeeper {
  public:
    explicit DatabaseKeeper(EmbeddedProvider& provider)
        : m_provider(provider), m_database(provider.database()) {}
    ~DatabaseKeeper() {
        try {
            m_provider.useDatabase(m_database);
        } catch (const base::RunTimeError&) {
            // it was there a moment ago
        }
    }
    DatabaseKeeper(const DatabaseKeeper&) = delete;
    DatabaseKeeper& operator=(const DatabaseKeeper&) = delete;

  private:
    EmbeddedProvider& m_provider;
    QString m_database;
};

base::RunTimeError located(const base::RunTimeError& error, const QString& place) {
    return base::RunTimeError(error.number(), place + QStringLiteral(": ") + error.description(),
                              error.sqlState(), error.statement());
}

void runBatch(EmbeddedProvider& provider, const QString& batch, const QString& fileName, int firstLine) {
    if (batch.trimmed().isEmpty())
        return;
    try {
        provider.execute(batch);
    } catch (const ScriptError& error) {
        const Position at = error.position();
        throw located(error, QStringLiteral("%1 (line %2, column %3)")
                                 .arg(fileName)
                                 .arg(firstLine + at.line - 1)
                                 .arg(at.column));
    } catch (const base::RunTimeError& error) {
        throw located(error, QStringLiteral("%1 (batch at line %2)").arg(fileName).arg(firstLine));
    }
}

} // namespace

void installScript(EmbeddedProvider& provider, const QString& source, const QString& fileName) {
    const DatabaseKeeper keeper(provider);
    QString text = source;
    text.remove(u'\r');
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    QString batch;
    int firstLine = 1;
    int line = 0;
    for (const QString& content : text.split(u'\n')) {
        ++line;
        if (content.trimmed().compare(QLatin1StringView("GO"), Qt::CaseInsensitive) != 0) {
            batch += content + u'\n';
            continue;
        }
        runBatch(provider, batch, fileName, firstLine);
        batch.clear();
        firstLine = line + 1;
    }
    runBatch(provider, batch, fileName, firstLine);
}

} // namespace engine
