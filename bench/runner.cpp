#include "bench/runner.h"

#include <cstdio>

#include "bench/record_calls.h"

namespace tallyra::bench {
namespace {

void print(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

std::string name_of(const Scenario& scenario) {
  return scenario.work + ", " + scenario.size;
}

}  // namespace

Runner::Runner(Companies& companies, std::string folder, const Terms& terms)
    : companies_(companies), folder_(std::move(folder)), terms_(terms), figures_(terms.hold) {}

void Runner::run(const Plan& plan) {
  print(Figures::head());
  for (const Scenario& scenario : plan.scenarios) run(scenario);
  for (const Doubled& doubled : plan.doubled) run(doubled);
  for (const Look& look : plan.looks) run(look);
  if (plan.calls_for_memory > 0) run_record_calls(plan.calls_for_memory);
}

void Runner::twice_if_broken(const std::function<std::vector<std::string>()>& once) {
  for (const bool again : {false, true}) {
    const std::vector<std::string> broken = once();
    if (!terms_.judges || broken.empty()) return;
    for (const std::string& limit : broken) print("  " + limit + (again ? ": BROKEN" : ": measured again"));
  }
  ++broken_;
}

const Comparison& Runner::measured(const Scenario& scenario) {
  return results_[name_of(scenario)] = compare(scenario, folder_, terms_.time);
}

void Runner::run(const Scenario& scenario) {
  twice_if_broken([&] {
    const Comparison& result = measured(scenario);
    print(figures_.add(scenario, result));
    return broken_limits(scenario, result, terms_.hold);
  });
}

void Runner::run(const Doubled& doubled) {
  const auto found = results_.find(name_of(doubled.once));
  const Comparison* once = found == results_.end() ? nullptr : &found->second;
  twice_if_broken([&]() -> std::vector<std::string> {
    if (!once) once = &measured(doubled.once);
    const Growth growth = growth_between(doubled.what, doubled.twice.size, *once, measured(doubled.twice));
    once = nullptr;
    print(figures_.add(growth));
    return broken_limits(growth);
  });
}

void Runner::run(const Look& look) {
  const auto found = results_.find(name_of(look.close));
  const Comparison close = found == results_.end() ? measured(look.close) : found->second;
  twice_if_broken([&] {
    const LookShare share = share_of(look, close, measured(look.verb));
    print(figures_.add(share));
    return broken_limits(share);
  });
}

void Runner::run_record_calls(int calls) {
  twice_if_broken([&] {
    const auto company = companies_.company(small_company);
    company->renew();
    const Measurement run =
        measured_run([&] { return growth_over_record_calls(company->connection_string(), calls); });
    print(figures_.add_record_calls(calls, run.count));
    return broken_limits(run.count);
  });
}

}  // namespace tallyra::bench
