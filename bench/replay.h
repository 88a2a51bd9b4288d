#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace tallyra::bench {

// What a replay sends statements through.
class ReplayConnection {
 public:
  // Rolls back what is still open.
  virtual ~ReplayConnection() = default;

  // Sends one statement and, of a query, reads every row. Throws std::runtime_error with the engine's words.
  virtual void run(std::string& sql, bool is_query) = 0;
  virtual void begin() = 0;
  virtual void commit() = 0;
  virtual void roll_back() = 0;
};

// Opens a connection from the string that the component's was opened with.
using Connect = std::function<std::unique_ptr<ReplayConnection>(std::string& connection_string)>;

// Sends the statements of a log again, in their order and on as many connections. Throws std::runtime_error
// when one fails that had succeeded. Returns how many were sent.
std::uint64_t replay(const std::string& log_path, const Connect& connect);

}  // namespace tallyra::bench
