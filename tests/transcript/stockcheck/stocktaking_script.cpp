#include "tests/transcript/stockcheck/stocktaking_script.h"

#include <sstream>

#include "tests/support/queries.h"
#include "tests/support/record_methods.h"

namespace tallyra::stockcheck_test {

using automation::Date;
using automation::Value;

StocktakingStage::StocktakingStage(const std::string& system_database)
    : quote(system_database == "MSACCESS" ? "#" : "'"), stage(system_database) {
  stage.set("CanApproved", 1).set("wording.StatusApproved", "Approved").set("wording.NameCheck", "Counted");
  stage.finds(close_query(), {{"CLOSEDT", "STATUSSN"}, {{Date{45351}, 1}}});
  client = stage.client("CCheckHead");
}

StocktakingStage& StocktakingStage::sheet(const std::vector<Counted>& lines, const Value& check_date) {
  stage::Rows rows{{"CHECKDT", "CHECKNO", "PARTNO", "QTY", "UPRICE", "DEPTNO", "DEPTNM"}, {}};
  for (const auto& [part, quantity, price, department_name] : lines)
    rows.rows.push_back({check_date, "S1", part, quantity, price, "10", department_name});
  stage.finds(stage::counted_lines, rows);
  stage.finds_nothing(close_query(period_end));
  for (const Counted& line : lines)
    stage.all_find_nothing({outgoing_query(line.part), incoming_query(line.part)});
  return *this;
}

StocktakingStage& StocktakingStage::moved(const std::string& part, Value out, Value in) {
  stage.finds(outgoing_query(part), {{"QTY"}, {{std::move(out)}}});
  stage.finds(incoming_query(part), {{"QTY"}, {{std::move(in)}}});
  return *this;
}

stage::Outcome StocktakingStage::approve() {
  return stage::play_record(client, "Update", "S1", fields, "APPROVED");
}

std::string StocktakingStage::close_query(const std::string& check_date) const {
  return stage::close_until(literal(check_date));
}

std::string StocktakingStage::outgoing_query(const std::string& part) const {
  return stage::part_out(part, literal(period_begin), literal(period_end));
}

std::string StocktakingStage::incoming_query(const std::string& part) const {
  return stage::part_in(part, literal(period_begin), literal(period_end));
}

std::string StocktakingStage::after(const std::string& text) const {
  const auto at = stage.transcript().find(text);
  if (at == std::string::npos) return {};
  const auto from = at + text.size();
  return stage.transcript().substr(from, stage.transcript().find('\n', from) - from);
}

int StocktakingStage::count(const std::string& text) const {
  std::istringstream lines(stage.transcript());
  int found = 0;
  for (std::string line; std::getline(lines, line);)
    if (line.find(text) != std::string::npos) ++found;
  return found;
}

}  // namespace tallyra::stockcheck_test
