#include "tests/unit/standins/ado/dialect/engine.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <stdexcept>

namespace tallyra::tests::dialect {
namespace {

constexpr auto tables = std::to_array<std::string_view>({
    "CREATE TABLE STKTRANHD(TRANNO, TRANTYPE, REFERENCE, TRANDT TIMESTAMP, DEPTNOFR, DEPTNMFR, DEPTNOTO, "
    "STATUS, STATUSSN "
    "INTEGER, STATUSBY, STATUSDT TIMESTAMP, MAKEBY, NOTES, ADDBY, ADDDT TIMESTAMP, EDITBY, EDITDT TIMESTAMP)",
    "CREATE TABLE STKTRANDT(TRANNO, REFERENCE, SN INTEGER, PARTNO, REFPARTNO, MONO, QTY DOUBLE, VQTY DOUBLE, "
    "UPRICE DOUBLE, "
    "NOTES, ADDBY, ADDDT TIMESTAMP, EDITBY, EDITDT TIMESTAMP)",
    "CREATE TABLE STKSHIPNOTE(TRANNO, TRANTYPE, NOTES, ADDBY)",
    "CREATE TABLE STKCHECKHD(CHECKNO, CHECKDT TIMESTAMP, DEPTNO, ADDBY)",
    "CREATE TABLE STKCHECKDT(CHECKNO, PARTNO, QTY DOUBLE, UPRICE DOUBLE)",
    "CREATE TABLE STKCLOSEHD(CLOSEDT TIMESTAMP, STATUSSN INTEGER, ADDBY, ADDDT TIMESTAMP)",
    "CREATE TABLE PARTCOSTSET(MTYPESN INTEGER, COST DOUBLE)",
    "CREATE TABLE REVADDR(ADDRNO, ADDBY, ADDDT TIMESTAMP)",
    "CREATE TABLE STKCONTROLLER(CONTROLLERNO, ADDBY)",
    "CREATE TABLE PARTS(PARTNO, PARTNM, CATEGORYNO, COLORNO, COLORNM, UNITNM, MTYPESN INTEGER, PRICETYPESN "
    "INTEGER, "
    "EDITDT TIMESTAMP)",
    "CREATE TABLE DEPARTS(DEPTNO, DEPTNM)",
    "CREATE TABLE SUPPLIERS(SUPPLIERS)",
    "CREATE TABLE POHD(PONO, STATUSSN INTEGER)",
    "CREATE TABLE PODT(PONO, SN INTEGER, PARTNO, POQTY DOUBLE, DEDUCTQTY DOUBLE)",
    "CREATE TABLE SOHD(SONO)",
    "CREATE TABLE COHD(CONO, STATUSSN INTEGER)",
    "CREATE TABLE CODETAIL(CONO, PARTNO, COQTY DOUBLE, TEMPLETQTY DOUBLE)",
    "CREATE TABLE SODTBOM(SONO, PARTNO, SOQTY DOUBLE)",
    "CREATE TABLE ASSMBOM(ASSMNO, PARTNO, ENGQTY DOUBLE, URATE DOUBLE, WSRATE DOUBLE)",
});

SQLCHAR* text_of(std::string& text) {
  return reinterpret_cast<SQLCHAR*>(text.data());
}

std::string message_of(SQLSMALLINT kind, SQLHANDLE handle) {
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, 512> text{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  SQLGetDiagRec(kind, handle, 1, state.data(), &native, text.data(), static_cast<SQLSMALLINT>(text.size()),
                &length);
  return std::string("!") + reinterpret_cast<const char*>(text.data());
}

}  // namespace

Engine::Engine() {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
  std::string source = "DRIVER={SQLite3};Database=:memory:";
  const SQLRETURN connected = SQLDriverConnect(connection_, nullptr, text_of(source), SQL_NTS, nullptr, 0,
                                               nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(connected)) throw std::runtime_error(message_of(SQL_HANDLE_DBC, connection_));
  for (const std::string_view table : tables)
    if (const std::string outcome = run(table); !outcome.empty()) throw std::runtime_error(outcome);
  SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
}

Engine::~Engine() {
  roll_back();
  SQLDisconnect(connection_);
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

std::string Engine::run(std::string_view sql) {
  std::string text(sql);
  SQLHANDLE statement = nullptr;
  SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
  const SQLRETURN outcome = SQLExecDirect(statement, text_of(text), SQL_NTS);
  const bool done = SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA;
  std::string result = done ? rows(statement) : message_of(SQL_HANDLE_STMT, statement);
  SQLFreeHandle(SQL_HANDLE_STMT, statement);
  return result;
}

std::string Engine::rows(void* statement) const {
  SQLSMALLINT columns = 0;
  SQLNumResultCols(statement, &columns);
  std::string joined;
  while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement))) {
    if (!joined.empty()) joined += ' ';
    for (SQLSMALLINT i = 1; i <= columns; ++i) {
      std::array<char, 256> value{};
      SQLLEN length = 0;
      SQLGetData(statement, static_cast<SQLUSMALLINT>(i), SQL_C_CHAR, value.data(), value.size(), &length);
      if (i > 1) joined += '|';
      joined += length == SQL_NULL_DATA ? "Null" : value.data();
    }
  }
  return joined;
}

void Engine::roll_back() {
  SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
}

}  // namespace tallyra::tests::dialect
