#include "client/stocktaking/entry.h"

#include "automation/clock.h"
#include "client/month_end/interruption.h"
#include "client/refusal.h"
#include "client/usage_error.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

constexpr std::size_t longest_number = 20;

Call insertion_of_header(const VerbContext& context, const std::string& number, const CountSheet& sheet) {
  return {"Tallyra.CCheckHead",
          "Insert",
          {number},
          1,
          {{"CHECKNO", number},
           {"CHECKDT", *sheet.day},
           {"DEPTNO", sheet.department},
           {"CHECKBY", context.user()},
           {"STATUS", "OPEN"},
           {"STATUSSN", 0},
           {"ADDBY", context.user()},
           {"ADDDT", automation::now()}}};
}

Call insertion_of_line(const VerbContext& context, const std::string& number, const CountedLine& line) {
  Call call{"Tallyra.CCheckDetail", "Insert", {number, line.part}, 2, {}};
  call.fields = {{"CHECKNO", number},
                 {"PARTNO", line.part},
                 {"QTY", line.quantity},
                 {"ADDBY", context.user()},
                 {"ADDDT", automation::now()}};
  if (line.price) call.fields.push_back({"UPRICE", *line.price});
  if (!line.notes.empty()) call.fields.push_back({"NOTES", line.notes});
  return call;
}

std::int64_t rows_of(VerbContext& context, const char* table, const std::string& number) {
  return context.reader().count("Select Count(*) As N From " + std::string(table) +
                                " Where CHECKNO=" + Reader::text_literal(number));
}

// Throws what has gone wrong, after it has taken back what was entered before.
[[noreturn]] void undo(VerbContext& context, const std::string& number, const std::string& reason,
                       ExitStatus status) {
  const Outcome outcome = context.call({"Tallyra.CCheckHead", "Delete", {number}, {}, {}});
  const auto headers = rows_of(context, "STKCHECKHD", number);
  const auto lines = rows_of(context, "STKCHECKDT", number);
  if (headers == 0 && lines == 0)
    throw Refusal(reason + ". What was entered before is deleted again: nothing of " + number + " is left",
                  status);
  throw Refusal(reason + ". What was entered before could not be deleted (" + failure_text(outcome) +
                    "): " + number + " is left with " + std::to_string(lines) +
                    " lines. Delete it before you import again: call CCheckHead Delete " + number,
                status);
}

}  // namespace

void require_check_number(const std::string& number) {
  if (number.empty() || number.size() > longest_number || number.find('\'') != std::string::npos)
    throw UsageError("'" + number +
                     "' is no number of a stocktaking: write up to 20 characters without an apostrophe");
}

void enter_stocktaking(VerbContext& context, const std::string& number, const CountSheet& sheet) {
  const Interruptions interruptions;
  const Outcome header = context.call(insertion_of_header(context, number, sheet));
  if (!header.succeeded())
    throw Refusal(number + " is not entered: " + failure_text(header) + ". Nothing was written");
  for (const CountedLine& line : sheet.lines) {
    if (Interruptions::count() > 0) undo(context, number, "interrupted", exit_interrupted);
    const Outcome outcome = context.call(insertion_of_line(context, number, line));
    if (!outcome.succeeded())
      undo(context, number,
           "line " + std::to_string(line.line) + ", part " + line.part + ": " + failure_text(outcome),
           exit_failed);
  }
  const auto stored = rows_of(context, "STKCHECKDT", number);
  if (stored != static_cast<std::int64_t>(sheet.lines.size()))
    undo(context, number, "only " + std::to_string(stored) + " lines were stored", exit_failed);
}

}  // namespace tallyra::client
