#include "client/batch/batch_call.h"

#include <gtest/gtest.h>

#include "client/usage_error.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

std::string typed(const automation::Value& value) {
  return std::string(type_name(value)) + ":" + shown_text(value);
}

TEST(BatchCall, HasTypedArguments) {
  const Call call = parse_batch_line(
      R"({"class":"CStockClose","member":"Update","arguments":)"
      R"(["d:2024/01/31",{"B":1,"A":2.5,"C":5000000000,"D":null,"E":true,"F":"t:n:1"},"APPROVED"]})");
  EXPECT_EQ(call.prog_id, "Tallyra.CStockClose");
  ASSERT_EQ(call.arguments.size(), 2U);
  EXPECT_EQ(typed(call.arguments[0]), "date:2024/01/31");
  EXPECT_EQ(typed(call.arguments[1]), "text:APPROVED");
  EXPECT_EQ(call.collections_after, 1U);
  std::string fields;
  for (const Field& field : call.fields) fields += field.name + "=" + typed(field.value) + " ";
  EXPECT_EQ(fields, "B=int32:1 A=double:2.5 C=double:5000000000 D=null:NULL E=boolean:True F=text:n:1 ");
}

TEST(BatchCall, OfReadHasCollectionsByItself) {
  EXPECT_EQ(parse_batch_line(R"({"class":"CRevAddr","member":"read","arguments":["A1"]})").collections_after,
            1U);
  EXPECT_EQ(parse_batch_line(R"({"class":"CTranDetail","member":"Read","arguments":["T","R","P",{},1]})")
                .collections_after,
            3U);
  EXPECT_EQ(parse_batch_line(R"({"words":["CRevAddr","Read","A1"]})").collections_after, 1U);
  EXPECT_FALSE(
      parse_batch_line(R"({"class":"CRevAddr","member":"Delete","arguments":["A1"]})").collections_after);
}

TEST(BatchCall, IsRefusedWithWhatIsWrong) {
  const struct {
    const char* line;
    const char* text;
  } rows[] = {
      {"{", "no JSON"},
      {"[]", "a call is an object"},
      {R"({"member":"Read"})", "\"class\""},
      {R"({"class":"CRevAddr"})", "\"member\""},
      {R"({"class":"CRevAddr","member":1})", "\"member\""},
      {R"({"class":"CRevAddr","member":"Read","argument":[]})", "\"argument\""},
      {R"({"class":"CRevAddr","member":"Read","arguments":"A1"})", "is an array"},
      {R"({"class":"CRevAddr","member":"Read","arguments":[[1]]})", "a value is"},
      {R"({"class":"CRevAddr","member":"Read","arguments":[{},{}]})", "one pair"},
      {R"({"class":"CRevAddr","member":"Read","arguments":["n:x"]})", "n:x"},
      {R"({"words":[1]})", "array of texts"},
  };
  for (const auto& [line, text] : rows) try {
      parse_batch_line(line);
      ADD_FAILURE() << line;
    } catch (const UsageError& error) {
      EXPECT_NE(std::string(error.what()).find(text), std::string::npos) << error.what();
    }
}

TEST(BatchCall, IsNoDeepTree) {
  const std::string begin = R"({"class":"CRevAddr","member":"Read","arguments":[)";
  constexpr std::size_t deep = 1'000'000;
  EXPECT_THROW(parse_batch_line(begin + std::string(deep, '[') + std::string(deep, ']') + "]}"), UsageError);
}

}  // namespace
}  // namespace tallyra::client
