#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "client/month_end/leftovers.h"
#include "client/month_end/lock.h"
#include "client/month_end/period.h"
#include "client/month_end/sums.h"

namespace tallyra::client {

// What a look has found; nothing when the count is 0.
struct Found {
  std::int64_t count = 0;
  std::vector<std::string> first;  // the first of them, in words
};

// The close that is looked at, and what several findings need of it, read once.
struct CloseCase {
  const Reader& reader;
  automation::Date date;
  automation::Date today;
  std::vector<CloseRecord> records;
  Period period;
  std::vector<Leftover> left;
  std::optional<LockHolder> lock;

  // What the look at every department has gathered; nothing before gather.
  struct Gathered {
    ClosePlan plan;
    std::vector<std::string> negative;  // what the close would write below zero
    std::vector<std::string> unknown;   // where the close would stop
    std::size_t negative_count = 0;
    std::size_t unknown_count = 0;
    std::map<std::string, bool, std::less<>> parts;  // all that move
  } gathered;

  Found refused{};  // looks that the database did not answer, and what it said
};

CloseCase close_case(const Reader& reader, automation::Date date);
void gather(CloseCase& close);

enum class Severity { error, warning };

// One thing that can be wrong with a close.
struct Finding {
  std::string_view name;  // by which --force takes it
  Severity severity;
  std::string_view text;    // what it is
  std::string_view advice;  // what to do
  Found (*look)(const CloseCase&);
};

// How many of the first are kept.
inline constexpr std::size_t first_rows = 5;

// Runs a query whose columns are written one behind the other, each behind its word, and counts its rows.
Found found_rows(const Reader& reader, const std::string& query, const std::vector<std::string_view>& words);

// Every finding, errors first; the last one is an error that is known when the others have looked.
std::span<const Finding* const> findings();

}  // namespace tallyra::client
