#include "standins/ado/trace.h"

namespace tallyra::standins::ado {

std::atomic<TraceSink*> detail::trace_sink{nullptr};

void set_trace_sink(TraceSink* sink) noexcept {
  detail::trace_sink.store(sink, std::memory_order_release);
}

}  // namespace tallyra::standins::ado
