#pragma once

#include <cstdint>

#include "bench/companies.h"
#include "bench/scenario.h"

namespace tallyra::bench {

// Insert, Read, Update and Delete of shipping notes in turn, so many calls in all, each on a connection of
// its own. The companies must outlive the scenario.
Scenario record_calls(Companies& companies, const CompanySize& size, int calls);

// By how many kilobytes the peak memory of this process grows over so many calls, after as many that are not
// looked at.
std::uint64_t growth_over_record_calls(const std::string& connection_string, int calls);

}  // namespace tallyra::bench
