#pragma once

#include <vector>

#include "company/random.h"

namespace tallyra::company {

// What lies in each department, so that nothing is issued that is not there. Quantities are whole pieces or
// quarters of a kilogram and therefore exact in a double.
class Stock {
 public:
  Stock(int departments, int parts);

  double of(int department, int part) const { return quantities_[place(department, part)]; }

  // Adds to the stock, or takes from it when `quantity` is negative. `made` tells the two shelves of a
  // department apart: bought material and parts made here.
  void add(int department, int part, double quantity, bool made);

  // A part with stock on that shelf of the department, each one equally likely; -1 when the shelf is empty.
  int any_part(int department, bool made, Random& random);

 private:
  std::size_t place(int department, int part) const {
    return static_cast<std::size_t>(department) * static_cast<std::size_t>(parts_) +
           static_cast<std::size_t>(part);
  }

  int parts_;
  std::vector<double> quantities_;
  std::vector<std::vector<int>> shelves_;  // two per department; parts that ran out are dropped when met
};

}  // namespace tallyra::company
