#include <gtest/gtest.h>

#include "automation/error.h"
#include "automation/number_text.h"

namespace tallyra::automation {
namespace {

TEST(NumberTextReading, ReadsNumbersAsAutomationDoes) {
  const struct {
    const char* text;
    double value;
  } rows[] = {{" 12 ", 12},
              {"\t12\r\n", 12},
              {"\xC2\xA0"
               "12\xC2\xA0",
               12},
              {"+5", 5},
              {"- 5", -5},
              {"5-", -5},
              {"(5)", -5},
              {"1.", 1},
              {".5", 0.5},
              {"1e3", 1000},
              {"2.5e0", 2.5},
              {"1E-2", 0.01},
              {"1e-400", 0},
              {"1,234", 1234},
              {"1,2,3", 123},
              {"$5", 5},
              {"$1,234.50", 1234.5},
              {"-$5", -5},
              {"&H10", 16},
              {"&O17", 15},
              {"&HFFFF", 65535},
              {"0.1", 0.1},
              {"007", 7}};
  for (const auto& [text, value] : rows) EXPECT_EQ(parse_number(text), value) << text;
}

TEST(NumberTextReading, WhatIsNoNumberIsAMismatch) {
  for (const char* text : {"",    " ",   "-",     ".",   "1e",   "abc", "12abc", "1 2", "5%",  ",5", "0x10",
                           "1d3", "INF", "1.2.3", "+-5", "(-5)", "&H",  "&HXYZ", "--5", "1e+", "$",  "()"}) {
    try {
      parse_number(text);
      ADD_FAILURE() << text;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), error_number::type_mismatch) << text;
    }
  }
}

TEST(NumberTextReading, WhatIsTooLargeOverflows) {
  for (const char* text : {"1e400", "-1e400", "&HFFFFFFFFF"}) {
    try {
      parse_number(text);
      ADD_FAILURE() << text;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), error_number::overflow) << text;
    }
  }
}

}  // namespace
}  // namespace tallyra::automation
