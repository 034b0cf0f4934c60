// The server's connections: the driver manager of ODBC.

#include <sql.h>
#include <sqlext.h>

#include "late/late_function.h"

namespace {

constexpr cu::LateLibrary kOdbc(CU_LIBRARY_ODBC, "I server per ODBC");

}  // namespace

CU_LATE_1(kOdbc, SQLDisconnect)
CU_LATE_1(kOdbc, SQLFetch)
CU_LATE_1(kOdbc, SQLMoreResults)
CU_LATE_2(kOdbc, SQLFreeHandle)
CU_LATE_2(kOdbc, SQLFreeStmt)
CU_LATE_2(kOdbc, SQLGetTypeInfo)
CU_LATE_2(kOdbc, SQLNumResultCols)
CU_LATE_2(kOdbc, SQLRowCount)
CU_LATE_3(kOdbc, SQLAllocHandle)
CU_LATE_3(kOdbc, SQLExecDirect)
CU_LATE_3(kOdbc, SQLExecDirectW)
CU_LATE_4(kOdbc, SQLSetConnectAttr)
CU_LATE_4(kOdbc, SQLSetEnvAttr)
CU_LATE_4(kOdbc, SQLSetPos)
CU_LATE_4(kOdbc, SQLSetStmtAttr)
CU_LATE_5(kOdbc, SQLGetConnectAttr)
CU_LATE_5(kOdbc, SQLGetInfoW)
CU_LATE_5(kOdbc, SQLGetStmtAttr)
CU_LATE_6(kOdbc, SQLBindCol)
CU_LATE_6(kOdbc, SQLGetData)
CU_LATE_8(kOdbc, SQLDataSourcesW)
CU_LATE_8(kOdbc, SQLDriverConnectW)
CU_LATE_8(kOdbc, SQLDriversW)
CU_LATE_8(kOdbc, SQLGetDiagRecW)
CU_LATE_9(kOdbc, SQLDescribeColW)
