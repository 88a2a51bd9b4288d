#include "transactions/tran_head_line_copy.h"

#include <array>

#include "automation/clock.h"
#include "automation/convert.h"
#include "frame/date_literal.h"
#include "frame/find_field.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

namespace tallyra::transactions {
namespace {

using automation::Value;
using frame::Call;
using frame::DateLiteral;
using frame::Field;
using frame::Recordset;
namespace column = frame::schema::column;

std::string creator_of(const frame::FieldCollections& header) {
  const auto given = find_field(header, column::created_by, frame::NameMatch::exact);
  return given ? frame::text_of(*given) : std::string();
}

// The columns of the current line that a copy takes over.
struct Line {
  explicit Line(const Recordset& lines)
      : reference(lines.field(column::reference)),
        number(lines.field(column::line_number)),
        part(lines.field(column::part)),
        reference_part(lines.field(column::reference_part)),
        production_order(lines.field(column::production_order)),
        quantity(lines.field(column::quantity)),
        v_quantity(lines.field(column::v_quantity)),
        unit_price(lines.field(column::unit_price)),
        notes(lines.field(column::notes)) {}

  Field reference;
  Field number;
  Field part;
  Field reference_part;
  Field production_order;
  Field quantity;
  Field v_quantity;
  Field unit_price;
  Field notes;
};

}  // namespace

void copy_lines(Call& call, const frame::FieldCollections& header, const std::string& system_database,
                const std::string& from, const std::string& to) {
  Recordset& lines = call.recordset();
  lines.open(frame::sql("SELECT * FROM STKTRANDT WHERE TRANNO='{}'", from), call.connection,
             frame::CursorType::static_copy);
  if (!lines.at_end()) {
    const std::string user = creator_of(header);
    const Line line(lines);
    Value statement;
    for (; !lines.at_end(); lines.move_next()) {
      // In the order of the columns: braces keep it, the arguments of a call do not.
      const std::array<Value, 9> copied{
          line.reference.value(),      line.number.value(),           line.part.value(),
          line.reference_part.value(), line.production_order.value(), line.quantity.value(),
          line.v_quantity.value(),     line.unit_price.value(),       line.notes.value()};
      const auto& [reference, number, part, reference_part, order, quantity, v_quantity, price, notes] =
          copied;
      const DateLiteral literal(system_database);
      const std::string added = literal.of_time_stamp(automation::now());
      const std::string edited = literal.of_time_stamp(automation::now());
      // A number that is Null leaves a gap in the text; the database refuses it and the copy is given up.
      frame::append_sql(statement.restart_text(),
                        "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,REFPARTNO,MONO,QTY,VQTY,UPRICE,"
                        "NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
                        " VALUES('{}','{}',{},'{}','{}','{}',{},{},{},'{}','{}',{},'{}',{})",
                        to, reference, number, part, reference_part, order, quantity, v_quantity, price,
                        notes, user, added, user, edited);
      call.connection.execute(statement);
    }
  }
  lines.close();
}

}  // namespace tallyra::transactions
