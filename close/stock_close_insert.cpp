#include <array>
#include <string>

#include "automation/clock.h"
#include "close/stock_close.h"
#include "close/stock_close_dates.h"
#include "frame/call.h"
#include "frame/date_literal.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

// The run of a month close over all departments and the company.
namespace tallyra::close {
namespace {

using automation::Object;
using automation::Value;
using frame::Call;
using frame::Connection;
using frame::CursorLocation;
using frame::CursorType;
using frame::DateLiteral;
using frame::LockType;
using frame::Recordset;
using frame::sql;
namespace schema = frame::schema;

constexpr std::string_view day_before_all_closes = "2000/01/01";

// Every close document that nobody has approved, of whatever month, lines first. Both kinds of database get
// this form.
constexpr std::array<std::string_view, 4> cleanup_statements = {
    "Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
    " Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0",
    "Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
    " Where STKTRANHD.TRANTYPE='STKCLOSEALL' AND STKTRANHD.STATUSSN=0",
    "Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0",
    "Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STKCLOSEALL' AND STKTRANHD.STATUSSN=0",
};

// Stands in for a rollback of the run, whose documents are committed one by one.
void remove_unapproved_documents(Connection& connection) {
  connection.begin();
  for (const auto statement : cleanup_statements) connection.execute(statement);
  connection.commit();
}

// The next number of the close documents; false when none is issued and the system object knows why.
bool issue_document_number(Value& number) {
  const Value issued =
      frame::collaborators().system.call("GetTableKeyID", schema::number_series::month_close,
                                         schema::column::transaction_number, automation::ref(number));
  return !automation::equals_number(issued, 0);
}

}  // namespace

float CStockClose::Insert(Value pCloseDT, Object& colFieldName, Object& colFieldValue) {
  return frame::run_method(*this, 2, [&](Call& call) {
    Recordset& records = call.recordset(0);
    Recordset& departments = call.recordset(1);
    records.set_cursor_location(CursorLocation::client);
    departments.set_cursor_location(CursorLocation::client);
    const frame::FieldCollections fields{colFieldName, colFieldValue};

    const DateLiteral literal(system_database());
    std::string close_date;
    automation::append_concatenated(close_date, pCloseDT);
    std::string close_literal = literal.of_text(close_date);
    NextCloseDT = next_day_literal(literal, close_date);

    call.require_fields(fields);
    call.power_check(schema::function_code::month_close);
    if (!call.has_right("CanInsert")) call.refuse(frame::message::no_right);

    call.open_connection();
    const auto open_this_close = [&] {
      records.open(sql("Select top 1 * From STKCLOSEHD WHERE CLOSEDT={}", close_literal), call.connection,
                   CursorType::static_copy);
    };
    open_this_close();
    if (!records.at_end()) call.refuse(frame::message::already_exists);
    records.close();

    records.open(sql("Select Top 1 * From STKCLOSEHD Where CLOSEDT<{} Order By CLOSEDT DESC", close_literal),
                 call.connection, CursorType::static_copy);
    std::string previous_close = literal.of_text(day_before_all_closes);
    if (!records.at_end()) {
      records.move_first();
      previous_close = literal.of_day(automation::to_date(records.value(schema::column::close_date)));
    }
    records.close();
    PrevCloseDT = std::move(previous_close);
    TodayDT = literal.of_date(automation::today());

    departments.open("Select DEPTNO,DEPTNM FROM DEPARTS  Order by DEPTNO", call.connection,
                     CursorType::static_copy, LockType::batch_optimistic);
    if (departments.at_end()) {
      call.set_error(1, "Department have not been setted");
      call.leave();
    }
    departments.move_first();
    remove_unapproved_documents(call.connection);

    const auto give_up = [&] {
      remove_unapproved_documents(call.connection);
      call.connection.close();
      call.leave();
    };

    const frame::Field department = departments.field(schema::column::department);
    const frame::Field department_name = departments.field(schema::column::department_name);
    Value document_number{std::string()};
    for (; !departments.at_end(); departments.move_next()) {
      std::string name;
      automation::append_concatenated(name, department_name.value());
      CurDeptNm = std::move(name);
      if (!issue_document_number(document_number)) {
        call.copy_error(frame::collaborators().system);
        call.leave();
      }
      std::string close_id = automation::to_text(document_number);
      std::string department_number = automation::to_text(department.value());
      STKMonthCloseDept(close_id, close_literal, department_number);
      if (get_ErrNumber() != 0) give_up();
    }
    departments.close();

    if (!issue_document_number(document_number)) {
      remove_unapproved_documents(call.connection);
      call.copy_error(frame::collaborators().system);
      call.leave();
    }
    std::string close_id = automation::to_text(document_number);
    STKMonthClose(close_id, close_literal);
    if (get_ErrNumber() != 0) give_up();

    open_this_close();
    const auto statement = call.try_build("GetInsertSQL", schema::table::month_close, fields, records);
    if (!statement) {
      remove_unapproved_documents(call.connection);
      call.copy_builder_error();
      records.close();
      call.connection.close();
      call.leave();
    }
    records.close();
    call.connection.begin();
    call.connection.execute(*statement);
    call.connection.commit();
    call.connection.close();
  });
}

}  // namespace tallyra::close
