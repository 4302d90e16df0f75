#include "platform/report/output/SaveFile.h"

#include "platform/report/definition/ReportError.h"

#include <QSaveFile>

namespace report {

base::RunTimeError fileError(const QString& path, const QString& reason) {
    return base::RunTimeError(errorFile, QStringLiteral("Path/File access error: %1: %2").arg(path, reason));
}

bool saveFile(const QString& path, const std::function<bool(QIODevice& file)>& write) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw fileError(path, file.errorString());
    if (!write(file) && file.error() == QFileDevice::NoError)
        return false;
    if (file.error() != QFileDevice::NoError || !file.commit())
        throw fileError(path, file.errorString());
    return true;
}

} // namespace report
