#include "stockcheck/check_detail.h"

#include "frame/business_method.h"
#include "frame/delete_move.h"
#include "frame/insert_move.h"
#include "frame/read_move.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"

namespace tallyra::stockcheck {

using automation::Object;
using frame::Call;
using frame::CursorType;
using frame::sql;
namespace schema = frame::schema;

CCheckDetail::CCheckDetail() : BusinessObject(std::string(schema::access_kind)) {}

float CCheckDetail::Read(std::string& cCHECKNO, std::string& cPartNo, Object& colFieldName,
                         Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    read_row(call, {colFieldName, colFieldValue},
             {.statement = sql("Select STKCHECKDT.*,PARTS.PARTNM,PARTS.COLORNO,PARTS.COLORNM,PARTS.UNITNM"
                               " From STKCHECKDT INNER JOIN PARTS ON STKCHECKDT.PARTNO=PARTS.PARTNO "
                               " Where STKCHECKDT.CHECKNO='{}' And STKCHECKDT.PartNo='{}' ",
                               cCHECKNO, cPartNo),
              .fill = frame::ReadMove::Fill::replace,
              .count_rows = false});
  });
}

float CCheckDetail::Update(std::string& cCHECKNO, std::string& cPartNo, Object& colFieldName,
                           Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::counted_line,
                 .function_code = schema::function_code::stocktaking,
                 .owner = frame::closed_owner_test(
                     sql("Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='{}'", cCHECKNO)),
                 .opening = frame::Opening::if_closed,
                 .structure = {"Select top 1 * From STKCHECKDT"},
                 .condition = sql(" Where CHECKNO='{}' And PartNo='{}' ", cCHECKNO, cPartNo)});
  });
}

float CCheckDetail::Insert(std::string& cCHECKNO, std::string& cPartNo, Object& colFieldName,
                           Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    const auto require_part = [&] {
      frame::Recordset& parts = call.recordset();
      parts.open(sql("Select PARTNO from PARTS WHERE PARTS.PARTNO='{}'", cPartNo), call.connection,
                 CursorType::static_copy);
      if (parts.at_end()) call.refuse(frame::message::unknown_part);
      parts.close();
    };
    insert_row(
        call, {colFieldName, colFieldValue},
        {.table = schema::table::counted_line,
         .function_code = schema::function_code::stocktaking,
         .existing = sql("Select * From STKCHECKDT Where CHECKNO='{}' And PartNo='{}' ", cCHECKNO, cPartNo),
         .before_existing = require_part});
  });
}

float CCheckDetail::Delete(std::string& cCHECKNO, std::string& cPartNo) {
  return run_method(*this, [&](Call& call) {
    delete_rows(call, {.function_code = schema::function_code::stocktaking,
                       .owner = frame::closed_owner_test(
                           sql("Select ADDBY from STKCHECKHD WHERE CHECKNO='{}'", cCHECKNO),
                           CursorType::forward_only),
                       .opening = frame::Opening::if_closed,
                       .statements = {sql("Delete From STKCHECKDT Where CHECKNO='{}' And PartNo='{}'",
                                          cCHECKNO, cPartNo)}});
  });
}

}  // namespace tallyra::stockcheck
