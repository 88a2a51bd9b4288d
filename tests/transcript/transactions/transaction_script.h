#pragma once

#include <gtest/gtest.h>

#include <string>

#include "automation/create.h"
#include "tests/support/document_methods.h"
#include "tests/support/stage.h"

namespace tallyra::transactions_test {

using automation::Error;
using automation::Null;
using stage::done;
using stage::no_rights;
using stage::refused;
using stage::Rows;
using stage::Stage;
using stage::trapped;

// One class on a stage of each kind of database. Apart from dates the two get the same texts.
class TransactionStage : public testing::TestWithParam<const char*> {
 protected:
  explicit TransactionStage(const char* class_name, const std::vector<std::string>& finding_nothing = {})
      : stage(GetParam(), finding_nothing), class_name_(class_name) {}

  Object client() { return stage.client(class_name_); }
  // Whether a line stands in the transcript.
  bool tells(const std::string& line) const {
    return stage.transcript().find(line + "\n") != std::string::npos;
  }

  Stage stage;
  Fields fields{{"QTY", 5}};

 private:
  const char* class_name_;
};

// What a method tells that opens its connection to read, and each query that it closes again. To find out an
// owner it goes to the last row, if there is any.
inline const std::string opened =
    "C1.Open 'DSN=x' '' '' -1\n"
    "R1.CursorLocation = 2\n";
inline std::string asked(const std::string& query) {
  return "R1.Open " + query + " | C1 3 1 -1\nR1.Close\n";
}
inline std::string asked_to_the_end(const std::string& query) {
  return "R1.Open " + query + " | C1 3 1 -1\nR1.MoveLast\nR1.Close\n";
}

// An open recordset on a connection of its own, as a builder may hand it back: R1 and C1 when it comes first.
inline Object another_recordset(Stage& stage) {
  stage.finds_nothing("Select");
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", "DSN=other", "", "", -1);
  const Object recordset = automation::create("ADODB.Recordset");
  recordset.call("Open", "Select", connection, 0, 1, -1);
  return recordset;
}

#define TALLYRA_ON_BOTH_KINDS(fixture)                                                 \
  INSTANTIATE_TEST_SUITE_P(Kinds, fixture, testing::Values("MSACCESS", "MSSQLSERVER"), \
                           [](const auto& param) { return std::string(param.param); })

}  // namespace tallyra::transactions_test
