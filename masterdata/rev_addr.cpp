#include "masterdata/rev_addr.h"

#include "frame/business_method.h"
#include "frame/delete_move.h"
#include "frame/insert_move.h"
#include "frame/read_move.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"

namespace tallyra::masterdata {

using automation::Object;
using frame::Call;
using frame::OwnerTest;
using frame::sql;
namespace schema = frame::schema;

CRevAddr::CRevAddr() : BusinessObject(std::string(schema::access_kind)) {}

float CRevAddr::Read(std::string& cAddrNo, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    read_row(call, {colFieldName, colFieldValue},
             {.statement = sql("Select * From REVADDR Where AddrNo='{}'", cAddrNo)});
  });
}

float CRevAddr::Update(std::string& cAddrNo, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::receiving_address,
                 .function_code = schema::function_code::receiving_address,
                 .owner = OwnerTest(sql("Select ADDBY from REVADDR WHERE ADDRNO='{}'", cAddrNo)),
                 .structure = {"Select top 1 * From REVADDR"},
                 .condition = sql(" Where AddrNo='{}'", cAddrNo)});
  });
}

float CRevAddr::Insert(std::string& cAddrNo, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    insert_row(call, {colFieldName, colFieldValue},
               {.table = schema::table::receiving_address,
                .function_code = schema::function_code::receiving_address,
                .existing = sql("Select * From REVADDR where AddrNo='{}'", cAddrNo),
                .grant = frame::InsertMove::Grant::above_zero});
  });
}

float CRevAddr::Delete(std::string& cAddrNo) {
  return run_method(*this, [&](Call& call) {
    delete_rows(call, {.function_code = schema::function_code::receiving_address,
                       .owner = OwnerTest(sql("Select ADDBY from REVADDR WHERE ADDRNO='{}'", cAddrNo)),
                       .statements = {sql("Delete From REVADDR Where AddrNo='{}'", cAddrNo)}});
  });
}

}  // namespace tallyra::masterdata
