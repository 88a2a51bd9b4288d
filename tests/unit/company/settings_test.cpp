#include "company/settings.h"

#include <string>

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, HasUsersWithDifferentRights) {
  EXPECT_EQ(value_of(database,
                     "SELECT GROUP_CONCAT(USERID||' '||FUNCCODE||' '||CANINSERT||CANUPDATE||CANDELETE||"
                     "CANAPPROVED||CANUNAPPROVED||CANCANCEL||CANFINISHED||OWNER) FROM (SELECT * FROM "
                     "USERRIGHTS ORDER BY USERID)"),
            "ADMIN * 11111111,AUDITOR * 00000000,CLERK * 11000000,MANAGER * 11111110,OWNER * 00000001");
}

TEST_F(GeneratedCompany, HasMasterDataOfTheComponent) {
  for (const char* table : {"PARTCOSTSET", "REVADDR", "STKCONTROLLER"}) {
    EXPECT_NE(value_of(database, std::string("SELECT COUNT(*) FROM ") + table), "0") << table;
  }
}

}  // namespace
