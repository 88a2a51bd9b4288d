#pragma once

#include <gtest/gtest.h>

#include <ostream>

#include "automation/error.h"
#include "tests/support/outcome.h"

namespace tallyra::stage {

// What a client sees of the closing-date guard: the error fields, and the error that comes out.
struct Verdict {
  Outcome outcome;
  // The number of the error, 0 when none came out.
  std::int32_t raised = 0;
  friend bool operator==(const Verdict&, const Verdict&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Verdict& verdict) {
  return out << verdict.outcome << " raised " << verdict.raised;
}

inline Verdict ask_guard(const automation::Object& head, const automation::Value& date) {
  std::int32_t raised = 0;
  try {
    const automation::Value result = head.call("ValidCloseDT", date);
    EXPECT_TRUE(result.is_empty());
  } catch (const automation::Error& error) {
    raised = error.number();
  }
  return {outcome_of(head, 0), raised};
}

}  // namespace tallyra::stage
