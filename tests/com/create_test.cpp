#include "automation/create.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace tallyra::automation
