#include <algorithm>

#include "client/listing/listed_class.h"
#include "client/setup/functions.h"
#include "client/suggestion.h"
#include "client/usage_error.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"
#include "client/verbs/limit.h"

// The records of a class.
namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--from", "DATE", "nothing before that day"},
    {"--to", "DATE", "nothing after that day"},
    {"--type", "TYPE",
     "only documents of that type, such as STK010POREV; cost settings of that material type"},
    {"--status", "STATUS", "only those that are unapproved, approved or left-out, or with that number"},
    {"--department", "NUMBER", "only those of that department"},
    {"--limit", "NUMBER", "no more rows than that; 100 when nothing is said, 0 for all"},
};
constexpr std::string_view examples[] = {
    "list CTranHead --db stock.db --from 2024/01/01 --to 2024/01/31 --type STK010POREV",
    "list CCheckHead --db stock.db --status unapproved",
    "list CTranDetail --db stock.db --department 20 --limit 0 --csv",
};

std::string whole_number(const std::string& word, std::string_view option) {
  if (word.empty() || word.find_first_not_of("0123456789") != std::string::npos)
    throw UsageError(std::string(option) + " '" + word + "': write a whole number");
  return word;
}

std::string status_number(const std::string& word) {
  if (word == "unapproved") return "0";
  if (word == "approved") return "1";
  if (word == "left-out") return "3";
  if (word.find_first_not_of("0123456789") != std::string::npos || word.empty())
    throw UsageError("--status '" + word + "': write unapproved, approved, left-out or a number");
  return word;
}

// Collects the conditions of the options that were given.
class Conditions {
 public:
  Conditions(VerbContext& context, const ListedClass& listed) : context_(context), listed_(listed) {
    const Reader& reader = context.reader();
    require_order();
    add("--from", listed.date, [&](const std::string& word) {
      return std::string(listed_.date) + ">=" + reader.date_literal(date_of(word, "date"));
    });
    add("--to", listed.date, [&](const std::string& word) {
      return std::string(listed_.date) + "<" +
             reader.date_literal(automation::add_days(date_of(word, "date"), 1));
    });
    add("--type", listed.type, [&](const std::string& word) {
      return std::string(listed_.type) + "=" +
             (listed_.type_is_number ? whole_number(word, "--type") : Reader::text_literal(word));
    });
    add("--status", listed.status,
        [&](const std::string& word) { return std::string(listed_.status) + "=" + status_number(word); });
    add("--department", listed.department, [&](const std::string& word) { return department(word); });
  }
  const std::string& text() const { return text_; }

 private:
  void require_order() const {
    const auto from = context_.words().value("--from");
    const auto to = context_.words().value("--to");
    if (from && to && date_of(*from, "date").serial > date_of(*to, "date").serial)
      throw UsageError("--from " + *from + " is later than --to " + *to);
  }
  template <typename Make>
  void add(std::string_view option, std::string_view column, const Make& make) {
    const auto word = context_.words().value(option);
    if (!word) return;
    if (column.empty())
      throw UsageError(std::string(listed_.name) + " has nothing for " + std::string(option) +
                       ": leave it out");
    text_.append(text_.empty() ? " Where " : " And ").append(make(*word));
  }
  std::string department(const std::string& word) const {
    const std::string number = Reader::text_literal(word);
    std::string of = std::string(listed_.department) + "=" + number;
    if (!listed_.has_transfers) return of;
    return "(" + of + " Or (STKTRANHD.TRANTYPE='STK024MRPL' And STKTRANHD.DEPTNOTO=" + number + "))";
  }

  VerbContext& context_;
  const ListedClass& listed_;
  std::string text_;
};

std::string query_for(const ListedClass& listed, const std::string& condition) {
  std::string columns;
  for (const ListedColumn& column : listed.columns)
    columns.append(columns.empty() ? "" : ",").append(column.sql);
  return "Select " + columns + " From " + std::string(listed.from) + condition + " Order By " +
         std::string(listed.order);
}

// Those without a date come last: engines differ in where Null sorts.
std::vector<Row> rows_of(const Reader& reader, const ListedClass& listed, const std::string& condition,
                         std::size_t limit) {
  const auto rows = [&](const std::string& where, std::size_t most) {
    const std::string query = query_for(listed, where);
    return limit == 0 ? reader.rows(query).rows : reader.first_rows(query, most).rows;
  };
  if (listed.date.empty()) return rows(condition, limit);
  const std::string date = (condition.empty() ? " Where " : condition + " And ") + std::string(listed.date);
  std::vector<Row> result = rows(date + " Is Not Null", limit);
  if (limit != 0 && result.size() == limit) return result;
  for (Row& row : rows(date + " Is Null", limit - result.size())) result.push_back(std::move(row));
  return result;
}

// Why there may be no row: what a filter names may be misspelt.
std::string doubts(VerbContext& context, const ListedClass& listed) {
  std::string text;
  if (const auto type = context.words().value("--type"); type && !listed.type_is_number) {
    std::vector<std::string_view> codes;
    for (const FunctionCode& code : function_codes()) codes.push_back(code.code);
    if (std::ranges::find(codes, *type) == codes.end())
      text += "; '" + *type + "' is no type that is known" + did_you_mean(*type, codes);
  }
  if (const auto department = context.words().value("--department");
      department && context.reader().count("Select Count(*) As N From DEPARTS Where DEPTNO=" +
                                           Reader::text_literal(*department)) == 0)
    text += "; there is no department " + *department;
  return text;
}

ExitStatus run(VerbContext& context) {
  constexpr std::size_t usual_limit = 100;
  const ListedClass& listed = listed_class(context.argument(0));
  const std::size_t limit = limit_of(context, usual_limit);
  const std::string condition = Conditions(context, listed).text();
  Table table{"rows", "", {}, {}};
  for (const ListedColumn& column : listed.columns)
    table.columns.push_back({std::string(column.heading), column.is_number ? Align::right : Align::left});
  table.rows = rows_of(context.reader(), listed, condition, limit);
  const std::size_t shown = table.rows.size();
  context.print(table);
  if (shown == 0) context.tell("There is no such row" + doubts(context, listed) + ".");
  if (limit == 0 || shown < limit) return exit_done;
  const auto all =
      context.reader().count("Select Count(*) As N From " + std::string(listed.from) + condition);
  if (static_cast<std::size_t>(all) > shown)
    context.tell(std::to_string(shown) + " of " + std::to_string(all) + " are shown: --limit 0 shows all.");
  return exit_done;
}

}  // namespace

const Verb list_verb{
    .name = "list",
    .arguments = "CLASS",
    .summary = "the records of a class: documents, stocktakings, closes, addresses, ...",
    .help =
        "Lists the records that CLASS keeps, the latest first: documents (CTranHead) and their lines\n"
        "(CTranDetail), stocktakings (CCheckHead) and what was counted (CCheckDetail), closes\n"
        "(CStockClose), cost settings, addresses, controllers and shipping notes.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
