#pragma once

#include <cstdint>

#include "automation/object.h"
#include "standins/corvane/document_number.h"

namespace tallyra::standins::corvane {

// Takes the next counter of the series, which is above `floor` and above every counter taken before, by
// whatever process. `connection` leads to where the counters are kept and is in no transaction; the table is
// created at its first use. Throws Error series_exhausted, or what the database raises; then no counter has
// been taken.
std::int32_t take_next_counter(const automation::Object& connection, const Series& series,
                               std::int32_t floor);

}  // namespace tallyra::standins::corvane
