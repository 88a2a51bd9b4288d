#pragma once

#include "company/generation.h"

namespace tallyra::company {

// Writes one stocktaking that waits for approval: of the second department, on the last day of the second
// month, a quarter of all parts. Most counts equal the book movement of the period, others differ by a
// little, one line has no quantity and one has no price.
void write_stocktaking(const Generation& generation);

}  // namespace tallyra::company
