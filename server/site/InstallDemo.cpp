#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/site/Blueprint.h"
#include "server/site/Install.h"
#include "server/site/TableRows.h"

#include <QTemporaryDir>

namespace site {

void installDemo(ado::Provider& server, const hospital::Progress& progress) {
    const ado::Result patients = server.execute(ado::sql("SELECT COUNT(*) FROM PATIENT_DATA..tbMaster"));
    if (patients.rows.count() != 1 || base::CDbl(base::textOf(patients.rows.at(0, 0))) > 0)
        throw base::RunTimeError(58,
                                 QStringLiteral("There are patients already: the made-up hospital is only "
                                                "put into databases that were just made."));
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("demo.scintra"));
    demo::createHospital(file);
    const auto source = engine::EmbeddedProvider::open(file, {});
    const std::vector<engine::Table> tables = tablesOf(file);
    server.begin();
    try {
        int done = 0;
        for (const engine::Table& table : tables) {
            if (progress)
                progress(done++ * 100 / int(tables.size()),
                         QStringLiteral("Filling ") + QString::fromStdString(table.fileName()));
            for (const QString& text : tableRows(*source, table))
                ado::runBatch(server, text);
        }
        server.commit();
    } catch (...) {
        if (server.inTransaction())
            server.rollback();
        throw;
    }
    if (progress)
        progress(100, QStringLiteral("Done"));
}

} // namespace site
