#include "automation/com/module.h"

#include <gtest/gtest.h>

#include <optional>

#include "automation/error.h"

// The module is this program.
namespace tallyra::tests::com {
namespace {

using namespace automation::com;

TEST(Module, CountsItsUsesWithTheirCopies) {
  const long before = module_uses();
  {
    const ModuleUse use;
    const ModuleUse copy(use);
    EXPECT_EQ(module_uses(), before + 2);
    EXPECT_FALSE(may_unload_module());
  }
  EXPECT_EQ(module_uses(), before);
}

TEST(Module, ALockIsAUseAndUnlockingTooOftenIsNone) {
  const long before = module_uses();
  lock_module(true);
  EXPECT_EQ(module_uses(), before + 1);
  lock_module(false);
  lock_module(false);
  EXPECT_EQ(module_uses(), before);
}

TEST(Module, MayBeUnloadedWhenNothingUsesIt) {
  std::optional<ModuleUse> use(std::in_place);
  EXPECT_FALSE(may_unload_module());
  use.reset();
  EXPECT_EQ(may_unload_module(), module_uses() == 0);
}

TEST(Module, IsTheProgramThatTheCodeIsLinkedInto) {
  EXPECT_EQ(module_handle(), GetModuleHandleW(nullptr));
  EXPECT_TRUE(module_path().ends_with(L".exe"));
  EXPECT_NE(module_path().find(L'\\'), std::wstring::npos);
}

TEST(Module, HasNoTypeLibraryUnlessOneIsLinkedIn) {
  const ModuleUse use;
  EXPECT_THROW(module_type_library(), automation::Error);
}

}  // namespace
}  // namespace tallyra::tests::com
