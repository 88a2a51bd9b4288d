#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "standins/ado/trace.h"

namespace tallyra::bench {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// Writes everything that goes to ODBC into a file, to be sent again by a replay.
class StatementLog : public standins::ado::TraceSink {
 public:
  explicit StatementLog(const std::string& path);
  ~StatementLog() override;
  void operation(const standins::ado::TraceEvent& event) noexcept override;

 private:
  File file_;
};

struct LoggedOperation {
  std::uint32_t connection = 0;
  standins::ado::Operation operation{};
  bool succeeded = false;
  std::string text;
};

// Reads such a file piece by piece, so that a replay holds one statement in memory at a time.
class StatementReader {
 public:
  explicit StatementReader(const std::string& path);
  // False at the end; the text's room is used again.
  bool next(LoggedOperation& operation);

 private:
  File file_;
};

}  // namespace tallyra::bench
