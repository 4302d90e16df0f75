#include "menu/DonePanel.h"

#include "menu/MenuTable.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace menu {

namespace {

enum Column { time, what, number, patient, enter, columnCount };

/// The captions and one row: with less there is no list.
constexpr int rowsToShow = 2;
constexpr int rowHeight = 28;
constexpr int gapAbove = 12; // of its own: where there is no list the commands need all the height

} // namespace

DonePanel::DonePanel(QWidget* parent)
    : QWidget(parent)
    , m_card(new QFrame(this))
    , m_heading(new QLabel(m_card))
    , m_hint(new QLabel(m_card))
    , m_list(new controls::FlexGrid(m_card)) {
    m_card->setObjectName("fraDone");
    m_card->setProperty("kind", "card");
    m_heading->setText(QStringLiteral("Done since the log-on"));
    m_heading->setProperty("kind", "heading");
    m_hint->setObjectName("lblDone");
    m_hint->setProperty("kind", "help");
    m_list->setObjectName("grdDone");
    m_list->setAccessibleName(m_heading->text());
    m_list->setFixedCols(0);
    m_list->setFormatString(QStringLiteral("Time|Done|No.|Patient|Enter"));
    m_list->setColWidths({1200, 2100, 1300, 2300, 900});
    m_list->setStretchColumn(patient);
    m_list->setRowSelect(true);
    m_list->setEmptyText(QStringLiteral("What you save and cancel is listed here until you log off."));
    auto* line = new QHBoxLayout;
    line->addWidget(m_heading);
    line->addStretch();
    line->addWidget(m_hint);
    auto* column = new QVBoxLayout(m_card);
    const int edge = controls::look::scaled(12);
    column->setContentsMargins(edge, edge, edge, edge);
    column->setSpacing(controls::look::scaled(6));
    column->addLayout(line);
    column->addWidget(m_list, 1);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    controls::on(m_list, &controls::FlexGrid::EnterPressed, this, [this] { takeRow(); });
    controls::on(m_list, &controls::FlexGrid::DblClick, this, [this] { takeRow(); });
    controls::on(m_list, &controls::FlexGrid::RowColChange, this, [this] { showWhatEnterDoes(); });
    controls::on(&session::workTeller(), &session::WorkTeller::Changed, this, [this] { refresh(); });
    refresh();
}

void DonePanel::refresh() {
    const std::deque<session::WorkDone>& done = session::workDone();
    m_list->setRows(int(done.size()) + 1);
    for (std::size_t i = 0; i < done.size(); ++i) {
        const WorkRow& row = workRow(done[i].work);
        const auto fill = [&](Column column, const QString& text) {
            m_list->setTextMatrix(int(i) + 1, column, text);
        };
        fill(time, base::Format(done[i].at, QStringLiteral("hh:mm AM/PM")));
        fill(what, QString::fromLatin1(row.text));
        fill(number, done[i].number);
        fill(patient, done[i].patient);
        fill(enter, QString::fromLatin1(row.again));
    }
    if (!done.empty())
        m_list->setCurrentCell(1, 0);
    showWhatEnterDoes();
}

bool DonePanel::enterList() {
    if (!m_list->isVisible())
        return false;
    m_list->setFocus(Qt::ShortcutFocusReason);
    return true;
}

/// The list may change while what was taken is shown.
void DonePanel::takeRow() {
    const std::size_t row = std::size_t(m_list->Row() - 1);
    if (row >= session::workDone().size())
        return;
    const session::WorkDone done = session::workDone()[row];
    if (*workRow(done.work).again)
        Q_EMIT again(done);
}

void DonePanel::showWhatEnterDoes() {
    const std::size_t row = std::size_t(m_list->Row() - 1);
    const QString brings = row < session::workDone().size()
                               ? QString::fromLatin1(workRow(session::workDone()[row].work).again)
                               : QString();
    QString hint = QStringLiteral("V goes to the list");
    if (!brings.isEmpty())
        hint += QStringLiteral(", Enter shows the %1 again").arg(brings.toLower());
    m_hint->setText(hint);
}

void DonePanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QMargins edges = m_card->layout()->contentsMargins();
    const int needed = edges.top() + edges.bottom() + m_heading->sizeHint().height() +
                       m_card->layout()->spacing() + controls::look::scaled(rowsToShow * rowHeight);
    const QRect place = rect().adjusted(0, controls::look::scaled(gapAbove), 0, 0);
    m_card->setGeometry(place);
    m_card->setVisible(place.height() >= needed);
}

} // namespace menu
