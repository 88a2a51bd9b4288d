#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "automation/local/local_classes.h"
#include "automation/object.h"

namespace tallyra::client {

// A database behind ADODB.Connection and ADODB.Recordset that knows two numbers: departments, and documents
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
  std::thread::id caller() const;

 private:
  automation::Object make_connection();
  automation::Object make_recordset();
  void record(std::string call);
  automation::Value answer(const std::string& statement);

  mutable std::mutex mutex_;
  std::vector<std::string> calls_;
  std::thread::id caller_;
  std::atomic<int> closed_{0};
  std::atomic<int> departments_{0};
  std::atomic<int> failures_{0};
  std::atomic<int> statements_{0};
  std::atomic<bool> refusing_{false};
  automation::local::ScopedClass connections_;
  automation::local::ScopedClass recordsets_;
};

}  // namespace tallyra::client
