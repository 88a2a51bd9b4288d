#include "transactions/tran_head.h"

#include "automation/folded_name.h"
#include "frame/closing_date_guard.h"
#include "frame/record_maintenance.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "transactions/owner_test.h"
#include "transactions/tran_head_line_copy.h"

namespace tallyra::transactions {

using automation::Object;
using automation::Value;
using frame::Call;
using frame::CursorType;
using frame::sql;
namespace schema = frame::schema;

CTranHead::CTranHead() : Session(std::string(schema::access_kind)) {}

float CTranHead::Read(std::string& cTRANNO, std::string& cTranType, Object& colFieldName,
                      Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    const bool shipment = automation::equals_folded(cTranType, schema::transaction_type::shipment);
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
    const std::string type = cTranType;
    const std::string tag = strOprTag;
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::transaction_header,
                 .function_code = type,
                 .operation_tag = tag,
                 .owner = owner_test(sql("Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='{}'"
                                         " AND STKTRANHD.TRANTYPE='{}'",
                                         cTRANNO, type)),
                 .structure = "Select top 1 * From STKTRANHD",
                 .structure_cursor = CursorType::static_copy,
                 .condition = sql(" Where STKTRANHD.TRANNO='{}' ", cTRANNO)});
  });
}

float CTranHead::Insert(std::string cTRANNO, std::string& cTranType, Object& colFieldName,
                        Object& colFieldValue, std::string& pCopyID) {
  return run_method(*this, [&](Call& call) {
    const std::string type = cTranType;
    const frame::FieldCollections fields{colFieldName, colFieldValue};
    const auto copy = [&](Call&) {
      if (!pCopyID.empty()) copy_lines(call, fields, system_database(), pCopyID, cTRANNO);
    };
    insert_row(call, fields,
               {.table = schema::table::transaction_header,
                .function_code = type,
                .existing = sql("Select * From STKTRANHD where TRANNO='{}'", cTRANNO),
                .in_transaction = true,
                .also = copy});
  });
}

float CTranHead::Delete(std::string cTRANNO, std::string& cTranType) {
  return run_method(*this, [&](Call& call) {
    const std::string type = cTranType;
    delete_rows(call, {.function_code = type,
                       .owner = owner_test(sql("Select ADDBY from STKTRANHD WHERE TRANNO='{}'", cTRANNO)),
                       .statements = {sql("Delete From STKTRANHD Where TRANNO='{}'", cTRANNO),
                                      sql("Delete From STKTRANDT Where TRANNO='{}'", cTRANNO),
                                      sql("Delete From STKSHIPNOTE Where TRANNO='{}'", cTRANNO)}});
  });
}

Value CTranHead::ValidCloseDT(Value vTranDT) {
  using Guard = frame::ClosingDateGuard;
  return valid_close_date(*this, system_database(), vTranDT,
                          {.statement = Guard::Statement::before_trap,
                           .collaborators = Guard::Collaborators::set_up,
                           .trap = Guard::Trap::closed_period});
}

}  // namespace tallyra::transactions
