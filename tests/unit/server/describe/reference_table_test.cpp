#include "server/describe/reference_table.h"

#include <gtest/gtest.h>

#include "tests/unit/server/describe/example_class.h"

namespace tallyra::server::describe {
namespace {

TEST(ReferenceTable, ArgumentsOfOneKindShareItsName) {
  EXPECT_EQ(reference_table(example_class()),
            "\n"
            "| id | member | arguments | result |\n"
            "|---|---|---|---|\n"
            "| 11 | `Read` | `cKey` text by reference, `colNames`, `colValues` collections by reference, "
            "optional `intRow` 32-bit integer by reference | single |\n"
            "| 12 | `Update` | `cKey` text by reference, `colNames`, `colValues` collections by reference, "
            "optional `strTag`, `strAgain` texts by reference | single |\n"
            "| 13 | `Insert` | `cKey` text by reference, `colNames`, `colValues` collections by reference "
            "| single |\n"
            "| 14 | `Weigh` | `vDate` variant, `nScale` double by reference "
            "| 16-bit integer: the weight; SO for none |\n"
            "\n");
}

TEST(ReferenceTable, AWordInCapitalsStaysOne) {
  ClassTable table = example_class();
  table.members.erase(table.members.begin(), table.members.end() - 1);
  table.members[0].result_help = "SO for a sales order";
  EXPECT_NE(reference_table(table).find("| 16-bit integer: SO for a sales order |"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::server::describe
