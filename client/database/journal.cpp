#include "client/database/journal.h"

#include <algorithm>
#include <exception>

#include "automation/clock.h"
#include "client/database/own_tables.h"
#include "client/platform/process.h"
#include "client/refusal.h"

namespace tallyra::client {
namespace {

std::string cut(const std::string& text, std::size_t length) {
  std::size_t end = std::min(text.size(), length);
  // Never within a character.
  while (end < text.size() && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return text.substr(0, end);
}

std::string literal(const std::string& text, std::size_t length) {
  return Reader::text_literal(cut(text, length));
}

std::string statement_for(const JournalEntry& entry, const std::string& user, std::int64_t number) {
  constexpr std::size_t name_length = 50;
  constexpr std::size_t detail_length = 255;
  std::string now;
  automation::append_time_stamp(now, automation::now());
  return "Insert Into "
         "TALLYRAJOURNAL(SEQNO,DONEAT,ACTION,SUBJECT,RESULT,DETAIL,USERID,OSUSER,HOSTNAME,PROCESSID)"
         " Values(" +
         std::to_string(number) + "," + Reader::text_literal(now) + "," + literal(entry.action, 40) + "," +
         literal(entry.subject, 100) + "," + literal(entry.result, 20) + "," +
         literal(entry.detail, detail_length) + "," + literal(user, name_length) + "," +
         literal(system_user(), 100) + "," + literal(host_name(), detail_length) + "," +
         std::to_string(this_process().id) + ")";
}

}  // namespace

void require_own_tables(VerbContext& context) {
  if (has_own_tables(context.reader())) return;
  if (!context.confirm("The database has no tables for the lock and the journal of this program "
                       "(TALLYRALOCK, TALLYRAJOURNAL). Make them?"))
    throw Refusal("nothing was done: without its tables this program can hold no lock");
  make_own_tables(context.reader());
}

void journal(VerbContext& context, const JournalEntry& entry) noexcept {
  try {
    const Reader& reader = context.reader();
    const auto last = reader.count("Select Max(SEQNO) As N From TALLYRAJOURNAL");
    reader.execute(statement_for(entry, context.user(), last + 1));
  } catch (const std::exception& error) {
    try {
      context.warn("this could not be written to the journal: " + std::string(error.what()));
    } catch (...) {
      // There is nobody left to tell.
    }
  }
}

}  // namespace tallyra::client
