#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/replay.h"

namespace tallyra::bench {

// A company that can be brought back to what it was before the work.
class Company {
 public:
  virtual ~Company() = default;
  // The same for the company's whole life: the statements of a replay name it.
  virtual std::string connection_string() const = 0;
  virtual void renew() = 0;
};

// What the component is held against: its own texts through ODBC, through the engine's own library, and
// through that with every shape of text prepared once.
enum class Against { odbc, text, prepared };
inline constexpr std::array all_against{Against::odbc, Against::text, Against::prepared};

struct Replay {
  Against against;
  Connect (*connect)();
};

// The three on a SQLite file.
std::vector<Replay> sqlite_replays();
// The one on a PostgreSQL server.
std::vector<Replay> postgresql_replays();

// Work of the component, to be held against replays of its own statements.
struct Scenario {
  std::string work;
  std::string size;
  std::function<std::unique_ptr<Company>()> company;
  // Does the work and returns the rows that it has written or handled.
  std::function<std::uint64_t(const std::string& connection_string)> run;
  // Runs of each kind. Short work needs more of them for a median that stands still.
  int rounds = 7;
  std::vector<Replay> replays = sqlite_replays();
  // Another process does most of the work: it is timed by what passes, whatever a run takes the seconds of.
  bool on_server = false;
};

// 1234567 as "1,234,567".
std::string with_commas(std::int64_t number);

}  // namespace tallyra::bench
