#include "server/engine/Installer.h"

#include "server/engine/EmbeddedProvider.h"
#include "server/engine/errors/ServerError.h"

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

void runBatch(EmbeddedProvider& provider, const ScriptBatch& batch, const QString& fileName) {
    try {
        provider.execute(batch.text);
    } catch (const ScriptError& error) {
        const SourcePosition at = error.position();
        throw located(error, QStringLiteral("%1 (line %2, column %3)")
                                 .arg(fileName)
                                 .arg(batch.firstLine + at.line - 1)
                                 .arg(at.column));
    } catch (const base::RunTimeError& error) {
        throw located(error, batch, fileName);
    }
}

} // namespace

base::RunTimeError located(const base::RunTimeError& error, const ScriptBatch& batch,
                           const QString& fileName) {
    return located(error, QStringLiteral("%1 (batch at line %2)").arg(fileName).arg(batch.firstLine));
}

std::vector<ScriptBatch> scriptBatches(const QString& source) {
    QString text = source;
    text.remove(u'\r');
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    std::vector<ScriptBatch> batches;
    ScriptBatch batch{{}, 1};
    int line = 0;
    const auto finish = [&] {
        if (!batch.text.trimmed().isEmpty())
            batches.push_back(batch);
        batch = {{}, line + 1};
    };
    for (const QString& content : text.split(u'\n')) {
        ++line;
        if (content.trimmed().compare(QLatin1StringView("GO"), Qt::CaseInsensitive) == 0)
            finish();
        else
            batch.text += content + u'\n';
    }
    finish();
    return batches;
}

void installScript(EmbeddedProvider& provider, const QString& source, const QString& fileName) {
    const DatabaseKeeper keeper(provider);
    for (const ScriptBatch& batch : scriptBatches(source))
        runBatch(provider, batch, fileName);
}

} // namespace engine
