#include "transactions/tran_head.h"

#include "automation/folded_name.h"
#include "frame/business_method.h"
#include "frame/closing_date_guard.h"
#include "frame/delete_move.h"
#include "frame/insert_move.h"
#include "frame/read_move.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"
#include "transactions/tran_head_line_copy.h"

namespace tallyra::transactions {

using automation::Object;
using automation::Value;
using frame::Call;
using frame::closed_owner_test;
using frame::CursorLocation;
using frame::CursorType;
using frame::Opening;
using frame::sql;
namespace schema = frame::schema;

CTranHead::CTranHead() : BusinessObject(std::string(schema::access_kind)) {}

float CTranHead::Read(std::string& cTRANNO, std::string& cTranType, Object& colFieldName,
                      Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    const bool shipment = automation::equals_folded(cTranType, schema::document_type::shipment);
    read_row(call, {colFieldName, colFieldValue},
             {.statement =
                  shipment ? sql("Select STKTRANHD.*,STKSHIPNOTE.NOTES AS FEEDBACK From STKTRANHD"
                                 " LEFT JOIN STKSHIPNOTE ON STKTRANHD.TRANNO=STKSHIPNOTE.TRANNO "
                                 " Where STKTRANHD.TRANNO='{}'",
                                 cTRANNO)
                           : sql("Select STKTRANHD.* From STKTRANHD Where STKTRANHD.TRANNO='{}'", cTRANNO),
              .fill = frame::ReadMove::Fill::replace});
  });
}

float CTranHead::Update(std::string cTRANNO, std::string& cTranType, Object& colFieldName,
                        Object& colFieldValue, std::string& strOprTag) {
  return run_method(*this, [&](Call& call) {
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::document,
                 .function_code = cTranType,
                 .operation_tag = strOprTag,
                 .owner = closed_owner_test(sql("Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='{}'"
                                                " AND STKTRANHD.TRANTYPE='{}'",
                                                cTRANNO, cTranType),
                                            CursorType::static_copy, CursorLocation::server),
                 .opening = Opening::if_closed,
                 .structure = {"Select top 1 * From STKTRANHD", CursorType::static_copy},
                 .condition = sql(" Where STKTRANHD.TRANNO='{}' ", cTRANNO)});
  });
}

float CTranHead::Insert(std::string cTRANNO, std::string& cTranType, Object& colFieldName,
                        Object& colFieldValue, std::string& pCopyID) {
  return run_method(*this, [&](Call& call) {
    const frame::FieldCollections fields{colFieldName, colFieldValue};
    const auto copy = [&] {
      if (!pCopyID.empty()) copy_lines(call, fields, system_database(), pCopyID, cTRANNO);
    };
    insert_row(call, fields,
               {.table = schema::table::document,
                .function_code = cTranType,
                .existing = sql("Select * From STKTRANHD where TRANNO='{}'", cTRANNO),
                .transaction = frame::Transaction::left_on_error,
                .also = copy});
  });
}

float CTranHead::Delete(std::string cTRANNO, std::string& cTranType) {
  return run_method(*this, [&](Call& call) {
    delete_rows(call,
                {.function_code = cTranType,
                 .owner = closed_owner_test(sql("Select ADDBY from STKTRANHD WHERE TRANNO='{}'", cTRANNO),
                                            CursorType::static_copy, CursorLocation::server),
                 .opening = Opening::if_closed,
                 .statements = {sql("Delete From STKTRANHD Where TRANNO='{}'", cTRANNO),
                                sql("Delete From STKTRANDT Where TRANNO='{}'", cTRANNO),
                                sql("Delete From STKSHIPNOTE Where TRANNO='{}'", cTRANNO)}});
  });
}

Value CTranHead::ValidCloseDT(Value vTranDT) {
  return valid_unless_in_doubt(*this, system_database(), vTranDT);
}

}  // namespace tallyra::transactions
