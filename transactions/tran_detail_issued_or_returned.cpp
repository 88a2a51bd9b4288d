#include <optional>
#include <string>

#include "automation/convert.h"
#include "frame/business_method.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "transactions/tran_detail.h"

// What other documents have issued to an order and taken back from it.
namespace tallyra::transactions {
namespace {

using frame::sql;
namespace document_type = frame::schema::document_type;

// The movements of one part for one order in all documents but one, as they are stored: issues negative.
class Movements {
 public:
  Movements(const std::string& connection_string, const std::string& document, const std::string& order,
            const std::string& part)
      : document_(document), order_(order), part_(part) {
    connection_.open(connection_string);
    rows_.emplace();
    rows_->set_cursor_location(frame::CursorLocation::server);
  }

  double of_part(std::string_view type) {
    return sum(
        sql("Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD"
            " On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where STKTRANDT.TRANNO<>'{}'"
            " And STKTRANDT.REFERENCE='{}' And STKTRANDT.PARTNO='{}' And STKTRANHD.TRANTYPE='{}'"
            " And STKTRANHD.STATUSSN<>3 Group By STKTRANDT.PARTNO",
            document_, order_, part_, type));
  }

  double of_type(std::string_view type) {
    return sum(
        sql("Select STKTRANHD.TRANTYPE,STKTRANDT.REFERENCE,STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY"
            " From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
            " Where STKTRANDT.TRANNO<>'{}' And STKTRANDT.REFERENCE='{}' AND STKTRANDT.PARTNO='{}'"
            " And  STKTRANHD.TRANTYPE='{}' And STKTRANHD.STATUSSN<>3"
            " GROUP BY STKTRANHD.TRANTYPE,STKTRANDT.REFERENCE,STKTRANDT.PARTNO",
            document_, order_, part_, type));
  }

 private:
  double sum(std::string statement) {
    rows_->open(std::move(statement), connection_, frame::CursorType::static_copy);
    const double quantity =
        rows_->at_end() ? 0 : automation::to_double(rows_->value(frame::schema::column::quantity));
    rows_->close();
    return quantity;
  }

  const std::string& document_;
  const std::string& order_;
  const std::string& part_;
  frame::Connection connection_;
  // Made only once the connection is open.
  std::optional<frame::Recordset> rows_;
};

std::string_view return_type_of(std::string_view issue_type) {
  if (issue_type == document_type::issue_to_production_order)
    return document_type::return_from_production_order;
  if (issue_type == document_type::issue_to_sales_order) return document_type::return_from_sales_order;
  return {};
}

bool is_issue_type(std::string_view type) {
  return !return_type_of(type).empty();
}

bool is_return_type(std::string_view type) {
  return type == document_type::return_from_production_order ||
         type == document_type::return_from_sales_order;
}

}  // namespace

double CTranDetail::IssuedOrRtnQty(std::string cTRANNO, std::string& cMONO, std::string& cPartNo,
                                   std::string& cTranType, std::string& cType) {
  return frame::run_unreported(0.0, [&] {
    Movements movements(connection_string(), cTRANNO, cMONO, cPartNo);
    if (cType.empty()) {
      const double issued = 0 - movements.of_part(cTranType);
      return issued - movements.of_type(return_type_of(cTranType));
    }
    // cType decides what is asked and with which sign; the lines asked for are always those of cTranType.
    if (is_issue_type(cType)) return 0 - movements.of_part(cTranType);
    if (is_return_type(cType)) return movements.of_type(cTranType);
    return 0.0;
  });
}

}  // namespace tallyra::transactions
