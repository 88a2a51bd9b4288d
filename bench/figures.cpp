#include "bench/figures.h"

#include <cstdio>

namespace tallyra::bench {
namespace {

const std::vector<Column>& columns() {
  static const std::vector<Column> all{
      {"work", 26, false},  {"size", 30, false},  {"before", 6, true},   {"component", 9, true},
      {"to ODBC", 7, true}, {"to text", 7, true}, {"prepared", 8, true}, {"limits", 10, true},
      {"rows", 9, true},    {"rows/s", 9, true},  {"peak", 8, true},     {"replay's", 8, true},
  };
  return all;
}

const std::vector<Column>& growth_columns() {
  static const std::vector<Column> all{{"twice as many", 26, false},
                                       {"size", 30, false},
                                       {"component", 9, true},
                                       {"ODBC", 9, true},
                                       {"prepared", 9, true}};
  return all;
}

const std::vector<Column>& look_columns() {
  static const std::vector<Column> all{
      {"verb", 26, false}, {"size", 30, false}, {"takes", 9, true}, {"of the close", 12, true}};
  return all;
}

std::string decimals(double value, int places, const char* unit = "") {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f%s", places, value, unit);
  return text;
}

std::string seconds(double value) {
  return decimals(value, value < 1 ? 3 : 2, " s");
}

std::string ratio(const Comparison& result, Against against) {
  return result.replays.contains(against) ? decimals(result.ratio(against), 2) : "";
}

std::string before(const Scenario& scenario) {
  const Limit* const limit = limit_of(scenario.work, scenario.size, Against::odbc);
  return limit && limit->before ? decimals(*limit->before, 2) : "";
}

std::string limits_of(const Scenario& scenario, Hold hold) {
  std::string text;
  for (const Against against : all_against)
    if (const Limit* const limit = limit_of(scenario.work, scenario.size, against))
      text += (text.empty() ? "" : "; ") + decimals(value_of(*limit, hold), 2);
  return text;
}

// A row is told by its first two cells.
void put(std::vector<Cells>& rows, Cells row) {
  for (Cells& there : rows)
    if (there[0] == row[0] && there[1] == row[1]) {
      there = std::move(row);
      return;
    }
  rows.push_back(std::move(row));
}

}  // namespace

std::string Figures::head() {
  return console_head(columns());
}

std::string Figures::add(const Scenario& scenario, const Comparison& result) {
  const auto odbc = result.replays.find(Against::odbc);
  const Cells row{scenario.work,
                  scenario.size,
                  before(scenario),
                  seconds(result.component.median_seconds()),
                  ratio(result, Against::odbc),
                  ratio(result, Against::text),
                  ratio(result, Against::prepared),
                  limits_of(scenario, hold_),
                  with_commas(static_cast<std::int64_t>(result.rows)),
                  with_commas(static_cast<std::int64_t>(result.rows_per_second())),
                  decimals(result.component.median_megabytes(), 1, " MB"),
                  odbc == result.replays.end() ? "" : decimals(odbc->second.median_megabytes(), 1, " MB")};
  put(comparisons_, row);
  return console_row(columns(), row);
}

std::string Figures::add(const Growth& growth) {
  const std::string component = decimals(growth.component, 2);
  const std::string odbc = decimals(growth.odbc, 2);
  const std::string prepared = decimals(growth.prepared, 2);
  put(growths_, {growth.of, growth.size, component, odbc, prepared});
  return "twice as many " + growth.of + ", " + growth.size + ": " + component +
         " times as long, the replay through ODBC " + odbc + ", prepared " + prepared;
}

std::string Figures::add(const LookShare& share) {
  const std::string part = decimals(share.of_medians, 2);
  put(looks_, {share.verb, share.size, seconds(share.seconds), part});
  return share.verb + ", " + share.size + ": " + seconds(share.seconds) + ", " + part +
         " of the time of the close";
}

std::string Figures::add_record_calls(int calls, std::uint64_t grown_kilobytes) {
  memory_ = "Over " + with_commas(calls) + " record calls, after as many before them, peak memory grew by " +
            with_commas(static_cast<std::int64_t>(grown_kilobytes)) + " KB.";
  return memory_;
}

std::string Figures::markdown() const {
  std::string text = markdown_table(columns(), comparisons_);
  if (!growths_.empty()) text += "\n" + markdown_table(growth_columns(), growths_);
  if (!looks_.empty()) text += "\n" + markdown_table(look_columns(), looks_);
  if (!memory_.empty()) text += "\n" + memory_ + "\n";
  return text;
}

}  // namespace tallyra::bench
