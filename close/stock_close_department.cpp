#include <string>

#include "automation/yield.h"
#include "close/stock_close.h"
#include "close/stock_close_document.h"
#include "frame/business_method.h"
#include "frame/schema/names.h"
#include "frame/sql.h"

// The close document of one department.
namespace tallyra::close {
namespace {

using automation::Value;
using frame::Call;
using frame::Connection;
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

// The document in the making. The texts of the two kinds of line differ in the blanks around the price.
class DepartmentDocument {
 public:
  explicit DepartmentDocument(const CloseDocument& document) : document_(document) {}

  void write_header(const std::string& department) {
    const auto& [connection, number, date, user, today] = document_;
    // The blank behind the department number is part of the header; comparisons of department numbers ignore
    // it.
    connection.execute(
        sql("Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,DEPTNOFR,NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
            " Values('{}','STK027CLOSE',0,{},'{} ','','{}',{},'{}',{})",
            number, date, department, user, today, user, today));
  }

  // A line for each part of either list, in the order of part numbers.
  void write_lines(PartQuantities& outgoing, PartQuantities& transfers) {
    for (; !outgoing.at_end(); outgoing.move_next(), automation::yield()) {
      double quantity = automation::to_double(outgoing.quantity());
      while (!transfers.at_end() && transfers.part() < outgoing.part()) write_transfer(transfers);
      if (!transfers.at_end() && transfers.part() == outgoing.part()) {
        quantity += automation::to_double(transfers.quantity());
        transfers.move_next();
      }
      write_merged(outgoing.part(), quantity);
    }
    while (!transfers.at_end()) write_transfer(transfers);
  }

 private:
  void write_merged(const std::string& part, double quantity) {
    const auto& [connection, number, date, user, today] = document_;
    frame::append_sql(
        statement_.restart_text(),
        "Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT)"
        " Values('{}','',0,'{}',{}, 0 ,'{}',{},'{}',{})",
        number, part, quantity, user, today, user, today);
    connection.execute(statement_);
  }

  void write_transfer(PartQuantities& transfers) {
    const auto& [connection, number, date, user, today] = document_;
    magnitude_.clear();
    automation::append_magnitude(magnitude_, transfers.quantity());
    frame::append_sql(
        statement_.restart_text(),
        "Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT)"
        " Values('{}','',0,'{}',{},0,'{}',{},'{}',{})",
        number, transfers.part(), magnitude_, user, today, user, today);
    connection.execute(statement_);
    transfers.move_next();
    automation::yield();
  }

  CloseDocument document_;
  Value statement_;
  std::string magnitude_;
};

// What went out of the department, and the close documents before this one, which bring the stock forward.
void open_outgoing(Recordset& rows, const Connection& connection, const std::string& department,
                   const std::string& after, const std::string& until) {
  rows.open(
      sql("Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD"
          " On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOFR='{}' And STKTRANHD.TRANDT>{}"
          " AND STKTRANHD.TRANDT<={} AND  STKTRANHD.TRANTYPE<>'STKCLOSEALL'"
          " GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO",
          department, after, until),
      connection, CursorType::static_copy);
}

void open_transfers(Recordset& rows, const Connection& connection, const std::string& department,
                    const std::string& after, const std::string& until) {
  rows.open(sql("Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD"
                " On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOTO='{}'"
                " And STKTRANHD.TRANTYPE='STK024MRPL' And STKTRANHD.TRANDT>{} AND STKTRANHD.TRANDT<={}"
                " GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO",
                department, after, until),
            connection, CursorType::static_copy);
}

}  // namespace

float CStockClose::STKMonthCloseDept(std::string& cCloseID, std::string& cCloseDT, std::string& cDeptNo) {
  return frame::run_method(*this, 3, [&](Call& call) {
    for (const std::size_t i : {0U, 1U, 2U}) call.recordset(i).set_cursor_location(CursorLocation::client);
    call.connection.set_command_timeout(0);
    call.open_connection();

    Recordset& outgoing_rows = call.recordset(0);
    Recordset& transfer_rows = call.recordset(1);
    open_outgoing(outgoing_rows, call.connection, cDeptNo, PrevCloseDT, cCloseDT);
    open_transfers(transfer_rows, call.connection, cDeptNo, PrevCloseDT, cCloseDT);
    if (!outgoing_rows.at_end()) outgoing_rows.move_first();
    if (!transfer_rows.at_end()) transfer_rows.move_first();

    call.connection.begin();
    PartQuantities outgoing(outgoing_rows);
    PartQuantities transfers(transfer_rows);
    DepartmentDocument document({call.connection, cCloseID, NextCloseDT, user_id(), TodayDT});
    if (!outgoing.at_end() || !transfers.at_end()) document.write_header(cDeptNo);
    document.write_lines(outgoing, transfers);
    call.connection.commit();
    outgoing_rows.close();
    transfer_rows.close();
  });
}

}  // namespace tallyra::close
