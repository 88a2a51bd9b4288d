#include "company/schema_script.h"

#include <gtest/gtest.h>

#include "company/options.h"

namespace {

using namespace tallyra::company;

using Statements = std::vector<std::string>;

TEST(SchemaScript, SplitsAtSemicolonsOutsideOfTextNamesAndComments) {
  struct Row {
    const char* script;
    Statements statements;
  };
  const Row rows[] = {
      {"", {}},
      {" \n ; ;", {}},
      {"A; B", {"A", "B"}},
      {"A -- one; two\nB; C", {"A \nB", "C"}},
      {"A -- to the end", {"A"}},
      {"A 'x;y' B; C", {"A 'x;y' B", "C"}},
      {"A '--' B;", {"A '--' B"}},
      {"A 'it''s; so'; B", {"A 'it''s; so'", "B"}},
      {"A \"n;m\"; B", {"A \"n;m\"", "B"}},
      {"A 'never closed; B", {"A 'never closed; B"}},
  };
  for (const Row& row : rows) EXPECT_EQ(statements_of(row.script), row.statements) << row.script;
}

TEST(SchemaScript, TellsIndexesFromOtherStatements) {
  EXPECT_TRUE(creates_index("CREATE INDEX I ON T(A)"));
  EXPECT_TRUE(creates_index("CREATE UNIQUE INDEX I ON T(A)"));
  EXPECT_FALSE(creates_index("CREATE TABLE T(A)"));
}

TEST(SchemaScript, RefusesAFileThatIsNotThere) {
  EXPECT_THROW(read_schema("/nowhere/schema.sql"), Refusal);
}

}  // namespace
