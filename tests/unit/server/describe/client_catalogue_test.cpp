#include "server/describe/client_catalogue.h"

#include <gtest/gtest.h>

#include "tests/unit/server/describe/example_class.h"

namespace tallyra::server::describe {
namespace {

TEST(ClientCatalogue, ShowsMethodsAsOneWritesThem) {
  const ClassTable table = example_class();
  EXPECT_EQ(client_catalogue({&table, 1}),
            "constexpr MemberEntry stk_bin[] = {\n"
            "    {\"Read\", \"cKey @ [intRow]\"},\n"
            "    {\"Insert\", \"cKey COLUMN=value...\"},\n"
            "    {\"Update\", \"cKey COLUMN=value... [strTag] [strAgain]\"},\n"
            "    {\"Weigh\", \"vDate nScale\"},\n"
            "};\n"
            "\n"
            "constexpr ClassEntry classes[] = {\n"
            "    {\"CSTKBin\", \"bins of a store\", stk_bin},\n"
            "};\n");
}

TEST(ClientCatalogue, AClassWithoutRowsKeepsItsOrder) {
  ClassTable table = example_class();
  table.members.erase(table.members.begin() + 2, table.members.begin() + 5);
  EXPECT_NE(client_catalogue({&table, 1}).find("[] = {\n    {\"Weigh\", \"vDate nScale\"},\n};\n"),
            std::string::npos);
}

}  // namespace
}  // namespace tallyra::server::describe
