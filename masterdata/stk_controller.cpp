#include "masterdata/stk_controller.h"

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

CSTKController::CSTKController() : BusinessObject(std::string(schema::access_kind)) {}

float CSTKController::Read(std::string& cCONTROLLERNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    read_row(call, {colFieldName, colFieldValue},
             {.statement = sql("Select * From STKCONTROLLER Where CONTROLLERNO='{}'", cCONTROLLERNO)});
  });
}

float CSTKController::Update(std::string& cCONTROLLERNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    update_rows(
        call, {colFieldName, colFieldValue},
        {.table = schema::table::stock_controller,
         .function_code = schema::function_code::stock_controller,
         .owner = OwnerTest(sql("Select ADDBY from STKCONTROLLER WHERE CONTROLLERNO='{}'", cCONTROLLERNO)),
         .structure = {"Select top 1 * From STKCONTROLLER"},
         .condition = sql(" Where CONTROLLERNO='{}'", cCONTROLLERNO)});
  });
}

float CSTKController::Insert(std::string& cCONTROLLERNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    insert_row(call, {colFieldName, colFieldValue},
               {.table = schema::table::stock_controller,
                .function_code = schema::function_code::stock_controller,
                .existing = sql("Select * From STKCONTROLLER where CONTROLLERNO='{}'", cCONTROLLERNO),
                .grant = frame::InsertMove::Grant::above_zero});
  });
}

float CSTKController::Delete(std::string& cCONTROLLERNO) {
  return run_method(*this, [&](Call& call) {
    delete_rows(
        call,
        {.function_code = schema::function_code::stock_controller,
         .owner = OwnerTest(sql("Select ADDBY from STKCONTROLLER WHERE CONTROLLERNO='{}'", cCONTROLLERNO)),
         .statements = {sql("Delete From STKCONTROLLER Where CONTROLLERNO='{}'", cCONTROLLERNO)}});
  });
}

}  // namespace tallyra::masterdata
