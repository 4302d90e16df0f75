#include "platform/report/output/SaveFile.h"

#include "platform/report/definition/ReportError.h"

#include <QSaveFile>

namespace report {

base::RunTimeError fileError(const QString& path, const QString& reason) {
    return base::RunTimeError(errorFile, QStringLiteral("Path/File access error: %1: %2").arg(path, reason));
}

void writeAll(QIODevice& device, const QByteArray& block) {
    if (device.write(block) == block.size())
        return;
    const auto* file = qobject_cast<QFileDevice*>(&device);
    // a disk that is full takes a part and says nothing
    const bool isTold = file && file->error() != QFileDevice::NoError;
    throw fileError(file ? file->fileName() : QString(),
                    isTold ? device.errorString() : QStringLiteral("there is no room for all of it"));
}

bool saveFile(const QString& path, const std::function<bool(QIODevice& file)>& write) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw fileError(path, file.errorString());
    if (!write(file) && file.error() == QFileDevice::NoError)
        return false;
    // commit() writes what is still held back as well, but does not look whether it could
    if (file.error() != QFileDevice::NoError || !file.flush() || !file.commit())
        throw fileError(path, file.errorString());
    return true;
}

} // namespace report
