#include "automation/com/outgoing_arguments.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Access;
using automation::Argument;
using automation::com::OutgoingArguments;
using automation::com::ReferenceForm;

TEST(OutgoingArguments, StandBackwardsOnTheWireHoweverMany) {
  for (const int count : {0, 1, 8, 9, 40}) {
    std::vector<Value> values;
    for (int i = 0; i < count; ++i) values.emplace_back(i);
    const std::vector<Argument> arguments(values.begin(), values.end());
    OutgoingArguments outgoing(arguments, Access::read, ReferenceForm::typed);
    const DISPPARAMS& wire = outgoing.parameters();
    ASSERT_EQ(wire.cArgs, static_cast<UINT>(count));
    EXPECT_EQ(wire.cNamedArgs, 0U);
    for (int i = 0; i < count; ++i) EXPECT_EQ(value_in(wire.rgvarg[count - 1 - i]), Value(i)) << count;
  }
}

TEST(OutgoingArguments, OfAPutNameTheNewValue) {
  const Value value("x");
  const std::vector<Argument> arguments{Argument(value)};
  for (const Access access : {Access::put, Access::put_reference}) {
    OutgoingArguments outgoing(arguments, access, ReferenceForm::typed);
    ASSERT_EQ(outgoing.parameters().cNamedArgs, 1U);
    EXPECT_EQ(outgoing.parameters().rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
  }
}

TEST(OutgoingArguments, ByReferenceAreVariablesOfTheFormAskedFor) {
  Value text("old");
  const std::vector<Argument> arguments{Argument::by_reference(text)};
  OutgoingArguments typed(arguments, Access::read, ReferenceForm::typed);
  EXPECT_EQ(V_VT(&typed.parameters().rgvarg[0]), VT_BYREF | VT_BSTR);
  OutgoingArguments variant(arguments, Access::read, ReferenceForm::variant);
  EXPECT_EQ(V_VT(&variant.parameters().rgvarg[0]), VT_BYREF | VT_VARIANT);
}

TEST(OutgoingArguments, ComeBackOnlyWhenTheyAreTakenBack) {
  Value number(1);
  const Value fixed(2);
  const std::vector<Argument> arguments{Argument::by_reference(number), Argument(fixed)};
  OutgoingArguments outgoing(arguments, Access::read, ReferenceForm::typed);
  *V_I4REF(&outgoing.parameters().rgvarg[1]) = 7;
  EXPECT_EQ(number, Value(1));
  outgoing.take_back();
  EXPECT_EQ(number, Value(7));
  EXPECT_EQ(fixed, Value(2));
}

}  // namespace
}  // namespace tallyra::tests::com
