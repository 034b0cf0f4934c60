// Written spreadsheets: libxlsxwriter.

#include <xlsxwriter.h>

#include "late/late_function.h"

namespace {

constexpr cu::LateLibrary kXlsxwriter(CU_LIBRARY_XLSXWRITER, "I fogli elettronici da scrivere");

}  // namespace

CU_LATE_0(kXlsxwriter, lxw_version)
CU_LATE_1(kXlsxwriter, format_set_bold)
CU_LATE_1(kXlsxwriter, workbook_add_format)
CU_LATE_1(kXlsxwriter, workbook_close)
CU_LATE_2(kXlsxwriter, format_set_bottom)
CU_LATE_2(kXlsxwriter, format_set_num_format)
CU_LATE_2(kXlsxwriter, workbook_add_worksheet)
CU_LATE_2(kXlsxwriter, workbook_new_opt)
CU_LATE_2(kXlsxwriter, workbook_set_properties)
CU_LATE_3(kXlsxwriter, worksheet_freeze_panes)
CU_LATE_5(kXlsxwriter, worksheet_set_column)
CU_LATE_5(kXlsxwriter, worksheet_write_number)
CU_LATE_5(kXlsxwriter, worksheet_write_string)
