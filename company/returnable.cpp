#include "company/returnable.h"

#include <cmath>

namespace tallyra::company {

double quarter_of(double quantity) {
  return std::floor(std::abs(quantity) / 4);
}

}  // namespace tallyra::company
