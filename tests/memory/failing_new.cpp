#include "tests/memory/failing_new.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace tallyra::memory {
namespace {

constinit bool counting = false;
constinit long asked = 0;
constinit long failed = 0;
constinit long first_failure = 0;
constinit long last_failure = 0;

void start(long first, long last) {
  asked = 0;
  failed = 0;
  first_failure = first;
  last_failure = last;
  counting = true;
}

bool fails_now() {
  if (!counting) return false;
  ++asked;
  if (asked < first_failure || asked > last_failure) return false;
  ++failed;
  return true;
}

void* allocate(std::size_t size) noexcept {
  return fails_now() ? nullptr : std::malloc(size ? size : 1);
}

void* allocate_or_throw(std::size_t size) {
  void* const memory = allocate(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}

}  // namespace

void begin(Shortage shortage) {
  start(shortage.first, shortage.length == Shortage::Length::once ? shortage.first : 1L << 30);
}

void begin_counting() {
  start(0, -1);
}

long end() {
  counting = false;
  return asked;
}

long failures() {
  return failed;
}

Pause::Pause() : before_(std::exchange(counting, false)) {}

Pause::~Pause() {
  counting = before_;
}

}  // namespace tallyra::memory

// Every form but those for types that need a wider alignment than the usual one, of which there are none.
void* operator new(std::size_t size) {
  return tallyra::memory::allocate_or_throw(size);
}
void* operator new[](std::size_t size) {
  return tallyra::memory::allocate_or_throw(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return tallyra::memory::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return tallyra::memory::allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}
