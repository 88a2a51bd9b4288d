#include "bench/scenario.h"

#include "bench/odbc_replay.h"
#include "bench/postgresql_replay.h"
#include "bench/sqlite_replay.h"

namespace tallyra::bench {

std::vector<Replay> sqlite_replays() {
  return {{Against::odbc, through_odbc},
          {Against::text, through_sqlite_by_text},
          {Against::prepared, through_sqlite_by_shape}};
}

std::vector<Replay> postgresql_replays() {
  return {{Against::text, through_postgresql_by_text}};
}

std::string with_commas(std::int64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t place = text.size(); place > 3;) text.insert(place -= 3, 1, ',');
  return text;
}

}  // namespace tallyra::bench
