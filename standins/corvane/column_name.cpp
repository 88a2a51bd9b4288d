#include "standins/corvane/column_name.h"

#include <algorithm>

#include "automation/folded_name.h"

namespace tallyra::standins::corvane {
namespace {

constexpr std::string_view reserved_words[] = {
    "add",    "all",    "alter",  "and",    "as",     "asc",     "between", "by",         "case",
    "check",  "column", "create", "cross",  "date",   "default", "delete",  "desc",       "distinct",
    "drop",   "else",   "end",    "escape", "exists", "from",    "group",   "having",     "in",
    "index",  "inner",  "insert", "into",   "is",     "join",    "key",     "left",       "like",
    "not",    "null",   "on",     "or",     "order",  "outer",   "primary", "references", "right",
    "select", "set",    "table",  "then",   "time",   "to",      "top",     "union",      "unique",
    "update", "user",   "values", "view",   "when",   "where",   "with",
};

bool is_letter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool is_reserved(std::string_view name) {
  return std::ranges::any_of(reserved_words,
                             [&](std::string_view word) { return automation::equals_folded(word, name); });
}

}  // namespace

bool is_plain_name(std::string_view name) {
  return !name.empty() && is_letter(name.front()) &&
         std::ranges::all_of(name, [](char c) { return is_letter(c) || is_digit(c); });
}

void append_column_name(std::string& out, std::string_view name) {
  if (is_plain_name(name) && !is_reserved(name)) {
    out += name;
    return;
  }
  out += '[';
  out += name;
  out += ']';
}

}  // namespace tallyra::standins::corvane
