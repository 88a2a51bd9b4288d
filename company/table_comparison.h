#pragma once

#include <string>
#include <vector>

namespace tallyra::company {

// Compares rows, each a text, as they come from two databases in whatever order. Empty when both have the
// same rows as many times; else what tells a person where to look, with the first row that one has alone.
std::string difference_of(std::vector<std::string> source, std::vector<std::string> copy);

}  // namespace tallyra::company
