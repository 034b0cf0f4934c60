// Invoices, envelopes and spreadsheets as XML: Expat.

#include <expat.h>

#include "late/late_function.h"

namespace {

constexpr cu::LateLibrary kExpat(CU_LIBRARY_EXPAT, "I file XML e i fogli elettronici da leggere");

}  // namespace

CU_LATE_0(kExpat, XML_ExpatVersionInfo)
CU_LATE_1(kExpat, XML_GetCurrentByteCount)
CU_LATE_1(kExpat, XML_GetCurrentLineNumber)
CU_LATE_1(kExpat, XML_GetErrorCode)
CU_LATE_1(kExpat, XML_ParserCreate)
CU_LATE_1(kExpat, XML_ParserFree)
CU_LATE_2(kExpat, XML_GetBuffer)
CU_LATE_2(kExpat, XML_ParserCreateNS)
CU_LATE_2(kExpat, XML_SetCharacterDataHandler)
CU_LATE_2(kExpat, XML_SetStartDoctypeDeclHandler)
CU_LATE_2(kExpat, XML_SetUserData)
CU_LATE_2(kExpat, XML_StopParser)
CU_LATE_3(kExpat, XML_GetInputContext)
CU_LATE_3(kExpat, XML_ParseBuffer)
CU_LATE_3(kExpat, XML_SetElementHandler)
