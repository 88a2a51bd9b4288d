#include "close/part_cost_set.h"

#include "frame/business_method.h"
#include "frame/delete_move.h"
#include "frame/insert_move.h"
#include "frame/read_move.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"

namespace tallyra::close {

using automation::Object;
using frame::Call;
using frame::Opening;
using frame::sql;
using frame::Transaction;
namespace schema = frame::schema;

CPartCostSet::CPartCostSet() : BusinessObject(std::string(schema::access_kind)) {}

float CPartCostSet::Read(std::int32_t& iMTypeSN, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    read_row(
        call, {colFieldName, colFieldValue},
        {.statement = sql("Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN={}", iMTypeSN),
         .fill = frame::ReadMove::Fill::replace});
  });
}

float CPartCostSet::Update(std::int32_t iMTypeSN, Object& colFieldName, Object& colFieldValue,
                           std::string& strOprTag) {
  return run_method(*this, [&](Call& call) {
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::part_cost_setting,
                 .function_code = schema::function_code::part_cost,
                 .operation_tag = strOprTag,
                 .opening = Opening::if_closed,
                 .structure = {"Select top 1 * From PARTCOSTSET"},
                 .condition = sql(" Where PARTCOSTSET.MTYPESN={}", iMTypeSN)});
  });
}

float CPartCostSet::Insert(std::int32_t iMTypeSN, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    insert_row(call, {colFieldName, colFieldValue},
               {.table = schema::table::part_cost_setting,
                .function_code = schema::function_code::part_cost,
                .existing = sql("Select * From PARTCOSTSET where MTYPESN={}", iMTypeSN),
                .transaction = Transaction::left_on_error});
  });
}

float CPartCostSet::Delete(std::int32_t iMTypeSN) {
  return run_method(*this, [&](Call& call) {
    delete_rows(call, {.function_code = schema::function_code::part_cost,
                       .opening = Opening::if_closed,
                       .transaction = Transaction::left_on_error,
                       .statements = {sql("Delete From PARTCOSTSET Where MTYPESN={}", iMTypeSN)}});
  });
}

}  // namespace tallyra::close
