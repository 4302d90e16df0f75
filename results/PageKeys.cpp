#include "results/PageKeys.h"

#include "platform/controls/screen/Connect.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QWheelEvent>

#include <vector>

namespace results {

namespace {

/// The tabs that `widget` is a page of; null for anything else.
QTabWidget* tabsOfPage(const QWidget* widget) {
    QWidget* stack = widget->parentWidget();
    auto* tabs = stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
    return tabs && tabs->indexOf(const_cast<QWidget*>(widget)) >= 0 ? tabs : nullptr;
}

bool takesTab(const QWidget& widget, const QWidget& part) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isEnabled() &&
           widget.isVisibleTo(&part) && !widget.focusProxy();
}

/// What Tab reaches below `part`, or would reach if it were shown, in the window's order.
std::vector<QWidget*> stopsIn(QWidget& window, const QWidget& part) {
    std::vector<QWidget*> stops;
    for (QWidget* widget = window.nextInFocusChain(); widget && widget != &window;
         widget = widget->nextInFocusChain()) {
        if (part.isAncestorOf(widget) && takesTab(*widget, part))
            stops.push_back(widget);
    }
    return stops;
}

/// From page to page until one has a field to stop at.
bool stepPage(QWidget& window, QTabWidget& tabs, int step) {
    for (int index = tabs.currentIndex() + step; index >= 0 && index < tabs.count(); index += step) {
        for (auto* inner : tabs.widget(index)->findChildren<QTabWidget*>())
            inner->setCurrentIndex(step > 0 ? 0 : inner->count() - 1);
        const std::vector<QWidget*> stops = stopsIn(window, *tabs.widget(index));
        if (stops.empty())
            continue;
        tabs.setCurrentIndex(index);
        QWidget* stop = step > 0 ? stops.front() : stops.back();
        stop->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return false;
}

bool scrollDisabledMemo(QWidget& window, QAbstractSlider::SliderAction action) {
    for (auto* memo : window.findChildren<QPlainTextEdit*>()) {
        if (memo->isVisible() && !memo->isEnabled()) {
            memo->verticalScrollBar()->triggerAction(action);
            return true;
        }
    }
    return false;
}

} // namespace

bool stepOverPages(QWidget& window, bool next) {
    QWidget* focus = window.focusWidget();
    for (QWidget* page = focus; page && page != &window; page = page->parentWidget()) {
        QTabWidget* tabs = tabsOfPage(page);
        if (!tabs)
            continue;
        const std::vector<QWidget*> stops = stopsIn(window, *page);
        if (!stops.empty() && focus != (next ? stops.back() : stops.front()))
            return false;
        if (stepPage(window, *tabs, next ? 1 : -1))
            return true;
    }
    return false;
}

bool pageKey(QWidget& window, const QKeyEvent& event) {
    const int key = event.key();
    const bool down = key == Qt::Key_PageDown;
    if (event.modifiers() == Qt::NoModifier && (down || key == Qt::Key_PageUp))
        return scrollDisabledMemo(window, down ? QAbstractSlider::SliderPageStepAdd
                                               : QAbstractSlider::SliderPageStepSub);
    auto* tabs = window.findChild<QTabWidget*>();
    if (!tabs || !event.modifiers().testFlag(Qt::ControlModifier))
        return false;
    const bool back = key == Qt::Key_Backtab || key == Qt::Key_PageUp;
    if (!back && !down && key != Qt::Key_Tab)
        return false;
    tabs->setCurrentIndex((tabs->currentIndex() + (back ? tabs->count() - 1 : 1)) % tabs->count());
    return true;
}

bool focusPage(QWidget& window, QTabWidget& tabs) {
    const QWidget* page = tabs.currentWidget();
    if (!page || page->isAncestorOf(window.focusWidget()))
        return page;
    const std::vector<QWidget*> stops = stopsIn(window, *page);
    if (!stops.empty())
        stops.front()->setFocus();
    return !stops.empty();
}

void keepFocusOnPages(QWidget& window, QTabWidget& tabs, QWidget& otherwise) {
    controls::on(&tabs, &QTabWidget::currentChanged, &window, [&window, &tabs, &otherwise] {
        // What the tabs do when a page has no field that takes the focus: the page itself has it.
        if (window.focusWidget() == tabs.currentWidget())
            otherwise.setFocus();
    });
}

void scrollDisabled(QPlainTextEdit& memo, const QWheelEvent& event) {
    constexpr int linesOfANotch = 3;
    QScrollBar* bar = memo.verticalScrollBar();
    bar->setValue(bar->value() - event.angleDelta().y() * linesOfANotch / QWheelEvent::DefaultDeltasPerStep);
}

void focusOnItsPage(QWidget& field) {
    for (QWidget* page = &field; page; page = page->parentWidget()) {
        if (QTabWidget* tabs = tabsOfPage(page))
            tabs->setCurrentWidget(page);
    }
    field.setFocus();
}

} // namespace results
