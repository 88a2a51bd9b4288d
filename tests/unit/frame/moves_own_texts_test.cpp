#include <gtest/gtest.h>

#include <optional>

#include "frame/business_method.h"
#include "frame/business_object.h"
#include "frame/delete_move.h"
#include "frame/insert_move.h"
#include "frame/read_move.h"
#include "frame/update_move.h"
#include "tests/support/fields.h"
#include "tests/support/stage.h"

// A move keeps what it is made of: it can be made here and run there, whatever has become of the texts
// meanwhile.
namespace tallyra::frame {
namespace {

using stage::Stage;

class Anything : public BusinessObject {
 public:
  Anything() : BusinessObject("MSACCESS") { put_ConnectionString("DSN=y"); }
};

// Longer than any text that stands within the string object itself.
std::string long_text(const std::string& text) {
  return text + std::string(40, ' ');
}

// Makes the move of texts that are gone when it is returned.
UpdateMove update() {
  std::string table = long_text("T"), code = long_text("CODE"), tag = long_text("edit"),
              structure = long_text("Select S");
  std::string owner = long_text("Select O"), condition = long_text(" Where X");
  UpdateMove move{.table = table,
                  .function_code = code,
                  .operation_tag = tag,
                  .owner = closed_owner_test(owner),
                  .opening = Opening::if_closed,
                  .structure = {structure},
                  .condition = condition};
  for (std::string* text : {&table, &code, &tag, &structure, &owner, &condition})
    text->assign(text->size(), '#');
  return move;
}

class MovesOwnTexts : public testing::Test {
 protected:
  template <class Body>
  std::string calls_of(Body&& body) {
    Anything object;
    EXPECT_EQ(run_method(object, body), success) << object.get_ErrDescription();
    const std::string& all = stage.transcript();
    const auto set_up = all.find("system.DatabaseName");
    return all.substr(all.find('\n', set_up) + 1);
  }
  FieldCollections collections() {
    return {*fields.names.get_if<automation::Object>(), *fields.values.get_if<automation::Object>()};
  }

  Stage stage;
  stage::Fields fields{{"NAME", "x"}};
};

TEST_F(MovesOwnTexts, OfAnUpdate) {
  stage.set("CanUpdate", 0).set("Owner", 1);
  stage.finds(long_text("Select O"), {{"ADDBY"}, {}}).finds(long_text("Select S"), {{"NAME"}, {}});
  const UpdateMove move = update();
  EXPECT_EQ(calls_of([&](Call& call) { update_rows(call, collections(), move); }),
            "rights.PowerCheck '" + long_text("CODE") +
                "'\n"
                "rights.CanUpdate\n"
                "rights.Owner\n"
                "C1.Open 'DSN=y' '' '' -1\n"
                "R1.Open " +
                long_text("Select O") +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.State\n"
                "R1.CursorLocation = 2\n"
                "R1.Open " +
                long_text("Select S") +
                " | C1 0 1 -1\n"
                "rights.GetUpdateSQL '" +
                long_text("T") +
                "' object object R1\n"
                "rights.ErrNumber\n"
                "R1.Close\n"
                "C1.Execute <GetUpdateSQL " +
                long_text("T") + ">" + long_text(" Where X") +
                " | -1\n"
                "C1.Close\n");
}

TEST_F(MovesOwnTexts, OfADeletion) {
  stage.set("CanDelete", 1);
  std::optional<std::string> statement = long_text("Delete From T");
  const DeleteMove move{.function_code = long_text("CODE"), .statements = {*statement, "Delete From U"}};
  statement->assign(statement->size(), '#');
  statement.reset();
  EXPECT_EQ(calls_of([&](Call& call) { delete_rows(call, move); }), "rights.PowerCheck '" +
                                                                        long_text("CODE") +
                                                                        "'\n"
                                                                        "rights.CanDelete\n"
                                                                        "C1.Open 'DSN=y' '' '' -1\n"
                                                                        "C1.BeginTrans\n"
                                                                        "C1.Execute " +
                                                                        long_text("Delete From T") +
                                                                        " | -1\n"
                                                                        "C1.Execute Delete From U | -1\n"
                                                                        "C1.CommitTrans\n"
                                                                        "C1.Close\n");
}

TEST_F(MovesOwnTexts, OfAnInsertionAndOfReading) {
  stage.set("CanInsert", 1).finds(long_text("Select E"), {{"NAME"}, {}});
  std::string existing = long_text("Select E");
  const InsertMove insertion{.table = "T", .function_code = "CODE", .existing = existing};
  const ReadMove reading{.statement = existing};
  existing.assign(existing.size(), '#');
  const std::string calls = calls_of([&](Call& call) {
    insert_row(call, collections(), insertion);
    read_row(call, collections(), reading);
  });
  EXPECT_NE(calls.find("R1.Open " + long_text("Select E") + " | C1 3 1 -1\nrights.GetInsertSQL 'T'"),
            std::string::npos)
      << calls;
  EXPECT_TRUE(calls.ends_with("R1.Open " + long_text("Select E") +
                              " | C1 3 1 -1\nmessages.Msg10000003\nR1.Close\nC1.Close\n"))
      << calls;
}

}  // namespace
}  // namespace tallyra::frame
