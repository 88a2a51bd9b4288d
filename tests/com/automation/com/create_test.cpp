#include "automation/create.h"

#include <gtest/gtest.h>

#include <thread>

#include "automation/error.h"

namespace tallyra::automation {
namespace {

std::int32_t failure_of_creating(std::string_view prog_id) {
  try {
    create(prog_id);
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST(Create, TellsWhyThereIsNoObject) {
  EXPECT_EQ(failure_of_creating("Tallyra.NoSuchClass"), 429);
  EXPECT_EQ(failure_of_creating(""), 429);
  EXPECT_EQ(failure_of_creating("VBScript"), 430) << "a class that cannot be called by name";
}

TEST(Create, OutsideAnApartmentThereAreNoClassesOfTheSystem) {
  std::int32_t number = 0;
  std::thread([&number] { number = failure_of_creating("Scripting.Dictionary"); }).join();
  EXPECT_EQ(number, 429);
}

}  // namespace
}  // namespace tallyra::automation
