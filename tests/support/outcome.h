#pragma once

#include <ostream>
#include <string>

#include "automation/convert.h"
#include "automation/object.h"

namespace tallyra::stage {

// What a client sees of a call: its result and the error fields.
struct Outcome {
  double result;
  double number;
  std::string description;
  friend bool operator==(const Outcome&, const Outcome&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << outcome.result << " / " << std::fixed << outcome.number << " / " << outcome.description;
}

// An error number as a single-precision ErrNumber holds it.
inline double narrowed(double number) {
  return static_cast<double>(static_cast<float>(number));
}

inline Outcome outcome_of(const automation::Object& client, const automation::Value& result) {
  return {automation::to_double(result), automation::to_double(client.get("ErrNumber")),
          automation::to_text(client.get("ErrDescription"))};
}

inline const Outcome done{100, 0, ""};
inline Outcome refused(double number) {
  return {0, number, "text of Msg" + std::to_string(static_cast<long>(number))};
}
inline Outcome trapped(double number, std::string description) {
  return {0, narrowed(number), std::move(description)};
}

// Rights that are none: a right is the number 1 and nothing else.
inline const automation::Value no_rights[] = {0, 2, -1, 1.5, 0.5, automation::Null{}, true};

}  // namespace tallyra::stage
