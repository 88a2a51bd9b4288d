#pragma once

#include <string>
#include <vector>

#include "client/call_run.h"
#include "client/output/json_value.h"

namespace tallyra::client {

// What came of a call, as one JSON object for a program to read:
//
//   class, member, success, result, errNumber, errDescription,
//   raised      the error that left the object, {"number": 438, "description": "..."}; absent when none did
//   arguments   those that came back by position, {"3": 12.5}
//   fields      the returned ones by name, in their order; a name that comes again is followed by #2, #3, ...
//
// Numbers are JSON numbers, except currency and decimal, which are text to stay exact. Dates are text,
// "YYYY/MM/DD" or "YYYY/MM/DD HH:MM:SS". Null, Empty and what is missing are null; an object or an opaque
// value is {"kind": its name}, no object is null.
//
// Where the class took in silence what nothing came of there are "complaints", and "success" is false.
Json report_object(const Outcome& outcome, const std::vector<std::string>& complaints = {});
std::string report_json(const Outcome& outcome, const std::vector<std::string>& complaints = {});

}  // namespace tallyra::client
