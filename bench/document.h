#pragma once

#include <string>

namespace tallyra::bench {

// The lines between which a document holds the figures of the last run that was written there.
inline constexpr const char* figures_begin = "<!-- figures: written by scripts/bench.sh --write-readme -->\n";
inline constexpr const char* figures_end = "<!-- end of figures -->\n";

// Puts the figures in place of what stands between the lines. Throws std::runtime_error when the document
// does not have them.
std::string with_figures(const std::string& document, const std::string& figures);

// Does it in a file, which stays as it is when that fails.
void write_figures(const std::string& path, const std::string& figures);

}  // namespace tallyra::bench
