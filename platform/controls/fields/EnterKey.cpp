#include "platform/controls/fields/EnterKey.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/screen/ErrorBoundary.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace controls {

namespace {

class EnterKey : public QObject {
  public:
    EnterKey(QWidget* field, std::function<void()> handler) : QObject(field), m_handler(std::move(handler)) {
        field->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (!plain || !isEnter(key))
            return false;
        if (!key.isAutoRepeat())
            ErrorBoundary::guard(m_handler);
        return true;
    }

  private:
    std::function<void()> m_handler;
};

class HeldKeys : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->isAutoRepeat();
    }
};

} // namespace

void onEnter(QWidget* field, std::function<void()> handler) {
    new EnterKey(field, std::move(handler));
}

void sendTab(QWidget* from) {
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
    QCoreApplication::sendEvent(from, &tab);
}

void enterMovesOn(std::initializer_list<QWidget*> fields) {
    for (QWidget* field : fields)
        onEnter(field, [field] { sendTab(field); });
}

void ignoreHeldKeys(QWidget* widget) {
    widget->installEventFilter(new HeldKeys(widget));
}

} // namespace controls
