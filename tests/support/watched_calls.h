#pragma once

#include <functional>
#include <string>

#include "automation/local/local_classes.h"

namespace tallyra::behaviour {

// The component's calls to ADO and to Corvane, under the eyes of a test. While it lives, each call that
// reaches the database or takes part in what is written runs through `at_call`, with a text such as
// "Connection.Execute Delete
// ..." or "System.GetTableKeyID" and the call itself: run it, or throw in its place, or behind it. What
// happens while a call is being handled is not watched: the collaborators' own statements, for instance. Only
// objects that are created while it lives are watched; they must not outlive it.
class WatchedCalls {
 public:
  using AtCall = std::function<void(const std::string& call, const std::function<void()>& run)>;
  explicit WatchedCalls(AtCall at_call);
  ~WatchedCalls();

 private:
  AtCall at_call_;
  bool handling_ = false;
  automation::local::ScopedClass connections_;
  automation::local::ScopedClass recordsets_;
  automation::local::ScopedClass rights_;
  automation::local::ScopedClass system_;
};

}  // namespace tallyra::behaviour
