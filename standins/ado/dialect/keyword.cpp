#include "standins/ado/dialect/keyword.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tallyra::standins::ado::dialect {
namespace {

struct Entry {
  std::string_view word;
  Keyword keyword;
};

// Grouped by first letter: `first_with` depends on it.
constexpr auto entries = std::to_array<Entry>({
    {"ALL", Keyword::all},
    {"ALTER", Keyword::alter},
    {"AND", Keyword::and_},
    {"AS", Keyword::as},
    {"BETWEEN", Keyword::between},
    {"BY", Keyword::by},
    {"CASE", Keyword::case_},
    {"CREATE", Keyword::create},
    {"CROSS", Keyword::cross},
    {"DEFAULT", Keyword::default_},
    {"DELETE", Keyword::delete_},
    {"DISTINCT", Keyword::distinct},
    {"DISTINCTROW", Keyword::distinctrow},
    {"DROP", Keyword::drop},
    {"ELSE", Keyword::else_},
    {"END", Keyword::end},
    {"EXCEPT", Keyword::except},
    {"FROM", Keyword::from},
    {"FULL", Keyword::full},
    {"GROUP", Keyword::group},
    {"HAVING", Keyword::having},
    {"IN", Keyword::in},
    {"INDEXED", Keyword::indexed},
    {"INNER", Keyword::inner},
    {"INSERT", Keyword::insert},
    {"INTERSECT", Keyword::intersect},
    {"INTO", Keyword::into},
    {"IS", Keyword::is},
    {"JOIN", Keyword::join},
    {"LEFT", Keyword::left},
    {"LIKE", Keyword::like},
    {"LIMIT", Keyword::limit},
    {"NATURAL", Keyword::natural},
    {"NOT", Keyword::not_},
    {"OFFSET", Keyword::offset},
    {"ON", Keyword::on},
    {"OR", Keyword::or_},
    {"ORDER", Keyword::order},
    {"OUTER", Keyword::outer},
    {"PERCENT", Keyword::percent},
    {"RETURNING", Keyword::returning},
    {"RIGHT", Keyword::right},
    {"SELECT", Keyword::select},
    {"SET", Keyword::set},
    {"THEN", Keyword::then},
    {"TIES", Keyword::ties},
    {"TOP", Keyword::top},
    {"UNION", Keyword::union_},
    {"UPDATE", Keyword::update},
    {"USING", Keyword::using_},
    {"VALUES", Keyword::values},
    {"WHEN", Keyword::when},
    {"WHERE", Keyword::where},
    {"WINDOW", Keyword::window},
    {"WITH", Keyword::with},
});

constexpr auto first_with = [] {
  std::array<std::size_t, 27> starts{};
  std::size_t entry = 0;
  for (std::size_t letter = 0; letter < starts.size(); ++letter) {
    while (entry < entries.size() && static_cast<std::size_t>(entries[entry].word[0] - 'A') < letter) ++entry;
    starts[letter] = entry;
  }
  return starts;
}();

constexpr char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace

bool same_name(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [](char a, char b) { return upper(a) == upper(b); });
}

Keyword keyword_of(std::string_view word) {
  const char initial = word.empty() ? '\0' : upper(word[0]);
  if (initial < 'A' || initial > 'Z') return Keyword::none;
  const auto letter = static_cast<std::size_t>(initial - 'A');
  for (std::size_t i = first_with[letter]; i < first_with[letter + 1]; ++i)
    if (same_name(word, entries[i].word)) return entries[i].keyword;
  return Keyword::none;
}

}  // namespace tallyra::standins::ado::dialect
