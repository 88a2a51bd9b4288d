#pragma once

#include <optional>
#include <string>

#include "client/database/reader.h"
#include "client/platform/closed_pipe.h"
#include "client/platform/process.h"

namespace tallyra::client {

class VerbContext;

// Who is at work on the closes: the one row of TALLYRALOCK. Any engine can hold it, for it is the key of the
// table that lets a second one in nowhere.
struct LockHolder {
  std::string work;   // "close 2024/01/31"
  std::string owner;  // the user of the session
  std::string login;
  std::string host;
  ProcessIdentity process;
  std::string since;  // YYYY/MM/DD HH:MM:SS

  bool on_this_host() const { return host == host_name(); }
  // What is unfinished then is what it has written so far.
  bool is_closing() const { return work.starts_with("close ") && !dead(); }
  // Its process is gone. Of another host that cannot be told: then it is taken to be there.
  bool dead() const { return on_this_host() && !is_alive(process); }
  // By who takes over: of another host only with --break-lock.
  bool may_be_taken(bool breaks_lock) const { return on_this_host() ? dead() : breaks_lock; }
  // "ANNA (login anna, host store, process 17) is at work on close 2024/01/31 since ...".
  std::string text() const;
  // The same with what to do, for who has to wait.
  std::string refusal() const;
};

// Nothing when nobody is at work, and where there is no such table.
std::optional<LockHolder> lock_holder(const Reader& reader);

// The lock, held for as long as this lives. A reader of the output who goes away ends nothing meanwhile.
class CloseLock {
 public:
  // Takes over the lock of a dead process of this host after it has told so, that of another host only with
  // --break-lock. Throws Refusal with exit_locked when another one is at work.
  CloseLock(VerbContext& context, const std::string& work);
  ~CloseLock();
  CloseLock(const CloseLock&) = delete;
  CloseLock& operator=(const CloseLock&) = delete;

 private:
  ClosedPipeIgnored closed_pipe_;
  VerbContext& context_;
  LockHolder self_;
};

}  // namespace tallyra::client
