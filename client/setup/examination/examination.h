#pragma once

#include <string>
#include <vector>

#include "client/verbs/context.h"

namespace tallyra::client {

enum class Health { good, doubtful, bad };

// What was looked at, what was found, and what to do about it.
struct Observation {
  Health health = Health::good;
  std::string what;
  std::string found;
  std::string advice = {};   // empty where all is good
  std::string command = {};  // that carries the advice out, where one does
};
using Observations = std::vector<Observation>;

// A look at one thing each. They throw nothing for what they find wrong.
void examine_libraries(const VerbContext& context, Observations& seen);
void examine_database(VerbContext& context, Observations& seen);
void examine_tables(const Reader& reader, Observations& seen);
void examine_rights(VerbContext& context, Observations& seen);
void examine_numbers(VerbContext& context, Observations& seen);
void examine_writing(VerbContext& context, Observations& seen);
void examine_clock(const Reader& reader, Observations& seen);

// All of them, as far as the ones before let them.
Observations examine(VerbContext& context);

}  // namespace tallyra::client
