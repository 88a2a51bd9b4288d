#include <gtest/gtest.h>

#include <limits>

#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/record_methods.h"
#include "tests/support/stage.h"

// The costing settings of material types: keys that are numbers, and tags that mean nothing more than a
// right.
namespace tallyra {
namespace {

using automation::Error;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;
using stage::outcome_of;
using stage::refused;
using stage::Stage;

const std::string update_calls =
    "C1.State\n"
    "C1.Open 'DSN=x' '' '' -1\n"
    "R1.CursorLocation = 2\n"
    "R1.Open Select top 1 * From PARTCOSTSET | C1 0 1 -1\n"
    "R1.Close\n"
    "C1.Execute <GetUpdateSQL PARTCOSTSET> Where PARTCOSTSET.MTYPESN=7 | -1\n"
    "C1.Close\n";

class PartCostSet : public testing::TestWithParam<const char*> {
 protected:
  Outcome play(const char* member, const Value& number = 7) {
    const Object settings = stage.client("CPartCostSet");
    if (std::string_view(member) == "Delete") return stage::play_record(settings, member, number);
    return stage::play_record(settings, member, number, fields);
  }

  Stage stage{GetParam()};
  Fields fields{{"COSTMETHOD", 1}};
};
INSTANTIATE_TEST_SUITE_P(Kinds, PartCostSet, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(PartCostSet, EveryTagIsTheSameStatement) {
  const struct {
    Value tag;
    const char* right;
  } rows[] = {{"APPROVED", "CanApproved"}, {"UNAPPROVED", "CanUnapproved"},
              {"CANCEL", "CanCancel"},     {"FINISHED", "CanFinished"},
              {"", "CanUpdate"},           {automation::Missing{}, "CanUpdate"}};
  for (const auto& [tag, right] : rows) {
    Stage each(GetParam());
    each.set(right, 1);
    EXPECT_EQ(stage::play_record(each.client("CPartCostSet"), "Update", 7, fields, tag), done)
        << stage::shown(tag);
    EXPECT_EQ(each.database_calls(), update_calls) << stage::shown(tag);
  }
}

TEST_P(PartCostSet, AnOmittedTagNeedsTheRightToUpdate) {
  for (const char* other : {"CanApproved", "CanUnapproved", "CanCancel", "CanFinished", "Owner"})
    stage.set(other, 1);
  const Object settings = stage.client("CPartCostSet");
  Value omitted = automation::Missing{};
  EXPECT_EQ(outcome_of(settings, settings.call("Update", 7, ref(fields.names), ref(fields.values))),
            refused(10000016));
  EXPECT_EQ(
      outcome_of(settings, settings.call("Update", 7, ref(fields.names), ref(fields.values), ref(omitted))),
      refused(10000016));
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(PartCostSet, TheKeyIsWrittenAsABareNumber) {
  const struct {
    Value key;
    const char* text;
  } rows[] = {{-5, "-5"},
              {0, "0"},
              {std::numeric_limits<std::int32_t>::max(), "2147483647"},
              {std::numeric_limits<std::int32_t>::min(), "-2147483648"},
              {" 12 ", "12"}};
  stage.set("CanInsert", 1).set("CanUpdate", 1).set("CanDelete", 1);
  for (const auto& [key, text] : rows) {
    stage.clear();
    stage.all_find_nothing(
        {std::string("Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN=") + text,
         std::string("Select * From PARTCOSTSET where MTYPESN=") + text});
    fields = Fields{{"COSTMETHOD", 1}};
    for (const char* member : {"Insert", "Update", "Delete", "Read"}) play(member, key);
    const auto tells = [&](const std::string& statement) {
      return stage.transcript().find(statement + text + " |") != std::string::npos;
    };
    EXPECT_TRUE(tells("Open Select PARTCOSTSET.* From PARTCOSTSET Where PARTCOSTSET.MTYPESN=")) << text;
    EXPECT_TRUE(tells("Open Select * From PARTCOSTSET where MTYPESN=")) << text;
    EXPECT_TRUE(tells("Execute <GetUpdateSQL PARTCOSTSET> Where PARTCOSTSET.MTYPESN=")) << text;
    EXPECT_TRUE(tells("Execute Delete From PARTCOSTSET Where MTYPESN=")) << text;
  }
}

TEST_P(PartCostSet, AKeyThatIsNo32BitNumberNeverArrives) {
  const Object settings = stage.client("CPartCostSet");
  const struct {
    Value key;
    std::int32_t raised;
  } rows[] = {{"seven", 13}, {Null{}, 13}, {2147483648.0, 6}};
  for (const auto& [key, raised] : rows) {
    std::int32_t number = 0;
    try {
      settings.call("Delete", key);
    } catch (const Error& error) {
      number = error.number();
    }
    EXPECT_EQ(number, raised) << stage::shown(key);
  }
  EXPECT_EQ(stage.transcript(), "");
}

}  // namespace
}  // namespace tallyra
