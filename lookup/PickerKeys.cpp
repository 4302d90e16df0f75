#include "lookup/PickerKeys.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/Screen.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace lookup {

namespace {

/// The TOP of the patient searches.
constexpr int mostPatients = 200;

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isTyping(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    return event.key() == Qt::Key_Backspace || (!event.text().isEmpty() && event.text().at(0).isPrint());
}

} // namespace

PickerKeys::PickerKeys(QLineEdit& search, controls::FlexGrid& grid) : m_search(search), m_grid(grid) {
    m_grid.setRowSelect(true);
    m_search.installEventFilter(this);
    controls::on(&m_search, &QLineEdit::returnPressed, this, [this] { Q_EMIT searchEntered(); });
    controls::on(&m_grid, &controls::FlexGrid::KeyDown, this, [this](QKeyEvent* event) { gridKey(*event); });
    const auto choose = [this] {
        if (m_hits > 0)
            Q_EMIT rowEntered();
    };
    controls::on(&m_grid, &controls::FlexGrid::EnterPressed, this, choose);
    controls::on(&m_grid, &controls::FlexGrid::DblClick, this, choose);
}

QString PickerKeys::hitsText(int hits, const QString& one, const QString& many) {
    if (hits == 0)
        return QStringLiteral("No %1 found.").arg(one);
    return QStringLiteral("%1 %2").arg(hits).arg(hits == 1 ? one : many);
}

void PickerKeys::showPatientHits(QLabel& line, int hits) {
    const bool more = hits >= mostPatients;
    line.setText(more
                     ? QStringLiteral("Only the first %1 are shown: type more of the name.").arg(mostPatients)
                     : hitsText(hits, QStringLiteral("patient"), QStringLiteral("patients")));
    controls::look::setKind(&line, more ? QStringLiteral("warn") : QStringLiteral("help"));
}

QStringList PickerKeys::currentCells() const {
    QStringList cells;
    for (int column = 0; column < m_grid.Cols(); ++column)
        cells += m_grid.TextMatrix(m_grid.Row(), column);
    return cells;
}

void PickerKeys::backToSearch() {
    m_search.setFocus();
    controls::SelectAllText(&m_search);
}

bool PickerKeys::eventFilter(QObject* watched, QEvent* event) {
    bool taken = false;
    if (watched == &m_search && event->type() == QEvent::KeyPress)
        controls::ErrorBoundary::guard([&] { taken = searchKey(static_cast<const QKeyEvent&>(*event)); });
    return taken || QObject::eventFilter(watched, event);
}

bool PickerKeys::searchKey(const QKeyEvent& event) {
    if (isEnter(event))
        return event.isAutoRepeat();
    if (event.key() != Qt::Key_Down)
        return false;
    if (m_hits > 0) {
        m_grid.setCurrentCell(m_grid.FixedRows(), m_grid.FixedCols());
        m_grid.setFocus();
    }
    return true;
}

void PickerKeys::gridKey(QKeyEvent& event) {
    if (isEnter(event) && event.isAutoRepeat()) {
        event.accept();
    } else if (event.key() == Qt::Key_Up && m_grid.Row() <= m_grid.FixedRows()) {
        backToSearch();
        event.accept();
    } else if (isTyping(event)) {
        backToSearch();
        QKeyEvent typed(event.type(), event.key(), event.modifiers(), event.text());
        QCoreApplication::sendEvent(&m_search, &typed);
        event.accept();
    }
}

} // namespace lookup
