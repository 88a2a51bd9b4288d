#include "automation/com/enumerator.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::com::Enumerator;
using automation::com::Pointer;

// A walk over a collection as a client's For Each makes it.
class ComEnumerator : public testing::Test {
 protected:
  void fill() {
    for (const char* each : {"a", "b", "c"}) object_.call("Add", each);
  }
  Pointer<IEnumVARIANT> enumerator() const {
    return automation::com::query<IEnumVARIANT>(Enumerator::make(object_).get());
  }

  Object object_ = automation::make_object<automation::Collection>();
};

TEST_F(ComEnumerator, SkipsStartsAgainAndIsCopied) {
  fill();
  const auto items = enumerator();
  VARIANT fetched[4];
  ULONG count = 99;
  ASSERT_EQ(items->Next(4, fetched, &count), S_FALSE);
  EXPECT_EQ(count, 3U);
  for (ULONG i = 0; i < count; ++i) VariantClear(&fetched[i]);
  EXPECT_EQ(items->Reset(), S_OK);
  EXPECT_EQ(items->Skip(2), S_OK);
  Pointer<IEnumVARIANT> copy;
  ASSERT_EQ(items->Clone(copy.out()), S_OK);
  EXPECT_EQ(items->Skip(2), S_FALSE);
  Variant item;
  ASSERT_EQ(copy->Next(1, &item.raw(), &count), S_OK);
  EXPECT_EQ(value_in(item.raw()), Value("c"));
}

TEST_F(ComEnumerator, SeesTheCollectionAsItIs) {
  fill();
  const auto items = enumerator();
  Variant item;
  ASSERT_EQ(items->Next(1, &item.raw(), nullptr), S_OK);
  object_.call("Remove", 3);
  object_.call("Remove", 2);
  Variant none;
  EXPECT_EQ(items->Next(1, &none.raw(), nullptr), S_FALSE);
  object_.call("Add", "late");
  ASSERT_EQ(items->Next(1, &none.raw(), nullptr), S_OK);
  EXPECT_EQ(value_in(none.raw()), Value("late"));
}

TEST_F(ComEnumerator, MissesNothingWhenWhatItVisitsGoes) {
  fill();
  const auto items = enumerator();
  Pointer<IEnumVARIANT> copy;
  ASSERT_EQ(items->Clone(copy.out()), S_OK);
  std::string visited;
  for (Variant item; items->Next(1, &item.raw(), nullptr) == S_OK; item = Variant()) {
    visited += *value_in(item.raw()).get_if<std::string>();
    object_.call("Remove", 1);
  }
  EXPECT_EQ(visited, "abc");
  Variant none;
  EXPECT_EQ(copy->Next(1, &none.raw(), nullptr), S_FALSE);
}

TEST_F(ComEnumerator, RefusesNullPointers) {
  const auto items = enumerator();
  VARIANT item;
  EXPECT_EQ(items->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(items->Next(2, &item, nullptr), E_POINTER);
  EXPECT_EQ(items->Clone(nullptr), E_POINTER);
  EXPECT_EQ(items->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

}  // namespace
}  // namespace tallyra::tests::com
