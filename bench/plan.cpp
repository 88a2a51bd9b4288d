#include "bench/plan.h"

#include "bench/approval.h"
#include "bench/material_requirement.h"
#include "bench/month_close.h"
#include "bench/record_calls.h"

namespace tallyra::bench {
namespace {

constexpr CompanySize middle_company{20, 2'000, 200'000};
constexpr CompanySize large_company{50, 20'000, 1'000'000};
constexpr int measured_calls = 800;

}  // namespace

Plan quick_plan(Companies& companies, ServerCompanies& on_server) {
  return {{month_close(companies, small_company), approval(companies, small_company),
           record_calls(companies, small_company, measured_calls),
           material_requirement(companies, small_company), month_close_on_server(on_server, small_company)},
          {},
          looks(companies, small_company),
          1'000};
}

Plan full_plan(Companies& companies, ServerCompanies& on_server) {
  const Scenario once = month_close(companies, middle_company);
  Plan plan{
      {month_close(companies, small_company), once, month_close_on_plain_indexes(companies, middle_company),
       month_close(companies, large_company), approval(companies, small_company),
       approval(companies, middle_company), approval(companies, large_company),
       record_calls(companies, small_company, measured_calls), material_requirement(companies, small_company),
       month_close_on_server(on_server, small_company), month_close_on_server(on_server, middle_company)},
      {},
      looks(companies, large_company),
      10'000};
  const auto [departments, parts, lines] = middle_company;
  plan.doubled = {{"movements", once, month_close(companies, {departments, parts, 2 * lines})},
                  {"parts", once, month_close(companies, {departments, 2 * parts, lines})},
                  {"departments", once, month_close(companies, {2 * departments, parts, lines})}};
  return plan;
}

}  // namespace tallyra::bench
