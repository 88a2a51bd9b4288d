#include <optional>
#include <string>

#include "automation/clock.h"
#include "close/stock_close.h"
#include "close/stock_close_failure.h"
#include "close/stock_close_period.h"
#include "frame/business_method.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

// The run of a month close over all departments and the company.
namespace tallyra::close {
namespace {

using automation::Object;
using automation::Value;
using frame::Call;
using frame::CursorType;
using frame::DateLiteral;
using frame::FieldCollections;
using frame::Recordset;
using frame::sql;
namespace schema = frame::schema;

// The date of the close before the first one; a stocktaking has another, see its posting.
constexpr std::string_view close_before_the_first = "2000/01/01";

Recordset& records_of(Call& call) {
  return call.recordset(0);
}

Recordset& departments_of(Call& call) {
  return call.recordset(1);
}

void require_right_to_close(Call& call, const FieldCollections& fields) {
  call.require_fields(fields);
  call.power_check(schema::function_code::month_close);
  if (!call.has_right("CanInsert")) call.refuse(frame::message::no_right);
}

void open_record(Call& call, const std::string& close_date) {
  records_of(call).open(sql("Select top 1 * From STKCLOSEHD WHERE CLOSEDT={}", close_date), call.connection,
                        CursorType::static_copy);
}

void require_no_record(Call& call, const std::string& close_date) {
  open_record(call, close_date);
  if (!records_of(call).at_end()) call.refuse(frame::message::already_exists);
  records_of(call).close();
}

std::string previous_close(Call& call, const std::string& close_date, const DateLiteral& literal) {
  Recordset& records = records_of(call);
  records.open(sql("Select Top 1 * From STKCLOSEHD Where CLOSEDT<{} Order By CLOSEDT DESC", close_date),
               call.connection, CursorType::static_copy);
  std::string previous = literal.of_text(close_before_the_first);
  if (!records.at_end()) {
    records.move_first();
    previous = literal.of_day(automation::to_date(records.value(schema::column::close_date)));
  }
  records.close();
  return previous;
}

void open_departments(Call& call) {
  Recordset& departments = departments_of(call);
  departments.open("Select DEPTNO,DEPTNM FROM DEPARTS  Order by DEPTNO", call.connection,
                   CursorType::static_copy, frame::LockType::batch_optimistic);
  if (departments.at_end()) leave_without_departments(call);
  departments.move_first();
}

void write_record(Call& call, const FieldCollections& fields, const std::string& close_date) {
  open_record(call, close_date);
  Recordset& structure = records_of(call);
  const auto statement = call.try_build("GetInsertSQL", schema::table::month_close, fields, structure);
  if (!statement) leave_without_record_statement(call);
  structure.close();
  call.connection.begin();
  call.connection.execute(*statement);
  call.connection.commit();
  call.connection.close();
}

}  // namespace

// The numbers of the run's documents, all of one series. Each request hands over the number before it.
class DocumentNumbers {
 public:
  // Nothing when none is issued; the system object knows why.
  std::optional<std::string> next() {
    const Value issued =
        frame::collaborators().system.call("GetTableKeyID", schema::number_series::month_close,
                                           schema::column::document_number, automation::ref(number_));
    if (automation::equals_number(issued, 0)) return std::nullopt;
    return automation::to_text(number_);
  }

 private:
  Value number_{std::string()};
};

void CStockClose::close_departments(Call& call, DocumentNumbers& numbers, std::string& close_date) {
  Recordset& departments = departments_of(call);
  const frame::Field department = departments.field(schema::column::department);
  const frame::Field name = departments.field(schema::column::department_name);
  for (; !departments.at_end(); departments.move_next()) {
    CurDeptNm = frame::text_of(name.value());
    std::optional<std::string> number = numbers.next();
    if (!number) leave_without_department_number(call);
    std::string department_number = automation::to_text(department.value());
    STKMonthCloseDept(*number, close_date, department_number);
    if (get_ErrNumber() != 0) leave_after_failed_step(call);
  }
  departments.close();
}

void CStockClose::close_company(Call& call, DocumentNumbers& numbers, std::string& close_date) {
  std::optional<std::string> number = numbers.next();
  if (!number) leave_without_company_number(call);
  STKMonthClose(*number, close_date);
  if (get_ErrNumber() != 0) leave_after_failed_step(call);
}

float CStockClose::Insert(Value pCloseDT, Object& colFieldName, Object& colFieldValue) {
  return frame::run_method(*this, 2, [&](Call& call) {
    records_of(call).set_cursor_location(frame::CursorLocation::client);
    departments_of(call).set_cursor_location(frame::CursorLocation::client);
    const FieldCollections fields{colFieldName, colFieldValue};
    const DateLiteral literal(system_database());
    ClosePeriod period = period_until(frame::text_of(pCloseDT), literal);
    NextCloseDT = period.next_day;

    require_right_to_close(call, fields);
    call.open_connection();
    require_no_record(call, period.close);
    period.previous = previous_close(call, period.close, literal);
    period.today = literal.of_date(automation::today());
    PrevCloseDT = period.previous;
    TodayDT = period.today;
    open_departments(call);
    remove_unapproved_documents(call.connection);

    DocumentNumbers numbers;
    close_departments(call, numbers, period.close);
    close_company(call, numbers, period.close);
    write_record(call, fields, period.close);
  });
}

}  // namespace tallyra::close
