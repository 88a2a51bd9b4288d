#include <algorithm>
#include <optional>
#include <string>

#include "automation/convert.h"
#include "frame/method.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "transactions/bill_of_materials.h"
#include "transactions/tran_detail.h"

// How much of a part an order requires.
namespace tallyra::transactions {
namespace {

using automation::to_double;
using frame::Call;
using frame::CursorType;
using frame::Field;
using frame::Recordset;
using frame::sql;
namespace column = frame::schema::column;
namespace transaction_type = frame::schema::transaction_type;

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
  rows.open(sql("Select CODETAIL.PARTNO,SUM(CODETAIL.COQTY+CODETAIL.TEMPLETQTY) AS QTY From CODETAIL"
                " Inner Join COHD On CODETAIL.CONO=COHD.CONO Where CODETAIL.CONO='{}'"
                " And CODETAIL.PARTNO='{}' And COHD.STATUSSN=1 Group By CODETAIL.PARTNO",
                order, part),
            call.connection, CursorType::static_copy);
  std::optional<double> quantity;
  if (!rows.at_end()) quantity = to_double(rows.value(column::quantity));
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
    for (; !rows.at_end(); rows.move_next()) bill.order(part.of_current_row(), to_double(quantity.value()));
  }
  rows.close();
}

// These part numbers come out of the database and are not for a client to spell, so an apostrophe is doubled.
void append_list_item(std::string& list, const std::string& part) {
  if (!list.empty()) list += ',';
  list += '\'';
  for (const char c : part) {
    if (c == '\'') list += c;
    list += c;
  }
  list += '\'';
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
      const double per_piece =
          to_double(quantity.value()) * to_double(usage.value()) * (1 + to_double(waste.value()));
      bill.add(assembly.of_current_row(), component.of_current_row(), per_piece);
    }
  }
  rows.close();
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
    for (; asked < end; ++asked) append_list_item(assemblies, bill.part(asked));
    load_bills(call, assemblies, bill);
  }
  return bill.requirement(part);
}

bool moves_for_sales_order(std::string_view type) {
  return type == transaction_type::issue_to_sales_order || type == transaction_type::return_from_sales_order;
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
