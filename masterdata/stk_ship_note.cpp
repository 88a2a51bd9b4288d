#include "masterdata/stk_ship_note.h"

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
using frame::CursorType;
using frame::OwnerTest;
using frame::sql;
namespace schema = frame::schema;

CStkShipNote::CStkShipNote() : BusinessObject(std::string(schema::access_kind)) {}

float CStkShipNote::Read(std::string& cTRANNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    read_row(
        call, {colFieldName, colFieldValue},
        {.statement = sql("Select STKSHIPNOTE.* From STKSHIPNOTE Where STKSHIPNOTE.TRANNO='{}'", cTRANNO)});
  });
}

float CStkShipNote::Update(std::string cTRANNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::shipping_note,
                 .function_code = schema::function_code::shipping_note,
                 .owner = OwnerTest(sql("Select ADDBY from STKSHIPNOTE WHERE STKSHIPNOTE.TRANNO='{}'"
                                        " AND STKSHIPNOTE.TRANTYPE='STK030SHIPN'",
                                        cTRANNO),
                                    CursorType::static_copy),
                 .structure = {"Select top 1 * From STKSHIPNOTE", CursorType::static_copy, std::nullopt},
                 .condition = sql(" Where STKSHIPNOTE.TRANNO='{}' ", cTRANNO)});
  });
}

float CStkShipNote::Insert(std::string cTRANNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    insert_row(call, {colFieldName, colFieldValue},
               {.table = schema::table::shipping_note,
                .function_code = schema::function_code::shipping_note,
                .existing = sql("Select * From STKSHIPNOTE where TRANNO='{}'", cTRANNO),
                .transaction = frame::Transaction::left_on_error});
  });
}

float CStkShipNote::Delete(std::string cTRANNO) {
  return run_method(*this, [&](Call& call) {
    delete_rows(call, {.function_code = schema::function_code::shipping_note,
                       .owner = OwnerTest(sql("Select ADDBY from STKSHIPNOTE WHERE TRANNO='{}'", cTRANNO)),
                       .statements = {sql("Delete From STKSHIPNOTE Where TRANNO='{}'", cTRANNO)}});
  });
}

}  // namespace tallyra::masterdata
