#pragma once

#include <map>
#include <string>
#include <vector>

#include "client/database/reader.h"
#include "client/output/table.h"

namespace tallyra::client {

// A document that a close has written, and what its lines come to.
struct CloseDocument {
  std::string number;
  bool of_company = false;
  std::string department;
  bool approved = false;
  std::int64_t lines = 0;
  double quantity = 0;
  double value = 0;  // each quantity times the unit cost of the company document's line for the part
};

// Those of a close date, departments in their order, the company last.
std::vector<CloseDocument> close_documents(const Reader& reader, automation::Date date);

Table summary_table(const Reader& reader, automation::Date date);

}  // namespace tallyra::client
