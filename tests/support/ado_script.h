#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "automation/value.h"

namespace tallyra::stage {

// What a query finds.
struct Rows {
  std::vector<std::string> columns;
  std::vector<std::vector<automation::Value>> rows;
  // ADO's type of each column, where it is asked for.
  std::vector<std::int32_t> types = {};
};

// What stands behind the doubles of ADO: takes a note of every call, and answers. Outlives them.
class AdoScript {
 public:
  virtual ~AdoScript() = default;

  enum class Line { shown, hidden };
  // A call to the outside. An error that this throws is that of the call.
  virtual void step(const std::string& line, Line kind) = 0;
  void step(const std::string& line) { step(line, Line::shown); }
  // What a statement finds that a recordset is opened with; stays as it is as long as the script lives.
  virtual const Rows& opened(const std::string& statement) = 0;
  // What a statement does that a connection executes.
  struct Executed {
    std::int32_t affected = 0;
    // With rows a recordset comes back, without only Empty.
    std::optional<Rows> found = std::nullopt;
  };
  virtual Executed executed(const std::string& statement) = 0;
  // Whether a recordset without rows has whatever column it is asked for.
  virtual bool takes_any_query() const { return false; }

  // A data source that takes a commit without a transaction as nothing; ADO's own say that there is none.
  bool ignores_needless_commits = false;
  // The Properties of each connection.
  std::map<std::string, std::string> properties;

  // Objects of this script that are still referred to.
  int alive() const { return alive_; }

  // For the doubles.
  int next_number(const std::string& kind) { return ++numbers_[kind]; }
  void born() { ++alive_; }
  void gone() { --alive_; }

 private:
  std::atomic<int> alive_ = 0;
  std::map<std::string, int> numbers_;
};

}  // namespace tallyra::stage
