#pragma once

#include <string>
#include <vector>

#include "client/month_end/finding.h"
#include "client/output/table.h"

namespace tallyra::client {

struct CheckResult {
  struct Entry {
    const Finding* finding;
    Found found;
  };
  std::vector<Entry> entries;  // errors first
  ClosePlan plan;
  std::vector<Leftover> left;

  // The names of the errors, those left out that are forced.
  std::vector<std::string> errors_beside(const std::vector<std::string>& forced) const;
};

// Looks for everything that is wrong with a close of the date. Reads only.
CheckResult check_close(const Reader& reader, automation::Date date);

// What a program reads of it.
std::vector<Table> check_tables(const CheckResult& result);
// What a person reads: a paragraph per finding.
std::string check_text(const CheckResult& result);

}  // namespace tallyra::client
