#include "client/value_text.h"

#include <gtest/gtest.h>

#include "automation/bytes.h"
#include "automation/collection.h"

namespace tallyra::client {
namespace {

using automation::Value;

struct ShownValue {
  Value value;
  std::string_view type;
  std::string_view shown;
};

TEST(ValueText, NamesEveryTypeAndShowsWhatHasAText) {
  const ShownValue rows[] = {{Value(), "empty", ""},
                             {automation::Null{}, "null", "NULL"},
                             {automation::Missing{}, "missing", ""},
                             {true, "boolean", "True"},
                             {std::uint8_t{7}, "byte", "7"},
                             {std::int16_t{-7}, "int16", "-7"},
                             {7, "int32", "7"},
                             {std::int64_t{7}, "int64", "7"},
                             {0.5F, "single", "0.5"},
                             {0.1, "double", "0.1"},
                             {automation::Currency{12500}, "currency", "1.25"},
                             {*automation::Decimal::parse("1.50"), "decimal", "1.5"},
                             {automation::Date{45382}, "date", "2024/03/31"},
                             {"NULL", "text", "NULL"}};
  for (const auto& [value, type, shown] : rows) {
    EXPECT_EQ(type_name(value), type);
    EXPECT_EQ(shown_text(value), shown) << type;
  }
}

TEST(ValueText, ShowsWhatHasNoTextByItsKind) {
  EXPECT_EQ(shown_text(automation::Object()), "(no object)");
  EXPECT_EQ(shown_text(automation::make_object<automation::Collection>()), "(object)");
  const auto bytes = std::make_shared<automation::Bytes>("abc");
  EXPECT_EQ(shown_text(automation::Opaque(bytes)), "(" + std::string(bytes->kind()) + ")");
  EXPECT_EQ(shown_text(automation::Opaque()), "(unknown)");
  EXPECT_EQ(shown_text(automation::Date{1e9}), "(date without a text)");
}

}  // namespace
}  // namespace tallyra::client
