// What the cross compiler and its flags must give the rest of the project.
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <thread>

namespace {

TEST(WindowsBuild, IsFor32Bits) {
  EXPECT_EQ(sizeof(void*), 4u);
}

TEST(WindowsBuild, RoundsEveryStepOfACalculationToADouble) {
  // In the 80-bit registers of the old floating-point unit the 1 survives.
  volatile double large = 1e16;
  volatile double one = 1.0;
  EXPECT_EQ((large + one) - large, 0.0);
}

TEST(WindowsBuild, CarriesExceptionsOutOfAThread) {
  std::exception_ptr caught;
  std::thread worker([&] {
    try {
      throw std::runtime_error("from the thread");
    } catch (...) {
      caught = std::current_exception();
    }
  });
  worker.join();
  ASSERT_TRUE(caught);
  EXPECT_THROW(std::rethrow_exception(caught), std::runtime_error);
}

// SSE faults on a misaligned 16-byte access; callers of a DLL align the stack to 4 bytes only.
__attribute__((noinline)) std::uintptr_t address_of_aligned_local() {
  alignas(16) volatile char local[16] = {};
  return reinterpret_cast<std::uintptr_t>(&local[0]);
}

TEST(WindowsBuild, AlignsTheStackItselfWhenTheCallerDidNot) {
  std::uintptr_t address = 1;
  asm volatile(
      "movl %%esp, %%esi\n\t"
      "andl $-16, %%esp\n\t"
      "subl $4, %%esp\n\t"
      "call *%1\n\t"
      "movl %%esi, %%esp"
      : "=a"(address)
      : "r"(&address_of_aligned_local)
      : "esi", "ecx", "edx", "memory", "cc");
  EXPECT_EQ(address % 16, 0u);
}

}  // namespace
