#include "client/setup/functions.h"

#include <gtest/gtest.h>

#include "frame/schema/codes.h"

namespace tallyra::client {
namespace {

TEST(FunctionCodes, AreThoseThatTheClassesAskFor) {
  using namespace frame::schema;
  for (const char* code :
       {function_code::purchase_return, function_code::stocktaking, function_code::month_close,
        function_code::receiving_address, function_code::shipping_note, function_code::stock_controller,
        function_code::part_cost})
    EXPECT_EQ(client::function_code(code), code);
  for (const auto type : document_type::all) {
    if (type == document_type::company_document || type == document_type::posting) continue;
    EXPECT_EQ(client::function_code(type), type);
  }
}

}  // namespace
}  // namespace tallyra::client
