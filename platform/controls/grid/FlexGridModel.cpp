#include "platform/controls/grid/FlexGridModel.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"

#include <QFont>

namespace controls {

namespace {

constexpr Qt::Alignment usual = Qt::AlignLeft | Qt::AlignVCenter;

/// A text that is set, though it may have no characters.
QString present(const QString& text) {
    return text.isNull() ? QStringLiteral("") : text;
}

} // namespace

FlexGridModel::FlexGridModel(QObject* parent) : QAbstractTableModel(parent) {
    m_rows.resize(2);
}

void FlexGridModel::setRows(int count) {
    const int present = rows();
    if (count == present)
        return;
    // Fixed rows are no rows of the view; a change among them concerns its header only.
    const int shown = qMax(0, count - m_fixedRows);
    const int shownBefore = rowCount();
    if (shown > shownBefore)
        beginInsertRows({}, shownBefore, shown - 1);
    else if (shown < shownBefore)
        beginRemoveRows({}, shown, shownBefore - 1);
    m_rows.resize(std::size_t(count));
    if (shown > shownBefore)
        endInsertRows();
    else if (shown < shownBefore)
        endRemoveRows();
}

void FlexGridModel::setColumns(int count) {
    if (count == m_columns)
        return;
    beginResetModel();
    m_columns = count;
    for (Row& row : m_rows) {
        if (int(row.texts.size()) > count)
            row.texts.resize(std::size_t(count));
        if (row.formats)
            row.formats->erase(row.formats->lower_bound(count), row.formats->end());
    }
    endResetModel();
}

void FlexGridModel::setFixed(int fixedRows, int fixedColumns) {
    if (fixedRows == m_fixedRows && fixedColumns == m_fixedColumns)
        return;
    beginResetModel();
    m_fixedRows = fixedRows;
    m_fixedColumns = fixedColumns;
    endResetModel();
}

QString FlexGridModel::text(int row, int column) const {
    const Row& cells = m_rows[std::size_t(row)];
    if (column < int(cells.texts.size()) && !cells.texts[std::size_t(column)].isNull())
        return cells.texts[std::size_t(column)];
    const int field = column - m_fixedColumns;
    if (cells.source < 0 || field < 0 || field >= int(m_source.columns.size()))
        return {};
    return base::textOf(m_source.at(cells.source, field));
}

void FlexGridModel::setText(int row, int column, const QString& text) {
    std::vector<QString>& texts = m_rows[std::size_t(row)].texts;
    if (int(texts.size()) <= column)
        texts.resize(std::size_t(column) + 1);
    texts[std::size_t(column)] = present(text);
    changed(row, column);
}

void FlexGridModel::insertRow(int index, const QStringList& cells) {
    const bool shown = index >= m_fixedRows;
    if (shown)
        beginInsertRows({}, index - m_fixedRows, index - m_fixedRows);
    Row row;
    for (qsizetype i = 0; i < qMin(cells.size(), qsizetype(m_columns)); ++i)
        row.texts.push_back(present(cells[i]));
    m_rows.insert(m_rows.begin() + index, std::move(row));
    if (shown)
        endInsertRows();
}

void FlexGridModel::removeRow(int row) {
    beginRemoveRows({}, row - m_fixedRows, row - m_fixedRows);
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
}

void FlexGridModel::clear() {
    const std::size_t count = m_rows.size();
    m_rows.clear();
    m_rows.resize(count);
    m_source = {};
    if (rowCount() > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    if (columnCount() > 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    if (rowCount() > 0)
        Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

void FlexGridModel::bind(const ado::Rows& source, int columns) {
    beginResetModel();
    m_source = source;
    m_columns = columns;
    const int records = int(m_source.count());
    m_rows.resize(std::size_t(m_fixedRows));
    m_rows.resize(std::size_t(m_fixedRows + qMax(1, records)));
    for (int record = 0; record < records; ++record)
        m_rows[std::size_t(m_fixedRows + record)].source = record;
    endResetModel();
}

bool FlexGridModel::rowIsEmpty(int row) const {
    for (int column = 0; column < m_columns; ++column)
        if (!text(row, column).isEmpty())
            return false;
    return true;
}

CellFormat FlexGridModel::format(int row, int column) const {
    const Row& cells = m_rows[std::size_t(row)];
    if (!cells.formats)
        return {};
    const auto found = cells.formats->find(column);
    return found == cells.formats->end() ? CellFormat() : found->second;
}

void FlexGridModel::setFormat(int row, int column, const CellFormat& format) {
    Row& cells = m_rows[std::size_t(row)];
    if (!cells.formats)
        cells.formats = std::make_unique<std::map<int, CellFormat>>();
    (*cells.formats)[column] = format;
    changed(row, column);
}

void FlexGridModel::setAlignment(int column, Qt::Alignment alignment) {
    if (int(m_alignments.size()) <= column)
        m_alignments.resize(std::size_t(column) + 1, usual);
    m_alignments[std::size_t(column)] = alignment | Qt::AlignVCenter;
    const int shown = column - headerColumns();
    if (shown < 0 || shown >= columnCount())
        return;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, shown), index(rowCount() - 1, shown));
    Q_EMIT headerDataChanged(Qt::Horizontal, shown, shown);
}

Qt::Alignment FlexGridModel::alignment(int column) const {
    return column < int(m_alignments.size()) ? m_alignments[std::size_t(column)] : usual;
}

bool FlexGridModel::holdsValues(int column) const {
    const int field = column - m_fixedColumns;
    if (alignment(column).testFlag(Qt::AlignRight))
        return true;
    if (field < 0 || field >= int(m_source.columns.size()))
        return false;
    const ado::DataType type = m_source.columns[std::size_t(field)].type;
    return type != ado::DataType::Text && type != ado::DataType::Bit;
}

void FlexGridModel::setShowRowNumbers(bool show) {
    m_showRowNumbers = show;
    if (rowCount() > 0)
        Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

void FlexGridModel::changed(int row, int column) {
    const int shownRow = row - m_fixedRows;
    const int shownColumn = column - headerColumns();
    if (shownRow < 0 && shownColumn >= 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, shownColumn, shownColumn);
    else if (shownRow >= 0 && shownColumn < 0)
        Q_EMIT headerDataChanged(Qt::Vertical, shownRow, shownRow);
    else if (shownRow >= 0)
        Q_EMIT dataChanged(index(shownRow, shownColumn), index(shownRow, shownColumn));
}

int FlexGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : qMax(0, rows() - m_fixedRows);
}

int FlexGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : qMax(0, m_columns - headerColumns());
}

Qt::ItemFlags FlexGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid() || columnOf(index) < m_fixedColumns)
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

/// What a picture says, for those who do not see it; "" for none.
static QString wordOf(const QIcon& icon) {
    static constexpr std::pair<const char*, const char*> words[] = {
        {"checked", "Selected"}, {"crossed", "Un-used"}, {"cancel", "Stop"}, {"warning", "Warning"}};
    const QString name = icon.name();
    for (const auto& [picture, word] : words) {
        if (name == QLatin1StringView(picture))
            return QString::fromLatin1(word);
    }
    return name;
}

QVariant FlexGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const int row = rowOf(index);
    const int column = columnOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return column == 0 ? numberedText(row) : shownText(row, column);
    case Qt::TextAlignmentRole:
        return QVariant(alignment(column));
    case Qt::ForegroundRole:
        if (const QColor color = format(row, column).foreColor; color.isValid())
            return color;
        return {};
    case Qt::BackgroundRole:
        if (const QColor color = format(row, column).backColor; color.isValid())
            return color;
        return {};
    case Qt::FontRole:
        if (format(row, column).bold) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::DecorationRole:
        if (const QIcon icon = format(row, column).icon; !icon.isNull())
            return icon;
        return {};
    case Qt::AccessibleTextRole:
        if (const QString shown = data(index, Qt::DisplayRole).toString(); !shown.isEmpty())
            return shown;
        return wordOf(format(row, column).icon);
    case Qt::AccessibleDescriptionRole:
        return wordOf(format(row, column).icon);
    default:
        return {};
    }
}

/// A bound date is shown in the one form of all lists; its text stays what the row gave.
QString FlexGridModel::shownText(int row, int column) const {
    const Row& cells = m_rows[std::size_t(row)];
    const int field = column - m_fixedColumns;
    const bool own = column < int(cells.texts.size()) && !cells.texts[std::size_t(column)].isNull();
    if (own || cells.source < 0 || field < 0 || field >= int(m_source.columns.size()))
        return text(row, column);
    const base::Value& value = m_source.at(cells.source, field);
    const base::DateTime* moment = value.asDateTime();
    if (!moment)
        return text(row, column);
    const bool dayOnly = base::dateOnly(*moment) == *moment;
    return base::Format(value,
                        dayOnly ? QStringLiteral("mm/dd/yyyy") : QStringLiteral("mm/dd/yyyy hh:mm AM/PM"));
}

QString FlexGridModel::headerText(int column) const {
    QStringList lines;
    for (int row = 0; row < qMin(m_fixedRows, rows()); ++row)
        lines << text(row, column).trimmed();
    return lines.join(QLatin1Char('\n'));
}

QString FlexGridModel::numberedText(int row) const {
    const QString own = text(row, 0);
    return own.isEmpty() && m_showRowNumbers ? QString::number(row - m_fixedRows + 1) : own;
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool across = orientation == Qt::Horizontal;
    const int column = across ? section + headerColumns() : 0;
    const int row = across ? 0 : section + m_fixedRows;
    if (section < 0 || column >= m_columns || row >= rows())
        return {};
    if (role == Qt::DisplayRole)
        return across ? headerText(column) : numberedText(row);
    if (role == Qt::SizeHintRole)
        return QSize(0, 0); // the grid gives its headers their size, and no caption is measured for it
    if (role == Qt::TextAlignmentRole)
        // Row numbers stand in the middle; texts of the rows as their column says.
        return QVariant(across || !text(row, 0).isEmpty() ? alignment(column)
                                                          : Qt::Alignment(Qt::AlignCenter));
    if (role == Qt::ForegroundRole || role == Qt::BackgroundRole || role == Qt::DecorationRole) {
        const CellFormat given = format(row, column);
        if (role == Qt::DecorationRole)
            return given.icon.isNull() ? QVariant() : QVariant(given.icon);
        const QColor color = role == Qt::ForegroundRole ? given.foreColor : given.backColor;
        return color.isValid() ? QVariant(color) : QVariant();
    }
    return {};
}

} // namespace controls
