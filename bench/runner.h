#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "bench/plan.h"

namespace tallyra::bench {

// Works a plan off and prints what it shows, line by line. What breaks a limit is measured a second time, and
// called broken when it breaks one again.
class Runner {
 public:
  struct Terms {
    Hold hold = Hold::now;
    Time time = Time::passed;
    bool judges = true;  // else limits are not looked at
  };

  // The folder is where the companies are.
  Runner(Companies& companies, std::string folder, const Terms& terms);

  void run(const Plan& plan);

  const Figures& figures() const { return figures_; }
  // How many of what was measured has broken a limit twice.
  int broken() const { return broken_; }

 private:
  void run(const Scenario& scenario);
  void run(const Doubled& doubled);
  void run(const Look& look);
  void run_record_calls(int calls);
  const Comparison& measured(const Scenario& scenario);
  // Measures by `once`, which prints and returns the broken limits, up to two times.
  void twice_if_broken(const std::function<std::vector<std::string>()>& once);

  Companies& companies_;
  std::string folder_;
  Terms terms_;
  Figures figures_;
  int broken_ = 0;
  std::map<std::string, Comparison> results_;  // by work and size
};

}  // namespace tallyra::bench
