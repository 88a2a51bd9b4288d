#pragma once

#include <string>
#include <string_view>

namespace tallyra::tests::dialect {

// An SQLite database in memory with the stock tables, reached through the ODBC driver, as the statements are
// later. Nothing is committed by itself.
class Engine {
 public:
  // Throws std::runtime_error when the driver is not there or a table cannot be created.
  Engine();
  ~Engine();

  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  // Runs the statement as it is. Returns its rows, columns joined by | and rows by blanks; "!" and the
  // engine's message when it is refused.
  std::string run(std::string_view sql);

  void roll_back();

 private:
  std::string rows(void* statement) const;

  void* environment_ = nullptr;
  void* connection_ = nullptr;
};

}  // namespace tallyra::tests::dialect
