#include <string>

#include "automation/convert.h"
#include "frame/business_method.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "transactions/tran_detail.h"

// What a client asks of an order before it writes a line against it.
namespace tallyra::transactions {
namespace {

using frame::Call;
using frame::Recordset;
using frame::sql;
namespace column = frame::schema::column;

void open_for_queries(Call& call) {
  call.open_connection();
  call.recordset().set_cursor_location(frame::CursorLocation::server);
}

// A column of the first row, 0 when there is no row.
double quantity(Call& call, std::string statement, std::string_view name) {
  Recordset& rows = call.recordset();
  rows.open(std::move(statement), call.connection, frame::CursorType::static_copy);
  const double result = rows.at_end() ? 0 : automation::to_double(rows.value(name));
  rows.close();
  return result;
}

bool exists(Call& call, std::string statement) {
  Recordset& rows = call.recordset();
  rows.open(std::move(statement), call.connection, frame::CursorType::static_copy);
  const bool found = !rows.at_end();
  rows.close();
  return found;
}

}  // namespace

double CTranDetail::PORefQty(std::string& cReference, std::int32_t& intSN, double& nPOQty, double& nRevQty,
                             double& nRtnQty, std::string& cType) {
  return run_query(*this, 0.0, [&](Call& call) {
    open_for_queries(call);
    if (cType == "PO")
      nPOQty = quantity(call,
                        sql("Select PODT.PONO,PODT.PARTNO,PODT.POQTY+PODT.DEDUCTQTY As POQTY From PODT"
                            " Inner Join POHD On PODT.PONO=POHD.PONO Where PODT.PONO='{}' AND PODT.SN={}"
                            " And POHD.STATUSSN=1",
                            cReference, intSN),
                        column::ordered_quantity);
    else
      nPOQty = 0 - quantity(call,
                            sql("Select STKTRANDT.TRANNO,STKTRANDT.SN,STKTRANDT.QTY As POQTY From STKTRANDT"
                                " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
                                " Where STKTRANDT.TRANNO='{}' AND STKTRANDT.SN={} And STKTRANHD.STATUSSN=1",
                                cReference, intSN),
                            column::ordered_quantity);
    nRevQty = quantity(call,
                       sql("Select STKTRANDT.REFERENCE,STKTRANDT.SN,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT"
                           " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
                           " Where STKTRANDT.REFERENCE='{}' AND STKTRANDT.SN={}"
                           " AND STKTRANHD.TRANTYPE='STK010POREV' And STKTRANHD.STATUSSN=1"
                           " Group By STKTRANDT.REFERENCE,STKTRANDT.SN",
                           cReference, intSN),
                       column::quantity);
    // Returns against an order line bear this code, not that of the purchase returns.
    nRtnQty = quantity(call,
                       sql("Select STKTRANDT.REFERENCE,STKTRANDT.SN,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT"
                           " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
                           " Where STKTRANDT.REFERENCE='{}' AND STKTRANDT.SN={}"
                           " AND STKTRANHD.TRANTYPE='STK010PORTN' And STKTRANHD.STATUSSN=1 "
                           " Group By STKTRANDT.REFERENCE,STKTRANDT.SN",
                           cReference, intSN),
                       column::quantity);
    call.connection.close();
    return 100.0;
  });
}

std::int16_t CTranDetail::POExam(std::string cOrderNO) {
  constexpr std::int16_t neither = 0;
  constexpr std::int16_t purchase_order = 1;
  constexpr std::int16_t purchase_return = 2;
  return run_query(*this, neither, [&](Call& call) {
    open_for_queries(call);
    std::int16_t kind = neither;
    if (exists(call, sql("Select POHD.PONO From POHD Where POHD.PONO='{}'", cOrderNO)))
      kind = purchase_order;
    else if (exists(call, sql("Select STKTRANHD.TRANNO From STKTRANHD Where STKTRANHD.TRANNO='{}'"
                              " And STKTRANHD.TRANTYPE='STK011PORTN'",
                              cOrderNO)))
      kind = purchase_return;
    call.connection.close();
    return kind;
  });
}

std::string CTranDetail::OrderTypeExam(std::string cOrderNO) {
  return run_query(*this, std::string(), [&](Call& call) {
    open_for_queries(call);
    std::string kind;
    if (exists(call, sql("Select SOHD.SONO From SOHD Where SONO='{}'", cOrderNO)))
      kind = "SO";
    else if (exists(call, sql("Select COHD.CONO From COHD Where COHD.CONO='{}'", cOrderNO)))
      kind = "MO";
    call.connection.close();
    return kind;
  });
}

}  // namespace tallyra::transactions
