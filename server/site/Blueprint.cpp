#include "server/site/Blueprint.h"

#include "server/engine/Installer.h"
#include "server/hospital/Kit.h"

#include <QRegularExpression>

namespace site {

ModuleHead moduleHead(const QString& batch) {
    static const QRegularExpression head(
        QStringLiteral(R"(^\s*(CREATE\s+OR\s+ALTER)\s+(PROCEDURE|VIEW|FUNCTION)\s+(\w+))"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = head.match(batch);
    if (!match.hasMatch())
        return {};
    return {match.captured(2).toUpper(), match.captured(3), match.capturedStart(1), match.capturedLength(1)};
}

std::vector<ModuleText> kitModules() {
    std::vector<ModuleText> modules;
    for (const hospital::KitFile& file : hospital::kitFiles()) {
        for (const engine::ScriptBatch& batch : engine::scriptBatches(file.text)) {
            const ModuleHead head = moduleHead(batch.text);
            if (!head.name.isEmpty())
                modules.push_back({file.name.section(u'/', 0, 0), head.name, batch.text.mid(head.at)});
        }
    }
    return modules;
}

std::vector<engine::Table> tablesOf(const QString& path) {
    engine::SqliteFile file(path.toStdString(), {}, {0});
    engine::Catalogue catalogue(file);
    const engine::SqliteStatement names =
        file.prepare("SELECT DISTINCT databaseName, tableName FROM \"scintra.columns\" ORDER BY 1, 2");
    std::vector<engine::Table> tables;
    while (file.step(names.get()))
        tables.push_back(
            *catalogue.table(engine::columnText(names.get(), 0), engine::columnText(names.get(), 1)));
    return tables;
}

} // namespace site
