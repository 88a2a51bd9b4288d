#include "bench/growth.h"

namespace tallyra::bench {

Growth growth_between(const std::string& of, const std::string& size, const Comparison& once,
                      const Comparison& twice) {
  return {of, size, twice.component.median_seconds() / once.component.median_seconds(),
          twice.replays.at(Against::odbc).median_seconds() / once.replays.at(Against::odbc).median_seconds()};
}

}  // namespace tallyra::bench
