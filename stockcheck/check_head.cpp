#include "stockcheck/check_head.h"

#include "frame/closing_date_guard.h"
#include "frame/record_maintenance.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "stockcheck/check_head_posting.h"

namespace tallyra::stockcheck {
namespace {

using automation::Object;
using automation::Value;
using frame::Call;
using frame::CursorType;
using frame::DateLiteral;
using frame::sql;
namespace schema = frame::schema;

// An owner's change goes on with the connection that the test has opened. `statement` has to outlive the
// result.
frame::OwnerTest owner_test(std::string_view statement) {
  return {.statement = statement,
          .cursor = CursorType::static_copy,
          .then = frame::OwnerTest::Then::open_if_closed};
}

// Every posting of the check, also those of earlier approvals, lines first.
void remove_postings(frame::Connection& connection, const std::string& check_number) {
  connection.execute(
      sql("Delete STKTRANDT.* From STKTRANDT INNER JOIN STKTRANHD ON STKTRANDT.TRANNO=STKTRANHD.TRANNO"
          " WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='{}'",
          check_number));
  connection.execute(
      sql("DELETE * FROM STKTRANHD WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='{}'",
          check_number));
}

}  // namespace

CCheckHead::CCheckHead() : Session("") {}

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
    const auto post_or_remove_postings = [&](Call&) {
      if (tag == schema::operation_tag::approved)
        PostCheckIssue(cCHECKNO, call.connection, DateLiteral(system_database()));
      else if (tag == schema::operation_tag::unapproved)
        remove_postings(call.connection, cCHECKNO);
    };
    update_rows(
        call, {colFieldName, colFieldValue},
        {.table = schema::table::stock_check_header,
         .function_code = schema::function_code::stock_check,
         .operation_tag = tag,
         .owner = owner_test(sql("Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='{}'", cCHECKNO)),
         .structure = "Select top 1 * From STKCHECKHD",
         .structure_cursor = CursorType::static_copy,
         .condition = sql(" Where STKCHECKHD.CHECKNO='{}' ", cCHECKNO),
         .in_transaction = true,
         .also = post_or_remove_postings});
  });
}

float CCheckHead::Insert(std::string cCHECKNO, Object& colFieldName, Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    insert_row(call, {colFieldName, colFieldValue},
               {.table = schema::table::stock_check_header,
                .function_code = schema::function_code::stock_check,
                .existing = sql("Select * From STKCHECKHD where CHECKNO='{}'", cCHECKNO),
                .in_transaction = true});
  });
}

float CCheckHead::Delete(std::string cCHECKNO) {
  return run_method(*this, [&](Call& call) {
    delete_rows(call, {.function_code = schema::function_code::stock_check,
                       .owner = owner_test(sql("Select ADDBY from STKCHECKHD WHERE CHECKNO='{}'", cCHECKNO)),
                       .roll_back_on_error = false,
                       .statements = {sql("Delete From STKCHECKHD Where CHECKNO='{}'", cCHECKNO),
                                      sql("Delete From STKCHECKDT Where CHECKNO='{}'", cCHECKNO)}});
  });
}

Value CCheckHead::ValidCloseDT(Value vTranDT) {
  using Guard = frame::ClosingDateGuard;
  return valid_close_date(*this, system_database(), vTranDT,
                          {.statement = Guard::Statement::inside_trap,
                           .collaborators = Guard::Collaborators::as_they_are,
                           .trap = Guard::Trap::the_error});
}

}  // namespace tallyra::stockcheck
