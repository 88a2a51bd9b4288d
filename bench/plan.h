#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bench/administration.h"
#include "bench/companies.h"
#include "bench/scenario.h"
#include "bench/server_companies.h"

namespace tallyra::bench {

// The same work in a company that has twice as many of something.
struct Doubled {
  std::string what;
  Scenario once;
  Scenario twice;
};

struct Plan {
  std::vector<Scenario> scenarios;
  std::vector<Doubled> doubled;
  std::vector<Look> looks;
  int calls_for_memory;  // none: memory is not looked at
};

inline constexpr CompanySize small_company{5, 200, 5'000};

// The smaller sizes only, in less than a minute; or everything. The companies must outlive the plan.
Plan quick_plan(Companies& companies, ServerCompanies& on_server);
Plan full_plan(Companies& companies, ServerCompanies& on_server);

inline constexpr std::uint64_t quick_plan_bytes = 256ULL << 20;
inline constexpr std::uint64_t full_plan_bytes = 4ULL << 30;

}  // namespace tallyra::bench
