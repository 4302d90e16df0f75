#include "platform/controls/fields/TextIntake.h"

#include "platform/controls/fields/KeptCharacters.h"
#include "platform/controls/fields/Keys.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QToolTip>

namespace controls {

namespace {

template <typename Field>
void dropFormer(Field* field) {
    for (TextIntake* former :
         field->template findChildren<TextIntake*>(QString(), Qt::FindDirectChildrenOnly))
        delete former;
}

} // namespace

void TextIntake::attach(QLineEdit* field, KeyRules rules) {
    dropFormer(field);
    field->installEventFilter(new TextIntake(field, rules));
}

void TextIntake::attach(QPlainTextEdit* field, KeyRules rules) {
    dropFormer(field);
    auto* intake = new TextIntake(field, rules);
    field->installEventFilter(intake);
    field->viewport()->installEventFilter(intake);
}

TextIntake::TextIntake(QWidget* field, KeyRules rules)
    : QObject(field)
    , m_field(field)
    , m_line(qobject_cast<QLineEdit*>(field))
    , m_plain(qobject_cast<QPlainTextEdit*>(field))
    , m_rules(rules) {}

bool TextIntake::isReadOnly() const {
    return !m_field->isEnabled() || (m_line ? m_line->isReadOnly() : m_plain->isReadOnly());
}

void TextIntake::insert(const QString& raw) {
    QString text = raw;
    if (m_line)
        text.replace(QLatin1String("\r\n"), QLatin1String(" "))
            .replace(QLatin1Char('\n'), QLatin1Char(' '))
            .replace(QLatin1Char('\t'), QLatin1Char(' '));
    text = filtered(text, m_rules);
    if (text.isEmpty() || refuses(text))
        return;
    if (m_line)
        m_line->insert(text);
    else
        m_plain->insertPlainText(text);
}

/// Whole, not by its lost characters: "5" is another finding than "≥5".
bool TextIntake::refuses(const QString& text) {
    constexpr int shownMilliseconds = 10'000;
    const QString sentence = lostCharactersSentence(text);
    if (sentence.isEmpty())
        return false;
    QToolTip::showText(m_field->mapToGlobal(QPoint(0, m_field->height())), sentence, m_field, {},
                       shownMilliseconds);
    return true;
}

void TextIntake::moveCursorTo(const QPoint& position) {
    if (m_line)
        m_line->setCursorPosition(m_line->cursorPositionAt(position));
    else
        m_plain->setTextCursor(m_plain->cursorForPosition(position));
}

QMenu* TextIntake::standardMenu() const {
    return m_line ? m_line->createStandardContextMenu() : m_plain->createStandardContextMenu();
}

void TextIntake::showMenu(const QPoint& globalPosition) {
    QMenu* menu = standardMenu();
    // One kind of field names its actions, the other shows only the keys behind their captions.
    const QString keys =
        QLatin1Char('\t') + QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        const bool pastes =
            action->objectName() == QLatin1String("edit-paste") || action->text().endsWith(keys);
        if (!pastes)
            continue;
        action->disconnect();
        connect(action, &QAction::triggered, this, [this] { insert(QGuiApplication::clipboard()->text()); });
    }
    menu->popup(globalPosition);
}

bool TextIntake::key(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        insert(QGuiApplication::clipboard()->text());
        event->accept();
        return true;
    }
    if (!typesText(*event))
        return false;
    const QString text = filtered(event->text(), m_rules);
    if (refuses(text)) {
        event->accept();
        return true;
    }
    if (text == event->text())
        return false;
    event->accept();
    if (!text.isEmpty()) {
        // The field's own key handling takes it, so that undo, completion and subclasses work as ever.
        QKeyEvent typed(event->type(), event->key(), event->modifiers(), text, event->isAutoRepeat());
        static_cast<QObject*>(m_field)->event(&typed);
    }
    return true;
}

bool TextIntake::eventFilter(QObject* watched, QEvent* event) {
    if (isReadOnly())
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return watched == m_field && key(static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod: {
        auto* input = static_cast<QInputMethodEvent*>(event);
        if (watched == m_field) {
            const QString text = filtered(input->commitString(), m_rules);
            input->setCommitString(refuses(text) ? QString() : text, input->replacementStart(),
                                   input->replacementLength());
        }
        return false;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        if (drop->source() == watched || !drop->mimeData()->hasText())
            return false; // moved inside the field: it is in already
        moveCursorTo(drop->position().toPoint());
        insert(drop->mimeData()->text());
        drop->acceptProposedAction();
        return true;
    }
    case QEvent::MouseButtonRelease: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::MiddleButton || !QGuiApplication::clipboard()->supportsSelection())
            return false;
        moveCursorTo(mouse->position().toPoint());
        insert(QGuiApplication::clipboard()->text(QClipboard::Selection));
        return true;
    }
    case QEvent::ContextMenu:
        showMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    default:
        return false;
    }
}

} // namespace controls
