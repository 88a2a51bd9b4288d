#pragma once

#include <string>

#include "client/verbs/context.h"

namespace tallyra::client {

struct JournalEntry {
  std::string action;   // "close", "approve", "reopen", "count approve", "force"
  std::string subject;  // the date or number it was done to
  std::string result;   // "done", "refused", "failed", "interrupted"
  std::string detail;
};

// Sees to it that the tables of the client's own are there, asking before it makes them. Throws Refusal when
// the person does not want them or nobody can be asked.
void require_own_tables(VerbContext& context);

// Writes who has done it, when and from where beside what was done. What cannot be written is told and stops
// nothing: the work is done already.
void journal(VerbContext& context, const JournalEntry& entry) noexcept;

}  // namespace tallyra::client
