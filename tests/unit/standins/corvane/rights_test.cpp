#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "standins/corvane/local_classes.h"
#include "tests/support/answering_database.h"
#include "tests/unit/standins/corvane/company_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::Value;
using stage::AnsweringDatabase;
using stage::Reply;
using stage::Row;

constexpr const char* members[] = {"CanInsert",     "CanUpdate", "CanDelete",   "CanApproved",
                                   "CanUnapproved", "CanCancel", "CanFinished", "Owner"};

std::string insert(const std::string& user, const std::string& code, const std::string& columns,
                   const std::string& values) {
  return "Insert Into USERRIGHTS(USERID,FUNCCODE," + columns + ") Values('" + user + "','" + code + "'," +
         values + ")";
}

// The members that are 1, in their order, as digits of a bit string.
std::string rights(const Object& power_check) {
  std::string bits;
  for (const char* member : members) {
    const Value right = power_check.get(member);
    EXPECT_TRUE(right.holds<std::int32_t>()) << member;
    bits += automation::to_text(right);
  }
  return bits;
}

TEST(Rights, AreNoneBeforeTheFirstCheck) {
  const CompanyDatabase database;
  EXPECT_EQ(rights(database.power_check("ANNA")), "00000000");
}

TEST(Rights, AreKeptInATableThatTheLibraryNames) {
  const CompanyDatabase database;
  EXPECT_EQ(database.power_check("ANNA").get("RightsTable"), Value("USERRIGHTS"));
}

TEST(Rights, EachColumnReachesItsOwnMember) {
  const CompanyDatabase database;
  const char* columns[] = {"CANINSERT",     "CANUPDATE", "CANDELETE",   "CANAPPROVED",
                           "CANUNAPPROVED", "CANCANCEL", "CANFINISHED", "OWNER"};
  std::vector<std::string> statements;
  for (std::size_t i = 0; i < std::size(columns); ++i)
    statements.push_back(insert("ANNA", "CODE" + std::to_string(i), columns[i], "1"));
  database.run(statements);
  const Object power_check = database.power_check("ANNA");
  for (std::size_t i = 0; i < std::size(columns); ++i) {
    std::string expected(std::size(columns), '0');
    expected[i] = '1';
    EXPECT_EQ(power_check.call("PowerCheck", "CODE" + std::to_string(i)), Value(1));
    EXPECT_EQ(rights(power_check), expected) << columns[i];
  }
}

TEST(Rights, TheMostExactRowCountsAloneAndWithoutOneThereIsNone) {
  const CompanyDatabase database;
  database.run({insert("ANNA", "STK028ADDR", "CANINSERT", "1"), insert("ANNA", "*", "CANUPDATE", "1"),
                insert("*", "STK028ADDR", "CANDELETE", "1"), insert("*", "*", "OWNER", "1"),
                insert("LOCKED", "*", "CANINSERT", "0")});
  const struct {
    const char* user;
    const char* code;
    const char* rights;
  } cases[] = {
      {"ANNA", "STK028ADDR", "10000000"},   {" ANNA  ", " STK028ADDR", "10000000"},
      {"ANNA", "STK027CLOSE", "01000000"},  {"BERT", "STK028ADDR", "00100000"},
      {"BERT", "STK027CLOSE", "00000001"},  {"anna", "STK028ADDR", "00100000"},
      {"ANNA", "stk028addr", "01000000"},   {"", "STK028ADDR", "00100000"},
      {"LOCKED", "STK028ADDR", "00000000"},
  };
  for (const auto& row : cases) {
    const Object power_check = database.power_check(row.user);
    EXPECT_EQ(power_check.call("PowerCheck", row.code),
              Value(std::string_view(row.rights).find('1') == std::string_view::npos ? 0 : 1));
    EXPECT_EQ(rights(power_check), row.rights) << row.user << '/' << row.code;
  }
}

TEST(Rights, WithoutAMatchingRowThereIsNone) {
  const CompanyDatabase database;
  database.run({insert("ANNA", "STK028ADDR", "CANINSERT", "1")});
  const Object power_check = database.power_check("ANNA");
  power_check.call("PowerCheck", "STK028ADDR");
  EXPECT_EQ(power_check.call("PowerCheck", "STK027CLOSE"), Value(0));
  EXPECT_EQ(rights(power_check), "00000000");
}

TEST(Rights, BlanksAroundAStoredUserDoNotCount) {
  const CompanyDatabase database;
  database.run({insert(" ANNA ", "STK028ADDR ", "CANINSERT", "1")});
  const Object power_check = database.power_check("ANNA");
  power_check.call("PowerCheck", "STK028ADDR");
  EXPECT_EQ(rights(power_check), "10000000");
}

TEST(Rights, NumbersAreGivenAsStoredAndNullIsNone) {
  const CompanyDatabase database;
  database.run({insert("ANNA", "X", "CANINSERT,CANUPDATE,CANDELETE", "2,-1,Null")});
  const Object power_check = database.power_check("ANNA");
  EXPECT_EQ(power_check.call("PowerCheck", "X"), Value(1));
  EXPECT_EQ(power_check.get("CanInsert"), Value(2));
  EXPECT_EQ(power_check.get("CanUpdate"), Value(-1));
  EXPECT_EQ(power_check.get("CanDelete"), Value(0));
}

Row full_rights(const char* user, const char* code, const Value& right) {
  Row row{{"USERID", user}, {"FUNCCODE", code}};
  for (const char* column : {"CANINSERT", "CANUPDATE", "CANDELETE", "CANAPPROVED", "CANUNAPPROVED",
                             "CANCANCEL", "CANFINISHED", "OWNER"})
    row[column] = right;
  return row;
}

std::string rights_from(std::vector<Row> rows) {
  register_classes();
  AnsweringDatabase database([&](const std::string&) { return Reply{rows, 0}; });
  const Object power_check = automation::create("Corvane.CPowerCheck");
  power_check.put("UserID", "ANNA");
  power_check.call("PowerCheck", "X");
  return rights(power_check);
}

// A yes/no column says True, which would be -1 as a number.
TEST(Rights, TrueIsARight) {
  EXPECT_EQ(rights_from({full_rights("ANNA", "X", true)}), "11111111");
  EXPECT_EQ(rights_from({full_rights("ANNA", "X", false)}), "00000000");
}

TEST(Rights, ADatabaseThatIgnoresCaseGivesNoRightsAway) {
  EXPECT_EQ(rights_from({full_rights("anna", "X", 1)}), "00000000");
  EXPECT_EQ(rights_from({full_rights("ANNA", "x", 1)}), "00000000");
  EXPECT_EQ(
      rights_from({full_rights("ANNA", "x", 1), full_rights("ANNA", "*", 0), full_rights("anna", "X", 1)}),
      "00000000");
}

TEST(Rights, QuotesInUserOrCodeStayText) {
  const CompanyDatabase database;
  database.run({insert("O''Brien", "X", "CANINSERT", "1")});
  const Object power_check = database.power_check("O'Brien");
  power_check.call("PowerCheck", "X");
  EXPECT_EQ(rights(power_check), "10000000");
  const Object intruder = database.power_check("' Or '1'='1");
  EXPECT_EQ(intruder.call("PowerCheck", "' Or '1'='1"), Value(0));
}

TEST(Rights, AnotherUserStartsWithoutAny) {
  const CompanyDatabase database;
  database.run({insert("ANNA", "*", "CANINSERT", "1")});
  const Object power_check = database.power_check("ANNA");
  power_check.call("PowerCheck", "X");
  power_check.put("UserID", "BERT");
  EXPECT_EQ(rights(power_check), "00000000");
}

TEST(Rights, ADatabaseErrorReachesTheCallerAndTakesAllRights) {
  const CompanyDatabase database;
  database.run({insert("ANNA", "*", "CANINSERT", "1")});
  const Object power_check = database.power_check("ANNA");
  power_check.call("PowerCheck", "X");
  database.run({"Drop Table USERRIGHTS"});
  try {
    power_check.call("PowerCheck", "X");
    ADD_FAILURE();
  } catch (const automation::Error& error) {
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x80040E37U));
    EXPECT_NE(error.description().find("USERRIGHTS"), std::string::npos) << error.description();
  }
  EXPECT_EQ(rights(power_check), "00000000");
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
