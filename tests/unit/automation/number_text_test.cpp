#include "automation/number_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace tallyra::automation {
namespace {

std::string text_of(double value) {
  std::string text;
  append_number(text, value);
  return text;
}

std::string text_of(float value) {
  std::string text;
  append_number(text, value);
  return text;
}

TEST(NumberText, ADoubleHasFifteenDigitsAndPlainDigitsWhereTheyFit) {
  const struct {
    double value;
    const char* text;
  } rows[] = {{0, "0"},
              {-0.0, "0"},
              {1, "1"},
              {-1.5, "-1.5"},
              {100000, "100000"},
              {1e14, "100000000000000"},
              {999999999999999, "999999999999999"},
              {1e15, "1E+15"},
              {-1e15, "-1E+15"},
              {1.5e20, "1.5E+20"},
              {1e100, "1E+100"},
              {1e-100, "1E-100"},
              {1234567890123456, "1.23456789012346E+15"},
              {123456789012345.6, "123456789012346"},
              {999999999999999.9, "1E+15"},
              {1.0 / 30, "3.33333333333333E-02"},
              {0.0123456789012345678, "1.23456789012346E-02"},
              {0.000123456789012345678, "1.23456789012346E-04"},
              {1e-5, "0.00001"},
              {1.5e-5, "0.000015"},
              {1.25e-7, "0.000000125"},
              {1e-10, "0.0000000001"},
              {1e-15, "0.000000000000001"},
              {1e-16, "1E-16"},
              {5e-16, "5E-16"},
              {1.234567e-9, "0.000000001234567"},
              {1.2345678e-9, "1.2345678E-09"},
              {0.1 + 0.2, "0.3"},
              {1.0 / 3, "0.333333333333333"},
              {2.0 / 3, "0.666666666666667"},
              {4.35 * 100, "435"},
              {1.1 - 1, "0.1"},
              {0.0001, "0.0001"},
              {-0.1, "-0.1"},
              {std::numeric_limits<double>::max(), "1.79769313486232E+308"},
              {std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324"},
              {std::numeric_limits<double>::infinity(), "INF"},
              {-std::numeric_limits<double>::infinity(), "-INF"},
              {std::numeric_limits<double>::quiet_NaN(), "NAN"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(text_of(value), text);
}

TEST(NumberText, ASingleHasSevenDigits) {
  const struct {
    float value;
    const char* text;
  } rows[] = {{0.1F, "0.1"},
              {123.456F, "123.456"},
              {1.0F / 30, "3.333334E-02"},
              {1e-5F, "0.00001"},
              {1.0F / 3, "0.3333333"},
              {1e6F, "1000000"},
              {9999999.0F, "9999999"},
              {1e7F, "1E+07"},
              {16777216.0F, "1.677722E+07"},
              {12345678.0F, "1.234568E+07"},
              {3.4028235e38F, "3.402823E+38"},
              {1.4e-45F, "1.401298E-45"},
              {10000003.0F, "1E+07"},
              {10000016.0F, "1.000002E+07"},
              {10000112.0F, "1.000011E+07"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(text_of(value), text);
}

}  // namespace
}  // namespace tallyra::automation
