#include "server/hospital/Kit.h"

#include "server/engine/EmbeddedProvider.h"
#include "server/engine/Installer.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>

#include <algorithm>

// Outside any namespace, as the resource compiler names it.
static void loadKitResource() {
    Q_INIT_RESOURCE(kit);
}

namespace hospital {

namespace {

constexpr const char* versionSetting = "kitVersion";
constexpr const char* numberSetting = "kitNumber";

std::vector<KitFile> readKit() {
    loadKitResource();
    const QString root = QStringLiteral(":/kit/");
    std::vector<KitFile> files;
    QDirIterator iterator(root, {QStringLiteral("*.sql")}, QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        QFile file(iterator.next());
        if (file.open(QIODevice::ReadOnly))
            files.push_back({file.fileName().mid(root.size()), QString::fromUtf8(file.readAll())});
    }
    std::sort(files.begin(), files.end(), [](const KitFile& a, const KitFile& b) {
        return std::pair(kitRank(a.name), a.name) < std::pair(kitRank(b.name), b.name);
    });
    return files;
}

} // namespace

int kitRank(const QString& name) {
    if (name.endsWith(QLatin1String("/tables.sql")))
        return 0;
    if (name.contains(QLatin1String("/functions/")))
        return 1;
    if (name.contains(QLatin1String("/views/")))
        return 2;
    return name.endsWith(QLatin1String("/seed.sql")) ? 4 : 3;
}

const std::vector<KitFile>& kitFiles() {
    static const std::vector<KitFile> files = readKit();
    return files;
}

QStringList kitDatabases() {
    QStringList names;
    for (const KitFile& file : kitFiles()) {
        const QString name = file.name.section(u'/', 0, 0);
        if (!names.contains(name))
            names += name;
    }
    names.sort();
    return names;
}

QString kitVersion() {
    static const QString version = [] {
        QCryptographicHash hash(QCryptographicHash::Sha1);
        for (const KitFile& file : kitFiles()) {
            hash.addData(file.name.toUtf8());
            hash.addData(file.text.toUtf8());
        }
        return QString::fromLatin1(hash.result().toHex());
    }();
    return version;
}

void installKit(engine::EmbeddedProvider& provider, const Progress& progress) {
    const auto& files = kitFiles();
    int done = 0;
    for (const KitFile& file : files) {
        if (progress)
            progress(done * 100 / int(files.size()), QStringLiteral("Installing ") + file.name);
        engine::installScript(provider, file.text, file.name);
        ++done;
    }
    provider.setSetting(QLatin1String(versionSetting), kitVersion());
    provider.setSetting(QLatin1String(numberSetting), QString::number(kitNumber));
}

int installedKitNumber(engine::EmbeddedProvider& provider) {
    return provider.setting(QLatin1String(numberSetting)).toInt();
}

QString installedKitVersion(engine::EmbeddedProvider& provider) {
    return provider.setting(QLatin1String(versionSetting));
}

} // namespace hospital
