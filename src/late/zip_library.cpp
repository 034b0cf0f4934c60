// Compressed archives: libzip.

#include <zip.h>

#include "late/late_function.h"

namespace {

constexpr cu::LateLibrary kZip(CU_LIBRARY_ZIP, "Gli archivi compressi");

}  // namespace

CU_LATE_0(kZip, zip_libzip_version)
CU_LATE_1(kZip, zip_discard)
CU_LATE_1(kZip, zip_fclose)
CU_LATE_1(kZip, zip_source_free)
CU_LATE_1(kZip, zip_stat_init)
CU_LATE_2(kZip, zip_get_num_entries)
CU_LATE_3(kZip, zip_fopen_index)
CU_LATE_3(kZip, zip_fread)
CU_LATE_3(kZip, zip_get_name)
CU_LATE_3(kZip, zip_name_locate)
CU_LATE_3(kZip, zip_open_from_source)
CU_LATE_4(kZip, zip_source_buffer_create)
CU_LATE_4(kZip, zip_stat_index)
