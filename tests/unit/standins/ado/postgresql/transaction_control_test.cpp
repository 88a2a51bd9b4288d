#include "standins/ado/postgresql/transaction_control.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado {
namespace {

TEST(TransactionControl, IsTakenFromTheFirstWords) {
  struct Row {
    std::string_view sql;
    Control control;
  };
  const Row rows[] = {
      {"BEGIN", Control::begin},
      {" \t\r\nbegin;", Control::begin},
      {"Start Transaction", Control::begin},
      {"Commit", Control::commit},
      {"END WORK", Control::commit},
      {"Savepoint A", Control::inner},
      {"RELEASE SAVEPOINT A", Control::inner},
      {"Rollback", Control::rollback},
      {"Rollback Work", Control::rollback},
      {"abort transaction", Control::rollback},
      {"Rollback To A", Control::inner},
      {"ROLLBACK WORK TO SAVEPOINT A", Control::inner},
      {"rollback transaction to a", Control::inner},
      {"Rollback Tomorrow", Control::rollback},
      {"Beginning", Control::none},
      {"Select 'commit'", Control::none},
      {"/**/ROLLBACK AND CHAIN", Control::rollback},
      {"-- x\nCOMMIT AND CHAIN", Control::commit},
      {" /* x */ -- y\n/* z */ end", Control::commit},
      {"Rollback /* x */ Work--\nTo A", Control::inner},
      {"-- commit", Control::none},
      {"/* commit */ Select 1", Control::none},
      {"/* commit", Control::none},
      {"/ commit", Control::none},
      {"", Control::none},
      {"  ", Control::none},
  };
  for (const Row& row : rows) EXPECT_EQ(control_of(row.sql), row.control) << row.sql;
}

}  // namespace
}  // namespace tallyra::standins::ado
