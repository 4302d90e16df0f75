#include "platform/report/output/SheetCells.h"

#include "platform/base/Conversion.h"
#include "platform/base/DateTime.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"

#include <cmath>

namespace report {
namespace {

constexpr qsizetype longestCell = 32767;
constexpr qint64 exactIntegers = 999'999'999'999'999; // a sheet's numbers have 15 digits

QString cleaned(const QString& text) {
    QString clean = text.left(longestCell);
    clean.removeIf([](QChar c) {
        return (c < u' ' && c != u'\t' && c != u'\n') || c == QChar(0xFFFE) || c == QChar(0xFFFF);
    });
    if (!clean.isEmpty() && clean.back().isHighSurrogate())
        clean.chop(1);
    return clean;
}

int writeMoment(lxw_worksheet* sheet, CellPlace place, base::DateTime moment, CellLook look,
                const SheetFormats& formats) {
    const double serial = base::toSerial(moment);
    const bool midnight = base::dateOnly(moment) == moment && look != CellLook::Moment;
    if (serial >= 0.0 && serial < 1.0 && !midnight) {
        check(sheets().worksheet_write_number(sheet, place.row, place.column, serial, formats.clock));
        return 9;
    }
    if (serial < 2.0) { // 1900-01-01: a sheet knows nothing before
        const QString text = base::textOf(moment);
        writeText(sheet, place, text);
        return int(text.size());
    }
    // A sheet believes in a 29th of February 1900: days before it count one less.
    const double day = serial < 61.0 ? serial - 1.0 : serial;
    check(sheets().worksheet_write_number(sheet, place.row, place.column, day,
                                          midnight ? formats.day : formats.moment));
    return midnight ? 10 : 19;
}

int writeNumber(lxw_worksheet* sheet, CellPlace place, double number, CellLook look,
                const SheetFormats& formats) {
    const bool money = look == CellLook::Amount;
    check(sheets().worksheet_write_number(sheet, place.row, place.column, number,
                                          money ? formats.money : nullptr));
    return int(base::textOf(number).size()) + (money ? 4 : 0);
}

} // namespace

SheetFormats::SheetFormats(lxw_workbook* workbook) {
    for (lxw_format** format : {&hospital, &title, &quiet, &column, &money, &day, &moment, &clock})
        *format = sheets().workbook_add_format(workbook);
    sheets().format_set_bold(hospital);
    sheets().format_set_font_size(hospital, 13);
    sheets().format_set_bold(title);
    sheets().format_set_font_size(title, 12);
    sheets().format_set_font_color(quiet, 0x5C6B77);
    sheets().format_set_bold(column);
    sheets().format_set_bg_color(column, 0xE7EEF2);
    sheets().format_set_bottom(column, LXW_BORDER_THIN);
    sheets().format_set_num_format(money, "#,##0.00");
    sheets().format_set_num_format(day, "mm/dd/yyyy");
    sheets().format_set_num_format(moment, "mm/dd/yyyy hh:mm:ss");
    sheets().format_set_num_format(clock, "hh:mm:ss");
}

void check(lxw_error error) {
    if (error != LXW_NO_ERROR)
        throw base::RunTimeError(errorFile, QString::fromUtf8(sheets().lxw_strerror(error)));
}

void writeText(lxw_worksheet* sheet, CellPlace place, const QString& text, lxw_format* format) {
    check(sheets().worksheet_write_string(sheet, place.row, place.column, cleaned(text).toUtf8().constData(),
                                          format));
}

int writeCell(lxw_worksheet* sheet, CellPlace place, const base::Value& value, CellLook look,
              const SheetFormats& formats) {
    if (value.isNull())
        return 0;
    if (const bool* yes = value.asBool()) {
        check(sheets().worksheet_write_boolean(sheet, place.row, place.column, *yes, nullptr));
        return 5;
    }
    if (const base::DateTime* moment = value.asDateTime())
        return writeMoment(sheet, place, *moment, look, formats);
    if (const double* number = value.asDouble(); number && std::isfinite(*number))
        return writeNumber(sheet, place, *number, look, formats);
    if (const qint64* number = value.asInteger();
        number && *number <= exactIntegers && *number >= -exactIntegers)
        return writeNumber(sheet, place, double(*number), look, formats);
    const QString text = base::textOf(value);
    writeText(sheet, place, text);
    // The widest line decides, as far as a column may become wide at all.
    qsizetype signs = 0;
    for (const QStringView line : QStringView(text).left(400).split(u'\n'))
        signs = std::max(signs, line.size());
    return int(signs);
}

} // namespace report
