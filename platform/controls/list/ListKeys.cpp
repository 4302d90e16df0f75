#include "platform/controls/list/ListKeys.h"

#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/Screen.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace controls {

namespace {

/// Goes to the search box: what it types, or takes away there.
bool editsText(const QKeyEvent& event) {
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return typesText(event) || (event.key() == Qt::Key_Backspace && !(event.modifiers() & commands));
}

} // namespace

ListKeys::ListKeys(QLineEdit* search, FlexGrid& grid)
    : m_search(search)
    , m_list(grid)
    , m_isOnFirstRow([&grid] { return grid.Row() <= grid.FixedRows(); })
    , m_goToFirstRow([&grid] { grid.setCurrentCell(grid.FixedRows(), grid.FixedCols()); }) {
    grid.setRowSelect(true);
    watch(grid);
}

ListKeys::ListKeys(QLineEdit* search, ListView& view)
    : m_search(search)
    , m_list(view)
    , m_isOnFirstRow([&view] { return view.currentIndex().row() <= 0; })
    , m_goToFirstRow([&view] {
        if (view.Count() > 0)
            view.select(view.Item(1));
    }) {
    watch(view);
}

template <typename List>
void ListKeys::watch(List& list) {
    on(&list, &List::KeyDown, this, [this](QKeyEvent* event) { listKey(*event); });
    on(&list, &List::EnterPressed, this, [this] { Q_EMIT rowEntered(); });
    on(&list, &List::DblClick, this, [this] { Q_EMIT rowDoubleClicked(); });
    if (!m_search)
        return;
    noteKeys(m_search, {{"Enter", "Searches"}, {"Down", "To the list"}});
    noteKeys(&list,
             {{"Up", "On the first row: back to the search box"}, {"Letters, digits", "A new search text"}});
    m_search->installEventFilter(this);
    on(m_search, &QLineEdit::returnPressed, this, [this] { Q_EMIT searchEntered(); });
}

void ListKeys::backToSearch() {
    if (!m_search) {
        m_list.setFocus();
        return;
    }
    m_search->setFocus();
    SelectAllText(m_search);
}

void ListKeys::toList() {
    m_list.setFocus();
}

bool ListKeys::eventFilter(QObject* watched, QEvent* event) {
    bool taken = false;
    if (watched == m_search && event->type() == QEvent::KeyPress)
        ErrorBoundary::guard([&] { taken = searchKey(static_cast<const QKeyEvent&>(*event)); });
    return taken || QObject::eventFilter(watched, event);
}

bool ListKeys::searchKey(const QKeyEvent& event) {
    if (event.key() != Qt::Key_Down)
        return isHeldEnter(event);
    if (m_hits > 0) {
        m_goToFirstRow();
        m_list.setFocus();
    }
    return true;
}

void ListKeys::listKey(QKeyEvent& event) {
    if (!m_search)
        return;
    if (event.key() == Qt::Key_Up && m_isOnFirstRow()) {
        backToSearch();
        event.accept();
    } else if (editsText(event)) {
        backToSearch();
        QKeyEvent typed(event.type(), event.key(), event.modifiers(), event.text());
        QCoreApplication::sendEvent(m_search, &typed);
        event.accept();
    }
}

} // namespace controls
