#pragma once

#include <cstdint>
#include <string_view>

#include "standins/ado/trace.h"

namespace tallyra::standins::ado {

// One connection's place in the trace.
class SessionTrace {
 public:
  // `engine` is a constant: "odbc", "sqlite", ...
  explicit SessionTrace(std::string_view engine) : engine_(engine), ordinal_(next_ordinal()) {}

  // Whether anybody listens.
  static bool is_on() { return trace_sink() != nullptr; }

  void operator()(Operation operation, std::string_view text, std::uint64_t rows, bool succeeded) const {
    if (TraceSink* const sink = trace_sink())
      sink->operation({ordinal_, engine_, operation, text, rows, succeeded});
  }

 private:
  static std::uint64_t next_ordinal();

  std::string_view engine_;
  std::uint64_t ordinal_;
};

}  // namespace tallyra::standins::ado
