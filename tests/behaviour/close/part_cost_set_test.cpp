#include <gtest/gtest.h>

#include "tests/support/company_database.h"
#include "tests/support/record_methods.h"

// Costing settings on a real database.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;

class PartCostSetOnEachEngine : public testing::TestWithParam<const char*> {
 protected:
  Outcome play(const char* member, std::int32_t type, Fields& fields, const char* user = "ADMIN") {
    return stage::play_record(company.client("CPartCostSet", user), member, type, fields);
  }
  Outcome update(std::int32_t type, Fields& fields, Value tag, const char* user) {
    return stage::play_record(company.client("CPartCostSet", user), "Update", type, fields, tag);
  }
  std::string stored() { return company.rows("SELECT MTYPESN,MTYPENM,STATUSSN FROM PARTCOSTSET ORDER BY 1"); }

  CompanyDatabase company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, PartCostSetOnEachEngine, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(PartCostSetOnEachEngine, ASettingLivesItsWholeLifeAlsoUnderANegativeNumber) {
  for (const std::int32_t type : {7, -5, 0}) {
    Fields setting{{"MTYPESN", type}, {"MTYPENM", "Raw"}};
    EXPECT_EQ(play("Insert", type, setting), done) << type;
    EXPECT_EQ(play("Insert", type, setting).number, 10000004);
    EXPECT_EQ(stored(), std::to_string(type) + "|Raw|0\n");
    Fields read;
    EXPECT_EQ(play("Read", type, read), done);
    EXPECT_TRUE(read.text().starts_with("MTYPESN=" + std::to_string(type) + " MTYPENM='Raw'")) << read.text();
    Fields change{{"MTYPENM", "Bought"}};
    EXPECT_EQ(play("Update", type, change), done);
    EXPECT_EQ(stored(), std::to_string(type) + "|Bought|0\n");
    const Object settings = company.client("CPartCostSet");
    EXPECT_EQ(stage::outcome_of(settings, settings.call("Delete", type)), done);
    EXPECT_EQ(stage::outcome_of(settings, settings.call("Delete", type)), done);
    EXPECT_EQ(stored(), "");
    EXPECT_EQ(play("Read", type, read).number, 10000003);
    EXPECT_EQ(read.text(), "");
  }
}

TEST_P(PartCostSetOnEachEngine, AFailedStatementChangesNothing) {
  company.run({"INSERT INTO PARTCOSTSET(MTYPESN,MTYPENM) VALUES(7,'Raw')"});
  company.refuse("NO_NEW", "INSERT", "PARTCOSTSET", "", "settled");
  company.refuse("KEPT", "DELETE", "PARTCOSTSET", "", "settled");
  Fields setting{{"MTYPESN", 8}};
  const Object settings = company.client("CPartCostSet");
  for (const Outcome& outcome :
       {play("Insert", 8, setting), stage::outcome_of(settings, settings.call("Delete", 7))}) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_NE(outcome.description.find("settled"), std::string::npos) << outcome.description;
  }
  EXPECT_EQ(stored(), "7|Raw|0\n");
}

TEST_P(PartCostSetOnEachEngine, ATagAsksForItsRightAndChangesWhatAnEditDoes) {
  company.grant("EDITOR", "CANUPDATE,OWNER");
  company.grant("BOSS", "CANAPPROVED");
  company.run({"INSERT INTO PARTCOSTSET(MTYPESN,MTYPENM) VALUES(7,'Raw')"});
  Fields approved{{"STATUSSN", 1}};
  EXPECT_EQ(update(7, approved, "APPROVED", "EDITOR").number, 10000016);
  EXPECT_EQ(stored(), "7|Raw|0\n");
  EXPECT_EQ(update(7, approved, "APPROVED", "BOSS"), done);
  EXPECT_EQ(stored(), "7|Raw|1\n");
  Fields edited{{"STATUSSN", 2}};
  EXPECT_EQ(update(7, edited, "", "BOSS").number, 10000016);
  EXPECT_EQ(update(7, edited, "", "EDITOR"), done);
  EXPECT_EQ(stored(), "7|Raw|2\n");
}

}  // namespace
}  // namespace tallyra::behaviour
