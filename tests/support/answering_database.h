#pragma once

#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "automation/local/local_classes.h"
#include "automation/object.h"
#include "tests/support/ado_script.h"

namespace tallyra::stage {

using Row = std::map<std::string, automation::Value>;

struct Reply {
  std::vector<Row> rows;
  std::int32_t affected = 0;
};

// A database that answers statements from a function and takes notes of what is asked of it: for what a real
// one does too rarely, and for the texts of statements. Stands in ADO's place as long as it lives; may be
// used from any thread.
class AnsweringDatabase : public AdoScript {
 public:
  // May throw an Error, which is that of the statement.
  using Answer = std::function<Reply(const std::string& statement)>;
  explicit AnsweringDatabase(Answer answer);

  // An open connection of a caller; opening it is no part of the notes.
  automation::Object connection();
  // One call per line, reading of rows left out.
  std::string log() const;
  // What else happens at each call, behind its note; may throw, as the call then does.
  std::function<void(const std::string& line)> at_call;
  // The texts of the statements alone.
  std::vector<std::string> statements() const;

  using AdoScript::step;
  void step(const std::string& line, Line kind) override;
  const Rows& opened(const std::string& statement) override;
  Executed executed(const std::string& statement) override;

 private:
  Reply reply_to(const std::string& statement);

  Answer answer_;
  mutable std::mutex mutex_;
  std::string log_;
  std::vector<std::string> statements_;
  // What open recordsets stand on.
  std::deque<Rows> told_;
  automation::local::ScopedClass connections_;
  automation::local::ScopedClass recordsets_;
};

// An open recordset on these rows.
automation::Object recordset_on(AdoScript& script, Rows rows);

}  // namespace tallyra::stage
