#pragma once

#include <string>
#include <vector>

#include "client/database/reader.h"

namespace tallyra::client {

// A close document that nobody has approved, whose close date has no record: a close that did not come to its
// end has left it, and the next one deletes it.
struct Leftover {
  std::string document;
  bool of_company = false;
  std::string department;
  automation::Date close_date;
  std::int64_t lines = 0;
};

std::vector<Leftover> leftovers(const Reader& reader);

// The close dates of what is left, each once, in order.
std::vector<automation::Date> dates_of(const std::vector<Leftover>& left);

// "3 documents with 40 lines for 2024/01/31, 2024/02/29".
std::string leftovers_text(const std::vector<Leftover>& left);

}  // namespace tallyra::client
