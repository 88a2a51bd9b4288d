#pragma once

#include <optional>
#include <string>
#include <vector>

#include "automation/error.h"
#include "client/call.h"
#include "client/session.h"

namespace tallyra::client {

struct ReturnedArgument {
  std::size_t position;  // counted from 1 over all arguments, the two collections included
  automation::Value value;
};

// What a call has left behind.
struct Outcome {
  std::string prog_id;
  std::string member;
  automation::Value result;
  // The error that left the object instead of a result.
  std::optional<automation::Error> raised;
  // Nothing when the class does not report errors this way. The number is held in single precision by
  // objects: above 16777216 it comes rounded.
  std::optional<double> error_number;
  std::string error_description;
  // Those that came back changed, and those that went in Empty to be filled.
  std::vector<ReturnedArgument> returned_arguments;
  // What the two collections hold, when they went in empty or came back different.
  std::vector<Field> fields;

  // False when an error left the object or ErrNumber is not 0, or when the method answers 0 where 100 means
  // success. Those methods answer in single precision; counts and quantities come in other types, and 0 is a
  // fair answer there.
  bool succeeded() const;
};

// Creates the object, sets the session and makes the call, all arguments by reference. Needs an Apartment.
// Throws UsageError for a class, member or argument that does not exist or does not fit. An error that the
// method itself raises is part of the outcome, beside the error fields that it has set; automation::Error
// comes from what is done before and after.
Outcome run_call(const Call& call, const Session& session);

}  // namespace tallyra::client
