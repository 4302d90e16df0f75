#include "tests/server/hospital/RecordedKits.h"

#include "server/engine/EmbeddedProvider.h"
#include "server/engine/Installer.h"
#include "server/hospital/Kit.h"
#include "tests/support/core/Databases.h"
#include "tests/support/hospital/OldOrder.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <map>
#include <stdexcept>

namespace tests {

namespace {

/// What a recorded file changes of the kit before it; gives its heading, "number 1, 2026-11-22".
QString applyTo(std::map<QString, QString>& files, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    const QString heading = QString::fromUtf8(file.readLine());
    QString* text = nullptr;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine());
        if (!line.startsWith(QLatin1String("=== "))) {
            text->append(line);
            continue;
        }
        const QString name = line.section(u' ', -1).trimmed();
        files.erase(name);
        text = line.startsWith(QLatin1String("=== gone ")) ? nullptr : &files[name];
    }
    return heading;
}

std::vector<RecordedKit> readKits() {
    const QDir folder(QStringLiteral(SCINTRA_SOURCE_DIR "/tests/server/hospital/kits"));
    std::vector<RecordedKit> kits;
    std::map<QString, QString> files;
    for (const QString& name : folder.entryList({QStringLiteral("*.kit")}, QDir::Files, QDir::Name)) {
        const QString heading = applyTo(files, folder.filePath(name));
        RecordedKit kit{name.chopped(4),
                        heading.section(u' ', 1, 1).chopped(1).toInt(),
                        heading.contains(QLatin1String("order NOCASE")),
                        {}};
        for (const auto& [file, text] : files)
            kit.files.push_back({file, text});
        std::stable_sort(kit.files.begin(), kit.files.end(), [](const auto& one, const auto& other) {
            return hospital::kitRank(one.name) < hospital::kitRank(other.name);
        });
        kits.push_back(std::move(kit));
    }
    return kits;
}

} // namespace

const std::vector<RecordedKit>& recordedKits() {
    static const std::vector<RecordedKit> kits = readKits();
    return kits;
}

void makeHospital(const RecordedKit& kit, const QString& file) {
    engine::Options options;
    options.newDatabases = databases();
    auto provider = engine::EmbeddedProvider::open(file, options);
    provider->begin();
    for (const hospital::KitFile& each : kit.files)
        engine::installScript(*provider, each.text, each.name);
    provider->setSetting(QStringLiteral("kitVersion"), QStringLiteral("recorded ") + kit.name);
    if (kit.number > 0)
        provider->setSetting(QStringLiteral("kitNumber"), QString::number(kit.number));
    provider->commit();
    provider.reset();
    if (kit.isInOldOrder)
        takeOrderAway(file);
}

} // namespace tests
