#include "bench/limits.h"

#include <cstdio>

namespace tallyra::bench {
namespace {

// Of peak memory, the component's above that of the replay through ODBC.
constexpr double most_megabytes_above_replay = 4;
// How much more the component's time may grow with a company than the prepared replay's. The replay through
// ODBC is no measure of it: 5,000 movements more cost it 55 million instructions and the component 45, but in
// the component they come on top of half as much, so its share grows faster although its time does not.
constexpr double most_growth_above_replay = 0.05;
// By how much peak memory may grow over the calls that are looked at, 10,000 of them: thirty bytes a call.
constexpr std::uint64_t most_kilobytes_over_calls = 256;

constexpr const char* small = "5 x 200 x 5,000";
constexpr const char* middle = "20 x 2,000 x 200,000";
constexpr const char* large = "50 x 20,000 x 1,000,000";

// A row whose last two numbers are one has reached its goal and is held to it. Those that have not:
// - The smallest approval against the prepared replay has been seen at its goal, not safely below.
// - The small close on PostgreSQL is at its goal on a quiet machine, but most of it are the logins of its
//   fourteen connections, and what a server takes for those moves most beside other work.
constexpr Limit limits[] = {
    // work, size, against, before, now, goal
    {"month close", small, Against::odbc, 1.18, 0.80, 0.80},
    {"month close", small, Against::prepared, {}, 1.15, 1.15},
    {"month close", middle, Against::odbc, 1.04, 0.72, 0.72},
    {"month close", middle, Against::prepared, {}, 1.15, 1.15},
    {"month close, plain indexes", middle, Against::odbc, 1.04, 0.82, 0.82},
    {"month close, plain indexes", middle, Against::prepared, {}, 1.15, 1.15},
    {"month close", large, Against::odbc, {}, 0.70, 0.70},
    {"month close", large, Against::prepared, {}, 1.15, 1.15},
    {"approval", "50 lines over 5,000", Against::odbc, 1.20, 0.90, 0.90},
    {"approval", "50 lines over 5,000", Against::prepared, {}, 1.25, 1.15},
    {"approval", "500 lines over 200,000", Against::odbc, 1.10, 1.00, 1.00},
    {"approval", "500 lines over 200,000", Against::prepared, {}, 1.15, 1.15},
    {"approval", "5,000 lines over 1,000,000", Against::odbc, {}, 1.00, 1.00},
    {"approval", "5,000 lines over 1,000,000", Against::prepared, {}, 1.15, 1.15},
    {"record calls", "800 calls", Against::odbc, 1.09, 0.50, 0.50},
    {"record calls", "800 calls", Against::prepared, {}, 1.15, 1.15},
    {"month close on PostgreSQL", small, Against::text, {}, 0.85, 0.70},
    {"month close on PostgreSQL", middle, Against::text, {}, 0.70, 0.70},
};

std::string compared(const char* what, double value, double limit) {
  char text[160];
  std::snprintf(text, sizeof text, "%s: %.2f, the limit is %.2f", what, value, limit);
  return text;
}

constexpr const char* name_of(Against against) {
  switch (against) {
    case Against::odbc: return "ratio to the replay through ODBC";
    case Against::text: return "ratio to the replay by text";
    case Against::prepared: break;
  }
  return "ratio to the prepared replay";
}

}  // namespace

const Limit* limit_of(std::string_view work, std::string_view size, Against against) {
  for (const Limit& limit : limits)
    if (limit.work == work && limit.size == size && limit.against == against) return &limit;
  return nullptr;
}

double value_of(const Limit& limit, Hold hold) {
  return hold == Hold::now ? limit.now : limit.goal;
}

std::vector<std::string> broken_limits(const Scenario& scenario, const Comparison& result, Hold hold) {
  std::vector<std::string> broken;
  for (const auto& [against, series] : result.replays) {
    const Limit* const limit = limit_of(scenario.work, scenario.size, against);
    if (!limit) continue;
    const double most = value_of(*limit, hold);
    if (result.ratio(against) > most && result.least_ratio(against) > most)
      broken.push_back(compared(name_of(against), result.ratio(against), most));
  }
  if (result.replays.contains(Against::odbc)) {
    const double above =
        result.component.median_megabytes() - result.replays.at(Against::odbc).median_megabytes();
    if (above > most_megabytes_above_replay)
      broken.push_back(compared("peak memory above the replay's, in MB", above, most_megabytes_above_replay));
  }
  return broken;
}

std::vector<std::string> broken_limits(const Growth& growth) {
  const double above = growth.component - growth.prepared;
  if (above <= most_growth_above_replay) return {};
  return {compared("growth above the prepared replay's", above, most_growth_above_replay)};
}

std::vector<std::string> broken_limits(std::uint64_t kilobytes_over_calls) {
  if (kilobytes_over_calls <= most_kilobytes_over_calls) return {};
  return {compared("memory over record calls, in KB", static_cast<double>(kilobytes_over_calls),
                   static_cast<double>(most_kilobytes_over_calls))};
}

}  // namespace tallyra::bench
