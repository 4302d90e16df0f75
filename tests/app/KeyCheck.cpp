#include "tests/app/KeyCheck.h"

#include "platform/controls/fields/KeyNotes.h"
#include "tests/app/RoomCheck.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QSet>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace tests {

namespace {

QString plain(QString caption) {
    return caption.remove(u'&').simplified();
}

QString told(const QKeySequence& keys) {
    return keys.toString(QKeySequence::PortableText);
}

QString spokenNameOf(QWidget& widget) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
    const QString name = face ? face->text(QAccessible::Name) : QString();
    return plain(name.isEmpty() ? widget.objectName() : name);
}

/// Shown now, or in another mode of the screen; what a page of tabs behind holds is shown with that page.
bool isOnThisPage(const QWidget& widget) {
    for (const QWidget* part = &widget; part->parentWidget() && !part->isWindow();
         part = part->parentWidget()) {
        const auto* pages = qobject_cast<const QStackedWidget*>(part->parentWidget());
        if (pages && pages->indexOf(const_cast<QWidget*>(part)) >= 0 && pages->currentWidget() != part)
            return false;
    }
    return true;
}

/// Gathers what the window answers on its page, in all of its modes.
class Gatherer {
  public:
    explicit Gatherer(QWidget& window) : m_window(window) {}
    QList<AnsweredKey> gather() {
        note(m_window, {});
        for (QAction* action : m_window.actions())
            shortcut(*action);
        for (QWidget* widget : m_window.findChildren<QWidget*>()) {
            if (isOnThisPage(*widget) && widget->window() == &m_window && !isInnerPart(*widget))
                look(*widget);
        }
        return m_keys;
    }

  private:
    void look(QWidget& widget) {
        if (auto* button = qobject_cast<QAbstractButton*>(&widget))
            pressed(*button);
        else if (auto* label = qobject_cast<QLabel*>(&widget))
            ledTo(*label);
        else if (auto* group = qobject_cast<QGroupBox*>(&widget))
            add(QKeySequence::mnemonic(group->title()), QStringLiteral("To ") + plain(group->title()),
                widget);
        else if (auto* tabs = qobject_cast<QTabBar*>(&widget))
            turned(*tabs);
        else if (auto* bar = qobject_cast<QMenuBar*>(&widget))
            opened(bar->actions(), true);
        for (QAction* action : widget.actions()) {
            if (!qobject_cast<QMenuBar*>(&widget))
                shortcut(*action);
        }
        note(widget, spokenNameOf(widget));
    }
    void pressed(QAbstractButton& button) {
        const QString caption = plain(button.text()).isEmpty() ? spokenNameOf(button) : plain(button.text());
        add(button.shortcut(), caption, button);
    }
    void ledTo(QLabel& label) {
        if (label.buddy())
            add(QKeySequence::mnemonic(label.text()), QStringLiteral("To ") + plain(label.text()),
                *label.buddy());
    }
    void turned(QTabBar& tabs) {
        for (int tab = 0; tab < tabs.count(); ++tab)
            add(QKeySequence::mnemonic(tabs.tabText(tab)), QStringLiteral("Page ") + plain(tabs.tabText(tab)),
                tabs);
    }
    /// The letters of the inner menus work in them alone.
    void opened(const QList<QAction*>& items, bool onTheBar) {
        for (QAction* item : items) {
            if (!item->isVisible())
                continue;
            if (onTheBar)
                addSequence(QKeySequence::mnemonic(item->text()),
                            QStringLiteral("Menu ") + plain(item->text()), item->objectName());
            if (item->menu())
                opened(item->menu()->actions(), false);
            else
                shortcut(*item);
        }
    }
    void shortcut(QAction& action) {
        for (const QKeySequence& keys : action.shortcuts())
            addSequence(keys, plain(action.text()), action.objectName());
    }
    void note(QWidget& widget, const QString& where) {
        for (const auto& [keys, does] : controls::notedKeys(widget))
            m_keys << AnsweredKey{keys, where, does, widget.objectName()};
    }
    void add(const QKeySequence& keys, const QString& does, QWidget& widget) {
        addSequence(keys, does, widget.objectName());
    }
    void addSequence(const QKeySequence& keys, const QString& does, const QString& answerer) {
        if (!keys.isEmpty())
            m_keys << AnsweredKey{told(keys), {}, does, answerer};
    }

    QWidget& m_window;
    QList<AnsweredKey> m_keys;
};

bool areOne(const AnsweredKey& a, const AnsweredKey& b) {
    return a.keys == b.keys && a.where == b.where && a.does == b.does && a.answerer == b.answerer;
}

/// Has to be reached: can be typed in, pressed or chosen from.
bool wantsKeys(const QWidget& widget) {
    if (!widget.isVisible() || !widget.isEnabled() || isInnerPart(widget))
        return false;
    if (const auto* button = qobject_cast<const QToolButton*>(&widget);
        button && button->defaultAction() && !button->defaultAction()->shortcut().isEmpty())
        return false;
    if (qobject_cast<const QAbstractButton*>(&widget))
        return true;
    if (widget.property("readOnly").toBool())
        return false;
    return widget.focusPolicy() != Qt::NoFocus && !widget.isWindow();
}

/// Pressing Tab long enough; the window is left as it is reached again.
QSet<QWidget*> tabbedThrough(QWidget& window) {
    QSet<QWidget*> reached;
    const qsizetype most = 2 * window.findChildren<QWidget*>().size();
    int without = 0;
    constexpr int roundsWithoutNews = 12;
    for (qsizetype press = 0; press < most && without < roundsWithoutNews; ++press) {
        QWidget* now = QApplication::focusWidget();
        if (!now || now->window() != &window)
            break;
        without = reached.contains(now) ? without + 1 : 0;
        reached << now;
        QTest::keyClick(now, Qt::Key_Tab);
    }
    return reached;
}

bool isReached(const QWidget& widget, const QSet<QWidget*>& reached) {
    for (const QWidget* one : reached) {
        if (one == &widget || widget.isAncestorOf(one) || one->focusProxy() == &widget)
            return true;
        const auto* mine = qobject_cast<const QRadioButton*>(&widget);
        if (mine && qobject_cast<const QRadioButton*>(one) && one->parentWidget() == mine->parentWidget())
            return true; // the arrows lead from one to the other
    }
    return false;
}

} // namespace

bool isInnerPart(const QWidget& widget) {
    if (widget.objectName().startsWith(QLatin1String("qt_")))
        return true;
    const QWidget* above = widget.parentWidget();
    return qobject_cast<const QComboBox*>(above) || qobject_cast<const QAbstractSpinBox*>(above) ||
           qobject_cast<const QTabBar*>(above) || qobject_cast<const QMenuBar*>(above) ||
           qobject_cast<const QAbstractItemView*>(above) ||
           (qobject_cast<const QAbstractScrollArea*>(above) &&
            static_cast<const QAbstractScrollArea*>(above)->viewport() == &widget) ||
           above->inherits("QLineEdit");
}

QList<AnsweredKey> answeredKeys(QWidget& window) {
    QList<AnsweredKey> all;
    turnAllPages(window, [&] {
        for (const AnsweredKey& key : Gatherer(window).gather()) {
            if (std::none_of(all.begin(), all.end(), [&](const auto& before) { return areOne(before, key); }))
                all << key;
        }
    });
    return all;
}

QStringList clashingKeys(QWidget& window) {
    QSet<QString> lines;
    turnAllPages(window, [&] {
        QMap<QString, QStringList> answerers;
        for (const AnsweredKey& key : Gatherer(window).gather()) {
            if (key.where.isEmpty() && !answerers[key.keys].contains(key.answerer))
                answerers[key.keys] << key.answerer;
        }
        for (auto [keys, names] : answerers.asKeyValueRange()) {
            if (names.size() > 1)
                lines << keys + QStringLiteral(": ") + names.join(QStringLiteral(", "));
        }
    });
    QStringList sorted(lines.begin(), lines.end());
    sorted.sort();
    return sorted;
}

QStringList notReachedByKeys(QWidget& window) {
    QSet<QString> lines;
    turnAllPages(window, [&] {
        if (QWidget* now = QApplication::focusWidget(); !now || now->window() != &window || !now->isVisible())
            window.setFocus();
        const QSet<QWidget*> reached = tabbedThrough(window);
        QStringList byKey;
        for (const AnsweredKey& key : Gatherer(window).gather())
            byKey << key.answerer;
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            if (wantsKeys(*widget) && widget->window() == &window && !isReached(*widget, reached) &&
                !byKey.contains(widget->objectName()))
                lines << QString::fromLatin1(widget->metaObject()->className()) + u' ' + widget->objectName();
        }
    });
    QStringList sorted(lines.begin(), lines.end());
    sorted.sort();
    return sorted;
}

} // namespace tests
