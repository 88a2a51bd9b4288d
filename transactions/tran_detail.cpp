#include "transactions/tran_detail.h"

#include "frame/business_method.h"
#include "frame/delete_move.h"
#include "frame/insert_move.h"
#include "frame/read_move.h"
#include "frame/schema/codes.h"
#include "frame/schema/names.h"
#include "frame/sql.h"
#include "frame/update_move.h"

namespace tallyra::transactions {
namespace {

using automation::Object;
using frame::Call;
using frame::closed_owner_test;
using frame::CursorLocation;
using frame::CursorType;
using frame::Opening;
using frame::sql;
namespace schema = frame::schema;

struct LineAddress {
  const std::string& document;
  const std::string& reference;
  const std::string& part;
  std::int32_t number;

  bool by_number() const { return number >= 0; }

  std::string condition() const {
    return by_number() ? sql(" WHERE STKTRANDT.TRANNO='{}' AND STKTRANDT.REFERENCE='{}'"
                             " AND STKTRANDT.SN={}",
                             document, reference, number)
                       : sql(" WHERE STKTRANDT.TRANNO='{}' AND STKTRANDT.REFERENCE='{}'"
                             " AND STKTRANDT.PARTNO='{}' ",
                             document, reference, part);
  }

  std::string update_condition(std::string_view type) const {
    if (!by_number() || type != schema::document_type::purchase_return) return condition();
    // The parenthesis stays open: clients know the database's answer to exactly this text.
    return sql(
        " WHERE (STKTRANDT.TRANNO='{}' OR STKTRANDT.TRANNO='STK011PORTN' AND STKTRANDT.REFERENCE='{}'"
        " AND STKTRANDT.SN={}",
        document, reference, number);
  }

  std::string owner_query() const { return "Select ADDBY from STKTRANDT" + condition(); }
};

}  // namespace

CTranDetail::CTranDetail() : BusinessObject(std::string(schema::access_kind)) {}

float CTranDetail::Read(std::string& cTRANNO, std::string& cReference, std::string& cPartNo,
                        Object& colFieldName, Object& colFieldValue, std::int32_t& intSN) {
  return run_method(*this, [&](Call& call) {
    const LineAddress line{cTRANNO, cReference, cPartNo, intSN};
    // Clients expect the category twice.
    std::string statement =
        "Select STKTRANDT.*,PARTS.PARTNM,PARTS.CATEGORYNO,PARTS.CATEGORYNO,PARTS.COLORNO,PARTS.COLORNM,"
        "PARTS.UNITNM  From STKTRANDT INNER JOIN PARTS ON STKTRANDT.PARTNO=PARTS.PARTNO";
    if (line.by_number()) statement += ' ';
    statement += line.condition();
    read_row(call, {colFieldName, colFieldValue},
             {.statement = statement, .fill = frame::ReadMove::Fill::replace});
  });
}

float CTranDetail::Update(std::string& cTRANNO, std::string& cTranType, std::string& cReference,
                          std::string& cPartNo, Object& colFieldName, Object& colFieldValue,
                          std::int32_t& intSN) {
  return run_method(*this, [&](Call& call) {
    const LineAddress line{cTRANNO, cReference, cPartNo, intSN};
    update_rows(
        call, {colFieldName, colFieldValue},
        {.table = schema::table::document_line,
         .function_code = cTranType,
         .owner = closed_owner_test(line.owner_query(), CursorType::static_copy, CursorLocation::server),
         .opening = Opening::if_closed,
         .structure = {"Select top 1 * From STKTRANDT", CursorType::static_copy},
         .condition = line.update_condition(cTranType)});
  });
}

float CTranDetail::Insert(std::string& cTRANNO, std::string& cTranType, std::string& cReference,
                          std::string& cPartNo, Object& colFieldName, Object& colFieldValue,
                          std::int32_t& intSN) {
  return run_method(*this, [&](Call& call) {
    insert_row(call, {colFieldName, colFieldValue},
               {.table = schema::table::document_line,
                .function_code = cTranType,
                .existing = intSN >= 0 ? sql("Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='{}'"
                                             " And STKTRANDT.REFERENCE='{}' And STKTRANDT.SN={}",
                                             cTRANNO, cReference, intSN)
                                       : sql("Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='{}'"
                                             " And STKTRANDT.REFERENCE='{}' And STKTRANDT.PARTNO='{}'",
                                             cTRANNO, cReference, cPartNo)});
  });
}

float CTranDetail::Delete(std::string& cTRANNO, std::string& cTranType, std::string& cReference,
                          std::string& cPartNo, std::int32_t& intSN) {
  return run_method(*this, [&](Call& call) {
    const LineAddress line{cTRANNO, cReference, cPartNo, intSN};
    delete_rows(call, {.function_code = cTranType,
                       .owner = closed_owner_test(line.owner_query(), CursorType::static_copy,
                                                  CursorLocation::server),
                       .opening = Opening::if_closed,
                       .statements = {"Delete From STKTRANDT" + line.condition()}});
  });
}

}  // namespace tallyra::transactions
