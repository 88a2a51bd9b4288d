#include <string>

#include "automation/yield.h"
#include "close/stock_close.h"
#include "close/stock_close_document.h"
#include "frame/business_method.h"
#include "frame/collaborator_member.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

// The close document of the whole company, which prices each part.
namespace tallyra::close {
namespace {

using automation::ref;
using automation::Value;
using frame::Call;
using frame::Field;
using frame::Recordset;
using frame::sql;
namespace schema = frame::schema;

// The unit cost of a part by its price type, asked of the system object of this thread.
class PartCosts {
 public:
  PartCosts(const Call& call, const std::string& close_literal, const std::string& previous_literal)
      : close_literal_(close_literal),
        previous_literal_(previous_literal),
        connection_(call.connection.object()) {}

  // The quantity goes by reference: the cost function may put another in its place.
  double of_current_row(const Field& part, const Field& price_type, const Field& material_type,
                        Value& quantity) {
    const Value price = price_type.value();
    if (automation::equals_number(price, schema::price_type::moving_average) &&
        automation::exceeds_number(material_type.value(), schema::purchased_material_type_limit))
      return automation::to_double(part_cost_.now().call(part.object(), ref(close_literal_),
                                                         previous_literal_, ref(quantity), ref(connection_)));
    frame::CollaboratorMember& price_function =
        automation::equals_number(price, schema::price_type::last_price) ? last_price_ : average_price_;
    return automation::to_double(price_function.now().call(
        part.object(), ref(close_literal_), previous_literal_, ref(connection_), material_type.object()));
  }

  // As the cost functions have left it.
  std::string close_literal() const { return automation::to_text(close_literal_); }

 private:
  Value close_literal_;
  // The field of the object, which a close that is begun meanwhile sets anew.
  const std::string& previous_literal_;
  Value connection_;
  frame::CollaboratorMember part_cost_{&frame::Collaborators::system, "GetPartCost"};
  frame::CollaboratorMember last_price_{&frame::Collaborators::system, "GetLastUprice"};
  frame::CollaboratorMember average_price_{&frame::Collaborators::system, "GetAvgUprice"};
};

// The document in the making, a line for each row of the totals.
class CompanyDocument {
 public:
  explicit CompanyDocument(const CloseDocument& document) : document_(document) {}

  void write_header() {
    const auto& [connection, number, date, user, today] = document_;
    connection.execute(
        sql("Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,ADDBY,ADDDT,EDITBY,EDITDT)"
            " Values('{}','STKCLOSEALL',0,{},'{}',{},'{}',{})",
            number, date, user, today, user, today));
  }

  void write_line(const Field& part, const Value& quantity, double cost) {
    const auto& [connection, number, date, user, today] = document_;
    frame::append_sql(
        statement_.restart_text(),
        "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
        " VALUES('{}','',0,'{}',{},{},'Month`s close','{}',{},'{}',{})",
        number, part.value(), automation::to_double(quantity), cost, user, today, user, today);
    connection.execute(statement_);
  }

 private:
  CloseDocument document_;
  Value statement_;
};

void open_totals(Recordset& rows, const frame::Connection& connection, const std::string& document_date) {
  rows.open(
      sql("Select PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT,SUM(STKTRANDT.QTY) AS QTY"
          " From (STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO)"
          " Inner Join PARTS On STKTRANDT.PARTNO=PARTS.PARTNO  Where STKTRANHD.TRANDT={}"
          " AND STKTRANHD.TRANTYPE='STK027CLOSE' "
          " GROUP BY PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT"
          " Order by PARTS.MTYPESN,STKTRANDT.PARTNO ASC",
          document_date),
      connection, frame::CursorType::static_copy);
}

}  // namespace

float CStockClose::STKMonthClose(std::string& cCloseID, std::string& cCloseDT) {
  return frame::run_method(*this, [&](Call& call) {
    Recordset& rows = call.recordset();
    rows.set_cursor_location(frame::CursorLocation::client);
    call.connection.set_command_timeout(0);
    call.open_connection();
    open_totals(rows, call.connection, NextCloseDT);

    call.connection.begin();
    if (!rows.at_end()) {
      CompanyDocument document({call.connection, cCloseID, NextCloseDT, user_id(), TodayDT});
      document.write_header();
      const Field part = rows.field(schema::column::part);
      const Field price_type = rows.field(schema::column::price_type);
      const Field material_type = rows.field(schema::column::material_type);
      const Field total = rows.field(schema::column::quantity);
      PartCosts costs(call, cCloseDT, PrevCloseDT);
      for (; !rows.at_end(); rows.move_next(), automation::yield()) {
        Value quantity(automation::to_double(total.value()));
        const double cost = costs.of_current_row(part, price_type, material_type, quantity);
        document.write_line(part, quantity, cost);
      }
      cCloseDT = costs.close_literal();
    }
    call.connection.commit();
    rows.close();
  });
}

}  // namespace tallyra::close
