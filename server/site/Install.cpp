#include "server/site/Install.h"

#include "platform/ado/Batch.h"
#include "platform/ado/Quoting.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "server/engine/Installer.h"
#include "server/hospital/Kit.h"
#include "server/site/Blueprint.h"

namespace site {
namespace {

bool isThere(ado::Provider& server, const QString& expression) {
    const ado::Result result = ado::runBatch(server, QStringLiteral("SELECT ") + expression);
    return result.rows.count() == 1 && !result.rows.at(0, 0).isNull();
}

/// CREATE OR ALTER came with a service pack of SQL Server 2016; CREATE and ALTER are older than the kit.
/// ALTER keeps the rights that were granted.
QString forServer(ado::Provider& server, const QString& batch) {
    const ModuleHead head = moduleHead(batch);
    if (head.name.isEmpty())
        return batch;
    const bool there =
        isThere(server, QStringLiteral("OBJECT_ID(%1)").arg(ado::literal(base::Value(head.name))));
    QString text = batch;
    return text.replace(head.at, head.length, there ? QStringLiteral("ALTER") : QStringLiteral("CREATE"));
}

/// One that keeps every character in the kit's varchar columns came with SQL Server 2019.
QString collationOf(ado::Provider& server) {
    const QString utf8 = QStringLiteral("Latin1_General_100_CI_AS_SC_UTF8");
    try {
        if (isThere(server,
                    QStringLiteral("(SELECT name FROM sys.fn_helpcollations() WHERE name = '%1')").arg(utf8)))
            return utf8;
    } catch (const base::RunTimeError&) {
        // a server that cannot tell has none
    }
    return QStringLiteral("SQL_Latin1_General_CP1_CI_AS");
}

/// Names of objects are written in more than one case, which a server may be told to tell apart. Readers do
/// not wait for a save of another desk, as on the file that comes along.
void createDatabase(ado::Provider& server, const QString& name, const QString& collation) {
    ado::runBatch(server, QStringLiteral("CREATE DATABASE %1 COLLATE %2").arg(name, collation));
    ado::runBatch(server, QStringLiteral("ALTER DATABASE %1 SET READ_COMMITTED_SNAPSHOT ON").arg(name));
}

} // namespace

void install(ado::Provider& server, const hospital::Progress& progress) {
    const auto tell = [&](int percent, const QString& stage) {
        if (progress)
            progress(percent, stage);
    };
    QString collation; // one for all ten: their texts are compared with each other
    for (const QString& database : hospital::kitDatabases()) {
        tell(0, QStringLiteral("Database ") + database);
        if (!isThere(server, QStringLiteral("DB_ID(%1)").arg(ado::literal(base::Value(database))))) {
            if (collation.isEmpty())
                collation = collationOf(server);
            createDatabase(server, ado::bracketed(database), collation);
        }
    }
    const auto& files = hospital::kitFiles();
    int done = 0;
    for (const hospital::KitFile& file : files) {
        tell(done * 100 / int(files.size()), QStringLiteral("Installing ") + file.name);
        for (const engine::ScriptBatch& batch : engine::scriptBatches(file.text)) {
            try {
                ado::runBatch(server, forServer(server, batch.text));
            } catch (const base::RunTimeError& error) {
                throw engine::located(error, batch, file.name);
            }
        }
        ++done;
    }
    tell(100, QStringLiteral("Done"));
}

} // namespace site
