#include "client/verbs/context.h"

#include <cmath>
#include <istream>
#include <ostream>
#include <utility>

#include "automation/folded_name.h"
#include "client/refusal.h"
#include "client/setup/right_advice.h"
#include "client/usage_error.h"
#include "client/wait_notice.h"

namespace tallyra::client {
namespace {

constexpr int last_year = 9999;

}  // namespace

VerbContext::VerbContext(Words words, Session session, const Console& console)
    : words_(std::move(words)), session_(std::move(session)), console_(console) {
  if (has("--csv") && has("--json")) throw UsageError("--csv and --json exclude each other");
}

const Session& VerbContext::session() const {
  if (!session_.connection_string)
    throw UsageError(
        "no database was given: name one by --db, by the variable TALLYRA_DB, or by a line db=... in a "
        "configuration file");
  return session_;
}

const Reader& VerbContext::reader() {
  if (!reader_) {
    const WaitNotice notice(console_);
    reader_.emplace(*session().connection_string, session_.database_kind);
    // Whoever keeps others from reading does so here, where it is told.
    reader_->has_table("STKCLOSEHD");
  }
  return *reader_;
}

Outcome VerbContext::call(const Call& call) const {
  session();
  Outcome outcome = [&] {
    const WaitNotice notice(console_);
    return run_call(call, session_);
  }();
  if (const auto advice = right_advice(call, outcome, session_)) warn(*advice);
  return outcome;
}

OutputFormat VerbContext::format() const {
  if (has("--json")) return OutputFormat::json;
  return has("--csv") ? OutputFormat::csv : OutputFormat::text;
}

void VerbContext::print(const std::vector<Table>& tables) const {
  console_.out << printed(tables, format(), console_.out_width);
}

void VerbContext::tell(std::string_view line) const {
  if (!quiet()) console_.error << line << "\n" << std::flush;
}

void VerbContext::warn(std::string_view line) const {
  console_.error << "tallyra-client: " << line << "\n" << std::flush;
}

bool VerbContext::confirm(std::string_view question) const {
  if (has("--yes")) return true;
  if (!console_.answers)
    throw Refusal(std::string(question) +
                  " Nobody is there to answer: say yes with --yes, or run this in a terminal");
  console_.error << question << " [y/N] " << std::flush;
  std::string answer;
  std::getline(*console_.answers, answer);
  return automation::equals_folded(answer, "y") || automation::equals_folded(answer, "yes");
}

automation::Date date_of(std::string_view word, std::string_view what) {
  const auto date = automation::parse_date(word);
  if (!date)
    throw UsageError("'" + std::string(word) + "' is no " + std::string(what) + ": write YYYY/MM/DD");
  const automation::Date day{std::floor(date->serial)};
  // The documents of a close are dated the day after it.
  if (const automation::CivilTime civil = automation::civil_time(day);
      civil.year == last_year && civil.month == 12 && civil.day == 31)
    throw UsageError(day_text(day) + " is the last day that there is: no day follows it");
  return day;
}

std::string day_text(automation::Date date) {
  std::string text;
  automation::append_day(text, date);
  return text;
}

std::string failure_text(const Outcome& outcome) {
  if (outcome.raised)
    return "error " + std::to_string(outcome.raised->number()) + ": " +
           std::string(outcome.raised->description());
  const auto number = std::llround(outcome.error_number.value_or(0));
  return "error " + std::to_string(number) + ": " + outcome.error_description;
}

}  // namespace tallyra::client
