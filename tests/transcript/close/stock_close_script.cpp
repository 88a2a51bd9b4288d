#include "tests/transcript/close/stock_close_script.h"

namespace tallyra {

using automation::Date;
using automation::ref;
using automation::Value;

MonthCloseStage::MonthCloseStage(const std::string& system_database)
    : quote(system_database == "MSACCESS" ? "#" : "'"), stage(system_database) {
  stage.set("CanInsert", 1);
  stage.finds(
      "Select Top 1 * From STKCLOSEHD Where CLOSEDT<" + literal("2024/03/31") + " Order By CLOSEDT DESC",
      {{"CLOSEDT", "STATUSSN"}, {{Date{45351}, 1}}});
  stage.finds("Select DEPTNO,DEPTNM FROM DEPARTS  Order by DEPTNO",
              {{"DEPTNO", "DEPTNM"}, {{"10", "Store"}, {"20", "Assembly"}}});
  const std::vector<std::string> quantity{"PARTNO", "QTY"};
  stage.finds(outgoing_query("10"), {quantity, {{"B", 5.0}, {"D", -2.5}, {"E", 0.0}}});
  stage.finds(incoming_query("10"),
              {quantity, {{"A", 1.0}, {"AB", -4.0}, {"B", 3.0}, {"C", 7.0}, {"F", 0.1}}});
  stage.finds(incoming_query("20"), {quantity, {{"A", 2.0}, {"B", 1.0 / 3}}});
  stage.finds(documents_query(literal("2024/04/01")), {{"MTYPESN", "PARTNO", "PRICETYPESN", "EDITDT", "QTY"},
                                                       {{1, "A", 2, Date{45000}, 3.0},
                                                        {1, "B", 1, Date{45000}, 8.25},
                                                        {2, "C", 2, Date{45000}, 7.0},
                                                        {2, "D", 1, Date{45000}, -2.5},
                                                        {3, "E", 3, Date{45000}, 0.0}}});
  stage.set("system.GetPartCost", 12.345)
      .set("system.GetLastUprice", 0.1)
      .set("system.GetAvgUprice", 1.0 / 30);
  client = stage.client("CStockClose");
}

stage::Outcome MonthCloseStage::close(const Value& date) {
  return stage::outcome_of(client, client.call("Insert", date, ref(fields.names), ref(fields.values)));
}

std::string MonthCloseStage::outgoing_query(const std::string& department) const {
  return "Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD On "
         "STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOFR='" +
         department + "' And STKTRANHD.TRANDT>" + literal("2024/02/29") +
         " AND STKTRANHD.TRANDT<=" + literal("2024/03/31") +
         " AND  STKTRANHD.TRANTYPE<>'STKCLOSEALL' GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO";
}

std::string MonthCloseStage::incoming_query(const std::string& department) const {
  return "Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD On "
         "STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where  STKTRANHD.DEPTNOTO='" +
         department + "' And STKTRANHD.TRANTYPE='STK024MRPL' And STKTRANHD.TRANDT>" + literal("2024/02/29") +
         " AND STKTRANHD.TRANDT<=" + literal("2024/03/31") +
         " GROUP BY STKTRANDT.PARTNO Order by STKTRANDT.PARTNO";
}

std::string MonthCloseStage::documents_query(const std::string& date_literal) {
  return "Select PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT,SUM(STKTRANDT.QTY) AS QTY "
         "From "
         "(STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO) Inner Join PARTS On "
         "STKTRANDT.PARTNO=PARTS.PARTNO  Where STKTRANHD.TRANDT=" +
         date_literal +
         " AND STKTRANHD.TRANTYPE='STK027CLOSE'  GROUP BY "
         "PARTS.MTYPESN,STKTRANDT.PARTNO,PARTS.PRICETYPESN,PARTS.EDITDT Order by "
         "PARTS.MTYPESN,STKTRANDT.PARTNO "
         "ASC";
}

}  // namespace tallyra
