#include "platform/controls/fields/FieldLetter.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>

namespace controls {

namespace {

QChar letterIn(const QString& caption) {
    const QString keys = QKeySequence::mnemonic(caption).toString();
    return keys.isEmpty() ? QChar() : keys.back().toUpper();
}

QString lettersOn(const QWidget& screen) {
    QString letters;
    const auto take = [&](const QString& caption) { letters += letterIn(caption); };
    for (const auto* button : screen.findChildren<QAbstractButton*>())
        take(button->text());
    for (const auto* label : screen.findChildren<QLabel*>())
        take(label->buddy() ? label->text() : QString());
    for (const auto* group : screen.findChildren<QGroupBox*>())
        take(group->title());
    return letters;
}

QString withLetter(const QString& caption, const QString& taken) {
    for (qsizetype at = 0; at < caption.size(); ++at) {
        if (caption[at].isLetter() && !taken.contains(caption[at].toUpper()))
            return QString(caption).insert(at, u'&');
    }
    return caption;
}

/// The row of the screen that the field stands in; null where it does not stand beside others.
QHBoxLayout* rowOf(const QWidget& field) {
    for (auto* row : field.parentWidget()->findChildren<QHBoxLayout*>()) {
        if (row->indexOf(&field) >= 0)
            return row;
    }
    return nullptr;
}

QLabel* labelOf(const QWidget& screen, const QLineEdit& field) {
    for (auto* label : screen.findChildren<QLabel*>()) {
        if (label->buddy() == &field)
            return label;
    }
    QHBoxLayout* row = rowOf(field);
    QLabel* first = row ? qobject_cast<QLabel*>(row->itemAt(0)->widget()) : nullptr;
    return first && !first->text().isEmpty() ? first : nullptr;
}

} // namespace

void giveLetter(QLineEdit& field) {
    QWidget* screen = field.window();
    QLabel* label = labelOf(*screen, field);
    if (!label) {
        QHBoxLayout* row = rowOf(field);
        if (!row)
            return;
        label = new QLabel(QStringLiteral("Search"), field.parentWidget());
        row->insertWidget(0, label);
    }
    label->setBuddy(&field);
    if (letterIn(label->text()).isNull())
        label->setText(withLetter(label->text(), lettersOn(*screen)));
}

} // namespace controls
