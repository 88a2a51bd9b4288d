#pragma once

#include <map>
#include <string>
#include <vector>

#include "client/database/reader.h"
#include "client/month_end/period.h"

namespace tallyra::client {

// What moved of one part in one department within a period.
struct PartSum {
  bool goes_out = false;  // documents out of the department have lines of it
  bool comes_in = false;  // transfers into it have
  bool out_unknown = false;
  bool in_unknown = false;  // there are lines, and none of them has a quantity
  double out = 0;
  double in = 0;
  // What the lines come to without their signs, and how many there are.
  double magnitude = 0;
  double lines = 0;

  // The close stops at such a part.
  bool unknown() const { return (goes_out && out_unknown) || (comes_in && in_unknown); }
  // What the close writes: a part that only came in goes in as a magnitude.
  double quantity() const;
  // How far two sums of these lines can be apart for no other reason than that they were added up in another
  // order: a sum near zero of large numbers is nothing but that.
  double rounding() const;
};

// In the order of part numbers that the component has.
using PartSums = std::map<std::string, PartSum, std::less<>>;

struct Department {
  std::string number;
  std::string name;
};

std::vector<Department> departments(const Reader& reader);

// `further` is put behind the condition on the documents, " And ..." or nothing.
PartSums sums_of(const Reader& reader, const std::string& department, const Period& period,
                 const std::string& further = {});

// What a close of the period has to write.
struct ClosePlan {
  struct Share {
    Department department;
    std::size_t lines = 0;
  };
  std::vector<Share> departments;  // those that have lines, in the order in which the close takes them
  std::size_t company_lines = 0;

  std::size_t lines() const;
};

// The text of a key without the blanks behind it, which do not count.
std::string key_text(const automation::Value& value);

// What it comes out as to a person: 15 digits tell 0.1 + 0.2 from 0.3 no more.
std::string quantity_text(double quantity);

}  // namespace tallyra::client
