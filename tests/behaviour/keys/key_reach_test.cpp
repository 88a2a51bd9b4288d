#include <gtest/gtest.h>

#include <filesystem>

#include "tests/behaviour/close/closing_company.h"
#include "tests/support/record_methods.h"

// What is left to a key that a client does not check: every table can be read, and every row of the table
// that the method writes to can be written.
namespace tallyra::behaviour {
namespace {

using stage::Fields;
using stage::Outcome;

class KeyReach : public testing::TestWithParam<const char*> {
 protected:
  KeyReach() {
    company.grant("CLERK", "CANINSERT,CANUPDATE,CANDELETE");
    company.run({"INSERT INTO REVADDR(ADDRNO,ADDRNM) VALUES('A1','Quay'),('A2','Gate')",
                 "INSERT INTO STKCONTROLLER(CONTROLLERNO) VALUES('C1')"});
  }

  Outcome read(const std::string& key, Fields& fields, const char* user) const {
    return stage::play_record(company.client("CRevAddr", user), "Read", key, fields);
  }
  Outcome update(const std::string& key, Fields fields = {{"ADDRNM", "mine"}},
                 const char* user = "CLERK") const {
    return stage::play_record(company.client("CRevAddr", user), "Update", key, fields);
  }
  Outcome remove(const std::string& key, const char* user = "CLERK") const {
    return stage::play_record(company.client("CRevAddr", user), "Delete", key);
  }

  std::string addresses() const { return company.rows("SELECT ADDRNO,ADDRNM FROM REVADDR ORDER BY 1"); }
  std::string rest() const {
    return company.rows("SELECT * FROM USERRIGHTS") + company.rows("SELECT * FROM STKCONTROLLER") +
           company.everything();
  }

  const ClosingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, KeyReach, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& kind) { return std::string(kind.param); });

constexpr auto untouched = "A1|Quay\nA2|Gate\n";

// A member of a UNION with as many columns as the table has.
std::string union_with(const std::string& column, const std::string& table, const ClosingCompany& company) {
  const int columns = std::stoi(company.rows("SELECT Count(*) FROM pragma_table_info('REVADDR')"));
  std::string list = column;
  for (int i = 1; i < columns; ++i) list += ",Null";
  return "' Union Select " + list + " From " + table + " Where '1'='1";
}

TEST_P(KeyReach, IsEveryTableForWhoeverReads) {
  const struct {
    const char* column;
    const char* table;
    const char* told;
  } secrets[] = {
      {"Group_Concat(USERID)", "USERRIGHTS", "ADDRNO='ADMIN,CLERK' "},
      {"Max(PARTNO)", "STKTRANDT", "ADDRNO='螺丝' "},
      {"Min(name)", "sqlite_master", "ADDRNO='ASSMBOM' "},
      {"Group_Concat(name)", "pragma_database_list", "ADDRNO='main' "},
      {"Max(n)",
       "(With Recursive c(n) As (Select 1 Union All Select n+1 From c Where n<100000) Select n From c)",
       "ADDRNO='100000' "},
  };
  for (const auto& [column, table, told] : secrets) {
    Fields fields;
    EXPECT_EQ(read(union_with(column, table, company), fields, "NOBODY"), stage::done) << table;
    EXPECT_TRUE(fields.text().starts_with(told)) << fields.text();
  }
}

TEST_P(KeyReach, IsEveryRowOfTheTableForWhoeverMayWriteOne) {
  const std::string before = rest();
  EXPECT_EQ(update("A1' Or '1'='1"), stage::done);
  EXPECT_EQ(addresses(), "A1|mine\nA2|mine\n");
  EXPECT_EQ(remove("none' Or ADDRNO>'A1"), stage::done);
  EXPECT_EQ(addresses(), "A1|mine\n");
  EXPECT_EQ(remove("' Or '1'='1"), stage::done);
  EXPECT_EQ(addresses(), "");
  EXPECT_EQ(rest(), before);
}

TEST_P(KeyReach, IsNothingToWriteForWhoeverMayNot) {
  EXPECT_EQ(update("A1' Or '1'='1", {{"ADDRNM", "mine"}}, "NOBODY").number, 10000016);
  EXPECT_EQ(remove("' Or '1'='1", "NOBODY").number, 10000016);
  EXPECT_EQ(addresses(), untouched);
}

TEST_P(KeyReach, EndsAtOtherTablesForWhoeverWritesAndAtTheDatabase) {
  const std::string before = rest();
  const std::string file = company.file().generic_string() + ".other";
  const struct {
    std::string key;
    double number;
  } rows[] = {
      {"';Delete From STKCONTROLLER;--", -2147217900},
      {"A1';Update USERRIGHTS Set CANDELETE=1 Where '1'='1", -2147217900},
      {"A1'/* ' */;Drop Table STKCONTROLLER/* ' */ --", -2147217900},
      {"';Attach '" + file + "' As other;--", -2147217900},
      {"';Vacuum Into '" + file, -2147217900},
      {"';Pragma writable_schema=1;--", -2147217900},
      {"' Or load_extension('" + file + "') Or '", -2147217911},
      {"' Or blob_import('" + file + "') Or '", -2147217911},
      {"' Or fts3_tokenizer('simple') Or '", -2147217911},
      {"' Or {fn load_extension('" + file + "')} Or '", -2147217911},
  };
  for (const auto& [key, number] : rows) {
    Fields fields;
    for (const Outcome& outcome : {read(key, fields, "NOBODY"), update(key), remove(key)}) {
      EXPECT_EQ(outcome.result, 0) << key;
      EXPECT_EQ(outcome.number, stage::narrowed(number)) << key << " " << outcome.description;
    }
  }
  EXPECT_EQ(addresses(), untouched);
  EXPECT_EQ(rest(), before);
  EXPECT_FALSE(std::filesystem::exists(file));
}

// To gather statistics is a write too, and the engine has it in the shape of a table. It gathers what the
// query that asks for it could have used.
TEST_P(KeyReach, EndsBeforeTheStatisticsForWhoeverReads) {
  company.run(
      {"CREATE INDEX REVADDR_ADDRNM ON REVADDR(ADDRNM)", "ANALYZE REVADDR", "DELETE FROM sqlite_stat1"});
  for (const std::string table : {"pragma_optimize", "[PRAGMA_Optimize]", "'pragma_optimize'",
                                  "pragma_optimize(2)", "'pragma_optimize'(2)", "main.'pragma_optimize'"}) {
    const std::string joined = "REVADDR A Join REVADDR B On A.ADDRNM=B.ADDRNM," + table;
    Fields fields;
    EXPECT_EQ(read(union_with("Count(*)", joined, company), fields, "NOBODY").number,
              stage::narrowed(-2147217911))
        << table;
    EXPECT_EQ(company.rows("SELECT * FROM sqlite_stat1"), "") << table;
  }
}

// What a client is told to do: an apostrophe is refused, and everything else means itself.
TEST_P(KeyReach, IsItsOwnRowForAKeyWithoutAnApostrophe) {
  for (const std::string key : {"A1 Or 1=1", "A1\" Or \"1\"=\"1", "A1;--", "A1/*", "[A1]", "A1{fn x}", "#A1#",
                                "%", "A1\\", "load_extension(x)", "A1\r\nOr 1=1"}) {
    EXPECT_EQ(update(key), stage::done) << key;
    EXPECT_EQ(remove(key), stage::done) << key;
    EXPECT_EQ(addresses(), untouched) << key;
    Fields fields;
    EXPECT_EQ(read(key, fields, "CLERK").number, 10000003) << key;
  }
}

}  // namespace
}  // namespace tallyra::behaviour
