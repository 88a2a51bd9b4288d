#pragma once

#include <string>
#include <vector>

#include "client/database/reader.h"
#include "client/month_end/period.h"

namespace tallyra::client {

// Where a close document is not what its movements come to.
struct Difference {
  enum class Kind {
    differs,          // another quantity
    missing,          // a part that moved has no line
    surplus,          // a line of a part that did not move
    doubled,          // more than one line of a part
    second_document,  // a department, or the company, has more than one
    no_document,      // a department that moved something, or the company, has none
    entered_later,    // the movements say otherwise now, but did not when the close was made
  };
  Kind kind;
  std::string department;  // "company" for its document
  std::string document;
  std::string part;
  double written = 0;
  double expected = 0;

  // How much too much is written, to 12 digits of the larger.
  double excess() const;
};

const char* word_of(Difference::Kind kind);

// A second document counts for the lines as well, which are added up.
struct Verification {
  std::size_t documents = 0;
  std::size_t lines = 0;
  std::vector<Difference> differences;

  // Whether something differs that no later entry explains.
  bool sound() const;
};

// Compares every line of every close document of the record's date with sums of its own, to 12 digits.
Verification verify_close(const Reader& reader, const CloseRecord& record, const Period& period);

}  // namespace tallyra::client
