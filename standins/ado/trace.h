#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

// Watching what goes to the engines, so that a program can hold it against expectations or send the very same
// statements again without this layer.
namespace tallyra::standins::ado {

enum class Operation { connect, execute, query, begin, commit, rollback, disconnect };

struct TraceEvent {
  std::uint64_t connection;  // ordinal of the connection in this process, from 1
  std::string_view engine;   // of the connection: "odbc", or that of the library which serves it; a constant
  Operation operation;
  // connect: the connection string, in the form that ODBC takes whatever the engine; execute, query: the
  // statement in the engine's words, also where the engine got its values apart from it
  std::string_view text;
  std::uint64_t rows;  // query: rows fetched
  bool succeeded;
};

// Called on the thread that works with the connection, after the operation; the text is valid during the
// call.
class TraceSink {
 public:
  virtual ~TraceSink() = default;
  virtual void operation(const TraceEvent& event) noexcept = 0;
};

namespace detail {
extern std::atomic<TraceSink*> trace_sink;
}

// Sends the operations of all connections of the process to a sink, from before the first is used until after
// the last; a null pointer ends it. The sink is not owned.
void set_trace_sink(TraceSink* sink) noexcept;

inline TraceSink* trace_sink() noexcept {
  return detail::trace_sink.load(std::memory_order_acquire);
}

}  // namespace tallyra::standins::ado
