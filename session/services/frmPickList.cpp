#include "session/services/frmPickList.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "ui_frmPickList.h"

#include <QKeyEvent>
#include <QTimer>

namespace session {
namespace {

/// Long enough to let a word be typed, too short to be waited for.
constexpr int pauseMilliseconds = 150;
constexpr int firstRow = 1;
constexpr int twipsPerPixel = 15;
/// In a list, where the desktop has room for them, and where it has not.
constexpr int usualRows = 13, fewestRows = 4;

bool isNumber(PickFormat format) {
    return format == PickFormat::Amount || format == PickFormat::Quantity || format == PickFormat::Price;
}

} // namespace

frmPickList::frmPickList(const PickListing& listing, Search search, QWidget* parent)
    : Screen(parent)
    , m_ui(std::make_unique<Ui::frmPickList>())
    , m_listing(listing)
    , m_search(std::move(search))
    , m_pause(new QTimer(this)) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    m_pause->setSingleShot(true);
    m_pause->setInterval(pauseMilliseconds);
    controls::setKeyRules(m_ui->txtSearch,
                          controls::KeyRules(controls::KeyRule::UpperCase) | controls::KeyRule::BackQuote);
    m_ui->txtSearch->installEventFilter(this);
    controls::noteKeys(m_ui->txtSearch,
                       {{"Up, Down, PgUp, PgDown", "Choose a row of the list"}, {"Enter", "Takes the row"}});
    controls::noteKeys(m_ui->grdTable, {{"Enter", "Takes the row"}});
    controls::on(m_ui->txtSearch, &QLineEdit::textEdited, this, [this] { m_pause->start(); });
    controls::onEnter(m_ui->txtSearch, [this] { cmdSelect_Click(); });
    controls::on(m_pause, &QTimer::timeout, this, [this] { find(); });
    controls::on(m_ui->grdTable, &controls::FlexGrid::DblClick, this, [this] { cmdSelect_Click(); });
    controls::on(m_ui->grdTable, &controls::FlexGrid::EnterPressed, this, [this] { cmdSelect_Click(); });
    controls::on(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    controls::on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
}

frmPickList::~frmPickList() = default;

void frmPickList::setSearchText(const QString& text) {
    m_ui->txtSearch->setText(text);
}

void frmPickList::Form_Load() {
    setWindowTitle(QString::fromLatin1(m_listing.title));
    m_ui->header->setTitle(QString::fromLatin1(m_listing.title));
    m_ui->header->setSubtitle(gHospitalName);
    m_ui->txtSearch->setPlaceholderText(QString::fromLatin1(m_listing.hint));
    m_ui->grdTable->setEmptyText(QString::fromLatin1(m_listing.empty));
    controls::look::setPrimary(m_ui->cmdSelect);
    controls::look::setKind(m_ui->lblHits, QStringLiteral("help"));
    layOutGrid();
    find();
    m_ui->txtSearch->setFocus();
    m_ui->txtSearch->selectAll();
}

void frmPickList::layOutGrid() {
    QStringList captions;
    int width = 0;
    for (const PickColumn& column : m_listing.columns) {
        if (!column.caption)
            break;
        if (column.format == PickFormat::Price && !m_price)
            continue;
        m_columns.push_back(column);
        captions += (isNumber(column.format) ? QStringLiteral(">") : QStringLiteral("<")) +
                    QString::fromLatin1(column.caption);
        width += column.twips;
    }
    auto& grid = *m_ui->grdTable;
    grid.setFixedCols(0);
    grid.setFormatString(captions.join(u'|'));
    std::vector<int> widths;
    for (const PickColumn& column : m_columns)
        widths.push_back(column.twips);
    grid.setColWidths(widths);
    grid.setRowSelect(true);
    const auto heightOf = [](int rows) { return controls::look::scaled(27 * rows + 32); };
    grid.setMinimumSize(controls::look::scaled(width / twipsPerPixel + 40), heightOf(fewestRows));
    ensurePolished();
    layout()->activate();
    resize(minimumSizeHint() + QSize(0, heightOf(usualRows) - heightOf(fewestRows)));
}

// --- events

bool frmPickList::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_ui->txtSearch || event->type() != QEvent::KeyPress)
        return Screen::eventFilter(watched, event);
    bool taken = false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    controls::ErrorBoundary::guard([&] { taken = moveInGrid(key); });
    return taken;
}

/// The focus stays in the search box, so that typing goes on after a look at the rows.
bool frmPickList::moveInGrid(int key) {
    int step = 0;
    if (key == Qt::Key_Down)
        step = 1;
    else if (key == Qt::Key_Up)
        step = -1;
    else if (key == Qt::Key_PageDown)
        step = 10;
    else if (key == Qt::Key_PageUp)
        step = -10;
    else
        return false;
    const bool fresh = findWhatIsTyped();
    if (m_count > 0 && !fresh)
        m_ui->grdTable->setCurrentCell(qBound(firstRow, m_ui->grdTable->Row() + step, m_count), 0);
    return true;
}

void frmPickList::cmdSelect_Click() {
    // Right behind the last letter it must not take a row that nobody has seen yet, unless there is only one.
    if (findWhatIsTyped() && m_count != 1)
        return;
    const int row = chosenRow();
    if (row < 0)
        return;
    m_rows.MoveFirst();
    for (int i = 0; i < row; ++i)
        m_rows.MoveNext();
    Valid = true;
    Unload();
}

// --- queries

/// True when something was typed since the rows were found.
bool frmPickList::findWhatIsTyped() {
    if (!m_pause->isActive())
        return false;
    find();
    return true;
}

void frmPickList::find() {
    m_pause->stop();
    {
        const Hourglass busy;
        m_rows = m_search(m_ui->txtSearch->text());
    }
    m_count = m_rows.State() == ado::Recordset::adStateOpen ? m_rows.RecordCount() : 0;
    fillGrid();
    sayHits();
    m_ui->cmdSelect->setEnabled(m_count > 0);
}

void frmPickList::fillGrid() {
    auto& grid = *m_ui->grdTable;
    grid.setUpdatesEnabled(false);
    grid.setRows(firstRow);
    grid.setRows(firstRow + m_count);
    for (int row = 0; row < m_count; ++row) {
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            fillCell(firstRow + row, int(i), m_columns[i]);
        m_rows.MoveNext();
    }
    if (m_count > 0)
        grid.setCurrentCell(firstRow, 0);
    grid.setUpdatesEnabled(true);
}

void frmPickList::fillCell(int row, int at, const PickColumn& column) {
    m_ui->grdTable->setTextMatrix(row, at, cellText(column));
    if (column.format == PickFormat::Price)
        m_ui->grdTable->setCellBold(row, at, true);
}

QString frmPickList::cellText(const PickColumn& column) {
    if (column.format == PickFormat::Price)
        return priceText();
    const base::Value& value = m_rows.Fields(column.field).Value();
    switch (column.format) {
    case PickFormat::Date:
        return base::Format(value, QStringLiteral("mm/dd/yyyy"));
    case PickFormat::Amount:
        return base::Format(value, QStringLiteral("##,##0.00"));
    case PickFormat::Text:
    case PickFormat::Quantity:
    case PickFormat::Price:
        break;
    }
    return base::textOf(value);
}

/// A rate that is no number stops the line that takes it, not the list.
QString frmPickList::priceText() {
    try {
        return base::Format(m_price(m_rows), QStringLiteral("##,##0.00"));
    } catch (const base::RunTimeError&) {
        return {};
    }
}

void frmPickList::sayHits() {
    const QString many = QString::fromLatin1(m_listing.many);
    if (m_count == 0)
        m_ui->lblHits->setText(tr("No %1").arg(many));
    else if (m_count == 1)
        m_ui->lblHits->setText(tr("1 %1").arg(QString::fromLatin1(m_listing.one)));
    else if (m_count >= PickListing::mostRows)
        m_ui->lblHits->setText(tr("The first %1 %2. Type more to see others.").arg(m_count).arg(many));
    else
        m_ui->lblHits->setText(tr("%1 %2").arg(m_count).arg(many));
}

int frmPickList::chosenRow() const {
    const int row = m_ui->grdTable->Row() - firstRow;
    return row >= 0 && row < m_count ? row : -1;
}

} // namespace session
