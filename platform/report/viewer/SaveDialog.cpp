#include "platform/report/viewer/SaveDialog.h"

#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/MessageBox.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>
#include <optional>

namespace report {
namespace {

/// The tool kit's dialog writes its last folders down for all programs of the user; this puts back what was
/// written before.
class UnwrittenHistory {
  public:
    UnwrittenHistory() {
        QSettings settings(QSettings::UserScope, QStringLiteral("QtProject"));
        m_hadFile = QFile::exists(settings.fileName());
        settings.beginGroup(QStringLiteral("FileDialog"));
        for (const QString& key : settings.allKeys())
            m_before.insert(key, settings.value(key));
    }
    ~UnwrittenHistory() {
        QString file;
        {
            QSettings settings(QSettings::UserScope, QStringLiteral("QtProject"));
            file = settings.fileName();
            settings.beginGroup(QStringLiteral("FileDialog"));
            settings.remove(QString());
            for (auto one = m_before.constBegin(); one != m_before.constEnd(); ++one)
                settings.setValue(one.key(), one.value());
        }
        if (!m_hadFile)
            QFile::remove(file);
    }
    UnwrittenHistory(const UnwrittenHistory&) = delete;
    UnwrittenHistory& operator=(const UnwrittenHistory&) = delete;

  private:
    QVariantHash m_before;
    bool m_hadFile = false;
};

QString& lastFolder() {
    static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return folder;
}

QString asFileName(QString name) {
    for (QChar& c : name) {
        if (QStringLiteral("/\\:*?\"<>|").contains(c) || !c.isPrint())
            c = u' ';
    }
    return name.simplified();
}

bool hasSuffix(const QString& path, const QString& suffix) {
    return path.endsWith(u'.' + suffix, Qt::CaseInsensitive);
}

/// The dialog asks before writing over the name as typed; a suffix added later makes it another file.
bool mayReplace(const QString& path, const QString& caption) {
    if (!QFile::exists(path))
        return true;
    const QString prompt = QStringLiteral("%1 already exists.\nDo you want to replace it?");
    return controls::MsgBox(prompt.arg(QDir::toNativeSeparators(path)),
                            controls::vbYesNo | controls::vbExclamation | controls::vbDefaultButton2,
                            caption) == controls::vbYes;
}

/// One showing of the dialog: nothing when it is given up.
std::optional<QString> askOnce(QFileDialog& dialog, const QList<SaveKind>& kinds) {
    const controls::ModalLevel level;
    const bool accepted = dialog.exec() == QDialog::Accepted;
    controls::ErrorBoundary::throwIfStopping();
    if (!accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    if (std::any_of(kinds.begin(), kinds.end(),
                    [&](const SaveKind& kind) { return hasSuffix(path, kind.suffix); }))
        return path;
    const qsizetype kind = std::max<qsizetype>(dialog.nameFilters().indexOf(dialog.selectedNameFilter()), 0);
    return path + u'.' + kinds[kind].suffix;
}

} // namespace

QString askSavePath(QWidget* parent, const QString& caption, const QString& name,
                    const QList<SaveKind>& kinds) {
    QStringList filters;
    for (const SaveKind& kind : kinds)
        filters << QStringLiteral("%1 (*.%2)").arg(kind.text, kind.suffix);
    const UnwrittenHistory history;
    QFileDialog dialog(parent, caption, lastFolder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.selectFile(asFileName(name));
    for (;;) {
        const std::optional<QString> path = askOnce(dialog, kinds);
        if (!path)
            return {};
        if (*path == dialog.selectedFiles().constFirst() || mayReplace(*path, caption)) {
            lastFolder() = dialog.directory().absolutePath();
            return *path;
        }
    }
}

} // namespace report
