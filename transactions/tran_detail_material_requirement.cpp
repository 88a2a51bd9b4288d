#include <algorithm>
#include <optional>
#include <string>

#include "automation/convert.h"
#include "frame/business_method.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "transactions/tran_detail.h"
#include "transactions/tran_detail_bill_of_materials.h"

// How much of a part an order requires.
namespace tallyra::transactions {
namespace {

using automation::to_double;
using automation::Value;
using frame::Call;
using frame::CursorType;
using frame::Field;
using frame::Recordset;
using frame::sql;
namespace column = frame::schema::column;
namespace document_type = frame::schema::document_type;

// How many bills one query asks for: few queries, and statements of a length that every engine takes.
constexpr std::size_t bills_per_query = 200;

// The part of the current row, in a text that is used again for each row.
class PartText {
 public:
  explicit PartText(Field field) : field_(std::move(field)) {}
  const std::string& of_current_row() {
    text_.clear();
    automation::append_concatenated(text_, field_.value());
    return text_;
  }

 private:
  Field field_;
  std::string text_;
};

std::optional<double> production_order_requirement(Call& call, const std::string& order,
                                                   const std::string& part) {
  Recordset& rows = call.recordset();
  // A sum with Null is Null and drops out of the first select, so a line of which only one quantity is known
  // counts in one of the others. The two kinds of database share no function that would do.
  rows.open(sql("Select CODETAIL.PARTNO,SUM(CODETAIL.COQTY+CODETAIL.TEMPLETQTY) AS QTY From CODETAIL"
                " Inner Join COHD On CODETAIL.CONO=COHD.CONO Where CODETAIL.CONO='{}'"
                " And CODETAIL.PARTNO='{}' And COHD.STATUSSN=1 Group By CODETAIL.PARTNO"
                " Union All Select CODETAIL.PARTNO,SUM(CODETAIL.COQTY) AS QTY From CODETAIL"
                " Inner Join COHD On CODETAIL.CONO=COHD.CONO Where CODETAIL.CONO='{}'"
                " And CODETAIL.PARTNO='{}' And COHD.STATUSSN=1 And CODETAIL.TEMPLETQTY Is Null"
                " Group By CODETAIL.PARTNO"
                " Union All Select CODETAIL.PARTNO,SUM(CODETAIL.TEMPLETQTY) AS QTY From CODETAIL"
                " Inner Join COHD On CODETAIL.CONO=COHD.CONO Where CODETAIL.CONO='{}'"
                " And CODETAIL.PARTNO='{}' And COHD.STATUSSN=1 And CODETAIL.COQTY Is Null"
                " Group By CODETAIL.PARTNO",
                order, part, order, part, order, part),
            call.connection, CursorType::static_copy);
  std::optional<double> quantity;
  for (; !rows.at_end(); rows.move_next()) {
    const Value sum = rows.value(column::quantity);
    quantity = quantity.value_or(0) + (sum.is_null() ? 0 : to_double(sum));
  }
  rows.close();
  return quantity;
}

void load_order(Call& call, const std::string& order, BillOfMaterials& bill) {
  Recordset& rows = call.recordset();
  rows.open(sql("Select SODTBOM.PARTNO,SODTBOM.SOQTY AS QTY From SODTBOM Where SODTBOM.SONO='{}'", order),
            call.connection, CursorType::static_copy);
  if (!rows.at_end()) {
    PartText part(rows.field(column::part));
    const Field quantity = rows.field(column::quantity);
    for (; !rows.at_end(); rows.move_next()) {
      const std::string& number = part.of_current_row();
      bill.order(number, to_double(quantity.value()));
    }
  }
  rows.close();
}

// These part numbers come out of the database and are not for a client to spell, so an apostrophe is doubled.
void append_literal(std::string& text, const std::string& part) {
  text += '\'';
  for (const char c : part) {
    if (c == '\'') text += c;
    text += c;
  }
  text += '\'';
}

void load_bills(Call& call, const std::string& assemblies, BillOfMaterials& bill) {
  Recordset& rows = call.recordset();
  rows.open(sql("Select ASSMBOM.ASSMNO,ASSMBOM.PARTNO,ASSMBOM.ENGQTY,ASSMBOM.URATE,ASSMBOM.WSRATE"
                " From ASSMBOM Where ASSMBOM.ASSMNO In ({})",
                assemblies),
            call.connection, CursorType::static_copy);
  if (!rows.at_end()) {
    PartText assembly(rows.field(column::assembly));
    PartText component(rows.field(column::part));
    const Field quantity = rows.field(column::engineering_quantity);
    const Field usage = rows.field(column::usage_rate);
    const Field waste = rows.field(column::waste_rate);
    for (; !rows.at_end(); rows.move_next()) {
      // In the order of the select list.
      const std::string& whole = assembly.of_current_row();
      const std::string& used = component.of_current_row();
      const double pieces = to_double(quantity.value());
      const double rate = to_double(usage.value());
      const double share = to_double(waste.value());
      bill.add(whole, used, pieces * rate * (1 + share));
    }
  }
  rows.close();
}

// An engine that does not care for case or trailing blanks, as the two kinds of database mostly do not, finds
// one part in the part master under both spellings.
bool are_one_part(Call& call, const BillOfMaterials::Spellings& spellings) {
  std::string one;
  std::string other;
  append_literal(one, spellings.one);
  append_literal(other, spellings.other);
  Recordset& rows = call.recordset();
  rows.open(sql("Select PARTS.PARTNO From PARTS Where PARTS.PARTNO={} And PARTS.PARTNO={}", one, other),
            call.connection, CursorType::static_copy);
  const bool found = !rows.at_end();
  rows.close();
  return found;
}

std::optional<double> sales_order_requirement(Call& call, const std::string& order, const std::string& part) {
  BillOfMaterials bill;
  load_order(call, order, bill);
  std::string assemblies;
  // Each query brings up the parts that the next ones ask for; nothing is asked for twice, so even a bill
  // that contains itself comes to an end here.
  for (std::size_t asked = 0; asked < bill.parts();) {
    const std::size_t end = std::min(bill.parts(), asked + bills_per_query);
    assemblies.clear();
    for (; asked < end; ++asked) {
      if (!assemblies.empty()) assemblies += ',';
      append_literal(assemblies, bill.part(asked));
    }
    load_bills(call, assemblies, bill);
    bill.next_lot();
  }
  const auto spellings = bill.two_spellings(part);
  if (spellings && are_one_part(call, *spellings)) bill.unite_spellings();
  return bill.requirement(part);
}

bool moves_for_sales_order(std::string_view type) {
  return type == document_type::issue_to_sales_order || type == document_type::return_from_sales_order;
}

}  // namespace

double CTranDetail::GetMRPQty(std::string cMONO, std::string& cPartNo, std::string& cTranType) {
  return run_query(*this, 0.0, [&](Call& call) {
    call.open_connection();
    call.recordset().set_cursor_location(frame::CursorLocation::server);
    std::optional<double> quantity;
    if (!moves_for_sales_order(cTranType)) quantity = production_order_requirement(call, cMONO, cPartNo);
    if (!quantity) quantity = sales_order_requirement(call, cMONO, cPartNo);
    if (!quantity) call.refuse(frame::message::no_requirement);
    call.connection.close();
    return *quantity;
  });
}

}  // namespace tallyra::transactions
