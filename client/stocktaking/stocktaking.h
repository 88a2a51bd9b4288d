#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "client/database/reader.h"

namespace tallyra::client {

// A stocktaking as it stands in the database.
struct Stocktaking {
  std::string number;
  std::string department;
  bool department_known = false;  // the masters have it; else an approval finds no lines
  automation::Date day;
  bool approved = false;
  std::int64_t postings = 0;  // documents that approvals of it have written
};

// Throws Refusal when there is none of that number.
Stocktaking stocktaking_of(const Reader& reader, const std::string& number);

// The close that covers its day, after which nothing of the period may move; nothing when it is open.
std::optional<automation::Date> close_over(const Reader& reader, const Stocktaking& stocktaking);

// A counted part with what an approval makes of it.
struct CountedPart {
  std::string part;
  std::optional<double> counted;
  double book = 0;
  bool differs() const { return counted && (*counted < book || *counted > book); }
};

// Its lines against the book, by part number. The book is what moved up to now: read it before an approval.
std::vector<CountedPart> counted_parts(const Reader& reader, const Stocktaking& stocktaking);

// What all postings of it come to, by part number.
std::map<std::string, double> posted_parts(const Reader& reader, const std::string& number);

}  // namespace tallyra::client
