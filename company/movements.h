#pragma once

#include <functional>

#include "company/generation.h"
#include "company/options.h"

namespace tallyra::company {

// Called now and then with the number of movement lines written so far.
using Progress = std::function<void(int lines)>;

// Writes exactly `options.lines` movement lines, spread evenly over the booking days: first deliveries that
// fill the stores, then all kinds of documents as they occur in a company.
void write_movements(const Options& options, Generation generation, const Progress& progress);

}  // namespace tallyra::company
