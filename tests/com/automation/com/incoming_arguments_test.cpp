#include "automation/com/incoming_arguments.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Error;
using automation::com::IncomingArguments;

// The arguments of a call, the named ones first and the others backwards, as they stand on the wire.
class IncomingArgumentsTest : public testing::Test {
 protected:
  DISPPARAMS wire(std::vector<VARIANTARG> arguments, std::vector<DISPID> names = {}) {
    arguments_ = std::move(arguments);
    names_ = std::move(names);
    return {arguments_.data(), names_.data(), static_cast<UINT>(arguments_.size()),
            static_cast<UINT>(names_.size())};
  }
  static VARIANTARG number(LONG content) {
    VARIANTARG argument;
    V_VT(&argument) = VT_I4;
    V_I4(&argument) = content;
    return argument;
  }
  // What reading ends in.
  std::int32_t error_of(const DISPPARAMS& parameters, std::optional<std::size_t> count) {
    try {
      IncomingArguments(parameters, count).read();
      return 0;
    } catch (const Error& error) {
      return error.number();
    }
  }

 private:
  std::vector<VARIANTARG> arguments_;
  std::vector<DISPID> names_;
};

TEST_F(IncomingArgumentsTest, AreReadInTheOrderOfTheParameters) {
  const DISPPARAMS parameters = wire({number(3), number(2), number(1)}, {2});
  IncomingArguments incoming(parameters, 3);
  const auto arguments = incoming.read();
  ASSERT_EQ(arguments.size(), 3U);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(arguments[static_cast<std::size_t>(i)].get(), Value(i + 1));
  EXPECT_EQ(incoming.wire_index(0), 2U);
  EXPECT_EQ(incoming.wire_index(2), 0U);
}

TEST_F(IncomingArgumentsTest, WhatIsLeftOutInTheMiddleIsMissing) {
  const DISPPARAMS parameters = wire({number(3), number(1)}, {2});
  IncomingArguments incoming(parameters, 4);
  const auto arguments = incoming.read();
  ASSERT_GE(arguments.size(), 3U);
  EXPECT_TRUE(arguments[1].get().is_missing());
  EXPECT_EQ(arguments[2].get(), Value(3));
  EXPECT_EQ(incoming.wire_index(1), std::nullopt);
}

TEST_F(IncomingArgumentsTest, AListThatCannotBeIsRefused) {
  EXPECT_EQ(error_of(wire({number(2), number(1)}), 1), 450) << "too many";
  EXPECT_EQ(error_of(wire({number(2), number(1)}, {0}), 2), 5) << "the first one twice";
  EXPECT_EQ(error_of(wire({number(1)}, {7}), 2), 448) << "a name that no parameter has";
  const DISPPARAMS unknown = wire({number(1), number(2)}, {0, 7});
  IncomingArguments incoming(unknown, 2);
  EXPECT_THROW(incoming.read(), Error);
  EXPECT_EQ(incoming.unknown_name(), 1U);
}

TEST_F(IncomingArgumentsTest, AreWrittenBackWhereTheCallerReferredToAVariable) {
  LONG variable = 1;
  const DISPPARAMS parameters = wire({number(2), reference(VT_I4, &variable)});
  IncomingArguments incoming(parameters, 2);
  const auto arguments = incoming.read();
  arguments[0].set(7);
  arguments[1].set(8);
  EXPECT_EQ(variable, 1);
  incoming.write_back();
  EXPECT_EQ(variable, 7);
}

TEST_F(IncomingArgumentsTest, OneThatDoesNotFitIsBlamedAfterTheOthersAreWritten) {
  SHORT small = 1;
  LONG large = 1;
  const DISPPARAMS parameters = wire({reference(VT_I4, &large), reference(VT_I2, &small)});
  IncomingArguments incoming(parameters, 2);
  const auto arguments = incoming.read();
  arguments[0].set(70000);
  arguments[1].set(70000);
  try {
    incoming.write_back();
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.argument(), 1);
  }
  EXPECT_EQ(small, 1);
  EXPECT_EQ(large, 70000);
}

}  // namespace
}  // namespace tallyra::tests::com
