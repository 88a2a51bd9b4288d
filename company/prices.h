#pragma once

#include <cstdint>

#include "company/masters.h"
#include "company/random.h"

namespace tallyra::company {

// Money is reckoned in ten-thousandths and rounded to hundredths for a price, in whole numbers, so that every
// machine comes to the same text.
inline double standard_price(const Part& part) {
  const std::int64_t hundredths = (part.cost + 50) / 100;
  return static_cast<double>(hundredths) / 100.0;
}

// What a supplier asks: around the standard cost, rising by a hundredth every month.
inline double purchase_price(const Part& part, int month, Random& random) {
  const std::int64_t percent = random.between(92, 110) + month;
  const std::int64_t ten_thousandths = part.cost * percent / 100;
  const std::int64_t hundredths = (ten_thousandths + 50) / 100;
  return static_cast<double>(hundredths) / 100.0;
}

// A lot of the part: pieces, or quarters of a kilogram for material bought by weight.
inline double lot(const Part& part, int low, int high, Random& random) {
  const double whole = random.between(low, high);
  return part.by_weight ? whole + random.below(4) * 0.25 : whole;
}

}  // namespace tallyra::company
