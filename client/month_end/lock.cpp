#include "client/month_end/lock.h"

#include <exception>

#include "automation/clock.h"
#include "automation/convert.h"
#include "automation/error.h"
#include "client/database/journal.h"
#include "client/refusal.h"
#include "client/value_text.h"
#include "client/verbs/context.h"
#include "client/wait_notice.h"

namespace tallyra::client {
namespace {

constexpr const char* key = "CLOSE";

LockHolder holder_of(const Row& row) {
  const auto text = [&](std::size_t i) { return row[i].is_null() ? std::string() : shown_text(row[i]); };
  LockHolder holder{text(0), text(1), text(2), text(3), {}, text(6)};
  if (!row[4].is_null()) holder.process.id = automation::to_int32(row[4]);
  holder.process.started = text(5);
  return holder;
}

LockHolder this_holder(const VerbContext& context, const std::string& work) {
  LockHolder self{work, context.user(), system_user(), host_name(), this_process(), {}};
  automation::append_time_stamp(self.since, automation::now());
  return self;
}

std::string insert_statement(const LockHolder& holder) {
  const auto literal = Reader::text_literal;
  return "Insert Into TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,OSUSER,HOSTNAME,PROCESSID,PROCESSSTART,SINCE) "
         "Values(" +
         literal(key) + "," + literal(holder.work) + "," + literal(holder.owner) + "," +
         literal(holder.login) + "," + literal(holder.host) + "," + std::to_string(holder.process.id) + "," +
         literal(holder.process.started) + "," + literal(holder.since) + ")";
}

// What is read as nothing may be Null in the row, which equals no value.
std::string is_value(const std::string& column, const std::string& literal, bool nothing) {
  if (!nothing) return " And " + column + "=" + literal;
  return " And (" + column + "=" + literal + " Or " + column + " Is Null)";
}

std::string is_text(const std::string& column, const std::string& text) {
  return is_value(column, Reader::text_literal(text), text.empty());
}

// Of that holder alone: whoever has taken over meanwhile keeps his.
std::string delete_statement(const LockHolder& holder) {
  const std::int64_t id = holder.process.id;
  return "Delete From TALLYRALOCK Where LOCKKEY=" + Reader::text_literal(key) +
         is_text("HOSTNAME", holder.host) + is_value("PROCESSID", std::to_string(id), id == 0) +
         is_text("PROCESSSTART", holder.process.started) + is_text("SINCE", holder.since);
}

// Takes the lock away from a holder who may lose it; throws Refusal for one who may not.
void take_from(VerbContext& context, const LockHolder& holder) {
  if (!holder.may_be_taken(context.has("--break-lock"))) throw Refusal(holder.refusal(), exit_locked);
  if (holder.dead()) {
    context.warn(holder.text() + ", but that process has ended; its lock is taken over");
    journal(context,
            {"take over", holder.work, "done", "lock of a process that has ended: " + holder.text()});
  } else {
    context.warn(holder.text() + "; its lock is broken");
    journal(context, {"force", holder.work, "done", "lock broken: " + holder.text()});
  }
  context.reader().execute(delete_statement(holder));
}

bool try_insert(const Reader& reader, const LockHolder& self, bool last_attempt) {
  try {
    reader.execute(insert_statement(self));
    return true;
  } catch (const automation::Error&) {
    // Another one was faster, or the database is at fault; who holds the lock now tells which.
    if (last_attempt || !lock_holder(reader)) throw;
    return false;
  }
}

}  // namespace

std::string LockHolder::text() const {
  const auto told = [](const std::string& text) { return text.empty() ? std::string("not known") : text; };
  return (owner.empty() ? std::string("somebody") : owner) + " (login " + told(login) + ", host " +
         told(host) + ", process " + told(process.id == 0 ? std::string() : std::to_string(process.id)) +
         ") is at work on " + (work.empty() ? "something" : work) + (since.empty() ? "" : " since " + since);
}

std::string LockHolder::refusal() const {
  return text() + (on_this_host() ? "; wait until it has ended"
                                  : "; if that process has ended for certain, --break-lock takes its lock");
}

std::optional<LockHolder> lock_holder(const Reader& reader) {
  if (!reader.has_table("TALLYRALOCK")) return std::nullopt;
  std::optional<LockHolder> holder;
  reader.each_row(
      "Select WORKTEXT,OWNERID,OSUSER,HOSTNAME,PROCESSID,PROCESSSTART,SINCE From TALLYRALOCK"
      " Where LOCKKEY='CLOSE'",
      [&](const Row& row) { holder = holder_of(row); });
  return holder;
}

CloseLock::CloseLock(VerbContext& context, const std::string& work)
    : context_(context), self_(this_holder(context, work)) {
  require_own_tables(context);
  const WaitNotice notice(context.console());
  constexpr int most_attempts = 3;
  for (int attempt = 1;; ++attempt) {
    if (const auto holder = lock_holder(context.reader())) take_from(context, *holder);
    if (try_insert(context.reader(), self_, attempt == most_attempts)) return;
  }
}

CloseLock::~CloseLock() {
  try {
    context_.reader().execute(delete_statement(self_));
  } catch (const std::exception& error) {
    context_.warn("the lock could not be given back: " + std::string(error.what()) +
                  "; the next run takes it over once this process has ended");
  }
}

}  // namespace tallyra::client
