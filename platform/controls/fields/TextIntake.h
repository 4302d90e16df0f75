#pragma once

#include "platform/controls/fields/KeyFilter.h"

#include <QObject>

class QKeyEvent;
class QMenu;
class QPoint;
class QWidget;

namespace controls {

/// Stands before a text field and passes what comes in from outside (keys, clipboard, drops, input methods)
/// through the rules. What code sets does not come this way. Owned by its field; one a field.
class TextIntake : public QObject {
    Q_OBJECT

  public:
    static void attach(QLineEdit* field, KeyRules rules);
    static void attach(QPlainTextEdit* field, KeyRules rules);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    TextIntake(QWidget* field, KeyRules rules);

    bool key(QKeyEvent* event);
    bool isReadOnly() const;
    void insert(const QString& raw);
    bool refuses(const QString& text);
    void moveCursorTo(const QPoint& position);
    QMenu* standardMenu() const;
    void showMenu(const QPoint& globalPosition);

    QWidget* m_field;
    QLineEdit* m_line;
    QPlainTextEdit* m_plain;
    KeyRules m_rules;
};

} // namespace controls
