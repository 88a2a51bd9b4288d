#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/clock.h"
#include "automation/error.h"
#include "automation/local/local_classes.h"
#include "automation/yield.h"
#include "tests/support/ado_script.h"
#include "tests/support/named.h"
#include "tests/support/shown.h"

// A world outside that records what a business object asks of it: doubles of ADO and of the sibling
// libraries, in the states and with the errors of the real ones. A test scripts the rows of queries, the
// rights and the failures, plays a method and compares the transcript with one text. Whatever a stage is
// asked that it was not told about fails the test.
namespace tallyra::stage {

class Stage : public AdoScript {
 public:
  // The kind of database that the session names.
  // And queries that find nothing.
  explicit Stage(std::string system_database = "MSACCESS",
                 const std::vector<std::string>& finding_nothing = {});
  ~Stage() override;
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  // A new business object by its class name with the session set.
  automation::Object client(std::string_view class_name);

  // A query with exactly this text finds these rows: once for each time it is told, the last one ever after.
  Stage& finds(const std::string& statement, Rows rows);
  // A query with this text finds nothing, unless and until it is told to find something. The columns are
  // those that are asked for by name all the same.
  Stage& finds_nothing(const std::string& statement, std::vector<std::string> columns = {});
  Stage& all_find_nothing(const std::vector<std::string>& statements);
  // So does every query that the stage was not told about, whatever its columns: for tests that change
  // statements in the midst of a method and look at something else.
  Stage& finds_nothing_else();
  // What the query was told to find no longer counts.
  Stage& forgets(const std::string& statement);
  // A member of the rights, system, messages or wording object has this value; "CanInsert",
  // "rights.ErrNumber", ...
  Stage& set(const std::string& member, automation::Value value);
  // The n-th call (from 1) whose line contains the text fails.
  Stage& fails(std::string call, automation::Error error, int occurrence = 1);
  // The call with this number, from 0 and counting every call to the outside, fails.
  Stage& fails_at(int step, automation::Error error);
  // In the midst of the moment with this number, from 0 and counting calls to the outside and yields from
  // now on, this is done, as a client does it whose message loop or collection has its turn then.
  Stage& interrupts_at(int number, std::function<void()> what);
  // Another user, or other session values, than the stage begins with.
  std::string user = "TESTER";
  std::string connection_string = "DSN=x";
  // How many document numbers can be issued: K001, K002, ...
  int document_numbers = 1000;
  // How many requests for a number come back empty before one is issued.
  int numbers_withheld = 0;

  // Everything that was asked, a line each; reading of rows is left out.
  const std::string& transcript() const { return transcript_; }
  // The part of it that goes to the database.
  std::string database_calls() const;
  // And what is asked of the rights object.
  std::string rights_calls() const;
  void clear() { transcript_.clear(); }
  int steps() const { return steps_; }
  int yields() const { return yields_; }
  // Whether the failure that was asked for has happened.
  bool failed() const { return failed_; }
  // And whether the interruption has.
  bool interrupted() const { return interrupted_; }

  // How a member of a collaborator got its arguments at its last call: 'v' by value, '&' by reference.
  std::string forms(const std::string& member) const;
  // The same with kinds and contents: "text 'A', &int16 1".
  std::string arguments(const std::string& member) const;

  // For the doubles.
  void note_forms(const std::string& member, automation::Arguments arguments);
  using AdoScript::step;
  void step(const std::string& line, Line kind) override;
  void moment();
  const Rows& opened(const std::string& statement) override;
  Executed executed(const std::string& statement) override;
  bool takes_any_query() const override { return takes_any_query_; }
  const automation::Value& member(const std::string& name) const { return members_.at(name); }
  bool has_member(const std::string& name) const { return members_.contains(name); }
  // The next document number, empty when there is none left.
  std::string issue_document_number();

 private:
  const Rows& rows_of(const std::string& statement);

  struct Failure {
    std::string call;
    automation::Error error;
    int occurrence;
  };

  std::string system_database_;
  // Tests that make no object call functions of the classes.
  std::string class_name_ = "functions";
  std::string transcript_;
  int steps_ = 0;
  int yields_ = 0;
  int issued_numbers_ = 0;
  bool failed_ = false;
  int failing_step_ = -1;
  int moments_ = 0;
  int interrupted_moment_ = -1;
  bool interrupted_ = false;
  std::function<void()> interruption_;
  automation::Error step_error_{0};
  std::vector<Failure> failures_;
  std::map<std::string, std::deque<Rows>> queries_;
  std::map<std::string, Rows> empty_queries_;
  bool takes_any_query_ = false;
  // What open recordsets stand on.
  std::deque<Rows> told_;
  std::map<std::string, automation::Value> members_;
  std::map<std::string, std::string> forms_;
  std::map<std::string, std::string> arguments_;
  std::vector<std::unique_ptr<automation::local::ScopedClass>> classes_;
  automation::ScopedClock clock_;
  automation::ScopedYield yield_;
};

}  // namespace tallyra::stage
