#include "client/call.h"

#include <gtest/gtest.h>

#include "client/value_text.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

using Texts = std::vector<std::string>;

// "A1 {ADDRNO=text A1} int32 3": the arguments in their order, the collections in braces at their place.
std::string shape(const Call& call) {
  std::string text;
  for (std::size_t i = 0; i <= call.arguments.size(); ++i) {
    if (call.collections_after == i) {
      text += "{";
      for (const auto& field : call.fields)
        text += field.name + "=" + std::string(type_name(field.value)) + " " + shown_text(field.value) + ";";
      text += "}";
    }
    if (i < call.arguments.size())
      text += "[" + std::string(type_name(call.arguments[i])) + " " + shown_text(call.arguments[i]) + "]";
  }
  return text;
}

TEST(Call, NamesAClassByProgIdOrByItsBareNameInAnyCase) {
  const struct {
    const char* word;
    const char* prog_id;
  } rows[] = {
      {"Tallyra.CRevAddr", "Tallyra.CRevAddr"}, {"CRevAddr", "Tallyra.CRevAddr"},
      {"crevaddr", "Tallyra.CRevAddr"},         {"Corvane.CSystem", "Corvane.CSystem"},
      {"CUnknown", "Tallyra.CUnknown"},
  };
  for (const auto& row : rows) {
    const Call call = parse_call({row.word, "Delete", "A1"});
    EXPECT_EQ(call.prog_id, row.prog_id);
    EXPECT_EQ(call.member, "Delete");
  }
}

TEST(Call, PlacesArgumentsAndCollectionsAsTheWordsStand) {
  const struct {
    Texts words;
    const char* shape;
  } rows[] = {
      {{"CRevAddr", "Delete", "A1"}, "[text A1]"},
      {{"CRevAddr", "Delete"}, ""},
      {{"CRevAddr", "Insert", "A1", "ADDRNO=A1", "SN=i:3"}, "[text A1]{ADDRNO=text A1;SN=int32 3;}"},
      {{"CStockClose", "Update", "2024/01/31", "STATUSSN=i:1", "APPROVED"},
       "[text 2024/01/31]{STATUSSN=int32 1;}[text APPROVED]"},
      {{"X.Y", "Z", "A=1"}, "{A=text 1;}"},
      {{"CRevAddr", "Read", "A1"}, "[text A1]{}"},
      {{"CRevAddr", "read", "A1", "@"}, "[text A1]{}"},
      {{"CTranDetail", "Read", "T1", "R1", "P1", "@", "i:2"}, "[text T1][text R1][text P1]{}[int32 2]"},
      {{"CRevAddr", "Read", "A1", "ADDRNO=A1"}, "[text A1]{ADDRNO=text A1;}"},
      {{"X.Y", "Z", "-5", "-.5", "n:-5"}, "[text -5][text -.5][double -5]"},
  };
  for (const auto& row : rows) EXPECT_EQ(shape(parse_call(row.words)), row.shape);
}

TEST(Call, TakesAWordForAPairOnlyWhenItsFrontIsAColumnName) {
  const struct {
    const char* word;
    const char* shape;
  } rows[] = {
      {"ADDRNO=", "{ADDRNO=text ;}"},
      {"STKCLOSEHD.CLOSEDT=d:2024/01/31", "{STKCLOSEHD.CLOSEDT=date 2024/01/31;}"},
      {"_a1=x=y", "{_a1=text x=y;}"},
      {"地址=港口", "{地址=text 港口;}"},
      {"NOTES=null:", "{NOTES=null NULL;}"},
      {"NOTES=t:null:", "{NOTES=text null:;}"},
      {"NOTES=@", "{NOTES=text @;}"},
      {"Select * From X Where A=1", "[text Select * From X Where A=1]"},
      {"=x", "[text =x]"},
      {"1A=x", "[text 1A=x]"},
      {"A-B=x", "[text A-B=x]"},
      {"t:A=1", "[text A=1]"},
  };
  for (const auto& row : rows) EXPECT_EQ(shape(parse_call({"X.Y", "Z", row.word})), row.shape);
}

TEST(Call, HasOnePairOfCollections) {
  for (const Texts& words : {Texts{"X.Y", "Z", "A=1", "x", "B=2"}, Texts{"X.Y", "Z", "@", "A=1"},
                             Texts{"X.Y", "Z", "A=1", "@"}, Texts{"X.Y", "Z", "@", "@"}})
    EXPECT_TRUE(
        usage_error_text([&] { parse_call(words); }).starts_with("a call has one pair of collections"))
        << words[2] << " " << words[3];
}

TEST(Call, CannotLeaveAColumnOut) {
  EXPECT_EQ(usage_error_text([] {
              parse_call({"X.Y", "Z", "A=missing:"});
            }),
            "'A=missing:': missing: leaves an argument out; a column takes null: or empty: instead");
}

TEST(Call, WithoutClassOrMemberSaysWhatThereIs) {
  const std::string nothing = usage_error_text([] { parse_call({}); });
  EXPECT_TRUE(nothing.starts_with("no verb and no class given; the verbs are init, ")) << nothing;
  EXPECT_TRUE(
      nothing.ends_with("; the classes are CTranHead, CTranDetail, CCheckHead, CCheckDetail, CStkrptFuns, "
                        "CPartCostSet, CStockClose, CRevAddr, CSTKController, CStkShipNote"))
      << nothing;
  EXPECT_EQ(usage_error_text([] { parse_call({"CRevAddr"}); }),
            "no member of Tallyra.CRevAddr given; its members are Read, Insert, Update, Delete");
  EXPECT_EQ(usage_error_text([] {
              parse_call({"Corvane.CSystem", ""});
            }),
            "no member of Corvane.CSystem given");
}

}  // namespace
}  // namespace tallyra::client
