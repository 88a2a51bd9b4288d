#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bench/administration.h"
#include "bench/comparison.h"
#include "bench/growth.h"
#include "bench/limits.h"
#include "bench/table.h"

namespace tallyra::bench {

// What a run has shown, for the console line by line and for a document as a whole.
class Figures {
 public:
  explicit Figures(Hold hold) : hold_(hold) {}

  // Each returns the line for the console. What is measured again takes the place of what it was before.
  static std::string head();
  std::string add(const Scenario& scenario, const Comparison& result);
  std::string add(const Growth& growth);
  std::string add(const LookShare& share);
  std::string add_record_calls(int calls, std::uint64_t grown_kilobytes);

  std::string markdown() const;

 private:
  Hold hold_;
  std::vector<Cells> comparisons_;
  std::vector<Cells> growths_;
  std::vector<Cells> looks_;
  std::string memory_;
};

}  // namespace tallyra::bench
