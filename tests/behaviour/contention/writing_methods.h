#pragma once

#include <vector>

#include "tests/behaviour/close/closing_company.h"

namespace tallyra::behaviour {

// A method that writes, in one of its ways.
struct WritingMethod {
  const char* name;
  // Rows that it needs beyond those of `give_records`; may be null.
  void (*prepare)(const ClosingCompany& company);
  stage::Outcome (*call)(const ClosingCompany& company);
  // A query that tells what the method has stored.
  const char* stored;
};

// Every method of every class that writes.
const std::vector<WritingMethod>& writing_methods();

// A record of each kind: address and controller A1, note N1, setting 7, stocktaking S1 with counted lines,
// and the documents D1, with two lines, and RT, a return with two lines.
void give_records(const ClosingCompany& company);

}  // namespace tallyra::behaviour
