#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/answering_database.h"

namespace tallyra::client {

// A database in ADO's place that knows two numbers: departments, and documents
// of departments that are closed. May be used from any thread.
class CountingDatabase {
 public:
  CountingDatabase();

  void set(int closed, int departments);
  // The next `count` statements fail.
  void fail_next(int count) { failures_ = count; }
  // From now on no connection can be opened.
  void refuse_connections() { refusing_ = true; }

  // What was called, in order, one line each.
  std::vector<std::string> calls() const;
  int statements() const { return statements_; }
  // The thread that called last.
  std::thread::id caller() const { return caller_; }

 private:
  stage::Reply answer(const std::string& statement);

  std::atomic<std::thread::id> caller_;
  std::atomic<int> closed_{0};
  std::atomic<int> departments_{0};
  std::atomic<int> failures_{0};
  std::atomic<int> statements_{0};
  std::atomic<bool> refusing_{false};
  stage::AnsweringDatabase database_;
};

}  // namespace tallyra::client
