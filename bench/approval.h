#pragma once

#include "bench/companies.h"
#include "bench/scenario.h"

namespace tallyra::bench {

// The approval of the sample company's stocktaking, which counts a quarter of the parts. The companies must
// outlive the scenario.
Scenario approval(Companies& companies, const CompanySize& size);

}  // namespace tallyra::bench
