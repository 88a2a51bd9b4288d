#include "bench/growth.h"

namespace tallyra::bench {

Growth growth_between(const std::string& of, const std::string& size, const Comparison& once,
                      const Comparison& twice) {
  const auto of_replay = [&](Against against) {
    return twice.replays.at(against).median_seconds() / once.replays.at(against).median_seconds();
  };
  return {of, size, twice.component.median_seconds() / once.component.median_seconds(),
          of_replay(Against::odbc), of_replay(Against::prepared)};
}

}  // namespace tallyra::bench
