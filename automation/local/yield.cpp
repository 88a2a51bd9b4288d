#include "automation/yield.h"

#include <utility>

namespace tallyra::automation {
namespace {

thread_local const std::function<void()>* thread_handler = nullptr;

}  // namespace

void yield() {
  if (thread_handler) (*thread_handler)();
}

ScopedYield::ScopedYield(std::function<void()> handler)
    : handler_(std::move(handler)), previous_(std::exchange(thread_handler, &handler_)) {}

ScopedYield::~ScopedYield() {
  thread_handler = previous_;
}

}  // namespace tallyra::automation
