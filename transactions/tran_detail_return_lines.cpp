#include <limits>
#include <string>

#include "automation/convert.h"
#include "automation/error.h"
#include "frame/business_method.h"
#include "frame/find_field.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"
#include "transactions/tran_detail.h"

// The lines of purchase returns, which are kept numbered without gaps.
namespace tallyra::transactions {
namespace {

using automation::Object;
using frame::Call;
using frame::CursorType;
using frame::FieldCollections;
using frame::find_field;
using frame::NameMatch;
using frame::Recordset;
using frame::sql;
namespace schema = frame::schema;

constexpr CursorType static_copy = CursorType::static_copy;

std::string part_of(const FieldCollections& fields) {
  const auto given = find_field(fields, schema::column::part, NameMatch::any_case);
  return given ? frame::text_of(*given) : std::string();
}

// Empty when the document goes to nobody who is a supplier.
std::string supplier_of(Call& call, const std::string& document) {
  Recordset& found = call.recordset();
  // The join condition ends at the name of the table.
  found.open(sql("SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS"
                 " ON STKTRANHD.DEPTNOTO =SUPPLIERS  WHERE STKTRANHD.TRANNO='{}'",
                 document),
             call.connection, static_copy);
  std::string supplier;
  if (!found.at_end()) supplier = frame::text_of(found.value(schema::column::target_department));
  found.close();
  return supplier;
}

// Refuses to give a part back to a supplier it never came from.
void require_receipt(Call& call, const std::string& supplier, const std::string& part) {
  Recordset& receipts = call.recordset();
  receipts.open(sql("SELECT TOP 1 STKTRANHD.TRANNO FROM STKTRANHD INNER JOIN STKTRANDT"
                    " ON STKTRANHD.TRANNO=STKTRANDT.TRANNO WHERE STKTRANHD.DEPTNOTO='{}'"
                    " AND STKTRANHD.TRANTYPE='STK010POREV' AND STKTRANDT.PARTNO='{}'",
                    supplier, part),
                call.connection, static_copy);
  if (receipts.at_end()) call.refuse(frame::message::never_received);
  receipts.close();
}

bool number_is_taken(Call& call, const std::string& document, std::int16_t number) {
  Recordset& line = call.recordset();
  line.open(sql("Select * From STKTRANDT Where TRANNO='{}'  And SN={}", document, number), call.connection,
            static_copy);
  const bool taken = !line.at_end();
  line.close();
  return taken;
}

// Frees a line number by moving the lines at and above it up by one, the highest first, so that each new
// number is free when it is taken. A line that would leave the range of line numbers is Error 6.
void open_gap(Call& call, const std::string& document, std::int16_t number) {
  Recordset& lines = call.recordset();
  lines.open(sql("Select STKTRANDT.* FROM STKTRANDT Where STKTRANDT.TRANNO='{}' AND STKTRANDT.SN>={}"
                 "  ORDER BY STKTRANDT.SN DESC ",
                 document, number),
             call.connection, static_copy);
  const frame::Field line_number = lines.field(schema::column::line_number);
  for (; !lines.at_end(); lines.move_next()) {
    const std::int16_t current = automation::to_int16(line_number.value());
    if (current == std::numeric_limits<std::int16_t>::max())
      throw automation::Error(automation::error_number::overflow);
    call.connection.execute(
        sql("UPDATE STKTRANDT SET SN={} Where TRANNO='{}' AND SN={}", current + 1, document, current));
  }
  lines.close();
}

}  // namespace

float CTranDetail::InsertRTN(std::string cTRANNO, std::int16_t& intSN, Object& colFieldName,
                             Object& colFieldValue, std::int16_t& iRTNType) {
  return run_method(*this, [&](Call& call) {
    const FieldCollections fields{colFieldName, colFieldValue};
    call.require_fields(fields);
    call.power_check(schema::function_code::purchase_return);
    if (!call.has_right("CanInsert")) call.refuse(frame::message::no_right);

    call.open_connection();
    Recordset& recordset = call.recordset();
    recordset.set_cursor_location(frame::CursorLocation::server);
    if (iRTNType != 0) {
      const std::string part = part_of(fields);
      require_receipt(call, supplier_of(call, cTRANNO), part);
    }
    recordset.open("Select TOP 1 * From STKTRANDT", call.connection, static_copy);
    const std::string statement = call.insert_statement(schema::table::document_line, fields);
    recordset.close();

    if (!number_is_taken(call, cTRANNO, intSN)) {
      call.connection.execute(statement);
      call.connection.close();
      return;
    }
    call.roll_back_on_error();
    call.connection.begin();
    open_gap(call, cTRANNO, intSN);
    call.connection.execute(statement);
    call.connection.commit();
    call.connection.close();
  });
}

float CTranDetail::UpdateRTN(std::string cTRANNO, std::int16_t& intSN, Object& colFieldName,
                             Object& colFieldValue) {
  return run_method(*this, [&](Call& call) {
    const FieldCollections fields{colFieldName, colFieldValue};
    frame::OwnerTest owner =
        frame::closed_owner_test(sql("Select ADDBY from STKTRANDT WHERE TRANNO='{}'", cTRANNO), static_copy,
                                 frame::CursorLocation::server);
    owner.row = frame::OwnerTest::Row::first;
    // A new line number has to be one; where the line is, intSN alone says.
    const auto check_line_number = [&] {
      if (const auto given = find_field(fields, schema::column::line_number, NameMatch::exact))
        automation::to_int16(*given);
    };
    update_rows(call, fields,
                {.table = schema::table::document_line,
                 .function_code = schema::function_code::purchase_return,
                 .owner = std::move(owner),
                 .opening = frame::Opening::if_closed,
                 .before_structure = check_line_number,
                 .structure = {sql("Select * From STKTRANDT Where TRANNO='{}' AND SN={}", cTRANNO, intSN),
                               static_copy},
                 .condition = sql(" Where TRANNO='{}' And SN={}", cTRANNO, intSN),
                 .transaction = frame::Transaction::rolled_back_on_error});
  });
}

}  // namespace tallyra::transactions
