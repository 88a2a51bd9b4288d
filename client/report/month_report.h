#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "client/database/reader.h"
#include "client/month_end/period.h"

namespace tallyra::client {

struct Figure {
  double quantity = 0;
  double value = 0;  // quantity times the unit cost in the company document's line for the part

  Figure& operator+=(const Figure& other) {
    quantity += other.quantity;
    value += other.value;
    return *this;
  }
  friend Figure operator-(const Figure& left, const Figure& right) {
    return {left.quantity - right.quantity, left.value - right.value};
  }
  // Without the digits that come from adding up alone.
  Figure shown() const;
};

// The number of a material type; none for a part that has none, or that the masters lack.
using MaterialType = std::optional<std::int32_t>;

struct DepartmentFigures {
  std::string number;
  std::string name;
  std::map<MaterialType, Figure> by_type;

  Figure total() const;
};

struct PartChange {
  std::string part;
  std::string name;
  Figure before;
  Figure now;
};

// What a stocktaking has posted.
struct PostedDifference {
  std::string document;
  std::string stocktaking;
  std::string department;
  automation::Date date;
  std::int64_t lines = 0;
  Figure figure;
};

struct PartWithoutCost {
  std::string part;
  std::string name;
  double quantity = 0;
};

// What a close has come to.
struct MonthReport {
  CloseRecord close;
  std::optional<automation::Date> previous;
  std::map<MaterialType, std::string> type_names;
  std::vector<DepartmentFigures> departments;
  std::size_t parts = 0;            // lines of the company document
  std::vector<PartChange> changes;  // those with the largest change of value, that first
  std::vector<PostedDifference> differences;
  std::vector<PartWithoutCost> without_cost;

  Figure total() const;
  std::map<MaterialType, Figure> by_type() const;
};

// Of the close whose record that is. It holds a line per part, and reads the lines of the departments one by
// one.
MonthReport read_report(const Reader& reader, const std::vector<CloseRecord>& records,
                        const CloseRecord& close);

}  // namespace tallyra::client
