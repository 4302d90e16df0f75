#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace report {

/// One kind of file that can be saved: "PDF documents" and "pdf".
struct SaveKind {
    QString text;
    QString suffix;
};

/// Asks for a path in the system's dialog; "" when it is given up. A suffix that is typed and known wins;
/// else the chosen kind's is added. Writing over a file is asked for. The folder is remembered as long as the
/// program runs; nothing of it stays on disk.
QString askSavePath(QWidget* parent, const QString& caption, const QString& name,
                    const QList<SaveKind>& kinds);

} // namespace report
