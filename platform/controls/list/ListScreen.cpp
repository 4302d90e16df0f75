#include "platform/controls/list/ListScreen.h"

#include "platform/controls/fields/FieldLetter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListKeys.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>

namespace controls {

using EmptyRow = ListVariant::EmptyRow;
using NothingFound = ListVariant::NothingFound;
using Selectable = ListVariant::Selectable;

ListScreen::ListScreen(QWidget* parent) : Screen(parent) {}

ListScreen::~ListScreen() = default;

void ListScreen::setUpList(const Parts& parts, const ListVariant& variant) {
    m_parts = parts;
    m_variant = &variant;
    m_keys = parts.view ? std::make_unique<ListKeys>(parts.search, *parts.view)
                        : std::make_unique<ListKeys>(parts.search, *parts.grid);
    setEscapeCloses(true);
    if (parts.select)
        look::setPrimary(parts.select);
    if (parts.search) {
        setKeyRules(parts.search, variant.searchRules);
        giveLetter(*parts.search);
    }
    connectList();
}

void ListScreen::connectList() {
    const EmptyRow emptyRow = m_variant->emptyRow;
    on(m_keys.get(), &ListKeys::searchEntered, this, [this] { searchEntered(); });
    on(m_keys.get(), &ListKeys::rowEntered, this,
       [this, emptyRow] { takeRowIf(emptyRow == EmptyRow::Anything); });
    on(m_keys.get(), &ListKeys::rowDoubleClicked, this, [this] { takeRow(); });
    if (m_parts.searchBy)
        on(m_parts.searchBy, &QComboBox::activated, this, [this] { backToSearch(); });
    if (m_parts.find)
        on(m_parts.find, &QAbstractButton::clicked, this, [this] { searchEntered(); });
    if (m_parts.select) {
        on(m_parts.select, &QAbstractButton::clicked, this, [this] { takeRow(); });
        const QByteArray caption = m_parts.select->text().remove(u'&').trimmed().toLatin1();
        noteKeys(m_parts.view ? static_cast<QWidget*>(m_parts.view) : m_parts.grid,
                 {{"Enter", caption.constData()}});
    }
    if (m_parts.close)
        on(m_parts.close, &QAbstractButton::clicked, this, [this] { leave(); });
}

void ListScreen::Form_Load() {
    if (m_parts.grid)
        layOutGrid();
    if (m_parts.select && m_variant->selectable != Selectable::AsItStands)
        m_parts.select->setEnabled(false);
    if (m_parts.hits)
        m_parts.hits->clear();
    if (m_parts.search)
        sayInEmptyList(QStringLiteral("Enter lists the %1 that answer to the text above.")
                           .arg(QLatin1StringView(m_variant->many)));
    backToSearch();
}

void ListScreen::sayInEmptyList(const QString& sentence) {
    if (m_parts.view)
        m_parts.view->setEmptyText(sentence);
    else
        m_parts.grid->setEmptyText(sentence);
}

// ---- reading

void ListScreen::searchEntered() {
    search();
    backToSearch();
}

int ListScreen::bindRows(ado::Recordset& rows) {
    const int found = rows.RecordCount();
    const bool keeps = found == 0 && m_variant->nothingFound == NothingFound::KeepsRows;
    if (!keeps)
        m_parts.grid->setDataSource(rows);
    rows.Close();
    if (keeps)
        countRows(found);
    else
        setHits(found);
    return found;
}

void ListScreen::setHits(int found) {
    m_keys->setHits(found);
    if (m_parts.select && (found > 0 || m_variant->selectable == Selectable::WithRows) &&
        m_variant->selectable != Selectable::AsItStands)
        m_parts.select->setEnabled(found > 0);
    if (m_variant->emptyText)
        sayInEmptyList(QString::fromLatin1(m_variant->emptyText));
    countRows(found);
}

/// Says how many rows a search found, or that the list ends before they do.
void ListScreen::countRows(int found) {
    if (!m_parts.hits)
        return;
    const bool more = m_variant->most > 0 && found >= m_variant->most;
    QString told;
    if (more)
        told = QString::fromLatin1(m_variant->moreText).arg(m_variant->most);
    else if (found == 0)
        told = QStringLiteral("No %1 found.").arg(QLatin1StringView(m_variant->one));
    else
        told = QStringLiteral("%1 %2").arg(found).arg(
            QLatin1StringView(found == 1 ? m_variant->one : m_variant->many));
    if (found == 0 && hits() > 0)
        told += QStringLiteral(" The list is that of the search before.");
    m_parts.hits->setText(told);
    look::setKind(m_parts.hits, more ? QStringLiteral("warn") : QStringLiteral("help"));
}

int ListScreen::hits() const {
    return m_keys->hits();
}

void ListScreen::layOutGrid() {
    m_parts.grid->Clear();
    if (m_variant->format)
        m_parts.grid->setFormatString(QString::fromLatin1(m_variant->format));
    setWidths();
}

void ListScreen::setWidths() {
    const int columns = int(m_variant->widths.size());
    if (m_parts.grid->Cols() < columns)
        m_parts.grid->setCols(columns);
    m_parts.grid->setColWidths({m_variant->widths.begin(), m_variant->widths.end()});
}

void ListScreen::backToSearch() {
    m_keys->backToSearch();
}

// ---- taking a row

void ListScreen::takeRow() {
    takeRowIf(m_variant->emptyRow != EmptyRow::Nothing);
}

void ListScreen::takeRowIf(bool mayBeEmpty) {
    if (m_taking || (hits() == 0 && !mayBeEmpty))
        return;
    const QScopedValueRollback taking(m_taking, true);
    rowTaken();
    // The command that was pressed is done, or was refused: the next row is chosen on the list.
    if (!isUnloaded() && m_parts.select && m_parts.select->hasFocus())
        m_keys->toList();
}

void ListScreen::leave() {
    Unload();
}

QString ListScreen::cell(int column) const {
    return m_parts.grid->TextMatrix(m_parts.grid->Row(), column);
}

QStringList ListScreen::currentCells() const {
    QStringList cells;
    for (int column = 0; column < m_parts.grid->Cols(); ++column)
        cells += cell(column);
    return cells;
}

} // namespace controls
