#include "automation/com/registry_key.h"

#include <gtest/gtest.h>
#include <objbase.h>

namespace tallyra::tests::com {
namespace {

using automation::com::ClassesBranch;
using automation::com::guid_text;

// Below a key of the user's that is the test's own.
class RegistryKey : public testing::Test {
 protected:
  RegistryKey() { branch_.remove(root_); }
  ~RegistryKey() override { branch_.remove(root_); }
  std::wstring key(const wchar_t* name) const { return root_ + L"\\" + name; }

  const ClassesBranch branch_{HKEY_CURRENT_USER};
  const std::wstring root_ = L"Tallyra.Test." + std::to_wstring(GetCurrentProcessId());
};

TEST_F(RegistryKey, HoldsTextsOfItsOwnAndByName) {
  const std::wstring large(5000, L'x');
  branch_.set(key(L"a"), nullptr, L"own");
  branch_.set(key(L"a"), L"Name", large);
  EXPECT_EQ(branch_.text(key(L"a")), L"own");
  EXPECT_EQ(branch_.text(key(L"a"), L"Name"), large);
  EXPECT_EQ(branch_.text(key(L"a"), L"Other"), L"");
  EXPECT_EQ(branch_.text(key(L"b")), L"");
}

TEST_F(RegistryKey, GoesWithWhatIsBelowAndWithEmptyOnesAbove) {
  branch_.set(key(L"a\\b\\c"), nullptr, L"text");
  branch_.set(key(L"kept"), nullptr, L"text");
  branch_.remove(key(L"a\\b"));
  EXPECT_FALSE(branch_.copy(key(L"a"))) << "nothing was left in it";
  EXPECT_TRUE(branch_.copy(root_));
  EXPECT_NO_THROW(branch_.remove(key(L"never there")));
}

TEST_F(RegistryKey, BecomesWhatItWasWhenItWasCopied) {
  branch_.set(key(L"a"), nullptr, L"old");
  const auto before = branch_.copy(key(L"a"));
  branch_.set(key(L"a"), nullptr, L"new");
  branch_.set(key(L"a\\below"), nullptr, L"new");
  branch_.restore(key(L"a"), before);
  EXPECT_EQ(branch_.text(key(L"a")), L"old");
  EXPECT_FALSE(branch_.copy(key(L"a\\below")));
  branch_.restore(key(L"a"), std::nullopt);
  EXPECT_FALSE(branch_.copy(key(L"a")));
}

TEST(RegistryText, OfAnIdentifierHasBraces) {
  EXPECT_EQ(guid_text(IID_IUnknown), L"{00000000-0000-0000-C000-000000000046}");
}

}  // namespace
}  // namespace tallyra::tests::com
