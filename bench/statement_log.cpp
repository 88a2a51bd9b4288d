#include "bench/statement_log.h"

#include <stdexcept>

namespace tallyra::bench {
namespace {

struct Header {
  std::uint32_t connection;
  std::uint32_t length;
  std::uint8_t operation;
  std::uint8_t succeeded;
};

File open_file(const std::string& path, const char* mode) {
  File file(std::fopen(path.c_str(), mode));
  if (!file) throw std::runtime_error("cannot open " + path);
  return file;
}

}  // namespace

StatementLog::StatementLog(const std::string& path) : file_(open_file(path, "wb")) {
  standins::ado::set_trace_sink(this);
}

StatementLog::~StatementLog() {
  standins::ado::set_trace_sink(nullptr);
}

void StatementLog::operation(const standins::ado::TraceEvent& event) noexcept {
  const Header header{static_cast<std::uint32_t>(event.connection),
                      static_cast<std::uint32_t>(event.text.size()),
                      static_cast<std::uint8_t>(event.operation), event.succeeded};
  std::fwrite(&header, sizeof header, 1, file_.get());
  if (!event.text.empty()) std::fwrite(event.text.data(), 1, event.text.size(), file_.get());
}

StatementReader::StatementReader(const std::string& path) : file_(open_file(path, "rb")) {}

bool StatementReader::next(LoggedOperation& operation) {
  Header header{};
  if (std::fread(&header, sizeof header, 1, file_.get()) != 1) return false;
  operation.connection = header.connection;
  operation.operation = static_cast<standins::ado::Operation>(header.operation);
  operation.succeeded = header.succeeded != 0;
  operation.text.resize(header.length);
  return std::fread(operation.text.data(), 1, header.length, file_.get()) == header.length;
}

}  // namespace tallyra::bench
