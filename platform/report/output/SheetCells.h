#pragma once

#include "platform/report/output/SheetLibrary.h"
#include "platform/report/rows/RowSource.h"

namespace report {

/// How the cells of a workbook look. Owned by the workbook.
struct SheetFormats {
    explicit SheetFormats(lxw_workbook* workbook);

    lxw_format* hospital;
    lxw_format* title;
    lxw_format* quiet;
    lxw_format* column;
    lxw_format* money;
    lxw_format* day;
    lxw_format* moment;
    lxw_format* clock;
};

struct CellPlace {
    lxw_row_t row;
    lxw_col_t column;
};

/// Raises 75 with the library's words.
void check(lxw_error error);

/// A text, never a formula, a number or a link; without the control signs that a workbook cannot hold, and
/// cut after the 32,767 that a cell takes.
void writeText(lxw_worksheet* sheet, CellPlace place, const QString& text, lxw_format* format = nullptr);

/// Writes the value as what it is; tells about how many signs it shows.
int writeCell(lxw_worksheet* sheet, CellPlace place, const base::Value& value, CellLook look,
              const SheetFormats& formats);

} // namespace report
