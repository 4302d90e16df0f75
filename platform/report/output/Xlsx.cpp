#include "platform/report/output/Xlsx.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/output/SaveFile.h"
#include "platform/report/output/SheetCells.h"
#include "platform/report/output/WholeWorkbook.h"

#include <QTemporaryFile>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <future>
#include <utility>

namespace report {
namespace {

constexpr qsizetype rowsBetweenCalls = 4096;
constexpr qsizetype manyRows = 20'000;      // beyond, packing is worth a thread
constexpr qsizetype manyCells = 20'000'000; // beyond, a sheet's text may pass 4 GB
constexpr double narrowest = 8;             // signs
constexpr double widest = 60;

/// A sheet's name has at most 31 signs and none of []:*?/\ .
QString sheetName(const QString& title, int number) {
    QString name;
    for (const QChar c : title) {
        if (!QStringLiteral("[]:*?/\\'").contains(c) && c.isPrint() && !c.isSurrogate())
            name += c;
    }
    name = name.simplified();
    if (name.isEmpty() || name.compare(QLatin1StringView("History"), Qt::CaseInsensitive) == 0)
        name = QStringLiteral("Rows");
    const QString suffix = number == 1 ? QString() : QStringLiteral(" (%1)").arg(number);
    return name.left(31 - suffix.size()).trimmed() + suffix;
}

/// One workbook in work. Freed by finish(), or with the object.
class Workbook {
  public:
    Workbook(const QString& file, bool large) {
        const QByteArray name = file.toLocal8Bit();
        lxw_workbook_options options = {};
        options.constant_memory = LXW_TRUE; // a row is on disk when the next one begins
        options.use_zip64 = large ? LXW_TRUE : LXW_FALSE;
        m_book = sheets().workbook_new_opt(name.constData(), &options);
        if (!m_book)
            throw base::RunTimeError(errorFile, QStringLiteral("no workbook can be made"));
    }
    ~Workbook() {
        if (m_book)
            sheets().lxw_workbook_free(m_book);
    }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    lxw_workbook* book() const { return m_book; }
    void finish() { check(sheets().workbook_close(std::exchange(m_book, nullptr))); }

  private:
    lxw_workbook* m_book;
};

class SheetWriter {
  public:
    SheetWriter(Workbook& workbook, const RowSource& rows, const SheetHeading& heading)
        : m_workbook(workbook), m_rows(rows), m_heading(heading), m_formats(workbook.book()) {
        m_widths.assign(rows.columns().size(), narrowest);
    }

    void write(qsizetype row) {
        if (!m_sheet || qint64(m_next) == mostSheetRows)
            begin();
        const qsizetype columns = qsizetype(m_rows.columns().size());
        for (qsizetype column = 0; column < columns; ++column) {
            const int signs = writeCell(m_sheet, {m_next, lxw_col_t(column)}, m_rows.at(row, column),
                                        m_rows.look(column), m_formats);
            m_widths[std::size_t(column)] = std::max(m_widths[std::size_t(column)], double(signs) + 1);
        }
        ++m_next;
    }

    /// A sheet without rows has its heading nevertheless.
    void finish() {
        if (!m_sheet)
            begin();
        end();
    }

  private:
    void begin() {
        if (m_sheet)
            end();
        const QString name = sheetName(m_heading.title, ++m_sheets);
        m_sheet = sheets().workbook_add_worksheet(m_workbook.book(), name.toUtf8().constData());
        if (!m_sheet)
            throw base::RunTimeError(errorFile, QStringLiteral("no sheet can be added"));
        m_next = 0;
        addLine(m_heading.hospital, m_formats.hospital);
        addLine(m_heading.address, m_formats.quiet);
        addLine(m_heading.title, m_formats.title);
        for (const QString& line : m_heading.lines)
            addLine(line, m_formats.quiet);
        m_next += m_next > 0 ? 1 : 0;
        m_names = m_next++;
        for (std::size_t i = 0; i < m_rows.columns().size(); ++i) {
            const QString& column = m_rows.columns()[i].name;
            writeText(m_sheet, {m_names, lxw_col_t(i)}, column, m_formats.column);
            m_widths[i] = std::max(m_widths[i], double(column.size()) + 3); // room for the filter's button
        }
    }

    void addLine(const QString& text, lxw_format* format) {
        if (!text.isEmpty())
            writeText(m_sheet, {m_next++, 0}, text, format);
    }

    void end() {
        const auto last = lxw_col_t(std::max<std::size_t>(m_rows.columns().size(), 1) - 1);
        for (std::size_t i = 0; i < m_widths.size(); ++i)
            check(sheets().worksheet_set_column(m_sheet, lxw_col_t(i), lxw_col_t(i),
                                                std::min(m_widths[i], widest), nullptr));
        sheets().worksheet_freeze_panes(m_sheet, m_names + 1, 0);
        if (!m_rows.columns().empty())
            check(sheets().worksheet_autofilter(m_sheet, m_names, 0, m_next - 1, last));
        markCodes(last);
        sheets().worksheet_set_landscape(m_sheet);
        sheets().worksheet_fit_to_pages(m_sheet, 1, 0);
        check(sheets().worksheet_repeat_rows(m_sheet, m_names, m_names));
        // The rows went through a file of the library's own, whose errors it does not look at.
        std::FILE* rows = m_sheet->optimize_tmpfile;
        if (rows && (std::fflush(rows) != 0 || std::ferror(rows)))
            throw base::RunTimeError(errorFile, QStringLiteral("there is no room for the rows"));
    }

    /// Account numbers are texts of digits: no cell needs a warning sign for that.
    void markCodes(lxw_col_t last) {
        char range[LXW_MAX_CELL_RANGE_LENGTH];
        sheets().lxw_rowcol_to_range(range, m_names, 0, m_next - 1, last);
        check(sheets().worksheet_ignore_errors(m_sheet, LXW_IGNORE_NUMBER_STORED_AS_TEXT, range));
    }

    Workbook& m_workbook;
    const RowSource& m_rows;
    const SheetHeading& m_heading;
    SheetFormats m_formats;
    lxw_worksheet* m_sheet = nullptr; ///< the workbook's
    int m_sheets = 0;
    lxw_row_t m_next = 0;         ///< row to be written
    lxw_row_t m_names = 0;        ///< row of the column names
    std::vector<double> m_widths; ///< in signs
};

/// Packing takes as long as the rows did: a thread of its own leaves this one free to tell the progress. Once
/// begun it cannot be stopped, only waited for.
bool finish(Workbook& workbook, qsizetype rows, const ProgressCall& progress) {
    if (!progress || rows < manyRows) {
        workbook.finish();
        return true;
    }
    std::future<void> packing = std::async(std::launch::async, [&workbook] { workbook.finish(); });
    bool wanted = true;
    while (packing.wait_for(std::chrono::milliseconds(40)) != std::future_status::ready)
        wanted = wanted && progress({rows, 0, 0});
    packing.get();
    return wanted;
}

bool writeWorkbook(const RowSource& rows, const SheetHeading& heading, const QString& file,
                   const ProgressCall& progress) {
    const qsizetype count = rows.count();
    Workbook workbook(file, count > manyCells / std::max<qsizetype>(qsizetype(rows.columns().size()), 1));
    QByteArray title = heading.title.toUtf8();
    QByteArray hospital = heading.hospital.toUtf8();
    lxw_doc_properties properties = {};
    properties.title = title.data();
    properties.company = hospital.data();
    check(sheets().workbook_set_properties(workbook.book(), &properties));
    SheetWriter writer(workbook, rows, heading);
    for (qsizetype row = 0; row < count; ++row) {
        if (progress && row % rowsBetweenCalls == 0 && !progress({row, 0, 0}))
            return false;
        writer.write(row);
    }
    writer.finish();
    return finish(workbook, count, progress);
}

} // namespace

bool exportXlsx(const RowSource& rows, const SheetHeading& heading, const QString& path,
                const ProgressCall& progress) {
    // The library writes by name, and not safely: it gets a file of its own, which then is taken over whole.
    QTemporaryFile work;
    try {
        if (!work.open())
            throw base::RunTimeError(errorFile, work.errorString());
        if (!writeWorkbook(rows, heading, work.fileName(), progress))
            return false;
        if (!isWholeWorkbook(work))
            throw base::RunTimeError(errorFile, QStringLiteral("there is no room for the workbook"));
    } catch (const base::RunTimeError& error) {
        if (error.number() != errorFile)
            throw;
        throw fileError(path, error.description());
    }
    work.seek(0);
    return saveFile(path, [&](QIODevice& file) {
        while (!work.atEnd()) {
            const QByteArray block = work.read(1 << 20);
            if (block.isEmpty())
                throw fileError(path, work.errorString());
            writeAll(file, block);
        }
        return true;
    });
}

} // namespace report
