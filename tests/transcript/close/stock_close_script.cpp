#include "tests/transcript/close/stock_close_script.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/queries.h"
#include "tests/support/record_methods.h"

namespace tallyra {

using automation::Date;
using automation::Value;

MonthCloseStage::MonthCloseStage(const std::string& system_database)
    : quote(system_database == "MSACCESS" ? "#" : "'"), stage(system_database) {
  stage.set("CanInsert", 1);
  knows_period("2024/02/29", "2024/03/31", "2024/04/01");
  stage.finds(stage::close_before(literal("2024/03/31")), {{"CLOSEDT", "STATUSSN"}, {{Date{45351}, 1}}});
  stage.finds(stage::departments, {{"DEPTNO", "DEPTNM"}, {{"10", "Store"}, {"20", "Assembly"}}});
  const std::vector<std::string> quantity{"PARTNO", "QTY"};
  stage.finds(outgoing_query("10"), {quantity, {{"B", 5.0}, {"D", -2.5}, {"E", 0.0}}});
  stage.finds(incoming_query("10"),
              {quantity, {{"A", 1.0}, {"AB", -4.0}, {"B", 3.0}, {"C", 7.0}, {"F", 0.1}}});
  stage.finds(incoming_query("20"), {quantity, {{"A", 2.0}, {"B", 1.0 / 3}}});
  stage.finds(stage::department_documents(literal("2024/04/01")),
              {{"MTYPESN", "PARTNO", "PRICETYPESN", "EDITDT", "QTY"},
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

void MonthCloseStage::knows_period(const std::string& after, const std::string& until,
                                   const std::string& document_date) {
  stage.all_find_nothing({stage::close_of(literal(until)), stage::close_before(literal(until))});
  for (const char* department : {"10", "20"})
    stage::no_movements(stage, department, literal(after), literal(until));
  stage::no_documents(stage, literal(document_date));
}

stage::Outcome MonthCloseStage::close(const Value& date) {
  return stage::play_record(client, "Insert", date, fields);
}

std::string MonthCloseStage::way_out() const {
  static const std::string whole = [] {
    MonthCloseStage succeeding;
    EXPECT_EQ(succeeding.close(), stage::done);
    return succeeding.stage.transcript();
  }();
  const std::string& own = stage.transcript();
  const auto parting = std::ranges::mismatch(whole, own).in2 - own.begin();
  // The line ends before the line that differs, and before the one above it.
  const std::size_t common = own.rfind('\n', static_cast<std::size_t>(parting) - 1);
  return own.substr(own.rfind('\n', common - 1) + 1);
}

std::string MonthCloseStage::outgoing_query(const std::string& department) const {
  return stage::department_out(department, literal("2024/02/29"), literal("2024/03/31"));
}

std::string MonthCloseStage::incoming_query(const std::string& department) const {
  return stage::department_in(department, literal("2024/02/29"), literal("2024/03/31"));
}

}  // namespace tallyra
