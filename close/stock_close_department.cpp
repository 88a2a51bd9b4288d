#include <string>

#include "automation/yield.h"
#include "close/stock_close.h"
#include "frame/call.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

// The close document of one department.
namespace tallyra::close {
namespace {

using automation::Value;
using frame::Call;
using frame::CursorLocation;
using frame::CursorType;
using frame::Field;
using frame::Recordset;
using frame::sql;
namespace schema = frame::schema;

// Quantities by part, in the order of part numbers; the part of the current row is read once per row.
class PartQuantities {
 public:
  explicit PartQuantities(Recordset& rows)
      : rows_(rows),
        part_(rows.field(schema::column::part)),
        quantity_(rows.field(schema::column::quantity)) {
    read_part();
  }

  bool at_end() const { return at_end_; }
  const std::string& part() const { return current_part_; }
  Value quantity() const { return quantity_.value(); }
  void move_next() {
    rows_.move_next();
    read_part();
  }

 private:
  void read_part() {
    at_end_ = rows_.at_end();
    current_part_.clear();
    if (!at_end_) automation::append_concatenated(current_part_, part_.value());
  }

  Recordset& rows_;
  Field part_;
  Field quantity_;
  std::string current_part_;
  bool at_end_ = false;
};

// Writes the lines of the document. The texts of the two kinds of line differ in the blanks around the price.
class DocumentLines {
 public:
  DocumentLines(frame::Connection& connection, const std::string& document, const std::string& user,
                const std::string& today)
      : connection_(connection), document_(document), user_(user), today_(today) {}

  void write_merged(const std::string& part, double quantity) {
    frame::append_sql(
        statement_.restart_text(),
        "Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT)"
        " Values('{}','',0,'{}',{}, 0 ,'{}',{},'{}',{})",
        document_, part, quantity, user_, today_, user_, today_);
    connection_.execute(statement_);
  }

  void write_incoming(PartQuantities& incoming) {
    magnitude_.clear();
    automation::append_magnitude(magnitude_, incoming.quantity());
    frame::append_sql(
        statement_.restart_text(),
        "Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT)"
        " Values('{}','',0,'{}',{},0,'{}',{},'{}',{})",
        document_, incoming.part(), magnitude_, user_, today_, user_, today_);
    connection_.execute(statement_);
    incoming.move_next();
    automation::yield();
  }

 private:
  frame::Connection& connection_;
  const std::string& document_;
  const std::string& user_;
  const std::string& today_;
  Value statement_;
  std::string magnitude_;
};

}  // namespace

float CStockClose::STKMonthCloseDept(std::string& cCloseID, std::string& cCloseDT, std::string& cDeptNo) {
  return frame::run_method(*this, 3, [&](Call& call) {
    for (const std::size_t i : {0U, 1U, 2U}) call.recordset(i).set_cursor_location(CursorLocation::client);
    call.connection.set_command_timeout(0);
    call.open_connection();

    Recordset& outgoing_rows = call.recordset(0);
    outgoing_rows.open(
        sql("Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD"
            " On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOFR='{}' And STKTRANHD.TRANDT>{}"
            " AND STKTRANHD.TRANDT<={} AND  STKTRANHD.TRANTYPE<>'STKCLOSEALL'"
            " GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO",
            cDeptNo, PrevCloseDT, cCloseDT),
        call.connection, CursorType::static_copy);
    Recordset& incoming_rows = call.recordset(1);
    incoming_rows.open(
        sql("Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD"
            " On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOTO='{}'"
            " And STKTRANHD.TRANTYPE='STK024MRPL' And STKTRANHD.TRANDT>{} AND STKTRANHD.TRANDT<={}"
            " GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO",
            cDeptNo, PrevCloseDT, cCloseDT),
        call.connection, CursorType::static_copy);

    if (!outgoing_rows.at_end()) outgoing_rows.move_first();
    if (!incoming_rows.at_end()) incoming_rows.move_first();
    call.connection.begin();

    PartQuantities outgoing(outgoing_rows);
    PartQuantities incoming(incoming_rows);
    if (!outgoing.at_end() || !incoming.at_end()) {
      // The blank behind the department number is part of the header; comparisons of department numbers
      // ignore it.
      call.connection.execute(sql(
          "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,DEPTNOFR,NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
          " Values('{}','STK027CLOSE',0,{},'{} ','','{}',{},'{}',{})",
          cCloseID, NextCloseDT, cDeptNo, user_id(), TodayDT, user_id(), TodayDT));
    }

    DocumentLines lines(call.connection, cCloseID, user_id(), TodayDT);
    for (; !outgoing.at_end(); outgoing.move_next(), automation::yield()) {
      double quantity = automation::to_double(outgoing.quantity());
      while (!incoming.at_end() && incoming.part() < outgoing.part()) lines.write_incoming(incoming);
      if (!incoming.at_end() && incoming.part() == outgoing.part()) {
        quantity += automation::to_double(incoming.quantity());
        incoming.move_next();
      }
      lines.write_merged(outgoing.part(), quantity);
    }
    while (!incoming.at_end()) lines.write_incoming(incoming);

    call.connection.commit();
    outgoing_rows.close();
    incoming_rows.close();
  });
}

}  // namespace tallyra::close
