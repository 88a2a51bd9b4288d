#include "stockcheck/check_head.h"

#include "frame/business_method.h"
#include "frame/closing_date_guard.h"
#include "frame/delete_move.h"
#include "frame/insert_move.h"
#include "frame/read_move.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"
#include "stockcheck/check_head_posting.h"

namespace tallyra::stockcheck {
namespace {

using automation::Object;
using automation::Value;
using frame::Call;
using frame::closed_owner_test;
using frame::CursorType;
using frame::DateLiteral;
using frame::Opening;
using frame::sql;
using frame::Transaction;
namespace schema = frame::schema;

// Every posting of the stocktaking, also those of earlier approvals, lines first.
void remove_postings(frame::Connection& connection, const std::string& number) {
  connection.execute(
      sql("Delete STKTRANDT.* From STKTRANDT INNER JOIN STKTRANHD ON STKTRANDT.TRANNO=STKTRANHD.TRANNO"
          " WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='{}'",
          number));
  connection.execute(sql(
      "DELETE * FROM STKTRANHD WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='{}'", number));
}

}  // namespace

CCheckHead::CCheckHead() : BusinessObject("") {}

float CCheckHead::Read(std::string& cCHECKNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    read_row(call, {colFieldName, colFieldValue},
             {.statement = sql("Select STKCHECKHD.* From STKCHECKHD Where STKCHECKHD.CHECKNO='{}'", cCHECKNO),
              .fill = frame::ReadMove::Fill::replace});
  });
}

float CCheckHead::Update(std::string cCHECKNO, Object& colFieldName, Object& colFieldValue,
                         std::string& strOprTag) {
  return run_method(*this, [&](Call& call) {
    const std::string tag = strOprTag;
    const auto post_or_remove_postings = [&] {
      if (tag == schema::operation_tag::approved)
        PostCheckIssue(cCHECKNO, call.connection, DateLiteral(system_database()));
      else if (tag == schema::operation_tag::unapproved)
        remove_postings(call.connection, cCHECKNO);
    };
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::stocktaking,
                 .function_code = schema::function_code::stocktaking,
                 .operation_tag = tag,
                 .owner = closed_owner_test(
                     sql("Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='{}'", cCHECKNO)),
                 .opening = Opening::if_closed,
                 .structure = {"Select top 1 * From STKCHECKHD", CursorType::static_copy},
                 .condition = sql(" Where STKCHECKHD.CHECKNO='{}' ", cCHECKNO),
                 .transaction = Transaction::left_on_error,
                 .also = post_or_remove_postings});
  });
}

float CCheckHead::Insert(std::string cCHECKNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    insert_row(call, {colFieldName, colFieldValue},
               {.table = schema::table::stocktaking,
                .function_code = schema::function_code::stocktaking,
                .existing = sql("Select * From STKCHECKHD where CHECKNO='{}'", cCHECKNO),
                .transaction = Transaction::left_on_error});
  });
}

float CCheckHead::Delete(std::string cCHECKNO) {
  return run_method(*this, [&](Call& call) {
    delete_rows(call,
                {.function_code = schema::function_code::stocktaking,
                 .owner = closed_owner_test(sql("Select ADDBY from STKCHECKHD WHERE CHECKNO='{}'", cCHECKNO)),
                 .opening = Opening::if_closed,
                 .transaction = Transaction::left_on_error,
                 .statements = {sql("Delete From STKCHECKHD Where CHECKNO='{}'", cCHECKNO),
                                sql("Delete From STKCHECKDT Where CHECKNO='{}'", cCHECKNO)}});
  });
}

Value CCheckHead::ValidCloseDT(Value vTranDT) {
  return valid_unless_error(*this, system_database(), vTranDT);
}

}  // namespace tallyra::stockcheck
