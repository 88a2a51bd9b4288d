#include "client/month_end/check.h"

#include <algorithm>
#include <utility>

#include "automation/error.h"
#include "client/month_end/period.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

// Runs a look. One that the database refuses is told with the others; a database that answers nothing any
// more ends the check.
template <class Look>
void look_at(CloseCase& close, std::string_view name, Look look) {
  try {
    look();
  } catch (const automation::Error& error) {
    close_records(close.reader);
    if (++close.refused.count <= static_cast<std::int64_t>(first_rows))
      close.refused.first.push_back(std::string(name) + ": " + error.what());
  }
}

const char* word_of(Severity severity) {
  return severity == Severity::error ? "error" : "warning";
}

}  // namespace

std::vector<std::string> CheckResult::errors_beside(const std::vector<std::string>& forced) const {
  std::vector<std::string> names;
  for (const Entry& entry : entries)
    if (entry.finding->severity == Severity::error &&
        std::ranges::find(forced, entry.finding->name) == forced.end())
      names.emplace_back(entry.finding->name);
  return names;
}

CheckResult check_close(const Reader& reader, automation::Date date) {
  CheckResult result;
  CloseCase close = close_case(reader, date);
  look_at(close, "sums", [&] { gather(close); });
  for (const Finding* finding : findings())
    look_at(close, finding->name, [&] {
      if (Found found = finding->look(close); found.count != 0)
        result.entries.push_back({finding, std::move(found)});
    });
  std::ranges::stable_partition(result.entries, [](const CheckResult::Entry& entry) {
    return entry.finding->severity == Severity::error;
  });
  result.plan = close.gathered.plan;
  result.left = close.left;
  return result;
}

std::vector<Table> check_tables(const CheckResult& result) {
  Table summary{
      "findings", "", {{"severity"}, {"finding"}, number_column("count"), {"text"}, {"advice"}}, {}};
  Table rows{"rows", "", {{"finding"}, {"what"}}, {}};
  for (const auto& [finding, found] : result.entries) {
    summary.rows.push_back({word_of(finding->severity), finding->name, static_cast<double>(found.count),
                            finding->text, finding->advice});
    for (const std::string& text : found.first) rows.rows.push_back({finding->name, text});
  }
  return {std::move(summary), std::move(rows)};
}

std::string check_text(const CheckResult& result) {
  std::string text;
  for (const auto& [finding, found] : result.entries) {
    text.append(word_of(finding->severity)).append(" ").append(finding->name);
    text += " (" + std::to_string(found.count) + "): " + std::string(finding->text) + "\n";
    for (const std::string& first : found.first) text += "    " + first + "\n";
    if (found.count > static_cast<std::int64_t>(found.first.size())) text += "    ...\n";
    text.append("    to do: ").append(finding->advice) += '\n';
  }
  return text;
}

}  // namespace tallyra::client
