#pragma once

#include "bench/companies.h"
#include "bench/scenario.h"

namespace tallyra::bench {

// How much of a screw a sales order requires whose bill of materials has five levels and 10,000 lines. The
// companies must outlive the scenario.
Scenario material_requirement(Companies& companies, const CompanySize& size);

}  // namespace tallyra::bench
