#include <gtest/gtest.h>

#include "tests/support/fields.h"
#include "tests/support/outcome.h"
#include "tests/support/stage.h"

// The stock controllers, call by call; what they have in common with other records stands in
// tests/transcript/frame.
namespace tallyra {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::outcome_of;
using stage::Stage;

class StockController : public testing::TestWithParam<const char*> {
 protected:
  StockController() {
    for (const char* query :
         {"Select * From STKCONTROLLER Where CONTROLLERNO='A1'", "Select top 1 * From STKCONTROLLER"})
      stage.finds(query, {{"CONTROLLERNO", "CONTROLLERNM"}, {{"A1", "Adams"}}});
    stage.finds("Select * From STKCONTROLLER where CONTROLLERNO='A1'",
                {{"CONTROLLERNO", "CONTROLLERNM"}, {}});
  }

  // The calls of a member whose user has this right and no other.
  std::string calls(const char* member, const char* right) {
    stage.set(right, 1);
    const Object client = stage.client("CSTKController");
    Value key = "A1";
    const Value result = std::string_view(member) == "Delete"
                             ? client.call(member, ref(key))
                             : client.call(member, ref(key), ref(fields.names), ref(fields.values));
    EXPECT_EQ(outcome_of(client, result), done) << member;
    return stage.rights_calls().substr(stage.rights_calls().find("rights.SystemDatabase")) +
           stage.database_calls();
  }
  // The end of the set-up, which every first call begins with.
  std::string session() const { return std::string("rights.SystemDatabase = '") + GetParam() + "'\n"; }

  Stage stage{GetParam()};
  Fields fields{{"CONTROLLERNM", "Baker"}};
};
INSTANTIATE_TEST_SUITE_P(Kinds, StockController, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(StockController, IsReadWithoutARightAndAddedToTheCollections) {
  EXPECT_EQ(calls("Read", "none"),
            session() +
                "C1.Open 'DSN=x' '' '' -1\n"
                "R1.CursorLocation = 2\n"
                "R1.Open Select * From STKCONTROLLER Where CONTROLLERNO='A1' | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.MoveFirst\n"
                "R1.Close\n"
                "C1.Close\n");
  EXPECT_EQ(fields.text(), "CONTROLLERNM='Baker' CONTROLLERNO='A1' CONTROLLERNM='Adams'");
}

TEST_P(StockController, IsInsertedWithoutATransaction) {
  EXPECT_EQ(calls("Insert", "CanInsert"),
            session() +
                "rights.PowerCheck 'STK032USER'\n"
                "rights.CanInsert\n"
                "rights.GetInsertSQL 'STKCONTROLLER' object object R1\n"
                "rights.ErrNumber\n"
                "C1.Open 'DSN=x' '' '' -1\n"
                "R1.CursorLocation = 2\n"
                "R1.Open Select * From STKCONTROLLER where CONTROLLERNO='A1' | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.Execute <GetInsertSQL STKCONTROLLER> | -1\n"
                "C1.Close\n");
}

TEST_P(StockController, IsChangedWithoutATransaction) {
  EXPECT_EQ(calls("Update", "CanUpdate"),
            session() +
                "rights.PowerCheck 'STK032USER'\n"
                "rights.CanUpdate\n"
                "rights.GetUpdateSQL 'STKCONTROLLER' object object R1\n"
                "rights.ErrNumber\n"
                "C1.Open 'DSN=x' '' '' -1\n"
                "R1.CursorLocation = 2\n"
                "R1.Open Select top 1 * From STKCONTROLLER | C1 0 1 -1\n"
                "R1.Close\n"
                "C1.Execute <GetUpdateSQL STKCONTROLLER> Where CONTROLLERNO='A1' | -1\n"
                "C1.Close\n");
}

TEST_P(StockController, IsDeletedInATransaction) {
  EXPECT_EQ(calls("Delete", "CanDelete"),
            session() +
                "rights.PowerCheck 'STK032USER'\n"
                "rights.CanDelete\n"
                "C1.Open 'DSN=x' '' '' -1\n"
                "C1.BeginTrans\n"
                "C1.Execute Delete From STKCONTROLLER Where CONTROLLERNO='A1' | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
}

}  // namespace
}  // namespace tallyra
