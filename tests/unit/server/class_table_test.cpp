#include "server/class_table.h"

#include <gtest/gtest.h>

#include "automation/error.h"

namespace tallyra::server {
namespace {

using automation::Access;

ClassTable table() {
  return {"CBin",
          {{3, "Weight", MemberKind::property_get, {}, ResultType::single, nullptr},
           {3, "Weight", MemberKind::property_put, {}, ResultType::none, nullptr},
           {5, "Label", MemberKind::property_put, {}, ResultType::none, nullptr},
           {11, "Read", MemberKind::method, {}, ResultType::single, nullptr}},
          nullptr};
}

TEST(ClassTable, FindsAMemberByItsIdAndTheUseThatIsMadeOfIt) {
  const ClassTable bin = table();
  EXPECT_EQ(bin.find(3, Access::read), bin.members.data());
  EXPECT_EQ(bin.find(3, Access::put), &bin.members[1]);
  EXPECT_EQ(bin.find(3, Access::put_reference), &bin.members[1]);
  EXPECT_EQ(bin.find(11, Access::read), &bin.members[3]);
  EXPECT_EQ(bin.find(5, Access::read), nullptr);
  EXPECT_EQ(bin.find(11, Access::put), nullptr);
  EXPECT_EQ(bin.find(4, Access::read), nullptr);
}

TEST(ClassTable, ResolvesANameWhateverItsCase) {
  const ClassTable bin = table();
  EXPECT_EQ(bin.resolve("read"), 11);
  EXPECT_EQ(bin.resolve("LABEL"), 5);
  try {
    bin.resolve("Reads");
    FAIL() << "there is no such member";
  } catch (const automation::Error& error) {
    EXPECT_EQ(error.number(), 438);
  }
}

}  // namespace
}  // namespace tallyra::server
