#pragma once

#include <optional>
#include <string>

#include "client/call_run.h"

namespace tallyra::client {

// What to do about a call that a class has refused for lack of a right: who is to be granted what, by which
// command. Nothing after any other outcome. Needs an Apartment; throws nothing of the database.
std::optional<std::string> right_advice(const Call& call, const Outcome& outcome, const Session& session);

}  // namespace tallyra::client
