#include "server/describe/words.h"

#include <gtest/gtest.h>

namespace tallyra::server::describe {
namespace {

TEST(DescribeWords, AFileIsNamedByTheWordsOfItsClass) {
  EXPECT_EQ(file_name("CTranHead"), "tran_head");
  EXPECT_EQ(file_name("CSTKController"), "stk_controller");
  EXPECT_EQ(file_name("CStkrptFuns"), "stkrpt_funs");
  EXPECT_EQ(object_name("CTranHead"), "TranHeadObject");
}

TEST(DescribeWords, AReferenceIsAPointer) {
  EXPECT_EQ(interface_type({"n", ParameterType::int16, true, automation::Missing{}}), "short*");
  EXPECT_EQ(interface_type({"n", ParameterType::int32, false, automation::Missing{}}), "long");
  EXPECT_EQ(interface_type({"c", ParameterType::collection, true, automation::Missing{}}), "IDispatch**");
  EXPECT_EQ(interface_type(ResultType::object), "IDispatch**");
}

}  // namespace
}  // namespace tallyra::server::describe
