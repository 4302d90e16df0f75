#include "platform/controls/fields/KeyNotes.h"

#include <QVariant>
#include <QWidget>

namespace controls {

namespace {

constexpr char property[] = "keyNotes";
constexpr QChar parting = u'\t';

} // namespace

void noteKeys(QWidget* control, std::initializer_list<KeyNote> notes) {
    QStringList lines = control->property(property).toStringList();
    for (const KeyNote& note : notes)
        lines << QString::fromLatin1(note.keys) + parting + QString::fromLatin1(note.does);
    lines.removeDuplicates();
    control->setProperty(property, lines);
}

QList<std::pair<QString, QString>> notedKeys(const QWidget& control) {
    QList<std::pair<QString, QString>> notes;
    for (const QString& line : control.property(property).toStringList())
        notes.emplaceBack(line.section(parting, 0, 0), line.section(parting, 1));
    return notes;
}

} // namespace controls
