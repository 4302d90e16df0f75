#pragma once

#include <QString>

#include <xlsxwriter.h>

// What of the library is used; every name is one of its functions.
#define SCINTRA_SHEET_FUNCTIONS(X)                                                                           \
    X(workbook_new_opt)                                                                                      \
    X(workbook_add_worksheet)                                                                                \
    X(workbook_add_format)                                                                                   \
    X(workbook_set_properties)                                                                               \
    X(workbook_close)                                                                                        \
    X(lxw_workbook_free)                                                                                     \
    X(worksheet_write_string)                                                                                \
    X(worksheet_write_number)                                                                                \
    X(worksheet_write_boolean)                                                                               \
    X(worksheet_set_column)                                                                                  \
    X(worksheet_freeze_panes)                                                                                \
    X(worksheet_autofilter)                                                                                  \
    X(worksheet_set_landscape)                                                                               \
    X(worksheet_fit_to_pages)                                                                                \
    X(worksheet_repeat_rows)                                                                                 \
    X(worksheet_ignore_errors)                                                                               \
    X(format_set_bold)                                                                                       \
    X(format_set_font_size)                                                                                  \
    X(format_set_font_color)                                                                                 \
    X(format_set_bg_color)                                                                                   \
    X(format_set_bottom)                                                                                     \
    X(format_set_num_format)                                                                                 \
    X(lxw_rowcol_to_range)                                                                                   \
    X(lxw_strerror)

namespace report {

/// libxlsxwriter, loaded with the first workbook and kept. It brings a library for cryptography along, which
/// would make every start of the program longer.
struct SheetLibrary {
    /// Raises 75 when there is no library of that name and version, or none that has all of the functions.
    explicit SheetLibrary(const QString& name, int version);

#define SCINTRA_DECLARE(function) decltype(&::function) function = nullptr;
    SCINTRA_SHEET_FUNCTIONS(SCINTRA_DECLARE)
#undef SCINTRA_DECLARE
};

/// Raises as the constructor does, as long as the library is missing.
const SheetLibrary& sheets();

} // namespace report
