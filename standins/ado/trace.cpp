#include "standins/ado/trace.h"

#include "standins/ado/session_trace.h"

namespace tallyra::standins::ado {

std::atomic<TraceSink*> detail::trace_sink{nullptr};

void set_trace_sink(TraceSink* sink) noexcept {
  detail::trace_sink.store(sink, std::memory_order_release);
}

std::uint64_t SessionTrace::next_ordinal() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

}  // namespace tallyra::standins::ado
