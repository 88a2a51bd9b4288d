#include "automation/yield.h"

#include <utility>

namespace tallyra::automation {
namespace {

thread_local std::function<void()> thread_handler;

}  // namespace

void yield() {
  if (thread_handler) thread_handler();
}

ScopedYield::ScopedYield(std::function<void()> handler)
    : previous_(std::exchange(thread_handler, std::move(handler))) {}

ScopedYield::~ScopedYield() {
  thread_handler = std::move(previous_);
}

}  // namespace tallyra::automation
