#include "client/listing/listed_class.h"

#include <gtest/gtest.h>

#include "client/catalogue.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

TEST(ListedClass, IsFoundByItsNameInAnyCaseWithOrWithoutTheLibrary) {
  for (const char* name : {"CTranHead", "ctranhead", "Tallyra.CTranHead", "TALLYRA.CTRANHEAD"})
    EXPECT_EQ(listed_class(name).from, "STKTRANHD") << name;
}

TEST(ListedClass, IsEveryClassThatKeepsRecords) {
  for (const ClassEntry& entry : catalogue()) {
    if (entry.name == "CStkrptFuns") continue;
    const ListedClass& listed = listed_class(entry.name);
    EXPECT_EQ(listed.name, entry.name);
    EXPECT_FALSE(listed.columns.empty()) << entry.name;
    EXPECT_FALSE(listed.order.empty()) << entry.name;
  }
}

TEST(ListedClass, HasColumnsOfTheTablesThatItReads) {
  for (const ClassEntry& entry : catalogue()) {
    if (entry.name == "CStkrptFuns") continue;
    const ListedClass& listed = listed_class(entry.name);
    for (const ListedColumn& column : listed.columns) {
      const std::string_view table = column.sql.substr(0, column.sql.find('.'));
      EXPECT_NE(listed.from.find(table), std::string_view::npos) << column.sql;
    }
    for (const std::string_view column : {listed.date, listed.type, listed.status, listed.department}) {
      const std::string_view table = column.substr(0, column.find('.'));
      EXPECT_NE(listed.from.find(table), std::string_view::npos) << column;
    }
  }
}

TEST(ListedClass, ThatIsNoneIsRefusedWithThoseThatThereAre) {
  EXPECT_EQ(usage_error_text([] { listed_class("CStkrptFuns"); }),
            "CStkrptFuns keeps no records that could be listed");
  EXPECT_EQ(usage_error_text([] { listed_class("CRevAdr"); }),
            "there is no class 'CRevAdr' to list; there are CTranHead CTranDetail CCheckHead CCheckDetail "
            "CStockClose CPartCostSet CRevAddr CSTKController CStkShipNote; did you mean 'CRevAddr'?");
}

}  // namespace
}  // namespace tallyra::client
