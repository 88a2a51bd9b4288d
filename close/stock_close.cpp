#include "close/stock_close.h"

#include <string>

#include "close/stock_close_period.h"
#include "frame/business_method.h"
#include "frame/delete_move.h"
#include "frame/read_move.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"

// The records of the month closes: reading, changing (which approves) and deleting them.
namespace tallyra::close {

using automation::Object;
using automation::Value;
using frame::Call;
using frame::DateLiteral;
using frame::sql;
namespace schema = frame::schema;

CStockClose::CStockClose() : BusinessObject(std::string(schema::access_kind)) {}

float CStockClose::Read(std::string pCloseDT, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    const std::string close_literal = DateLiteral(system_database()).of_text(pCloseDT);
    read_row(
        call, {colFieldName, colFieldValue},
        {.statement = sql("Select STKCLOSEHD.* From STKCLOSEHD Where STKCLOSEHD.CLOSEDT={}", close_literal)});
  });
}

float CStockClose::Update(std::string pCloseDT, Object& colFieldName, Object& colFieldValue,
                          std::string& strOprTag) {
  return run_method(*this, [&](Call& call) {
    const ClosePeriod period = period_until(pCloseDT, DateLiteral(system_database()));
    const auto approve_earlier_records_and_documents = [&] {
      call.connection.execute(
          sql("Update STKCLOSEHD Set STATUSSN=1 Where CLOSEDT<{} And STATUSSN<1", period.close));
      call.connection.execute(
          sql("UPDATE STKTRANHD SET STATUSSN=1 WHERE STKTRANHD.TRANDT={}"
              " AND  (STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL') ",
              period.next_day));
    };
    update_rows(call, {colFieldName, colFieldValue},
                {.table = schema::table::month_close,
                 .function_code = schema::function_code::month_close,
                 .operation_tag = strOprTag,
                 .structure = {"Select top 1 * From STKCLOSEHD"},
                 .condition = sql(" Where STKCLOSEHD.CLOSEDT={}", period.close),
                 .transaction = frame::Transaction::left_on_error,
                 .also = approve_earlier_records_and_documents});
  });
}

float CStockClose::Delete(Value pCloseDT) {
  return run_method(*this, [&](Call& call) {
    const DateLiteral literal(system_database());
    const ClosePeriod period = period_until(frame::text_of(pCloseDT), literal);
    delete_rows(
        call,
        {.function_code = schema::function_code::month_close,
         .statements = {
             sql("Delete * From STKCLOSEHD Where CLOSEDT={}", period.close),
             sql("Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
                 " Where STKTRANHD.TRANDT={}"
                 " AND (STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL') ",
                 period.next_day),
             sql("Delete * From STKTRANHD Where  STKTRANHD.TRANDT={}"
                 " AND  (STKTRANHD.TRANTYPE='STK027CLOSE' OR STKTRANHD.TRANTYPE='STKCLOSEALL') ",
                 period.next_day)}});
  });
}

}  // namespace tallyra::close
